// The overdue notice, Vadefrm: for how many days the customer in front has owed. A tap dismisses it.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class OverdueNotice {
 public:
  explicit OverdueNotice(const DeskParts& parts);

  // For this card, whose due dates stand in VadeData. Shows nothing where he owes nothing or it fell due today.
  void ShowFor(const Cursor& customer);
  void Hide();

 private:
  Screen& screen_;
  Cursors& cursors_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
