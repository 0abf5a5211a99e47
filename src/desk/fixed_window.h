// The frame of the desk's window: fixed in its place, as the menu's "Pencere Sabit" says, or moved by the arrow keys with Ctrl and sized by
// them with Alt. While a small window is open over it the keys are for that one, and a desk that is fixed fixes both.
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
  // That of the small window that is open; null for none.
  [[nodiscard]] FloatingFrame* OpenFrame() const;
  void Toggle();
  void Key(KeyEvent& event);

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
