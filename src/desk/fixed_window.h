// The frame of the desk's window: fixed in its place, or moved by the arrow keys with Ctrl and sized by them with Alt.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class FixedWindow {
 public:
  explicit FixedWindow(const DeskParts& parts);
  // Fixes or frees the frame, as FormState::Sabit says.
  void Apply();

 private:
  void Key(KeyEvent& event);

  FormState& form_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
