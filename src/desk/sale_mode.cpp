#include "desk/sale_mode.h"

#include "books/sources.h"
#include "books/steps.h"
#include "books/stored_cards.h"
#include "desk/booking_panels.h"
#include "desk/list_in_front.h"
#include "desk/screen_keyboard.h"
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
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      prices_(prices),
      fields_(fields),
      dayTotal_(dayTotal) {
  Screen& screen = screen_;
  for (int i = 0; i < screen.Label1.Count(); ++i) connections_ += screen.Label1(i).dblClick.Connect([this, i] { DoubleTap(i); });
  connections_ += screen.Label4.dblClick.Connect([this] { NextMode(); });
  connections_ += screen.StokGrid.click.Connect([this] { TapStock(); });
}

void SaleMode::DoubleTap(int index) {
  Element& label = screen_.Label1(index);
  world_.scanner.SetEnabled(false);
  // A second double tap that is still on its way must not undo the first. Both are on again before a handler hands out the focus.
  label.SetEnabled(false);
  screen_.Form1.SetEnabled(false);
  world_.loop.RunPending();
  screen_.Form1.SetEnabled(true);
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
      screen_.Text2(1).SetFocus();
      break;
    case 5:
      screen_.Text2(2).SetFocus();
      break;
    case 6:
      screen_.Text2(3).SetFocus();
      break;
    default:
      break;
  }
  world_.scanner.SetEnabled(true);
}

void SaleMode::FlipSearch() {
  CloseKeyboard(form_, screen_);
  if (!form_.LastStokSearch.empty()) {
    Cursor& cards = cursors_.StokData;
    const std::string criteria = "StokAdi Like '" + form_.LastStokSearch + "'";
    step("find next name", cards.FindNext(criteria));
    if (cards.NoMatch()) step("find name", cards.FindFirst(criteria));
    if (cards.NoMatch()) form_.LastStokSearch.clear();
  }
  if (!form_.LastStokSearch.empty()) return;
  Element& label = screen_.Label1(1);
  label.SetCaption(label.Caption() == " Barkod" ? " Ürün" : " Barkod");
  settings_.Save(Setting::SearchCaption, label.Caption());
  screen_.Text1(1).SetText("");
  screen_.Text1(1).SetFocus();
}

void SaleMode::EnterOrLeave() {
  if (screen_.CariGrid.Visible()) {
    if (!Enter()) return;
  } else {
    Leave();
  }
  if (screen_.CariGrid.Visible()) {
    screen_.Label1(0).SetCaption(" Satış");
    screen_.Command1.SetCaption("Yazdır");
    return;
  }
  screen_.Label1(0).SetCaption(" Müşteri");
  if (screen_.Label1(1).Caption() == " Barkod") screen_.Text1(1).SetFocus();
}

bool SaleMode::Enter() {
  Cursor& customers = cursors_.CariData;
  if (!ListsCustomers(screen_)) return false;  // no row of stock or of the day book buys anything
  CloseKeyboard(form_, screen_);               // what was written on it is taken, so the item in front is shown
  CloseBookingPanels(screen_);
  screen_.Text2(2).SetText("0");
  screen_.Text2(3).SetText("0");
  if (ContainsText(customers.RecordSource(), "Gurup='Toptan")) {
    // From the wholesale list the way leads back to the customers.
    form_.RepositionGuard = 100;
    step("customer list", customers.Open(sources::kCustomers));
    form_.RepositionGuard = 0;
    // The balance on the screen_ is that of the row in front, no more the wholesaler's.
    if (customers.HasCurrent()) step("customer in front", customers.MoveTo(customers.CurrentKey()));
    screen_.Text1(0).SetText("");
    screen_.Label1(5).SetCaption(" Tahsilat");
    screen_.Label1(0).SetCaption(" Müşteri");
    screen_.Vadefrm.SetVisible(false);
    return false;
  }
  form_.SlipNo.clear();
  if (customers.HasCurrent() && customers.Text("Unvan") == screen_.Text1(0).Text()) {
    // The row in front is the one meant, also when another bears the same name.
    step("chosen customer", customers.MoveTo(customers.CurrentKey()));
  } else {
    step("find customer", customers.FindFirst("Unvan='" + screen_.Text1(0).Text() + "'"));
    if (customers.NoMatch()) return false;
  }
  screen_.Command2.SetCaption("Tamam");
  screen_.HareketGrid.SetMarker(false);
  if (screen_.Text1(0).Text().empty()) screen_.Text1(0).SetText(customers.Text("Unvan"));
  if (form_.RepositionGuard != 4) {
    form_.RepositionGuard = 0;
    form_.CurrentCustomerCode = customers.Text("CariKod");
    screen_.CariGrid.SetVisible(false);
    screen_.Label5.SetColor(color::kGreen);
  }
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(customers.Text("CariKod"))));
  // Ledger and due dates are the customer's own, also when the last sale was left in purchase mode, which mutes the list.
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(customers.Text("CariKod"))));
  step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(customers.Text(0))));
  dayTotal_.ShowToday();
  screen_.Label8.SetCaption(customers.Text("Unvan"));
  ShowSaleScreen();
  return true;
}

