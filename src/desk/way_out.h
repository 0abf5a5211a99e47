// Escape leaves the panel in front as its own button would: nothing of it is booked.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class WayOut {
 public:
  explicit WayOut(const DeskParts& parts);

 private:
  // Whether there was a panel to leave.
  bool Leave();

  Screen& screen_;
  Connections connections_;
};

}  // namespace karvel
