#include "desk/sale_mode.h"

#include <optional>

#include "books/sources.h"
#include "books/steps.h"
#include "desk/booking_panels.h"
#include "desk/captions.h"
#include "desk/list_in_front.h"
#include "desk/quiet_line.h"
#include "desk/sale_fields.h"
#include "desk/screen_keyboard.h"
#include "desk/screen_pad.h"
#include "platform/event_loop.h"
#include "platform/scanner.h"
#include "platform/window.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("SaleMode");
}

SaleMode::SaleMode(const DeskParts& parts, PriceSelection& prices, MainButton& button, CustomerInFront& customer, BalanceDisplay& figure,
                   DayTotal& dayTotal, GroupList& groups)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      prices_(prices),
      button_(button),
      customer_(customer),
      figure_(figure),
      dayTotal_(dayTotal),
      groups_(groups) {
  Screen& screen = screen_;
  for (const int i : {0, 1, 2, 3, 5, 6}) connections_ += screen.Label1(i).dblClick.Connect([this, i] { DoubleTap(i); });
  connections_ += screen.Label4.dblClick.Connect([this] { NextMode(); });
  connections_ += screen.StokGrid.click.Connect([this] { TapStock(); });
}

void SaleMode::DoubleTap(int index) {
  Element& label = screen_.Label1(index);
  world_.scanner.SetEnabled(false);
  // A second double tap that is still waiting must not undo the first. Label and form are on again before a handler moves the focus.
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
    const RowKey before = cards.CurrentKey();
    const std::string criteria = "StokAdi Like '" + form_.LastStokSearch + "'";
    step("find next name", cards.FindNext(criteria));
    if (cards.NoMatch()) step("find name", cards.FindFirst(criteria));
    // Where the only one of the name is in front already there is nothing to go on to.
    if (cards.NoMatch() || cards.CurrentKey() == before) form_.LastStokSearch.clear();
  }
  if (!form_.LastStokSearch.empty()) return;
  Element& label = screen_.Label1(1);
  label.SetCaption(SearchesByBarcode(screen_) ? caption::kByName : caption::kByBarcode);
  settings_.Save(Setting::SearchCaption, label.Caption());
  screen_.Text1(1).SetText("");
  screen_.Text1(1).SetFocus();
}

void SaleMode::EnterOrLeave() {
  if (AtRest(screen_)) {
    if (!Enter()) return;
  } else {
    Leave();
  }
  ClosePad(form_, screen_);
  if (AtRest(screen_)) {
    screen_.Label1(0).SetCaption(customer_.ListsWholesalers() ? caption::kWholesale : caption::kToSale);
    screen_.Command1.SetCaption(caption::kPrint);
    return;
  }
  screen_.Label1(0).SetCaption(caption::kToCustomers);
  if (SearchesByBarcode(screen_)) screen_.Text1(1).SetFocus();
}

bool SaleMode::Enter() {
  if (!ListsCustomers(screen_)) return false;  // a row of stock or of the day book buys nothing
  CloseKeyboard(form_, screen_);               // what was written on it is taken, so the item in front is shown
  CloseBookingPanels(screen_);
  DropAmounts();
  if (customer_.ListsWholesalers()) {
    ReturnFromWholesale();
    return false;
  }
  form_.SlipNo.clear();
  if (customer_.BringNamed(Trim(screen_.Text1(0).Text())) != Brought::InFront) return false;
  customer_.Follow();  // as he is now: another terminal may have posted to him
  button_.OfferPosting();
  screen_.HareketGrid.SetMarker(false);
  if (screen_.Text1(0).Text().empty()) screen_.Text1(0).SetText(customer_.Name());
  form_.RepositionGuard.Keep(Mute::Nothing);
  form_.CurrentCustomerCode = customer_.Code();
  screen_.CariGrid.SetVisible(false);
  figure_.ColorForSale();
  // Ledger and due dates are the customer's own, also when the last sale was left in purchase mode, which mutes the list.
  customer_.OpenBooks();
  dayTotal_.ShowToday();
  screen_.Label8.SetCaption(customer_.Name());
  ShowSaleScreen();
  return true;
}

void SaleMode::ReturnFromWholesale() {
  {
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    step("customer list", cursors_.CariData.Open(sources::kCustomers));
  }
  groups_.ChooseAll();
  // The balance on the screen is that of the row in front, no longer the wholesaler's.
  if (customer_.IsThere()) customer_.Follow();
  screen_.Text1(0).SetText("");
  screen_.Label1(5).SetCaption(caption::kCollection);
  screen_.Label1(0).SetCaption(caption::kToCustomers);
  screen_.Vadefrm.SetVisible(false);
}

