#include "accounts/line_cancellation.h"

#include "books/day_book_line.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "desk/unknown_outcome.h"
#include "platform/messages.h"

namespace karvel {
namespace {

const Steps step("CancelDayBookLine");

}  // namespace

LineCancellation::LineCancellation(const DeskParts& parts, MainButton& button, CustomerInFront& customer, BalanceDisplay& balance)
    : shop_(parts.shop),
      screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      button_(button),
      customer_(customer),
      balance_(balance) {
  button.Serve(MainTask::CancelLine, [this] { Confirm(); });
}

void LineCancellation::Confirm() {
  const MessageAnswer answer = world_.messages.MessageBox("Satır Silinecek Emimisiniz..?", "", MessageIcon::Stop, MessageButtons::YesNo);
  if (answer == MessageAnswer::Yes) button_.Try([this] { return CancelDayBookLine(); });
}

Status LineCancellation::CancelDayBookLine() {
  const Cursor& day = cursors_.HareketData;
  if (!day.HasCurrent()) return {};
  const Cancellation cancellation = ReadCancellation();
  if (const Status there = ReadLineAnew(cancellation); !there.Ok()) return TellTooLate(there);
  if (customer_.BringServed()) form_.CurrentCustomerCode = customer_.Code();
  if (IsTransferred(day)) {
    RefuseTransferred(day.Text("DigerId"));
    return {};
  }
  const Status done = CancelLine(shop_, cancellation);
  // After any other refusal the line stays in front: a second tap means it, and no other.
  if (done.Kind() == ErrorKind::NoRecord) ShowBooks();
  screen_.StokGrid.SetFocus();
  return TellTooLate(ShowBooked(form_, done, [this] { ShowCancelled(); }));
}

// Reads the line as the files hold it now: another terminal may have changed or cancelled it since the list read it. NoRecord when it is
// gone or was cancelled, for it would be taken back twice.
Status LineCancellation::ReadLineAnew(const Cancellation& line) {
  const Muted muted(form_.RepositionGuard, Mute::DayBook);
  Cursor& day = cursors_.HareketData;
  Status there = StandOnLine(day, line.dayBookRow, line.listedAsCancelled);
  if (there.Kind() == ErrorKind::NoRecord) step("refresh day book", day.Refresh());
  return there;
}

// The outcome, but for a line that is void: that is said in the quiet line, and there is nothing to refuse.
Status LineCancellation::TellTooLate(const Status& outcome) {
  if (outcome.Kind() != ErrorKind::NoRecord) return outcome;
  Tell(screen_, "Satır başka bir terminalde silinmiş");
  return {};
}

// What was handed on stays. The desk then stands on all cards and the line's own ledger rows until something else is posted.
void LineCancellation::RefuseTransferred(const std::string& id) {
  form_.RepositionGuard.Keep(Mute::Customers);
  step("all cards", cursors_.CariData.Open("CariKartlar"));
  step("rows of the line", cursors_.CariHarData.Open("Select * From CariHareket Where DigerId=" + sources::Quoted(LedgerIdOf(id))));
  Tell(screen_, "Silinmedi: veri aktarımı yapılmış");
  world_.messages.MessageBox("Veri Aktarımı Yapılmış Silinemez..!", "", MessageIcon::None, MessageButtons::Ok);
}

Cancellation LineCancellation::ReadCancellation() const {
  Cancellation cancellation;
  cancellation.dayBookRow = cursors_.HareketData.CurrentKey();
  cancellation.listedAsCancelled = IsCancelled(cursors_.HareketData);
  cancellation.itemInFront = cursors_.StokData.CurrentKey();
  cancellation.lastPostedId = form_.CurrentLineId;
  return cancellation;
}

void LineCancellation::ShowCancelled() {
  ShowBooks();
  Tell(screen_, "Silindi");
}

void LineCancellation::ShowBooks() {
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  const std::string name = screen_.Text1(0).Text();
  // The card that was in front, even if another bears the same name.
  if (customer_.HasName(name)) {
    step("customer in front", cursors_.CariData.MoveTo(customer_.Key()));  // as he is now: another terminal may have posted to him
  } else {
    step("find customer", cursors_.CariData.FindFirst("Unvan=" + sources::Quoted(name)));
  }
  step("refresh ledger", cursors_.CariHarData.Refresh());
  step("refresh serials", cursors_.SeriNoData.Refresh());
  step("refresh day book", cursors_.HareketData.Refresh());
  screen_.HareketGrid.SetMarker(cursors_.HareketData.HasRows());
  ShowCustomer();  // after the day book, which shows its own sum when it is refreshed
  step("refresh due dates", cursors_.VadeData.Refresh());
}

void LineCancellation::ShowCustomer() {
  const Cursor& customer = cursors_.CariData;
  balance_.NameBalance();
  balance_.ShowSided({customer.Number("Bakiye"), customer.Text("Hesap") == kDebitSide ? kDebitSide : kCreditSide});
}

}  // namespace karvel
