// The menu of what an invoice shows: its check marks, how many lines fit on it, its font, and how tax is told.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class InvoiceOptions {
 public:
  explicit InvoiceOptions(const DeskParts& parts);

 private:
  void Toggle(int index);
  void AskLines();
  void AskFont();
  void ToggleTax();

  Screen& screen_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
