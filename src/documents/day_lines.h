// The lines of the day book as the documents show them.
#pragma once

#include <expected>
#include <functional>
#include <string>
#include <vector>

#include "books/card_balance.h"
#include "platform/status.h"
#include "store/stores.h"
#include "text/date_time.h"

namespace karvel {

struct DayLine {
  std::string itemCode, itemName, customerName, unit;
  double price = 0, quantity = 0, amount = 0;
  double paid = 0;  // Tahsilat; 0 for a line of goods
  DateTime date;
  std::string kind;      // Durum
  std::string salesman;  // Plasiyer; a line without one isn't shown
  std::string slipNo;    // SeriNo
  std::string sent;      // Sube
};

// The lines of a source on Datam, in its order. `goOn` is asked at each; where it answers false the lines so far are answered.
std::expected<std::vector<DayLine>, Status> ReadDayLines(Stores& stores, const std::string& source, const std::function<bool()>& goOn);

// What was paid by each means, and sold, in some lines.
struct LineTotals {
  double sold = 0;                                    // Tutar of the sales
  double cash = 0, card = 0, cheques = 0, notes = 0;  // Tahsilat above 0 of the lines that aren't cancelled
  [[nodiscard]] double Paid() const { return cash + card + cheques + notes; }
};
LineTotals TotalsOf(const std::vector<DayLine>& lines);

// The balance of the customer in front in the list, as his card has it now; as the list has it where the card is gone. Paper tells no
// balance that could not be read.
std::expected<CardBalance, Status> ReadCustomerBalance(Stores& stores, const Cursor& customers);

}  // namespace karvel
