// Goods received from a supplier: the stock card is raised, which a new name makes, the supplier is credited, and one row each goes to
// stock movements, ledger and day book under one DigerId. A receipt has one ledger side only.
#pragma once

#include <optional>
#include <string>

#include "books/card_balance.h"
#include "books/shop.h"
#include "store/row.h"

namespace karvel {

// What was typed for the price of the rows or the tax may be no number: the card then keeps its own, and the rows name none.
struct Receipt {
  std::string supplierCode;  // CariKod
  // Only this card is compared with the name, letter by letter: a name that differs makes a new card. 0: none is in front.
  RowKey itemInFront = 0;
  std::string name;                // its first 20 letters are a new card's code
  std::optional<double> rowPrice;  // what stands in the rows, and becomes the card's purchase price
  double cardPrice = 0;            // what the total was worked out with, and becomes the card's price
  double quantity = 0;
  std::optional<double> tax;  // percent
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
