#pragma once

#include "platform/clock.h"

namespace karvel {

// The machine's clock in its own time zone.
class SystemClock : public Clock {
 public:
  [[nodiscard]] DateTime Now() const override;
};

}  // namespace karvel
