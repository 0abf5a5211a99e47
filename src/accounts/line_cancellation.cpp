#include "accounts/line_cancellation.h"

#include "accounts/line_in_front.h"
#include "books/card_balance.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/main_button.h"
#include "platform/messages.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("CancelDayBookLine");
}

struct LineCancellation::Line {
  std::string id;  // DigerId
  std::string customer;
  std::string stockCode;
  std::string state;  // Durum
  double total = 0, quantity = 0;
};

LineCancellation::LineCancellation(const DeskParts& parts, MainButton& button)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), item_(parts) {
  button.cancelLine = [this] { return CancelDayBookLine(); };
}

Status LineCancellation::CancelDayBookLine() {
  if (!cursors_.HareketData.HasCurrent() || !ReadLineAnew(form_, cursors_)) return {};
  // 1.
  form_.RepositionGuard = 555;
  const std::string list = cursors_.CariData.RecordSource();
  const RowKey customer = cursors_.CariData.Text("Unvan") == screen_.Text1(0).Text() ? cursors_.CariData.CurrentKey() : 0;
  form_.CurrentCustomerCode = cursors_.CariData.Text(0);
  // 2.
  const Cursor& day = cursors_.HareketData;
  Line line = ReadLine();
  // 3. A line that came from another site carries a "T" which its ledger rows don't.
  step("all cards", cursors_.CariData.Open("CariKartlar"));
  const std::string ledger = cursors_.CariHarData.RecordSource();
  step("rows of the line",
       cursors_.CariHarData.Open("Select * From CariHareket Where DigerId=" + sources::Quoted(ReplaceAll(line.id, "T", ""))));
  if (day.Text("Sube") == "X") {  // 4. What was handed on stays, and the desk stays as it is here.
    world_.messages.MessageBox("Veri Aktarımı Yapılmış Silinemez..!", "", MessageIcon::None, MessageButtons::Ok);
    return {};
  }
  form_.RepositionGuard = 100;  // 5.
  form_.RepositionGuard = 555;

  Action action(world_.stores, "CancelDayBookLine");
  // Another terminal may have come first while this one waited for its turn.
  const bool begun = action.Begun().Ok() && ReadLineAnew(form_, cursors_);
  if (begun) {
    line = ReadLine();
    step("rows of the line", cursors_.CariHarData.Refresh());
  }
  if (begun && !line.id.empty()) ReverseLedger();     // 6.
  step("ledger", cursors_.CariHarData.Open(ledger));  // 7.
  step("customer list", cursors_.CariData.Open(list));
  // 8. The card that was in front, also when another bears the same name.
  const bool back = customer != 0 && cursors_.CariData.MoveTo(customer).Ok();
  if (!back) step("find customer", cursors_.CariData.FindFirst("Unvan=" + sources::Quoted(screen_.Text1(0).Text())));
  if (begun) {
    DropSerials();        // 10.
    ReverseStock(line);   // 11. to 13.
    ShrinkDueDate(line);  // 15.
  }
  const Status done = action.Finish();
  step("refresh serials", cursors_.SeriNoData.Refresh());
  step("refresh day book", cursors_.HareketData.Refresh());  // 14.
  screen_.HareketGrid.SetMarker(cursors_.HareketData.HasRows());
  ShowCustomer();  // 9. Behind the day book, which shows its own sum as it is refreshed.
  step("refresh due dates", cursors_.VadeData.Refresh());
  form_.RepositionGuard = 0;  // 16.
  if (!done.Ok()) screen_.Command2.SetEnabled(true);
  screen_.StokGrid.SetFocus();
  return done;
}

LineCancellation::Line LineCancellation::ReadLine() const {
  const Cursor& day = cursors_.HareketData;
  return {day.Text("DigerId"), day.Text("CariKod"), day.Text("StokKod"), day.Text("Durum"), day.Number("Tutar"), day.Number("Miktar")};
}

void LineCancellation::ReverseLedger() {
  Cursor& ledger = cursors_.CariHarData;
  Cursor& card = cursors_.CariData;
  for (; ledger.HasCurrent(); step("next ledger row", ledger.MoveNext())) {
    step("find card", card.FindFirst("CariKod=" + sources::Quoted(ledger.Text(0))));
    const double debit = ledger.Number("Borc");
    const double credit = ledger.Number("Alacak");
    // A sale is taken back; money that moved is moved back, so that the totals cross over and grow.
    const bool reverseByAddition = !ContainsText(TurkishLower(ledger.Text("Aciklama")), "satış");
    step("delete ledger row", ledger.Delete());
    step("edit card", card.Edit());
    if (reverseByAddition) {
      card.Set("Borc", card.Number("Borc") + credit);
      card.Set("Alacak", card.Number("Alacak") + debit);
    } else {
      card.Set("Borc", card.Number("Borc") - debit);
      card.Set("Alacak", card.Number("Alacak") - credit);
    }
    ApplyBalance(card);
    step("update card", card.Update());
  }
}

void LineCancellation::ShowCustomer() {
  screen_.Label1(7).SetCaption("Bakiye");
  screen_.Label5.SetColor(cursors_.CariData.Text("Hesap") == "Borç" ? color::kBlack : color::kRed);
  screen_.Label5.SetCaption(PlainNumber(cursors_.CariData.Number("Bakiye")));
}

void LineCancellation::DropSerials() {
  // Keyed by the line that was posted last, not by the one that is cancelled. Before the first posting of a run there is none.
  if (form_.CurrentLineId.empty()) return;
  step("delete serials",
       world_.stores.Execute(cursors_.SeriNoData.DatabaseName(), "DELETE FROM SeriNo WHERE DigerId='" + form_.CurrentLineId + "';"));
}

void LineCancellation::ReverseStock(const Line& line) {
  Cursor& movement = cursors_.StokHarData;
  Cursor& day = cursors_.HareketData;
  step("find movement", movement.FindFirst("DigerId=" + sources::Quoted(line.id)));
  // A line without an id has no rows of its own: those that also lack one belong to others.
  if (line.id.empty() || movement.NoMatch()) {
    step("delete day-book row", day.Delete());
    return;
  }
  Cursor& card = item_.Find(line.stockCode);
  step("delete movement", movement.Delete());
  step("edit stock card", card.Edit());
  const bool sale = line.state == "Satış";
  const char* const count = sale ? "CikanMik" : "GirenMik";
  const char* const total = sale ? "CikanTutar" : "GirenTutar";
  card.Set(count, card.Number(count) - line.quantity);
  card.Set(total, card.Number(total) - line.total);
  ApplyStockBalance(card);
  step("update stock card", card.Update());
  step("edit day-book row", day.Edit());
  day.Set("Durum", "Iptal");
  step("update day-book row", day.Update());
}

void LineCancellation::ShrinkDueDate(const Line& line) {
  Cursor& due = cursors_.VadeData;
  if (line.total == 0) return;
  // The earliest of the line's own customer, whoever the list stands on.
  step("due dates", due.Open(sources::DueDatesOf(line.customer)));
  if (!due.HasRows()) return;
  step("edit due date", due.Edit());
  due.Set(2, due.Number(2) - line.total);
  if (IsNothing(due.Number(2))) {
    due.CancelUpdate();
    step("delete due date", due.Delete());
  } else {
    step("update due date", due.Update());
  }
}

}  // namespace karvel
