#pragma once

#include "platform/keyboard.h"

namespace karvel {

// Keys come to the widget that has the focus when their turn in the event queue comes, as those of the clerk do.
class QtKeyboard : public Keyboard {
 public:
  void Send(int virtualKey) override;
  [[nodiscard]] bool CapsLock() const override;
  void Beep() override;
};

}  // namespace karvel