void SaleMode::ShowSaleScreen() {
  const bool byBarcode = SearchesByBarcode(screen_);
  screen_.Frame2.SetVisible(true);
  screen_.Frame2.BringToFront();
  RefreshStock(byBarcode);
  std::string name = screen_.Label8.Caption();
  while (!name.empty() && world_.window.TextWidth("Label8", name + "  ") > world_.window.InnerWidth("Label8"))
    name = LeftLetters(name, LetterCount(name) - 1);
  screen_.Label8.SetCaption(name);
  screen_.Text1(0).SetEnabled(false);
  ShowMode(LineMode::Sale);
  screen_.Label4.SetColor(color::kYellow);
  if (AtRest(screen_)) form_.ActiveCursor = &cursors_.CariData;
  screen_.Text2(1).SetText("0");
  screen_.Label2.SetCaption("0,00");
  screen_.StokGrid.SetVisible(MayHaveStock());
  screen_.HareketGrid.SetVisible(true);
  if (ContainsText(customer_.Name(), sources::kWalkIn)) screen_.Command1.SetCaption(caption::kCollectAtOnce);
  if (byBarcode) {
    screen_.Text1(1).SetText("");
    screen_.Label11.SetCaption("");
    screen_.Text1(1).SetFocus();
  } else {
    screen_.StokGrid.SetFocus();
  }
}

// A list that can't be read now may be read while the sale goes on.
bool SaleMode::MayHaveStock() const {
  std::vector<GridRow> rows;
  return cursors_.StokData.HasRows() || !cursors_.StokData.RowsFromStart(1, rows).Ok();
}

// With a scanner no item is offered before the first code.
void SaleMode::RefreshStock(bool quietly) {
  std::optional<Muted> muted;
  if (quietly) muted.emplace(form_.RepositionGuard, Mute::Items);
  step("refresh stock", cursors_.StokData.Refresh());
}

void SaleMode::Leave() {
  CloseBookingPanels(screen_);
  ShowMode(LineMode::Sale);  // at rest no mode is in force, and the list leads the fields
  const bool served = customer_.BringServed();
  // The next customer's items are looked for in the whole list.
  screen_.Text5.SetText("");
  if (ContainsText(cursors_.StokData.RecordSource(), " Like ")) {
    const Muted muted(form_.RepositionGuard, Mute::Items);
    step("all stock", cursors_.StokData.Open(sources::kStock));
  }
  screen_.CariGrid.SetVisible(true);
  if (!served) customer_.Follow();
  screen_.StokGrid.SetVisible(false);
  screen_.HareketGrid.SetVisible(false);
  figure_.ColorForRest();
  // The balance stands beside the list again, not the sum of the day or of a slip.
  ShowBalance();
  screen_.Text1(0).SetEnabled(true);
  DropAmounts();
  screen_.Label8.SetCaption(customer_.Code());
  screen_.Frame2.SetVisible(false);
  // An item or a line that was tapped in the sale is no longer meant: at rest the button takes payments.
  screen_.Text2(1).SetText("0");
  button_.GiveUpLine();
  button_.FollowAmounts();
  step("refresh ledger", cursors_.CariHarData.Refresh());
  step("refresh movements", cursors_.StokHarData.Refresh());
  groups_.ShowKept();
  screen_.CariGrid.SetFocus();
}

// A payment that was typed before the sale, or in it, is not taken with it; the clerk is told.
void SaleMode::DropAmounts() {
  Element& payment = screen_.Text2(2);
  if (NumberOrZero(payment.Text()) != 0) TellPaymentNotTaken(screen_);
  payment.SetText("0");
  screen_.Text2(3).SetText("0");
}

void SaleMode::ShowBalance() {
  figure_.NameBalance();
  figure_.Show(customer_.StoredBalance());
}

void SaleMode::ShowMode(LineMode mode) {
  screen_.Label4.SetCaption(std::string(NameOf(mode)));
}

void SaleMode::NextMode() {
  const LineMode mode = ModeOnScreen(screen_);
  ShowMode(mode == LineMode::Sale ? LineMode::Return : mode == LineMode::Return ? LineMode::Purchase : LineMode::Sale);
  screen_.Frame4.SetVisible(false);
  screen_.StokGrid.SetFocus();
  if (customer_.BringServed()) customer_.OpenDayBook("Asc");
}

void SaleMode::TapStock() {
  figure_.ColorForSale();
  CloseKeyboard(form_, screen_);
  button_.GiveUpLine();
  button_.FollowAmounts();
  UnmarkFieldNames(screen_);
  form_.ActiveCursor = &cursors_.StokData;
  ShowMode(LineMode::Sale);
  if (customer_.BringServed()) ShowBalance();
}

}  // namespace karvel
