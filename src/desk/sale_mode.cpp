#include "desk/sale_mode.h"

#include "desk/booking_panels.h"
#include "desk/list_in_front.h"
#include "desk/screen_keyboard.h"
#include "desk/sources.h"
#include "desk/steps.h"
#include "desk/stored_cards.h"
#include "platform/event_loop.h"
#include "platform/scanner.h"
#include "platform/window.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("SaleMode");
}

SaleMode::SaleMode(const DeskParts& parts, PriceSelection& prices, SaleFields& fields, DayTotal& dayTotal)
    : parts_(parts), prices_(prices), fields_(fields), dayTotal_(dayTotal) {
  Screen& screen = parts_.screen;
  for (int i = 0; i < screen.Label1.Count(); ++i) screen.Label1(i).dblClick.Connect([this, i] { DoubleTap(i); });
  screen.Label4.dblClick.Connect([this] { NextMode(); });
  screen.StokGrid.click.Connect([this] { TapStock(); });
}

void SaleMode::DoubleTap(int index) {
  auto& [screen, form, cursors, settings, world] = parts_;
  Element& label = screen.Label1(index);
  world.scanner.SetEnabled(false);
  // A second double tap that is still on its way must not undo the first. Both are on again before a handler hands out the focus.
  label.SetEnabled(false);
  screen.Form1.SetEnabled(false);
  world.loop.RunPending();
  screen.Form1.SetEnabled(true);
  label.SetEnabled(true);
  switch (index) {
    case 0:
      EnterOrLeave();
      break;
    case 1:
      FlipSearch();
      break;
    case 2:
      prices_.Step();
      break;
    case 3:
      screen.Text2(1).SetFocus();
      break;
    case 5:
      screen.Text2(2).SetFocus();
      break;
    case 6:
      screen.Text2(3).SetFocus();
      break;
    default:
      break;
  }
  world.scanner.SetEnabled(true);
}

void SaleMode::FlipSearch() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseKeyboard(parts_);
  if (!form.LastStokSearch.empty()) {
    Cursor& cards = cursors.StokData;
    const std::string criteria = "StokAdi Like '" + form.LastStokSearch + "'";
    step("find next name", cards.FindNext(criteria));
    if (cards.NoMatch()) step("find name", cards.FindFirst(criteria));
    if (cards.NoMatch()) form.LastStokSearch.clear();
  }
  if (!form.LastStokSearch.empty()) return;
  Element& label = screen.Label1(1);
  label.SetCaption(label.Caption() == " Barkod" ? " Ürün" : " Barkod");
  settings.Save(Setting::SearchCaption, label.Caption());
  screen.Text1(1).SetText("");
  screen.Text1(1).SetFocus();
}

void SaleMode::EnterOrLeave() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (screen.CariGrid.Visible()) {
    if (!Enter()) return;
  } else {
    Leave();
  }
  if (screen.CariGrid.Visible()) {
    screen.Label1(0).SetCaption(" Satış");
    screen.Command1.SetCaption("Yazdır");
    return;
  }
  screen.Label1(0).SetCaption(" Müşteri");
  if (screen.Label1(1).Caption() == " Barkod") screen.Text1(1).SetFocus();
}

bool SaleMode::Enter() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& customers = cursors.CariData;
  if (!ListsCustomers(screen)) return false;  // no row of stock or of the day book buys anything
  CloseKeyboard(parts_);                      // what was written on it is taken, so the item in front is shown
  CloseBookingPanels(screen);
  screen.Text2(2).SetText("0");
  screen.Text2(3).SetText("0");
  if (ContainsText(customers.RecordSource(), "Gurup='Toptan")) {
    // From the wholesale list the way leads back to the customers.
    form.RepositionGuard = 100;
    step("customer list", customers.Open(sources::kCustomers));
    form.RepositionGuard = 0;
    // The balance on the screen is that of the row in front, no more the wholesaler's.
    if (customers.HasCurrent()) step("customer in front", customers.MoveTo(customers.CurrentKey()));
    screen.Text1(0).SetText("");
    screen.Label1(5).SetCaption(" Tahsilat");
    screen.Label1(0).SetCaption(" Müşteri");
    screen.Vadefrm.SetVisible(false);
    return false;
  }
  form.SlipNo.clear();
  if (customers.HasCurrent() && customers.Text("Unvan") == screen.Text1(0).Text()) {
    // The row in front is the one meant, also when another bears the same name.
    step("chosen customer", customers.MoveTo(customers.CurrentKey()));
  } else {
    step("find customer", customers.FindFirst("Unvan='" + screen.Text1(0).Text() + "'"));
    if (customers.NoMatch()) return false;
  }
  screen.Command2.SetCaption("Tamam");
  screen.HareketGrid.SetMarker(false);
  if (screen.Text1(0).Text().empty()) screen.Text1(0).SetText(customers.Text("Unvan"));
  if (form.RepositionGuard != 4) {
    form.RepositionGuard = 0;
    form.CurrentCustomerCode = customers.Text("CariKod");
    screen.CariGrid.SetVisible(false);
    screen.Label5.SetColor(color::kGreen);
  }
  step("day book", cursors.HareketData.Open(sources::DayBookOf(customers.Text("CariKod"))));
  // Ledger and due dates are the customer's own, also when the last sale was left in purchase mode, which mutes the list.
  step("ledger", cursors.CariHarData.Open(sources::LedgerOf(customers.Text("CariKod"))));
  step("due dates", cursors.VadeData.Open(sources::DueDatesOf(customers.Text(0))));
  dayTotal_.ShowToday();
  screen.Label8.SetCaption(customers.Text("Unvan"));
  ShowSaleScreen();
  return true;
}

