// The wall clock of a test: it stands still.
#pragma once

#include "platform/clock.h"

namespace karvel {

class FixedClock final : public Clock {
 public:
  [[nodiscard]] DateTime Now() const override { return now; }
  DateTime now{2026, 3, 1, 10, 15, 0};
};

}  // namespace karvel
