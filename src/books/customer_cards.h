// New cards of customers.
#pragma once

#include <string>

#include "books/shop.h"

namespace karvel {

struct NewCustomer {
  std::string code, name, street, city, email, taxOffice, taxNumber, phone, mobile, cardNumber;
  std::string group;  // Gurup
};

// A mail address as a card keeps it: in lower case, where every "I" is an "i".
std::string AddressLower(const std::string& text);

// Adds the card, with a balance of nothing; false, and nothing is added, when the code is taken (IsCustomerCodeTaken).
Outcome<bool> AddCustomerCard(const Shop& shop, const NewCustomer& customer);

// Two codes that differ only in the kind of an i are one: they would share a ledger. Looked for among all cards, whatever a list shows.
Outcome<bool> IsCustomerCodeTaken(const Shop& shop, const std::string& code);

// What an invoice names of a customer beside his name.
struct CustomerAddress {
  std::string street, city, taxOffice, taxNumber, email;
  bool operator==(const CustomerAddress&) const = default;
};

// Writes it to his card as it stands. NoRecord when the card is gone.
Status ChangeAddress(const Shop& shop, const std::string& code, const CustomerAddress& address);

}  // namespace karvel
