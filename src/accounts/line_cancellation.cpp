#include "accounts/line_cancellation.h"

#include "accounts/line_in_front.h"
#include "desk/balance.h"
#include "desk/main_button.h"
#include "desk/sources.h"
#include "desk/steps.h"
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

LineCancellation::LineCancellation(const DeskParts& parts, MainButton& button) : parts_(parts), item_(parts) {
  button.cancelLine = [this] { return CancelDayBookLine(); };
}

Status LineCancellation::CancelDayBookLine() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (!cursors.HareketData.HasCurrent() || !ReadLineAnew(parts_)) return {};
  // 1.
  form.RepositionGuard = 555;
  const std::string list = cursors.CariData.RecordSource();
  const RowKey customer = cursors.CariData.Text("Unvan") == screen.Text1(0).Text() ? cursors.CariData.CurrentKey() : 0;
  form.CurrentCustomerCode = cursors.CariData.Text(0);
  // 2.
  const Cursor& day = cursors.HareketData;
  Line line = ReadLine();
  // 3. A line that came from another site carries a "T" which its ledger rows don't.
  step("all cards", cursors.CariData.Open("CariKartlar"));
  const std::string ledger = cursors.CariHarData.RecordSource();
  step("rows of the line",
       cursors.CariHarData.Open("Select * From CariHareket Where DigerId=" + sources::Quoted(ReplaceAll(line.id, "T", ""))));
  if (day.Text("Sube") == "X") {  // 4. What was handed on stays, and the desk stays as it is here.
    world.messages.MessageBox("Veri Aktarımı Yapılmış Silinemez..!", "", MessageIcon::None, MessageButtons::Ok);
    return {};
  }
  form.RepositionGuard = 100;  // 5.
  form.RepositionGuard = 555;

  Action action(world.stores, "CancelDayBookLine");
  // Another terminal may have come first while this one waited for its turn.
  const bool begun = action.Begun().Ok() && ReadLineAnew(parts_);
  if (begun) {
    line = ReadLine();
    step("rows of the line", cursors.CariHarData.Refresh());
  }
  if (begun && !line.id.empty()) ReverseLedger();    // 6.
  step("ledger", cursors.CariHarData.Open(ledger));  // 7.
  step("customer list", cursors.CariData.Open(list));
  // 8. The card that was in front, also when another bears the same name.
  const bool back = customer != 0 && cursors.CariData.MoveTo(customer).Ok();
  if (!back) step("find customer", cursors.CariData.FindFirst("Unvan=" + sources::Quoted(screen.Text1(0).Text())));
  if (begun) {
    DropSerials();        // 10.
    ReverseStock(line);   // 11. to 13.
    ShrinkDueDate(line);  // 15.
  }
  const Status done = action.Finish();
  step("refresh serials", cursors.SeriNoData.Refresh());
  step("refresh day book", cursors.HareketData.Refresh());  // 14.
  screen.HareketGrid.SetMarker(cursors.HareketData.HasRows());
  ShowCustomer();  // 9. Behind the day book, which shows its own sum as it is refreshed.
  step("refresh due dates", cursors.VadeData.Refresh());
  form.RepositionGuard = 0;  // 16.
  if (!done.Ok()) screen.Command2.SetEnabled(true);
  screen.StokGrid.SetFocus();
  return done;
}

LineCancellation::Line LineCancellation::ReadLine() const {
  const Cursor& day = parts_.cursors.HareketData;
  return {day.Text("DigerId"), day.Text("CariKod"), day.Text("StokKod"), day.Text("Durum"), day.Number("Tutar"), day.Number("Miktar")};
}

void LineCancellation::ReverseLedger() {
  Cursor& ledger = parts_.cursors.CariHarData;
  Cursor& card = parts_.cursors.CariData;
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
  auto& [screen, form, cursors, settings, world] = parts_;
  screen.Label1(7).SetCaption("Bakiye");
  screen.Label5.SetColor(cursors.CariData.Text("Hesap") == "Borç" ? color::kBlack : color::kRed);
  screen.Label5.SetCaption(PlainNumber(cursors.CariData.Number("Bakiye")));
}

void LineCancellation::DropSerials() {
  auto& [screen, form, cursors, settings, world] = parts_;
  // Keyed by the line that was posted last, not by the one that is cancelled. Before the first posting of a run there is none.
  if (form.CurrentLineId.empty()) return;
  step("delete serials",
       world.stores.Execute(cursors.SeriNoData.DatabaseName(), "DELETE FROM SeriNo WHERE DigerId='" + form.CurrentLineId + "';"));
}

void LineCancellation::ReverseStock(const Line& line) {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& movement = cursors.StokHarData;
  Cursor& day = cursors.HareketData;
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
  Cursor& due = parts_.cursors.VadeData;
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
