// Money between a customer and one of the shop's money accounts: a collection from him or a payment to him, in cash, by card, by cheque or
// by note. Double entry, bound by one DigerId:
//
//                 money account: row, card     customer: row, card
//   collection    Borc   = amount, +=          Alacak = amount, +=
//   payment       Alacak = amount, +=          Borc   = amount, +=
//
// and one row of the day book, whose Tahsilat is positive for both. Then the customer's due dates are consumed, earliest first.
// The money accounts are ordinary cards whose code begins with "="; they are read here, never created.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "books/card_balance.h"
#include "books/shop.h"

namespace karvel {

enum class MoneyDirection { Collection, Payment };
// With the blank in front: so they stand in the rows and on the screen.
inline constexpr const char *kCollectionName = " Tahsilat", *kPaymentName = " Ödeme";
std::string_view NameOf(MoneyDirection direction);

// An item as the rows of a payment for it name it.
struct PaidItem {
  std::string code, name, unit;
};

struct MoneyMovement {
  std::string customerCode;  // CariKod of who pays or is paid
  std::string customerName;  // as the screen names him
  double amount = 0;         // any: nothing is checked
  std::string instrument;    // "Nakit", "Kredi Kartı", "Çek", "Senet"; anything else is cash
  MoneyDirection direction = MoneyDirection::Collection;
  std::optional<PaidItem> itemInFront;  // set behind an open sale: the item in front there, one without a name where its list is empty
  bool inPanel = false;                 // taken in the collection panel: behind a sale it is a collection, not a payment for the item
};

struct BookedMoney {
  std::string id;       // DigerId
  CardBalance balance;  // the customer's, after it
};

// NoRecord when the customer's card is gone. A missing money account stops nothing: the first card of the file takes its place.
Outcome<BookedMoney> BookMoneyMovement(const Shop& shop, const MoneyMovement& movement);

}  // namespace karvel