void SaleMode::ShowSaleScreen() {
  const bool byBarcode = screen_.Label1(1).Caption() == " Barkod";
  screen_.Frame2.SetVisible(true);
  screen_.Frame2.BringToFront();
  if (byBarcode) form_.RepositionGuard = 66;  // with a scanner no item is offered before the first code
  step("refresh stock", cursors_.StokData.Refresh());
  form_.RepositionGuard = 0;
  std::string name = screen_.Label8.Caption();
  while (!name.empty() && world_.window.TextWidth("Label8", name + "  ") > world_.window.InnerWidth("Label8"))
    name = LeftLetters(name, LetterCount(name) - 1);
  screen_.Label8.SetCaption(name);
  screen_.Text1(0).SetEnabled(false);
  screen_.Label4.SetCaption("Satış");
  screen_.Label4.SetColor(color::kYellow);
  if (screen_.CariGrid.Visible()) form_.ActiveCursor = &cursors_.CariData;
  screen_.Text2(1).SetText("0");
  screen_.Label2.SetCaption("0,00");
  screen_.StokGrid.SetVisible(cursors_.StokData.HasRows());
  screen_.HareketGrid.SetVisible(true);
  if (ContainsText(cursors_.CariData.Text("Unvan"), sources::kWalkIn)) screen_.Command1.SetCaption("Tahsilat");
  if (byBarcode) {
    screen_.Text1(1).SetText("");
    screen_.Label11.SetCaption("");
    screen_.Text1(1).SetFocus();
  } else {
    screen_.StokGrid.SetFocus();
  }
}

void SaleMode::Leave() {
  CloseBookingPanels(screen_);
  // The next customer's items are looked for in the whole list.
  screen_.Text5.SetText("");
  if (ContainsText(cursors_.StokData.RecordSource(), " Like ")) {
    form_.RepositionGuard = 66;
    step("all stock", cursors_.StokData.Open(sources::kStock));
    form_.RepositionGuard = 0;
  }
  screen_.CariGrid.SetVisible(true);
  screen_.StokGrid.SetVisible(false);
  screen_.HareketGrid.SetVisible(false);
  screen_.Label5.SetColor(color::kWhite);
  // Beside the list stands the balance again, not the sum of the day or of a slip.
  screen_.Label1(7).SetCaption("Bakiye");
  screen_.Label5.SetCaption(PlainNumber(StoredBalance(world_.stores, cursors_.CariData)));
  screen_.Text1(0).SetEnabled(true);
  screen_.Text2(2).SetText("0");
  screen_.Text2(3).SetText("0");
  screen_.Label8.SetCaption(cursors_.CariData.Text("CariKod"));
  screen_.Frame2.SetVisible(false);
  // An item or a line that was tapped in the sale is not meant any more: at rest the button takes payments.
  form_.EditLineId.clear();
  screen_.Command3.SetCaption("Çıkış");
  screen_.Text2(1).SetText("0");
  screen_.Command2.SetCaption("Tamam");
  fields_.OpenMainButton();
  step("refresh ledger", cursors_.CariHarData.Refresh());
  step("refresh movements", cursors_.StokHarData.Refresh());
  screen_.CariGrid.SetFocus();
}

void SaleMode::NextMode() {
  const std::string mode = screen_.Label4.Caption();
  screen_.Label4.SetCaption(mode == "Satış" ? "İade" : mode == "İade" ? "Alış" : "Satış");
  screen_.Frame4.SetVisible(false);
  screen_.StokGrid.SetFocus();
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(cursors_.CariData.Text("CariKod"), "Asc")));
}

void SaleMode::TapStock() {
  form_.EditLineId.clear();
  screen_.Label5.SetColor(color::kGreen);
  screen_.Command3.SetCaption("Çıkış");
  CloseKeyboard(form_, screen_);
  screen_.Command2.SetCaption("Tamam");
  fields_.OpenMainButton();
  UnmarkFieldNames(screen_);
  form_.ActiveCursor = &cursors_.StokData;
  screen_.Label4.SetCaption("Satış");
  screen_.Label1(7).SetCaption("Bakiye");
  screen_.Label5.SetCaption(PlainNumber(StoredBalance(world_.stores, cursors_.CariData)));
}

}  // namespace karvel
