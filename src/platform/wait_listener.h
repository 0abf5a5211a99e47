#pragma once

#include <chrono>

namespace karvel {

// Hears of a wait for another terminal or program while it lasts, on the thread that waits.
class WaitListener {
 public:
  virtual ~WaitListener() = default;
  // Called some dozens of times a second, with how long the wait has lasted. What it runs may read, but waits for nobody: a lock that is
  // taken answers Busy at once.
  virtual void Waiting(std::chrono::milliseconds soFar) = 0;
  // Called once when a wait that was heard of is over, whether or not it got what it waited for.
  virtual void WaitOver() = 0;
};

}  // namespace karvel
