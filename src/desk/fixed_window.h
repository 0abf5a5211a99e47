// The frame of the desk's window: fixed in its place, or moved and sized by the arrow keys with Ctrl and Alt.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class FixedWindow {
 public:
  explicit FixedWindow(const DeskParts& parts);
  // As the state says (Sabit).
  void Apply();

 private:
  void Key(KeyEvent& event);

  FormState& form_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