void SaleMode::ShowSaleScreen() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const bool byBarcode = screen.Label1(1).Caption() == " Barkod";
  screen.Frame2.SetVisible(true);
  screen.Frame2.BringToFront();
  if (byBarcode) form.RepositionGuard = 66;  // with a scanner no item is offered before the first code
  step("refresh stock", cursors.StokData.Refresh());
  form.RepositionGuard = 0;
  std::string name = screen.Label8.Caption();
  while (!name.empty() && world.window.TextWidth("Label8", name + "  ") > world.window.InnerWidth("Label8"))
    name = LeftLetters(name, LetterCount(name) - 1);
  screen.Label8.SetCaption(name);
  screen.Text1(0).SetEnabled(false);
  screen.Label4.SetCaption("Satış");
  screen.Label4.SetColor(color::kYellow);
  if (screen.CariGrid.Visible()) form.ActiveCursor = &cursors.CariData;
  screen.Text2(1).SetText("0");
  screen.Label2.SetCaption("0,00");
  screen.StokGrid.SetVisible(cursors.StokData.HasRows());
  screen.HareketGrid.SetVisible(true);
  if (ContainsText(cursors.CariData.Text("Unvan"), sources::kWalkIn)) screen.Command1.SetCaption("Tahsilat");
  if (byBarcode) {
    screen.Text1(1).SetText("");
    screen.Label11.SetCaption("");
    screen.Text1(1).SetFocus();
  } else {
    screen.StokGrid.SetFocus();
  }
}

void SaleMode::Leave() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CloseBookingPanels(screen);
  // The next customer's items are looked for in the whole list.
  screen.Text5.SetText("");
  if (ContainsText(cursors.StokData.RecordSource(), " Like ")) {
    form.RepositionGuard = 66;
    step("all stock", cursors.StokData.Open(sources::kStock));
    form.RepositionGuard = 0;
  }
  screen.CariGrid.SetVisible(true);
  screen.StokGrid.SetVisible(false);
  screen.HareketGrid.SetVisible(false);
  screen.Label5.SetColor(color::kWhite);
  // Beside the list stands the balance again, not the sum of the day or of a slip.
  screen.Label1(7).SetCaption("Bakiye");
  screen.Label5.SetCaption(PlainNumber(StoredBalance(world.stores, cursors.CariData)));
  screen.Text1(0).SetEnabled(true);
  screen.Text2(2).SetText("0");
  screen.Text2(3).SetText("0");
  screen.Label8.SetCaption(cursors.CariData.Text("CariKod"));
  screen.Frame2.SetVisible(false);
  // An item or a line that was tapped in the sale is not meant any more: at rest the button takes payments.
  form.EditLineId.clear();
  screen.Command3.SetCaption("Çıkış");
  screen.Text2(1).SetText("0");
  screen.Command2.SetCaption("Tamam");
  fields_.OpenMainButton();
  step("refresh ledger", cursors.CariHarData.Refresh());
  step("refresh movements", cursors.StokHarData.Refresh());
  screen.CariGrid.SetFocus();
}

void SaleMode::NextMode() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string mode = screen.Label4.Caption();
  screen.Label4.SetCaption(mode == "Satış" ? "İade" : mode == "İade" ? "Alış" : "Satış");
  screen.Frame4.SetVisible(false);
  screen.StokGrid.SetFocus();
  step("day book", cursors.HareketData.Open(sources::DayBookOf(cursors.CariData.Text("CariKod"), "Asc")));
}

void SaleMode::TapStock() {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.EditLineId.clear();
  screen.Label5.SetColor(color::kGreen);
  screen.Command3.SetCaption("Çıkış");
  CloseKeyboard(parts_);
  screen.Command2.SetCaption("Tamam");
  fields_.OpenMainButton();
  UnmarkFieldNames(screen);
  form.ActiveCursor = &cursors.StokData;
  screen.Label4.SetCaption("Satış");
  screen.Label1(7).SetCaption("Bakiye");
  screen.Label5.SetCaption(PlainNumber(StoredBalance(world.stores, cursors.CariData)));
}

}  // namespace karvel
