#include "accounts/line_correction.h"

#include <algorithm>

#include "accounts/line_in_front.h"
#include "books/card_balance.h"
#include "books/safe_calc.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/main_button.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("CorrectLine");
}

struct LineCorrection::Correction {
  std::string id;  // DigerId
  std::string price, quantity;
  double newQuantity = 0;
  double newTotal = 0;
  double oldQuantity = 0, oldTotal = 0;
  double oldProfit = 0, newProfit = 0;
  Cursor* card = nullptr;  // stands on the line's item
  [[nodiscard]] std::string ById() const { return "DigerId=" + sources::Quoted(id); }
};

LineCorrection::LineCorrection(const DeskParts& parts, MainButton& button, PriceSelection& prices)
    : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), prices_(prices), item_(parts) {
  button.correctLine = [this] { return Correct(); };
  connections_ += screen_.Command3.click.Connect([this] {
    if (screen_.Command3.Caption() == "Düzeltme") TakeLine();
  });
}

void LineCorrection::TakeLine() {
  form_.EditLineId = cursors_.HareketData.Text("DigerId");
  ShowLine();
  screen_.Command2.SetCaption("Tamam");
  screen_.Text2(0).SetFocus();
}

// What is corrected begins as it is: the item in front is another one's price, and its lowest price would be kept for this line.
void LineCorrection::ShowLine() {
  const Cursor& day = cursors_.HareketData;
  Cursor& cards = cursors_.StokData;
  if (day.Text("StokKod").empty()) return;  // money has no item
  step("find stock card", cards.FindFirst("StokKod=" + sources::Quoted(day.Text("StokKod"))));
  if (!cards.NoMatch()) screen_.Text1(1).SetText(cards.Text("StokAdi"));
  screen_.Text2(0).SetText(Format(day.Number("Fiyat"), form_.PriceFormat));
  screen_.Text2(1).SetText(PlainNumber(day.Number("Miktar")));
}

Status LineCorrection::Correct() {
  Action action(world_.stores, "CorrectLine");
  if (!action.Begun().Ok()) {
    screen_.Command2.SetEnabled(true);
    return action.Finish();
  }
  // Looked at when it is this terminal's turn: another one may have come first.
  if (!StandOnLine() || !ReadLineAnew(form_, cursors_)) {
    // The line that was taken is not in front any more, or not what it was: what stands there now must not be rewritten in its place.
    EndCorrection();
    screen_.Command2.SetEnabled(true);
    return action.Finish();
  }
  // 1.
  screen_.Command3.SetEnabled(false);
  screen_.Command2.SetEnabled(false);
  Correction line;
  line.id = form_.EditLineId;
  line.price = screen_.Text2(0).Text();
  line.quantity = screen_.Text2(1).Text();
  line.newQuantity = NumberOrZero(line.quantity);
  line.newTotal = NumberOrZero(screen_.Label2.Caption());
  form_.RepositionGuard = 100;
  CorrectDay(line);  // 2.
  form_.RepositionGuard = 66;
  CorrectMovement(line);  // 3. to 5.
  CorrectStock(line);     // 6.
  form_.RepositionGuard = 555;
  CorrectLedger(line);  // 7. to 9.

  const Status done = action.Finish();
  step("refresh day book", cursors_.HareketData.Refresh());
  step("find line", cursors_.HareketData.FindFirst(line.ById()));
  form_.RepositionGuard = 0;
  screen_.Command3.SetEnabled(true);
  if (done.Ok()) {
    EndCorrection();  // 10.
    // The list stands on the corrected item now, and nothing more of it is sold.
    prices_.ShowItem();
    screen_.Text2(1).SetText("0");
  } else {
    screen_.Command2.SetEnabled(true);
  }
  return done;
}

bool LineCorrection::StandOnLine() {
  Cursor& day = cursors_.HareketData;
  if (form_.EditLineId.empty()) return false;
  if (day.Text("DigerId") == form_.EditLineId) return true;
  step("find line", day.FindFirst("DigerId=" + sources::Quoted(form_.EditLineId)));
  return !day.NoMatch();
}

void LineCorrection::CorrectDay(const Correction& line) {
  Cursor& day = cursors_.HareketData;
  step("edit day-book row", day.Edit());
  day.Set("Fiyat", line.price);
  day.Set("Miktar", line.quantity);
  day.Set("Tutar", line.newTotal);
  step("update day-book row", day.Update());
}

void LineCorrection::CorrectMovement(Correction& line) {
  Cursor& movement = cursors_.StokHarData;
  step("find movement", movement.FindFirst(line.ById()));
  Cursor& card = item_.Find(movement.Text("StokHarKod"));
  line.card = &card;
  step("edit movement", movement.Edit());
  line.oldQuantity = movement.Number("Miktar");
  movement.Set("Miktar", line.quantity);
  line.oldTotal = movement.Number("Tutar");
  movement.Set("Tutar", line.newTotal);
  line.oldProfit = movement.Number("Kar");
  if (card.Number("Maliyet") != 0) {
    // The new quantity's cost is taken off the old total.
    const std::string cost = SafeCalc(CalcOp::Multiply, line.quantity, movement.Get("Maliyet"));
    line.newProfit = std::max(0.0, SafeCalcNumber(CalcOp::Subtract, line.oldTotal, cost));
  }
  movement.Set("Kar", Format(line.newProfit, "#,##0.00"));
  step("update movement", movement.Update());
}

void LineCorrection::CorrectStock(const Correction& line) {
  Cursor& card = *line.card;
  step("edit stock card", card.Edit());
  card.Set("CikanMik", card.Number("CikanMik") - line.oldQuantity + line.newQuantity);
  card.Set("CikanTutar", card.Number("CikanTutar") - line.oldTotal + line.newTotal);
  card.Set("Kar", card.Number("Kar") - line.oldProfit + line.newProfit);
  ApplyStockBalance(card);
  step("update stock card", card.Update());
}

void LineCorrection::CorrectLedger(const Correction& line) {
  Cursor& ledger = cursors_.CariHarData;
  Cursor& card = cursors_.CariData;
  step("find ledger row", ledger.FindFirst(line.ById()));
  step("find customer", card.FindFirst("CariKod=" + sources::Quoted(ledger.Text("cariharkod"))));
  step("edit ledger row", ledger.Edit());
  const double oldDebit = ledger.Number("Borc");
  ledger.Set("Borc", line.newTotal);
  step("update ledger row", ledger.Update());
  step("edit customer card", card.Edit());
  card.Set("Borc", card.Number("Borc") - oldDebit + line.newTotal);
  ApplyBalance(card);
  step("update customer card", card.Update());
}

void LineCorrection::EndCorrection() {
  screen_.Command3.SetCaption("Çıkış");
  form_.EditLineId.clear();
}

}  // namespace karvel
