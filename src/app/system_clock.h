#pragma once

#include "platform/clock.h"

namespace karvel {

// The machine's clock, in the machine's time zone.
class SystemClock : public Clock {
 public:
  [[nodiscard]] DateTime Now() const override;
};

}  // namespace karvel
