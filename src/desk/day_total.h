// What a customer bought on a day: the sum that Label5 shows during a sale, and that follows the day book's current row.
#pragma once

#include <string>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DayTotal {
 public:
  explicit DayTotal(const DeskParts& parts);
  // Label5 := today's unpaid sales of the customer in Text1(0), by name. Leaves it as it is when the day book has no row of his.
  void ShowToday();
  // "Tarih>=#mm/dd/yyyy 00:00:00# And Tarih<=#mm/dd/yyyy 23:59:59#".
  static std::string DayCriteria(const DateTime& day);

 private:
  void FollowDayBook();  // HareketData's current row changed
  void TakeDayOfRow();   // a double tap on Label5: the day of the current day-book row, offered as the payment

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
