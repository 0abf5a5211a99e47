// What a customer bought on a day: the sum that stands beside him during a sale, and that follows the day book's current row.
#pragma once

#include "desk/balance_display.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DayTotal {
 public:
  DayTotal(const DeskParts& parts, BalanceDisplay& figure);
  // Today's unpaid sales of the customer in Text1(0), by name. Leaves the figure as it is when the day book has no row of his.
  void ShowToday();

 private:
  void FollowDayBook();  // HareketData's current row changed
  void TakeDayOfRow();   // a double tap on Label5: the day of the current day-book row, offered as the payment

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  BalanceDisplay& figure_;
  Connections connections_;
};

}  // namespace karvel
