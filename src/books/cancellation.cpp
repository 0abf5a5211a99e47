#include "books/cancellation.h"

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/day_book_line.h"
#include "books/due_dates.h"
#include "books/every_row.h"
#include "books/find_card.h"
#include "books/line_mode.h"
#include "books/sources.h"
#include "books/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("CancelLine");

// The line as the day book has it.
struct Line {
  std::string id;  // DigerId
  std::string customerCode, itemCode;
  std::string state;  // Durum
  double quantity = 0, amount = 0;
};

Line ReadLine(const Cursor& day) {
  return {day.Text("DigerId"), day.Text("CariKod"), day.Text("StokKod"), day.Text("Durum"), day.Number("Miktar"), day.Number("Tutar")};
}

// Deletes a ledger row, whose card takes its amounts back.
void TakeBackLedgerRow(Cursor& ledger, Cursor& card) {
  // Where the card is missing, the one stands in for it on which the walk stands: the amounts must go somewhere.
  step("find card", FindCustomer(card, ledger.Text("cariharkod")));
  const double debit = ledger.Number("Borc");
  const double credit = ledger.Number("Alacak");
  const bool wasSale = ContainsText(TurkishLower(ledger.Text("Aciklama")), "satış");
  step("delete ledger row", ledger.Delete());
  if (wasSale) {
    AddToBalance(card, step, -debit, -credit);
  } else {
    // Money that moved is moved back, so that the totals cross over and grow.
    AddToBalance(card, step, credit, debit);
  }
}

void TakeBackLedger(Stores& stores, const std::string& lineId) {
  const std::string id = LedgerIdOf(lineId);
  if (id.empty()) return;  // the rows that lack an id too are others'
  BookCursor ledger(stores, "ledger rows of the line", "Cari.Mdb", "Select * From CariHareket Where DigerId=" + sources::Quoted(id));
  BookCursor card(stores, "card", "Cari.Mdb", kCustomerCards);
  ForEveryRow(ledger, step, [&] { TakeBackLedgerRow(ledger, card); });
}

// Before the first posting of a run there are none to drop.
void DropSerials(Stores& stores, const std::string& lastPostedId) {
  if (lastPostedId.empty()) return;
  step("delete serials", stores.Execute("SeriNo.Mdb", "DELETE FROM SeriNo Where DigerId=" + sources::Quoted(lastPostedId)));
}

// The side that the line moved goes down again; the profit that it brought stays on the card.
void TakeBackGoods(Cursor& card, const Line& line) {
  step("edit stock card", card.Edit());
  AddGoods(card, line.state == kSaleName ? GoodsSide::Out : GoodsSide::In, -line.quantity, -line.amount);
  ApplyStockBalance(card);
  step("update stock card", card.Update());
}

// Deletes the line's stock movement, whose goods go back on its item's card. NoRecord when it has none: then it was money.
Status TakeBackMovement(Stores& stores, const Line& line, RowKey itemInFront) {
  if (line.id.empty()) return {ErrorKind::NoRecord, "a line without an id has no movement"};
  BookCursor movement(stores, "movement", "Stok.Mdb", "StokHareket");
  if (Status found = movement.FindFirst("DigerId=" + sources::Quoted(line.id)); !found.Ok()) return found;
  BookCursor card(stores, "stock card", "Stok.Mdb", kItemCards);
  Status carried = FindItem(card, line.itemCode);
  if (carried.Kind() == ErrorKind::NoRecord && itemInFront != 0) carried = card.MoveTo(itemInFront);
  step("find stock card", carried);
  step("delete movement", movement.Delete());
  if (carried.Ok()) TakeBackGoods(card, line);
  return {};
}

void MarkCancelled(Cursor& day) {
  step("edit day-book row", day.Edit());
  day.Set("Durum", std::string(kCancelledName));
  step("update day-book row", day.Update());
}

}  // namespace

std::string LedgerIdOf(const std::string& lineId) {
  return ReplaceAll(lineId, "T", "");
}

Status CancelLine(const Shop& shop, const Cancellation& cancellation) {
  Action action(shop.stores, "CancelLine");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor day(shop.stores, "day book", "Karvel.Mdb", "Datam");
  if (Status there = StandOnLine(day, cancellation.dayBookRow, cancellation.listedAsCancelled); !there.Ok()) return there;
  if (IsTransferred(day)) return {ErrorKind::NoRecord, "the line was handed on meanwhile"};
  const Line line = ReadLine(day);
  TakeBackLedger(shop.stores, line.id);
  DropSerials(shop.stores, cancellation.lastPostedId);
  const Status goods = TakeBackMovement(shop.stores, line, cancellation.itemInFront);
  step("take back movement", goods);
  if (goods.Ok()) MarkCancelled(day);
  if (goods.Kind() == ErrorKind::NoRecord) step("delete day-book row", day.Delete());
  ShrinkEarliestDue(shop.stores, line.customerCode, line.amount);
  return action.Finish();
}

}  // namespace karvel
