// HareketGrid, the customer's day-book lines: a tap marks a line for deletion, a double tap for correction, and with "Silme Açık" a line is
// loaded into the entry fields, or wiped by the Delete key.
#pragma once

#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/day_total.h"
#include "desk/main_button.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DayBookList {
 public:
  DayBookList(const DeskParts& parts, MainButton& button, CustomerInFront& customer, BalanceDisplay& figure, DayTotal& dayTotal);

 private:
  void DeleteCustomerOnKey(KeyEvent& event);
  void Tapped();
  void DoubleTapped();
  void Released();
  void LoadLine();
  [[nodiscard]] bool ShowsDeletedLines() const;
  [[nodiscard]] bool CancelledForGood() const;

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  MainButton& button_;
  CustomerInFront& customer_;
  BalanceDisplay& figure_;
  DayTotal& dayTotal_;
  Connections connections_;
};

}  // namespace karvel
