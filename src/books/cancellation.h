// Cancelling a line of the day book: its ledger rows go and their cards take the amounts back, its stock movement goes and the stock card
// takes the quantity back, its due date shrinks. A stock line stays in the day book as "Iptal"; a money line leaves no trace.
#pragma once

#include <string>

#include "books/shop.h"
#include "store/row.h"

namespace karvel {

struct Cancellation {
  RowKey dayBookRow = 0;
  bool listedAsCancelled = false;  // so the list showed it; what was cancelled may be cancelled again
  RowKey itemInFront = 0;          // takes the goods back where the line's own card is gone; 0: none does
  std::string lastPostedId;        // whose serial numbers go: those of the line that this terminal posted last, not of this one
};

// NoRecord when the row is gone, was handed on, or was cancelled since the list showed it.
Status CancelLine(const Shop& shop, const Cancellation& cancellation);

// A line that came from another site carries a "T" in its id which its ledger rows don't.
std::string LedgerIdOf(const std::string& lineId);

}  // namespace karvel
