#include "accounts/day_book_list.h"

#include "accounts/row_deletion.h"
#include "books/day_book_line.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("DayBookList");
}

DayBookList::DayBookList(const DeskParts& parts, MainButton& button, CustomerInFront& customer, BalanceDisplay& figure, DayTotal& dayTotal)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      button_(button),
      customer_(customer),
      figure_(figure),
      dayTotal_(dayTotal) {
  Screen& screen = screen_;
  connections_ += screen.HareketGrid.click.Connect([this] { Tapped(); });
  connections_ += screen.HareketGrid.dblClick.Connect([this] { DoubleTapped(); });
  connections_ += screen.HareketGrid.mouseUp.Connect([this](const MouseEvent&) { Released(); });
  connections_ += screen.HareketGrid.keyDown.Connect([this](KeyEvent& event) {
    DeleteRowOnKey(screen_, world_, cursors_.HareketData, event);
    // After the last line there is nothing left to cancel.
    if (event.dropped && button_.OffersDeletion() && !cursors_.HareketData.HasRows()) button_.Allow(false);
  });
  connections_ += screen.CariGrid.keyDown.Connect([this](KeyEvent& event) { DeleteCustomerOnKey(event); });
}

void DayBookList::DeleteCustomerOnKey(KeyEvent& event) {
  Cursor& customers = cursors_.CariData;
  // The same list also shows stock and the day book; those rows are not wiped from here.
  if (!AtRest(screen_) || !customers.SourceTable() || customers.SourceTable()->name != "CariKartlar") return;
  const std::string name = customers.Text("Unvan");
  const RowKey row = customers.CurrentKey();
  DeleteRowOnKey(screen_, world_, customers, event);
  if (event.dropped && customers.CurrentKey() != row) Tell(screen_, "Kartı silindi: " + name);
  if (event.dropped && !customers.HasCurrent()) customer_.Follow();  // the last one's name and balance go with him
}

void DayBookList::Tapped() {
  const bool rows = cursors_.HareketData.HasRows();
  screen_.HareketGrid.SetMarker(rows);
  if (ShowsDeletedLines()) return;
  button_.OfferDeletion(rows && !CancelledForGood());
  for (int i = 2; i <= 6; ++i) screen_.Label1(i).SetColor(color::kYellow);
  figure_.NameSlipTotal();
  screen_.StokGrid.SetMarker(false);
  dayTotal_.ShowToday();
}

void DayBookList::DoubleTapped() {
  const Cursor& day = cursors_.HareketData;
  // Only what this terminal wrote can be corrected, and only as a sale.
  if (!ShowsDeletedLines() && day.HasRows() && day.Number("yeni") == 1 && ModeOnScreen(screen_) == LineMode::Sale)
    button_.OfferCorrection();
}

void DayBookList::Released() {
  if (ShowsDeletedLines()) return;
  button_.Allow(!CancelledForGood());
  if (screen_.Silme.Checked() && cursors_.HareketData.HasRows() && !screen_.Frame3.Visible()) LoadLine();
}

void DayBookList::LoadLine() {
  const Cursor& day = cursors_.HareketData;
  if (ModeOnScreen(screen_) == LineMode::Return) {
    // The item that comes back is the line's, not the one that happens to be in front.
    {
      const Muted muted(form_.RepositionGuard, Mute::Items);
      step("find stock card", cursors_.StokData.FindFirst("StokKod=" + sources::Quoted(day.Text("StokKod"))));
    }
    screen_.Text1(1).SetText(day.Text("StokAd"));
    screen_.Text2(0).SetText(day.Text("Fiyat"));
    screen_.Text2(1).SetText(day.Text("Miktar"));
    return;
  }
  Cursor& cards = cursors_.StokData;
  const std::string price = Format(day.Number("Fiyat"), form_.PriceFormat);
  step("find stock card", cards.FindFirst("StokKod=" + sources::Quoted(day.Text("StokKod"))));
  if (cards.NoMatch()) return;
  screen_.Text1(1).SetText(cards.Text("StokAdi"));
  screen_.Text2(0).SetText(price);
  screen_.Text2(1).SetFocus();
}

// They can only be looked at: what they stood for was taken back, and they are not those of the customer in front.
bool DayBookList::ShowsDeletedLines() const {
  return screen_.SilinenChk.Checked();
}

bool DayBookList::CancelledForGood() const {
  return screen_.Silme.Checked() && IsCancelled(cursors_.HareketData);
}

}  // namespace karvel
