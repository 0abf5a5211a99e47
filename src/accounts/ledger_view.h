// VzgCmd on the print choice: back to the customer's whole day book, with the choice as it was at first.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class LedgerView {
 public:
  explicit LedgerView(const DeskParts& parts);

 private:
  void ShowAll();

  Screen& screen_;
  Cursors& cursors_;
  Connections connections_;
};

}  // namespace karvel
