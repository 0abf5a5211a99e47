#pragma once

#include "text/date_time.h"

namespace karvel {

// The shop's wall clock.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual DateTime Now() const = 0;
};

}  // namespace karvel
