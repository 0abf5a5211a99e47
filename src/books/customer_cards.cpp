#include "books/customer_cards.h"

#include "books/book_cursor.h"
#include "books/card_balance.h"
#include "books/find_card.h"
#include "books/sources.h"
#include "text/turkish.h"

namespace karvel {

// Mail knows no dotless i: there an "I" is the "i" of everywhere else.
std::string AddressLower(const std::string& text) {
  return TurkishLower(ReplaceAll(text, "I", "i"));
}

Outcome<bool> AddCustomerCard(const Shop& shop, const NewCustomer& customer) {
  Action action(shop.stores, "AddCustomerCard");
  if (!action.Begun().Ok()) return std::unexpected(action.Finish());
  // Asked again within the turn: another terminal may have taken the code meanwhile.
  const Outcome<bool> taken = IsCustomerCodeTaken(shop, customer.code);
  if (!taken) return taken;
  if (*taken) return false;
  RowAdder card(shop.stores, "new customer", "Cari.Mdb", kCustomerCards);
  if (Status begun = card.AddNew(); !begun.Ok()) return std::unexpected(begun);
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
  const Status written = card.Update();
  Outcome<bool> added = Answer(action, true);
  if (!written.Ok()) return std::unexpected(written);
  return added;
}

Outcome<bool> IsCustomerCodeTaken(const Shop& shop, const std::string& code) {
  BookCursor cards(shop.stores, "all cards", "Cari.Mdb", kCustomerCards);
  // As it stands, for signs such as "#" and "[" mean more than themselves in a pattern; then with any kind of i.
  Status found = FindCustomer(cards, code);
  if (found.Kind() == ErrorKind::NoRecord) found = cards.FindFirst("CariKod Like " + sources::Quoted(AnyKindOfI(code)));
  if (found.Ok()) return true;
  if (found.Kind() == ErrorKind::NoRecord) return false;
  return std::unexpected(found);
}

Status ChangeAddress(const Shop& shop, const std::string& code, const CustomerAddress& address) {
  Action action(shop.stores, "ChangeAddress");
  if (!action.Begun().Ok()) return action.Finish();
  BookCursor card(shop.stores, "customer's address", "Cari.Mdb", kCustomerCards);
  if (Status found = FindCustomer(card, code); !found.Ok()) return found;
  if (Status begun = card.Edit(); !begun.Ok()) return begun;
  card.Set("Adres1", address.street);
  card.Set("Adres2", address.city);
  card.Set("VergiDa", address.taxOffice);
  card.Set("VergiNo", address.taxNumber);
  card.Set("Email", address.email);
  const Status written = card.Update();
  const Status done = action.Finish();
  return written.Ok() ? done : written;
}

}  // namespace karvel
