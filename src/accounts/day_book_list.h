// HareketGrid, the customer's day-book lines: a tap offers to cancel a line, a double tap to correct it; with "Silme Açık" a tap also loads
// it into the entry fields, and the Delete key wipes it.
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
