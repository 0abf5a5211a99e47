#include "desk/price_selection.h"

#include <array>
#include <string_view>

#include "desk/safe_calc.h"
#include "desk/sources.h"
#include "desk/steps.h"
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

PriceSelection::PriceSelection(const DeskParts& parts) : parts_(parts) {
  parts_.cursors.StokData.repositioned.Connect([this] { ShowItem(); });
  parts_.screen.Label1(2).mouseDown.Connect([this](const MouseEvent& event) {
    if (event.button == 2) parts_.screen.popUp(parts_.screen.Popyuzde);
  });
  parts_.screen.Yuzde.click.Connect([this] { AskMinPercent(); });
}

void PriceSelection::ShowItem() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (form.RepositionGuard == 66 || form.KeyboardOpen) return;
  screen.Label1(2).SetCaption(std::string(kPriceNames[0]));
  FillSlots();
  screen.List1.ClearItems();
  if (!cursors.StokData.HasCurrent() || form.RepositionGuard == 99 || screen.CariGrid.Visible()) return;

  screen.Text1(1).SetText(cursors.StokData.Text("StokAdi"));
  const std::size_t slot = SlotOf(Trim(screen.Label1(2).Caption()));
  screen.Label1(2).SetCaption(std::string(kPriceNames[slot]));
  const double price = form.PriceSlots[slot];
  const double discount = SafeCalcNumber(CalcOp::Multiply, price, screen.Text2(3).Text()) / 100;
  screen.Text2(0).SetText(Format(price - discount, form.PriceFormat));
  KeepFloor();  // also where the text stays as it was and nobody hears of a change
  const double pieces = slot == 1 ? cursors.StokData.Number("Adet2") : slot == 2 ? cursors.StokData.Number("Adet3") : 1;
  screen.Text2(1).SetText(PlainNumber(pieces));
}

void PriceSelection::FillSlots() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const Cursor& card = cursors.StokData;
  Cursor& special = cursors.OzelFiyat;
  auto& slots = form.PriceSlots;
  slots[kSpecial] = 0;
  step("find special price", special.FindFirst("StokKod=" + sources::Quoted(card.Text("StokKod")) +
                                               " And CariKod=" + sources::Quoted(cursors.CariData.Text("CariKod"))));
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
  auto& [screen, form, cursors, settings, world] = parts_;
  Element& price = screen.Text2(0);
  if (!screen.Text1(1).Text().empty()) {
    std::size_t slot = (SlotOf(Trim(screen.Label1(2).Caption())) + 1) % kPriceNames.size();
    if (form.PriceSlots[slot] == 0) slot = form.PriceSlots[kSpecial] != 0 ? kSpecial : 0;
    screen.Label1(2).SetCaption(std::string(kPriceNames[slot]));
    price.SetText(Format(form.PriceSlots[slot], form.PriceFormat));
    price.SetFocus();
  }
  price.SelectAll();
}

void PriceSelection::KeepFloor() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const double listed = cursors.StokData.Number("Fiyat");
  const double price = NumberOrZero(screen.Text2(0).Text());
  if (form.MinSalePercent <= 0 || listed == 0 || price >= listed) return;
  const double floor = listed - static_cast<double>(form.MinSalePercent) * listed / 100;
  if (price < floor) screen.Text2(0).SetText(Format(floor, form.PriceFormat));
}

bool PriceSelection::SecondPriceForGroup() const {
  return parts_.screen.Fiyat2.Checked() && EqualText(parts_.screen.GurupCombo.Text(), "Fatura");
}

void PriceSelection::SetFirstPriceColumn() {
  GridElement& grid = parts_.screen.StokGrid;
  auto columns = grid.Columns();
  for (GridColumn& column : columns) {
    if (Trim(column.caption) != "1.Fiyat") continue;
    column.field = parts_.screen.Fiyat2.Checked() && EqualText(parts_.form.CustomerGroup, "Fatura") ? "Fiyat2" : "Fiyat";
    column.width = 0;  // fitted to the heading again
  }
  grid.SetColumns(std::move(columns));
}

void PriceSelection::AskMinPercent() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string password = settings.Get(Setting::UsePassword);
  if (!password.empty() && world.messages.InputBox("Lütfen Kullanım Şifresi Girin", "Kullanım Şifresi", "") != password) return;
  const auto answer = world.messages.InputBox("Lütfen Satış Yüzdesi Girin", "Min.Satış Yüzdesi", "0");
  if (!answer) return;
  form.MinSalePercent = static_cast<float>(NumberOrZero(*answer));
  settings.SaveNumber(Setting::MinSalePercent, NumberOrZero(*answer));
}

}  // namespace karvel
