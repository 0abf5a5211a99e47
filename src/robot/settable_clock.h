#pragma once

#include <optional>

#include "app/system_clock.h"

namespace karvel {

// The machine's clock, or one moment at which it stands still.
class SettableClock : public Clock {
 public:
  [[nodiscard]] DateTime Now() const override { return fixed_ ? *fixed_ : system_.Now(); }
  void Fix(const DateTime& now) { fixed_ = now; }
  void Free() { fixed_.reset(); }
  [[nodiscard]] bool IsFixed() const { return fixed_.has_value(); }

 private:
  SystemClock system_;
  std::optional<DateTime> fixed_;
};

}  // namespace karvel
