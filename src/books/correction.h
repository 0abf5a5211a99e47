// Correcting a line that was already posted: the day book, the stock movement and card, the ledger and the customer's card are rewritten
// in place. The line is treated as a sale, whatever it is.
//
// Only rows that bear the line's own DigerId are touched, and the cards that these rows name: a line whose movement or ledger row is gone
// changes nothing of others.
#pragma once

#include <optional>
#include <string>

#include "books/shop.h"
#include "store/row.h"

namespace karvel {

struct Correction {
  RowKey dayBookRow = 0;           // the row of the day book
  std::string id;                  // its DigerId, when the clerk took it
  bool listedAsCancelled = false;  // so the list showed it
  std::optional<double> price;     // none where what was typed is no number: the line keeps its own
  double quantity = 0;
  double amount = 0;  // as the clerk saw it
};

// NoRecord when the row is gone, bears another id, or was cancelled since the list showed it.
Status CorrectLine(const Shop& shop, const Correction& correction);

}  // namespace karvel
