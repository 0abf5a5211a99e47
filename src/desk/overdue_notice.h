// The overdue notice, Vadefrm: how many days ago the debt of the customer in front fell due. A tap dismisses it.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class OverdueNotice {
 public:
  explicit OverdueNotice(const DeskParts& parts);

  // Shows it for the customer on whose card the cursor stands, with his due dates in VadeData. Hides it where he owes nothing, has
  // no due date, or his debt falls due today.
  void ShowFor(const Cursor& customer);
  void Hide();

 private:
  Screen& screen_;
  Cursors& cursors_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
