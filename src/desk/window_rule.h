// The frame of the desk: the fixed-window rule, the keys that move and size the window, the desk font, and the long press that closes.
#pragma once

#include <memory>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class WindowRule {
 public:
  explicit WindowRule(const DeskParts& parts);
  void ApplyFixed();
  void ApplyFonts();  // the desk font and the grid font, as saved
  void StopTimer() { timer_.reset(); }

 private:
  void Key(KeyEvent& event);
  void ChooseFont();
  void Press(int deadlineSeconds);

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  std::shared_ptr<void> timer_;  // Timer1
  int ticks_ = 0;
  Connections connections_;
};

}  // namespace karvel
