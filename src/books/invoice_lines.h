// The lines of a customer's day that can go on an invoice, and the ticks by which the clerk chooses them: Sec of the day book is "X" on a
// line that is ticked. A line that stands on an invoice names it in Aciklama, and is offered no more.
#pragma once

#include <string>

#include "books/shop.h"
#include "store/row.h"

namespace karvel {

inline constexpr const char* kTicked = "X";

// Whose sales of which day. With those that stand on an invoice already, for one that is printed once more.
struct InvoiceDay {
  std::string customerCode;
  DateTime day;
  bool withInvoiced = false;
};

// The sources of its lines, and of the ticked ones among them, the earliest first.
std::string LinesOf(const InvoiceDay& day);
std::string TickedLinesOf(const InvoiceDay& day);

// Ticks the first lines, `most` of them, and none of the others. Each that is ticked is told in Eksik what the stock lacks for it.
Status TickFirstLines(const Shop& shop, const InvoiceDay& day, double most);
// Turns the tick of one line. One taken off `byHand` is marked as such in Secc. NoRecord when the line is gone.
Status TurnTick(const Shop& shop, RowKey line, bool byHand);
// Ticks all lines, or none where the first is ticked.
Status TurnAllTicks(const Shop& shop, const InvoiceDay& day);
// How many are ticked.
Outcome<int> CountTicked(const Shop& shop, const InvoiceDay& day);

}  // namespace karvel
