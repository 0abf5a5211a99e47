#include "desk/price_selection.h"

#include <algorithm>

#include "books/customer_prices.h"
#include "books/safe_calc.h"
#include "desk/captions.h"
#include "desk/served_customer.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// The slots, in the order of the price names.
constexpr std::size_t kFirst = 0, kSecond = 1, kThird = 2, kSpecial = 3;

std::size_t SlotOf(PriceName name) {
  return static_cast<std::size_t>(name);
}

}  // namespace

double HeldDiscount(double percent) {
  return std::clamp(percent, 0.0, kMostDiscount);
}

PriceSelection::PriceSelection(const DeskParts& parts, const CustomerInFront& customer, PriceFloor& floor)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), customer_(customer), floor_(floor) {
  connections_ += cursors_.StokData.repositioned.Connect([this] { ShowItem(); });
}

void PriceSelection::ShowItem() {
  if (form_.RepositionGuard.ItemsStill() || form_.KeyboardOpen) return;
  screen_.Label1(2).SetCaption(std::string(kPriceNames[kFirst]));
  FillSlots();
  screen_.List1.ClearItems();
  if (!cursors_.StokData.HasCurrent() || form_.RepositionGuard.ItemFieldsStill() || AtRest(screen_)) return;

  screen_.Text1(1).SetText(cursors_.StokData.Text("StokAdi"));
  const std::size_t slot = SlotOf(PriceNameOnScreen(screen_));
  screen_.Label1(2).SetCaption(std::string(kPriceNames[slot]));
  Offer(form_.PriceSlots[slot]);
  const double pieces = slot == kSecond ? cursors_.StokData.Number("Adet2") : slot == kThird ? cursors_.StokData.Number("Adet3") : 1;
  screen_.Text2(1).SetText(PlainNumber(pieces));
}

void PriceSelection::Offer(double price) {
  const double discount = SafeCalcNumber(CalcOp::Multiply, price, HeldDiscount(NumberOrZero(screen_.Text2(3).Text()))) / 100;
  screen_.Text2(0).SetText(Format(price - discount, form_.PriceFormat));
  floor_.Keep();  // also where the text was the same before, so that nobody heard of a change
}

void PriceSelection::ShowUnsoldItem() {
  if (!cursors_.StokData.HasCurrent()) screen_.Text1(1).SetText("");
  ShowItem();
  screen_.Text2(1).SetText("0");
}

void PriceSelection::FillSlots() {
  const Cursor& card = cursors_.StokData;
  auto& slots = form_.PriceSlots;
  slots[kFirst] = card.Number(SecondPriceForGroup() ? "Fiyat2" : "Fiyat");
  slots[kSecond] = card.Number("Fiyat2");
  slots[kThird] = card.Number("Fiyat3");
  slots[kSpecial] = 0;
  if (!customer_.IsThere()) return;
  const SpecialPrices own = FindSpecialPrices(world_.stores, card.Text("StokKod"), ServedCode(screen_, form_, cursors_));
  if (!own.kept) return;
  // The customer's own prices. His first one stands beside the card's as "Özel", and never replaces it.
  if (own.first != 0) slots[kSpecial] = own.first;
  if (own.second != 0) slots[kSecond] = own.second;
  if (own.third != 0) slots[kThird] = own.third;
  slots[kFirst] = std::max(slots[kFirst], card.Number("Fiyat"));
}

void PriceSelection::Step() {
  Element& price = screen_.Text2(0);
  if (!screen_.Text1(1).Text().empty()) {
    std::size_t slot = (SlotOf(PriceNameOnScreen(screen_)) + 1) % kPriceNames.size();
    if (form_.PriceSlots[slot] == 0) slot = form_.PriceSlots[kSpecial] != 0 ? kSpecial : kFirst;
    screen_.Label1(2).SetCaption(std::string(kPriceNames[slot]));
    price.SetText(Format(form_.PriceSlots[slot], form_.PriceFormat));
    price.SetFocus();
  }
  price.SelectAll();
}

bool PriceSelection::SecondPriceForGroup() const {
  return screen_.Fiyat2.Checked() && EqualText(screen_.GurupCombo.Text(), "Fatura");
}

void PriceSelection::SetFirstPriceColumn() {
  GridElement& grid = screen_.StokGrid;
  auto columns = grid.Columns();
  for (GridColumn& column : columns) {
    if (Trim(column.caption) != "1.Fiyat") continue;
    column.field = screen_.Fiyat2.Checked() && EqualText(form_.CustomerGroup, "Fatura") ? "Fiyat2" : "Fiyat";
    column.width = 0;  // fitted to the heading again
  }
  grid.SetColumns(std::move(columns));
}

}  // namespace karvel
