// Goods received from a supplier: the stock card is raised, which a new name makes, the supplier is credited, and one row each goes to
// stock movements, ledger and day book under one DigerId. A receipt has one ledger side only.
#pragma once

#include <string>

#include "books/card_balance.h"
#include "books/shop.h"
#include "store/row.h"

namespace karvel {

struct Receipt {
  std::string supplierCode;  // CariKod
  // Only this card is compared with the name, letter by letter: a name that differs makes a new card. 0: none is in front.
  RowKey itemInFront = 0;
  std::string name;      // its first 20 letters are a new card's code
  double rowPrice = 0;   // what stands in the rows, and becomes the card's purchase price
  double cardPrice = 0;  // what the total was worked out with, and becomes the card's price
  double quantity = 0;
  double tax = 0;  // percent
  std::string barcode;
  double amount = 0;  // as the clerk saw it
};

struct BookedReceipt {
  std::string id;       // DigerId
  RowKey item = 0;      // the card that was raised
  CardBalance balance;  // the supplier's, after it
};

// NoRecord when the supplier's card is gone.
Outcome<BookedReceipt> BookReceipt(const Shop& shop, const Receipt& receipt);

}  // namespace karvel
