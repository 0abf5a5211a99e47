#include "books/money_movement.h"

#include <array>

#include "books/book_cursor.h"
#include "books/due_dates.h"
#include "books/find_card.h"
#include "books/running_numbers.h"
#include "books/steps.h"

namespace karvel {
namespace {

const Steps step("BookMoneyMovement");

constexpr std::string_view kCard = "Kredi Kartı";
// The account behind each form of payment. Whatever else is said is cash.
struct MoneyAccount {
  std::string_view instrument;
  std::string_view code;
};
constexpr std::array kMoneyAccounts{
    MoneyAccount{kCard, "=150"},
    MoneyAccount{"Senet", "=500"},
    MoneyAccount{"Çek", "=600"},
};
constexpr std::string_view kCash = "=100";

std::string AccountOf(std::string_view instrument) {
  for (const MoneyAccount& account : kMoneyAccounts)
    if (account.instrument == instrument) return std::string(account.code);
  return std::string(kCash);
}

// What the money is for: behind an open sale and without the panel it is for the item in front.
std::string DescriptionOf(const MoneyMovement& movement) {
  if (movement.itemInFront && !movement.inPanel) return movement.itemInFront->name;
  return movement.instrument + std::string(movement.itemInFront ? kCollectionName : NameOf(movement.direction));
}

// One movement on its way through the books. All of its rows bear one moment and one id.
class Posting {
 public:
  Posting(const Shop& shop, const MoneyMovement& movement) : shop_(shop), movement_(movement), now_(shop.clock.Now()) {}

  Status FindCustomer() { return karvel::FindCustomer(customer_, movement_.customerCode); }
  Status FindAccount();
  void TakeLineId() { id_ = NextLineId(shop_, now_); }
  void BookAccountsRow();
  void MoveAccount() { Move(account_, !PaysOut()); }
  void BookDay();
  void BookCustomersRow();
  BookedMoney MoveCustomer() { return {id_, Move(customer_, PaysOut())}; }
  void ConsumeDueDates(const CardBalance& balance);

 private:
  [[nodiscard]] bool PaysOut() const { return movement_.direction == MoneyDirection::Payment; }
  CardBalance Move(Cursor& card, bool debit) const;

  const Shop& shop_;
  const MoneyMovement& movement_;
  const DateTime now_;
  const std::string description_ = DescriptionOf(movement_);
  BookCursor account_{shop_.stores, "money account", "Cari.Mdb", kCustomerCards};
  BookCursor customer_{shop_.stores, "customer", "Cari.Mdb", kCustomerCards};
  RowAdder ledger_{shop_.stores, "ledger", "Cari.Mdb", "CariHareket"};
  std::string id_;  // DigerId
};

// A missing account stops nothing: the cursor stays on the first card of the file, which takes its place.
Status Posting::FindAccount() {
  Status found = karvel::FindCustomer(account_, AccountOf(movement_.instrument));
  return found.Kind() == ErrorKind::NoRecord ? Status() : found;
}

void Posting::BookAccountsRow() {
  step("add account's row", ledger_.AddNew());
  ledger_.Set("cariharkod", account_.Text("CariKod"));
  ledger_.Set("Tarih", now_);
  ledger_.Set("Aciklama", description_);
  if (const auto& item = movement_.itemInFront) {
    ledger_.Set("Bilgi1", item->code);
    ledger_.Set("Bilgi2", item->name);
    ledger_.Set("Birim", item->unit);
    ledger_.Set("Gurup", account_.Text("Gurup"));
  }
  ledger_.Set(PaysOut() ? "Alacak" : "Borc", movement_.amount);
  ledger_.Set("Carisi", account_.Text("CariKod"));  // the account once more: who paid stands under Unvan
  ledger_.Set("Unvan", movement_.customerName);
  ledger_.Set("DigerId", id_);
  ledger_.Set("Nerde", "C");
  ledger_.Set("yeni", 1);
  step("update account's row", ledger_.Update());
}

void Posting::BookDay() {
  RowAdder day(shop_.stores, "day book", "Karvel.Mdb", "Datam");
  step("add day-book row", day.AddNew());
  day.Set("CariKod", customer_.Text("CariKod"));
  day.Set("CariAd", customer_.Text("Unvan"));
  day.Set("StokAd", description_);
  day.Set("Tarih", now_);
  day.Set("DigerId", id_);
  day.Set("Tahsilat", movement_.amount);
  day.Set("Durum", movement_.instrument == kCard ? std::string("K.Kartı") : movement_.instrument);
  day.Set("yeni", 1);
  day.Set("Plasiyer", DayBookTag(shop_));
  day.Set("Gurup", customer_.Text("Gurup"));
  step("update day-book row", day.Update());
}

void Posting::BookCustomersRow() {
  step("add customer's row", ledger_.AddNew());
  ledger_.Set("cariharkod", customer_.Text("CariKod"));
  ledger_.Set("Unvan", customer_.Text("Unvan"));
  ledger_.Set("Carisi", customer_.Text("CariKod"));
  ledger_.Set("Tarih", now_);
  ledger_.Set("Aciklama", movement_.customerName + std::string(NameOf(movement_.direction)) + " İle");
  ledger_.Set(PaysOut() ? "Borc" : "Alacak", movement_.amount);
  ledger_.Set("DigerId", id_);
  ledger_.Set("Nerde", "C");
  ledger_.Set("yeni", 1);
  step("update customer's row", ledger_.Update());
}

CardBalance Posting::Move(Cursor& card, bool debit) const {
  return AddToBalance(card, step, debit ? movement_.amount : 0, debit ? 0 : movement_.amount);
}

void Posting::ConsumeDueDates(const CardBalance& balance) {
  ConsumeDue(shop_.stores, customer_.Text("CariKod"), movement_.amount, balance.amount == 0);
}

}  // namespace

std::string_view NameOf(MoneyDirection direction) {
  return direction == MoneyDirection::Payment ? kPaymentName : kCollectionName;
}

Outcome<BookedMoney> BookMoneyMovement(const Shop& shop, const MoneyMovement& movement) {
  Action action(shop.stores, "BookMoneyMovement");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());

  Posting posting(shop, movement);
  if (const Status found = posting.FindCustomer(); !found.Ok()) return std::unexpected(found);
  if (const Status found = posting.FindAccount(); !found.Ok()) return std::unexpected(found);
  posting.TakeLineId();
  posting.BookAccountsRow();
  posting.MoveAccount();
  // The day book's row lands before the customer's ledger row.
  posting.BookDay();
  posting.BookCustomersRow();
  BookedMoney booked = posting.MoveCustomer();
  posting.ConsumeDueDates(booked.balance);

  return Answer(action, std::move(booked));
}

}  // namespace karvel
