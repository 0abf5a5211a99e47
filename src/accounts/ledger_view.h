// VzgCmd on the print choice: back to the customer's whole day book, with the choice as it was at first.
#pragma once

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class LedgerView {
 public:
  LedgerView(const DeskParts& parts, CustomerInFront& customer);

 private:
  void ShowAll();

  Screen& screen_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
