#include "books/wiping.h"

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/every_row.h"
#include "books/find_card.h"
#include "books/line_mode.h"
#include "books/sources.h"
#include "books/steps.h"

namespace karvel {
namespace {

const Steps step("WipeCustomer");

void ClearCard(Cursor& card) {
  step("edit card", card.Edit());
  for (const char* const field : {"Borc", "Alacak", "dBorc", "eBorc", "Bakiye", "dBakiye", "eBakiye"}) card.Set(field, 0);
  card.Set("Hesap", kDebitSide);
  step("update card", card.Update());
}

// What is left is not rounded to 3 places here.
void TakeBackGoods(Cursor& card, double quantity, double amount) {
  step("edit stock card", card.Edit());
  AddGoods(card, GoodsSide::Out, -quantity, -amount);
  const double out = card.Number("CikanMik");
  const double in = card.Number("GirenMik");
  card.Set("KalanB", in > out ? WithoutDust(in - out) : 0.0);
  card.Set("KalanA", in > out ? 0.0 : WithoutDust(out - in));
  step("update stock card", card.Update());
}

// The sales among his movements go. What he brought back or delivered stays, for the goods are there.
void TakeBackSales(Stores& stores, const std::string& customerCode) {
  BookCursor movement(stores, "his movements", "Stok.Mdb", "Select * From StokHareket Where Carisi=" + sources::Quoted(customerCode));
  BookCursor card(stores, "stock card", "Stok.Mdb", kItemCards);
  // His code serves as the item's: goods come back only where an item bears it.
  const Status carried = FindItem(card, customerCode);
  step("find stock card", carried);
  ForEveryRow(movement, step, [&] {
    if (movement.Text("GirisCikis") != kSaleName) return;
    if (carried.Ok()) TakeBackGoods(card, movement.Number("Miktar"), movement.Number("Tutar"));
    step("delete movement", movement.Delete());
  });
}

// NoRecord when he has ledger rows; another kind when that can't be read.
Status IsClean(Stores& stores, const std::string& customerCode) {
  BookCursor ledger(stores, "his ledger", "Cari.Mdb", sources::LedgerOf(customerCode));
  const Status any = ledger.FindFirst("CariHarKod=" + sources::Quoted(customerCode));
  if (any.Ok()) return {ErrorKind::NoRecord, "the card has been posted to meanwhile"};
  return any.Kind() == ErrorKind::NoRecord ? Status() : any;
}

}  // namespace

Status WipeCustomer(const Shop& shop, const std::string& customerCode) {
  Action action(shop.stores, "WipeCustomer");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor card(shop.stores, "his card", "Cari.Mdb", kCustomerCards);
  if (Status found = FindCustomer(card, customerCode); !found.Ok()) return found;
  const std::string his = sources::Quoted(customerCode);
  step("delete ledger", shop.stores.Execute("Cari.Mdb", "DELETE FROM CariHareket Where CariHarKod=" + his));
  ClearCard(card);
  TakeBackSales(shop.stores, customerCode);
  step("delete day book", shop.stores.Execute("Karvel.Mdb", "DELETE FROM Datam Where CariKod=" + his));
  return action.Finish();
}

Status DeleteCustomerCard(const Shop& shop, RowKey card) {
  Action action(shop.stores, "DeleteCustomerCard");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor cards(shop.stores, "his card", "Cari.Mdb", kCustomerCards);
  Status deleted = cards.MoveTo(card);
  if (deleted.Ok()) deleted = IsClean(shop.stores, cards.Text("CariKod"));
  if (deleted.Ok()) deleted = cards.Delete();
  Status done = action.Finish();
  return deleted.Ok() ? done : deleted;
}

}  // namespace karvel
