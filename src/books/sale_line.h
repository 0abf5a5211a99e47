// The heart of the desk: one confirmed line of goods, written into the special prices, due dates, stock movements, day book, serial
// numbers, stock card, ledger and customer card, bound by one DigerId.
//
//                       sale                          return and purchase
//   stock card          CikanMik, CikanTutar, Kar     GirenMik, GirenTutar
//   ledger, customer    Borc                          Alacak
//
// A return remembers no price, is due on no day and brings no profit; a purchase does all three as a sale does.
#pragma once

#include <string>
#include <vector>

#include "books/card_balance.h"
#include "books/customer_prices.h"
#include "books/line_mode.h"
#include "books/shop.h"
#include "store/row.h"

namespace karvel {

struct SaleLine {
  LineMode mode = LineMode::Sale;
  RowKey itemInFront = 0;    // the stock card that is sold
  std::string customerCode;  // CariKod
  std::string customerName;  // as the screen has it: where no card has the code, the line makes its own customer of the name
  PriceName priceName = PriceName::First;
  double price = 0;
  std::string priceFormat;           // in which the desk shows prices; "" for plain numbers
  double quantity = 0;               // in the unit of the price: packs where it is the second price
  double amount = 0;                 // as the clerk saw it; never worked out again
  std::string slipNo;                // six digits
  std::string itemSerial;            // of the item sold, "" for none
  std::vector<std::string> serials;  // of goods that come in
  std::string salesmanGroup;         // whose sale it is, where a group is chosen; "" for the terminal's own
};

struct BookedLine {
  std::string id;            // DigerId
  std::string customerCode;  // another than asked for where the line made its own customer
  CardBalance balance;       // the customer's, after the line
};

// NoRecord when the item's card is gone.
Outcome<BookedLine> BookSaleLine(const Shop& shop, const SaleLine& line);

}  // namespace karvel
