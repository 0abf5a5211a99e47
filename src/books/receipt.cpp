#include "books/receipt.h"

#include "books/book_cursor.h"
#include "books/find_card.h"
#include "books/line_mode.h"
#include "books/running_numbers.h"
#include "books/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("BookReceipt");
constexpr std::size_t kCodeLetters = 20;

void SetTyped(Cursor& row, const char* field, const std::optional<double>& number) {
  if (number) row.Set(field, *number);
}

std::string Description(const Cursor& item) {
  return item.Text("StokAdi") + " " + std::string(kPurchaseName);
}

// Stands on the card in front where it bears the name.
bool FindItemInFront(Cursor& item, const Receipt& receipt) {
  return receipt.itemInFront != 0 && item.MoveTo(receipt.itemInFront).Ok() && item.Text("StokAdi") == receipt.name;
}

void AddItemCard(Cursor& item, const Receipt& receipt) {
  step("add stock card", item.AddNew());
  item.Set("StokKod", LeftLetters(receipt.name, kCodeLetters));
  item.Set("StokAdi", receipt.name);
}

// Of the open card. Unlike everywhere else it isn't rounded to 3 places, and the side that isn't written keeps what it had.
void ApplyReceivedBalance(Cursor& item) {
  const double out = item.Number("CikanMik");
  const double in = item.Number("GirenMik");
  if (out > in) {
    item.Set("KalanA", WithoutDust(out - in));
  } else {
    item.Set("KalanB", WithoutDust(in - out));
  }
}

// The cursor then stands on the card that was written.
void RaiseStockCard(Cursor& item, const Receipt& receipt) {
  const bool known = FindItemInFront(item, receipt);
  if (known) {
    step("edit stock card", item.Edit());
  } else {
    AddItemCard(item, receipt);
  }
  SetTyped(item, "Kdv", receipt.tax);
  item.Set("Barkod", receipt.barcode);
  item.Set("Fiyat", receipt.cardPrice);
  SetTyped(item, "gFiyat", receipt.rowPrice);
  AddGoods(item, GoodsSide::In, receipt.quantity, receipt.amount);
  ApplyReceivedBalance(item);
  step("update stock card", item.Update());
  // By its place, not by its name, which other cards may bear too: the card that came last is the last of the file.
  if (!known) step("last stock card", item.MoveLast());
}

void BookMovement(const Shop& shop, const Receipt& receipt, const Cursor& item, const std::string& id) {
  RowAdder movement(shop.stores, "movement", "Stok.Mdb", "StokHareket");
  step("add movement", movement.AddNew());
  movement.Set("StokHarKod", item.Text("StokKod"));
  movement.Set("Tarih", shop.clock.Now());
  movement.Set("Aciklama", Description(item));
  movement.Set("GirisCikis", std::string(kPurchaseName));
  movement.Set("Nerde", "C");
  movement.Set("StokAd", item.Text("StokAdi"));
  SetTyped(movement, "Fiyat", receipt.rowPrice);
  movement.Set("Miktar", receipt.quantity);
  movement.Set("Tutar", receipt.amount);
  movement.Set("DigerId", id);
  SetTyped(movement, "Kdv", receipt.tax);
  movement.Set("yeni", 1);
  step("update movement", movement.Update());
}

// The other side of the supplier's row is the item, no account.
void BookLedger(const Shop& shop, const Receipt& receipt, const Cursor& item, const Cursor& supplier, const std::string& id) {
  RowAdder ledger(shop.stores, "ledger", "Cari.Mdb", "CariHareket");
  step("add ledger row", ledger.AddNew());
  ledger.Set("cariharkod", supplier.Text("CariKod"));
  ledger.Set("Tarih", shop.clock.Now());
  ledger.Set("Aciklama", Description(item));
  ledger.Set("Bilgi1", item.Text("StokKod"));
  ledger.Set("Bilgi2", item.Text("StokAdi"));
  ledger.Set("Birim", item.Text("Birim"));
  ledger.Set("Alacak", receipt.amount);
  ledger.Set("Carisi", item.Text("StokKod"));
  ledger.Set("Unvan", item.Text("StokAdi"));
  ledger.Set("DigerId", id);
  ledger.Set("Nerde", "S");
  ledger.Set("Miktar", receipt.quantity);
  SetTyped(ledger, "Fiyat", receipt.rowPrice);
  ledger.Set("yeni", 1);
  step("update ledger row", ledger.Update());
}

void BookDay(const Shop& shop, const Receipt& receipt, const Cursor& item, const Cursor& supplier, const std::string& id) {
  RowAdder day(shop.stores, "day book", "Karvel.Mdb", "Datam");
  step("add day-book row", day.AddNew());
  day.Set("CariKod", supplier.Text("CariKod"));
  day.Set("StokKod", item.Text("StokKod"));
  day.Set("CariAd", supplier.Text("Unvan"));
  day.Set("StokAd", item.Text("StokAdi"));
  SetTyped(day, "Fiyat", receipt.rowPrice);
  day.Set("Miktar", receipt.quantity);
  day.Set("Tutar", receipt.amount);
  day.Set("Tarih", shop.clock.Now());
  day.Set("DigerId", id);
  day.Set("Birim", item.Text("Birim"));
  day.Set("yeni", 1);
  day.Set("Durum", std::string(kPurchaseName));
  day.Set("Gurup", item.Text("Gurup"));
  day.Set("Plasiyer", DayBookTag(shop));
  day.Set("tGurup", DayBookTag(shop));
  step("update day-book row", day.Update());
}

}  // namespace

Outcome<BookedReceipt> BookReceipt(const Shop& shop, const Receipt& receipt) {
  Action action(shop.stores, "BookReceipt");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());
  BookCursor supplier(shop.stores, "supplier", "Cari.Mdb", kCustomerCards);
  if (Status found = FindCustomer(supplier, receipt.supplierCode); !found.Ok()) return std::unexpected(found);
  BookCursor item(shop.stores, "stock card", "Stok.Mdb", "StokKartlar");
  BookedReceipt booked;
  RaiseStockCard(item, receipt);
  booked.item = item.CurrentKey();
  booked.balance = AddToBalance(supplier, step, 0, receipt.amount);
  booked.id = NextLineId(shop);
  BookMovement(shop, receipt, item, booked.id);
  BookLedger(shop, receipt, item, supplier, booked.id);
  BookDay(shop, receipt, item, supplier, booked.id);
  return Answer(action, std::move(booked));
}

}  // namespace karvel
