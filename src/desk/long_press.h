// The long press that closes a fixed desk, whose window has no frame to close it by: a finger that stays on the exit button (4 seconds) or
// on a list's heading (2 seconds).
#pragma once

#include <memory>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class LongPress {
 public:
  explicit LongPress(const DeskParts& parts);
  // The finger came up, or the desk closes already.
  void End() { timer_.reset(); }

 private:
  void Begin(int deadlineSeconds);
  void CloseDesk();

  Screen& screen_;
  FormState& form_;
  const World& world_;
  std::shared_ptr<void> timer_;  // Timer1
  int ticks_ = 0;
  Connections connections_;
};

}  // namespace karvel
