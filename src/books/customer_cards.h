// New cards of customers, and the one that every shop has: the walk-in customer.
#pragma once

#include <string>

#include "books/shop.h"

namespace karvel {

struct NewCustomer {
  std::string code, name, street, city, email, taxOffice, taxNumber, phone, mobile, cardNumber;
  std::string group;  // Gurup
};

// Adds the card, with a balance of nothing. Whether the code is free was asked before (IsCustomerCodeTaken). The mail address is kept in
// lower case, where every "I" is an "i".
Status AddCustomerCard(const Shop& shop, const NewCustomer& customer);

// Two codes that differ only in the kind of an i are one: they would share a ledger. Looked for among all cards, whatever a list shows.
Outcome<bool> IsCustomerCodeTaken(const Shop& shop, const std::string& code);

// Adds the walk-in customer's card when there is none: he exists once, however many starts and terminals.
Status KeepWalkInCustomer(const Shop& shop);

}  // namespace karvel
