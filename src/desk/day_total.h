// The day total, what a customer bought on a day: it stands beside him during a sale, and is summed anew when the day book moves.
#pragma once

#include "desk/balance_display.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DayTotal {
 public:
  DayTotal(const DeskParts& parts, BalanceDisplay& figure);
  // Shows today's unpaid sales of the customer in Text1(0), found by his name. The figure stays as it is when the day book has no rows.
  void ShowToday();

 private:
  void FollowDayBook();  // HareketData's current row changed
  void TakeDayOfRow();   // a double tap on Label5: the sales of the current row's day become the payment

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  BalanceDisplay& figure_;
  Connections connections_;
};

}  // namespace karvel
