// "Satır Sil": asks, and cancels the day-book line in front.
#pragma once

#include "books/cancellation.h"
#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/main_button.h"
#include "desk/parts.h"

namespace karvel {

class LineCancellation {
 public:
  LineCancellation(const DeskParts& parts, MainButton& button, CustomerInFront& customer, BalanceDisplay& balance);

  // Cancels the current row of HareketData. When the stores refuse it, nothing has changed, and the outcome says why.
  Status CancelDayBookLine();

 private:
  void Confirm();
  Status ReadLineAnew(const Cancellation& line);
  Status TellTooLate(const Status& outcome);
  void RefuseTransferred(const std::string& id);
  [[nodiscard]] Cancellation ReadCancellation() const;
  void ShowCancelled();
  void ShowBooks();
  void ShowCustomer();

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  MainButton& button_;
  CustomerInFront& customer_;
  BalanceDisplay& balance_;
};

}  // namespace karvel
