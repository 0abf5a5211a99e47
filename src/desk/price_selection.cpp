#include "desk/price_selection.h"

#include <array>
#include <string_view>

#include "books/safe_calc.h"
#include "books/sources.h"
#include "books/steps.h"
#include "platform/messages.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::array<std::string_view, 4> kPriceNames{"1.Fiyat", "2.Fiyat", "3.Fiyat", "Özel"};
constexpr std::size_t kSpecial = 3;
const Steps step("PriceSelection");

std::size_t SlotOf(std::string_view priceName) {
  for (std::size_t slot = 0; slot < kPriceNames.size(); ++slot)
    if (kPriceNames[slot] == priceName) return slot;
  return kSpecial;
}

}  // namespace

PriceSelection::PriceSelection(const DeskParts& parts)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), settings_(parts.settings), world_(parts.world) {
  connections_ += cursors_.StokData.repositioned.Connect([this] { ShowItem(); });
  connections_ += screen_.Label1(2).mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == 2) screen_.popUp(screen_.Popyuzde);
  });
  connections_ += screen_.Yuzde.click.Connect([this] { AskMinPercent(); });
}

void PriceSelection::ShowItem() {
  if (form_.RepositionGuard == 66 || form_.KeyboardOpen) return;
  screen_.Label1(2).SetCaption(std::string(kPriceNames[0]));
  FillSlots();
  screen_.List1.ClearItems();
  if (!cursors_.StokData.HasCurrent() || form_.RepositionGuard == 99 || screen_.CariGrid.Visible()) return;

  screen_.Text1(1).SetText(cursors_.StokData.Text("StokAdi"));
  const std::size_t slot = SlotOf(Trim(screen_.Label1(2).Caption()));
  screen_.Label1(2).SetCaption(std::string(kPriceNames[slot]));
  const double price = form_.PriceSlots[slot];
  const double discount = SafeCalcNumber(CalcOp::Multiply, price, screen_.Text2(3).Text()) / 100;
  screen_.Text2(0).SetText(Format(price - discount, form_.PriceFormat));
  KeepFloor();  // also where the text stays as it was and nobody hears of a change
  const double pieces = slot == 1 ? cursors_.StokData.Number("Adet2") : slot == 2 ? cursors_.StokData.Number("Adet3") : 1;
  screen_.Text2(1).SetText(PlainNumber(pieces));
}

void PriceSelection::FillSlots() {
  const Cursor& card = cursors_.StokData;
  Cursor& special = cursors_.OzelFiyat;
  auto& slots = form_.PriceSlots;
  slots[kSpecial] = 0;
  step("find special price", special.FindFirst("StokKod=" + sources::Quoted(card.Text("StokKod")) +
                                               " And CariKod=" + sources::Quoted(cursors_.CariData.Text("CariKod"))));
  slots[0] = card.Number(SecondPriceForGroup() ? "Fiyat2" : "Fiyat");
  slots[1] = card.Number("Fiyat2");
  slots[2] = card.Number("Fiyat3");
  if (special.NoMatch()) return;
  // The customer's own prices. His first one stands beside the card's as "Özel", it never replaces it.
  if (const double own = special.Number("0Fiyat"); own != 0) slots[kSpecial] = own;
  if (const double own = special.Number("1Fiyat"); own != 0) slots[1] = own;
  if (const double own = special.Number("2Fiyat"); own != 0) slots[2] = own;
  slots[0] = std::max(slots[0], card.Number("Fiyat"));
}

void PriceSelection::Step() {
  Element& price = screen_.Text2(0);
  if (!screen_.Text1(1).Text().empty()) {
    std::size_t slot = (SlotOf(Trim(screen_.Label1(2).Caption())) + 1) % kPriceNames.size();
    if (form_.PriceSlots[slot] == 0) slot = form_.PriceSlots[kSpecial] != 0 ? kSpecial : 0;
    screen_.Label1(2).SetCaption(std::string(kPriceNames[slot]));
    price.SetText(Format(form_.PriceSlots[slot], form_.PriceFormat));
    price.SetFocus();
  }
  price.SelectAll();
}

void PriceSelection::KeepFloor() {
  const double listed = cursors_.StokData.Number("Fiyat");
  const double price = NumberOrZero(screen_.Text2(0).Text());
  if (form_.MinSalePercent <= 0 || listed == 0 || price >= listed) return;
  const double floor = listed - static_cast<double>(form_.MinSalePercent) * listed / 100;
  if (price < floor) screen_.Text2(0).SetText(Format(floor, form_.PriceFormat));
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

void PriceSelection::AskMinPercent() {
  const std::string password = settings_.Get(Setting::UsePassword);
  if (!password.empty() && world_.messages.InputBox("Lütfen Kullanım Şifresi Girin", "Kullanım Şifresi", "") != password) return;
  const auto answer = world_.messages.InputBox("Lütfen Satış Yüzdesi Girin", "Min.Satış Yüzdesi", "0");
  if (!answer) return;
  form_.MinSalePercent = static_cast<float>(NumberOrZero(*answer));
  settings_.SaveNumber(Setting::MinSalePercent, NumberOrZero(*answer));
}

}  // namespace karvel
