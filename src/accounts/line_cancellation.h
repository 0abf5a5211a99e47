// Cancelling the day-book line in front: its ledger rows go and their cards take the amounts back, its stock movement goes and the stock
// card takes the quantity back, its due date shrinks. A stock line stays in the day book as "Iptal"; a money line leaves no trace.
#pragma once

#include <string>

#include "accounts/item_card.h"
#include "desk/parts.h"
#include "platform/status.h"

namespace karvel {

class MainButton;

class LineCancellation {
 public:
  LineCancellation(const DeskParts& parts, MainButton& button);

  // Cancels the current row of HareketData. When the stores refuse it, nothing has changed, and the outcome says why.
  Status CancelDayBookLine();

 private:
  struct Line;
  [[nodiscard]] Line ReadLine() const;
  void ReverseLedger();
  void ShowCustomer();
  void DropSerials();
  void ReverseStock(const Line& line);
  void ShrinkDueDate(const Line& line);

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  ItemCard item_;
};

}  // namespace karvel
