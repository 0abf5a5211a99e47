#pragma once

#include <string>

#include "platform/signal.h"

namespace karvel {

// The barcode scanner beside the desk.
class Scanner {
 public:
  virtual ~Scanner() = default;
  // Opens the device; false when there is none.
  virtual bool Start() = 0;
  virtual void Stop() = 0;
  // Off: a code that is read meanwhile is kept and reported when it is switched on again.
  virtual void SetEnabled(bool enabled) = 0;
  [[nodiscard]] virtual bool Enabled() const = 0;
  // A whole code, without its end mark.
  Signal<const std::string&> codeRead;
};

}  // namespace karvel
