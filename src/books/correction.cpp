#include "books/correction.h"

#include <algorithm>

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/day_book_line.h"
#include "books/find_card.h"
#include "books/safe_calc.h"
#include "books/sources.h"
#include "books/steps.h"
#include "text/format.h"

namespace karvel {
namespace {

const Steps step("CorrectLine");

// What a line moved.
struct Goods {
  double quantity = 0, amount = 0, profit = 0;
};

std::string RowsOf(const Correction& line) {
  return "DigerId=" + sources::Quoted(line.id);
}

// On the very line that the clerk took: a row without an id has no rows of its own in the other books, those that lack one belong to
// others.
Status StandOnTakenLine(Cursor& day, const Correction& line) {
  if (Status there = StandOnLine(day, line.dayBookRow, line.listedAsCancelled); !there.Ok()) return there;
  if (line.id.empty() || day.Text("DigerId") != line.id) return {ErrorKind::NoRecord, "the row is another line's"};
  return {};
}

void RewriteDayBookRow(Cursor& day, const Correction& line) {
  step("edit day-book row", day.Edit());
  if (line.price) day.Set("Fiyat", *line.price);
  day.Set("Miktar", line.quantity);
  day.Set("Tutar", line.amount);
  step("update day-book row", day.Update());
}

// The new quantity's cost is taken off the amount of before. A loss counts as nothing.
double ProfitOf(const Correction& line, double amountBefore, const Value& cost) {
  const std::string goods = SafeCalc(CalcOp::Multiply, line.quantity, cost);
  return std::max(0.0, SafeCalcNumber(CalcOp::Subtract, amountBefore, goods));
}

void RewriteMovement(Cursor& movement, const Goods& goods) {
  step("edit movement", movement.Edit());
  movement.Set("Miktar", goods.quantity);
  movement.Set("Tutar", goods.amount);
  movement.Set("Kar", Format(goods.profit, "#,##0.00"));
  step("update movement", movement.Update());
}

void RewriteStockCard(Cursor& card, const Goods& before, const Goods& after) {
  step("edit stock card", card.Edit());
  card.Set("CikanMik", WithoutDust(card.Number("CikanMik") - before.quantity + after.quantity));
  card.Set("CikanTutar", WithoutDust(card.Number("CikanTutar") - before.amount + after.amount));
  card.Set("Kar", WithoutDust(card.Number("Kar") - before.profit + after.profit));
  ApplyStockBalance(card);
  step("update stock card", card.Update());
}

// The line's own movement, and the card of its item.
void RewriteGoods(Stores& stores, const Correction& line) {
  BookCursor movement(stores, "movement", "Stok.Mdb", "StokHareket");
  const Status moved = movement.FindFirst(RowsOf(line));
  step("find movement", moved);
  if (!moved.Ok()) return;
  BookCursor card(stores, "stock card", "Stok.Mdb", kItemCards);
  const Status carried = FindItem(card, movement.Text("StokHarKod"));
  step("find stock card", carried);

  const Goods before{movement.Number("Miktar"), movement.Number("Tutar"), movement.Number("Kar")};
  Goods after{line.quantity, line.amount, 0};
  // Only an item whose card says so counts its profit.
  if (carried.Ok() && card.Number("Maliyet") != 0) after.profit = ProfitOf(line, before.amount, movement.Get("Maliyet"));
  RewriteMovement(movement, after);
  if (carried.Ok()) RewriteStockCard(card, before, after);
}

void RewriteCustomerCard(Cursor& card, double debitBefore, double debit) {
  step("edit customer card", card.Edit());
  card.Set("Borc", WithoutDust(card.Number("Borc") - debitBefore + debit));
  ApplyBalance(card);
  step("update customer card", card.Update());
}

// The line's row in its customer's own ledger, for money has a row under its account too; and the card that the row names.
void RewriteDebit(Stores& stores, const std::string& customerCode, const Correction& line) {
  BookCursor ledger(stores, "ledger", "Cari.Mdb", sources::LedgerOf(customerCode));
  const Status booked = ledger.FindFirst(RowsOf(line));
  step("find ledger row", booked);
  if (!booked.Ok()) return;
  step("edit ledger row", ledger.Edit());
  const double before = ledger.Number("Borc");
  ledger.Set("Borc", line.amount);
  step("update ledger row", ledger.Update());

  BookCursor card(stores, "customer card", "Cari.Mdb", kCustomerCards);
  const Status owed = FindCustomer(card, ledger.Text("cariharkod"));
  step("find customer card", owed);
  if (owed.Ok()) RewriteCustomerCard(card, before, line.amount);
}

}  // namespace

Status CorrectLine(const Shop& shop, const Correction& correction) {
  Action action(shop.stores, "CorrectLine");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor day(shop.stores, "day book", "Karvel.Mdb", "Datam");
  if (Status there = StandOnTakenLine(day, correction); !there.Ok()) return there;
  RewriteDayBookRow(day, correction);
  RewriteGoods(shop.stores, correction);
  RewriteDebit(shop.stores, day.Text("CariKod"), correction);
  return action.Finish();
}

}  // namespace karvel
