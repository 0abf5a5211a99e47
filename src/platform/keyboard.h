#pragma once

namespace karvel {

// Keys sent by the program as if the clerk had pressed them, to whatever has the focus.
class Keyboard {
 public:
  virtual ~Keyboard() = default;
  // One press and release of a virtual key (9 Tab, 13 Enter).
  virtual void Send(int virtualKey) = 0;
  // The state of the Caps Lock key.
  [[nodiscard]] virtual bool CapsLock() const = 0;
  virtual void Beep() = 0;
};

}  // namespace karvel
