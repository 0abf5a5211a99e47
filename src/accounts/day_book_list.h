// HareketGrid, the customer's day-book lines: a tap marks a line for deletion, a double tap for correction, and with "Silme Açık" a line is
// loaded into the entry fields, or wiped by the Delete key.
#pragma once

#include "desk/customer_list.h"
#include "desk/day_total.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class DayBookList {
 public:
  DayBookList(const DeskParts& parts, DayTotal& dayTotal, CustomerList& customers);

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
  DayTotal& dayTotal_;
  CustomerList& customers_;
  Connections connections_;
};

}  // namespace karvel
