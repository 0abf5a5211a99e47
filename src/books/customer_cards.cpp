#include "books/customer_cards.h"

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/find_card.h"
#include "books/sources.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// Two texts that differ only in the kind of an i are taken for the same.
std::string AnyI(std::string text) {
  for (const char* const letter : {"İ", "ı", "i", "I"}) text = ReplaceAll(text, letter, "?");
  return text;
}

// Mail knows no dotless i: there an "I" is the "i" of everywhere else.
std::string AddressLower(const std::string& text) {
  return TurkishLower(ReplaceAll(text, "I", "i"));
}

// One card is the whole of the action: where it could not be written, the reason is the outcome.
Status Finish(Action& action, const Status& written) {
  Status done = action.Finish();
  return written.Ok() ? done : written;
}

Status AddWalkInCustomer(Cursor& cards) {
  if (Status begun = cards.AddNew(); !begun.Ok()) return begun;
  cards.Set("CariKod", sources::kWalkIn);
  cards.Set("Unvan", sources::kWalkIn);
  cards.Set("yeni", 1);
  cards.Set("Gurup", "Müşteri");
  return cards.Update();
}

}  // namespace

Status AddCustomerCard(const Shop& shop, const NewCustomer& customer) {
  Action action(shop.stores, "AddCustomerCard");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor card(shop.stores, "new customer", "Cari.Mdb", kCustomerCards);
  if (Status begun = card.AddNew(); !begun.Ok()) return begun;
  card.Set("CariKod", customer.code);
  card.Set("Unvan", customer.name);
  card.Set("Adres1", customer.street);
  card.Set("Adres2", customer.city);
  card.Set("Email", AddressLower(customer.email));
  card.Set("VergiDa", customer.taxOffice);
  card.Set("VergiNo", customer.taxNumber);
  card.Set("Telefon", customer.phone);
  card.Set("Gsm", customer.mobile);
  card.Set("KartNo", customer.cardNumber);
  card.Set("Gurup", customer.group);
  card.Set("Hes", "C");
  card.Set("Hesap", kDebitSide);
  card.Set("yeni", 1);
  return Finish(action, card.Update());
}

Outcome<bool> IsCustomerCodeTaken(const Shop& shop, const std::string& code) {
  BookCursor cards(shop.stores, "all cards", "Cari.Mdb", kCustomerCards);
  // As it stands, for signs such as "#" and "[" mean more than themselves in a pattern; then with any kind of i.
  Status found = FindCustomer(cards, code);
  if (found.Kind() == ErrorKind::NoRecord) found = cards.FindFirst("CariKod Like " + sources::Quoted(AnyI(code)));
  if (found.Ok()) return true;
  if (found.Kind() == ErrorKind::NoRecord) return false;
  return std::unexpected(found);
}

Status KeepWalkInCustomer(const Shop& shop) {
  Action action(shop.stores, "KeepWalkInCustomer");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor cards(shop.stores, "walk-in customer", "Cari.Mdb", kCustomerCards);
  Status kept = cards.FindFirst("Unvan=" + sources::Quoted(sources::kWalkIn));
  if (kept.Kind() == ErrorKind::NoRecord) kept = AddWalkInCustomer(cards);
  return Finish(action, kept);
}

}  // namespace karvel
