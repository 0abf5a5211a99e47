// A copy of all files of the data folder, as they all were at one moment: no action stands in one of them and not in another. It is made
// bit by bit, while everybody reads and posts; its moment comes at its end. It works through the engine that gave it, and goes before that
// is closed. One that goes before it is done leaves what it has written.
#pragma once

#include <cstdint>

#include "platform/status.h"

namespace karvel {

class StoresCopy {
 public:
  virtual ~StoresCopy() = default;

  // Goes on for a hundredth of a second or so. After a failure there is no going on. Not inside a transaction.
  virtual Status Advance() = 0;
  [[nodiscard]] virtual bool IsDone() const = 0;
  // Bytes of the files together: all, and those that are copied already. What changes meanwhile is copied once more uncounted.
  [[nodiscard]] virtual std::int64_t Size() const = 0;
  [[nodiscard]] virtual std::int64_t Copied() const = 0;
};

}  // namespace karvel
