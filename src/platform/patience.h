// How long the program waits for other terminals and programs before it gives up.
//
// What stays true:
// - All waits between two Renew together last no longer than the limit.
// - After a wait that was given up, Renew gives no new time for half a second, or until something was granted: what the same tap still asks
//   for is refused at once, and its waits don't add up.
// - Whoever hears of a wait (WaitListener) can't begin another inside it.
#pragma once

#include <chrono>

#include "platform/wait_listener.h"

namespace karvel {

class Patience {
 public:
  explicit Patience(std::chrono::milliseconds limit) : limit_(limit) {}

  // Who hears of the waits; null for nobody. He outlives this, or is taken away before he goes.
  void SetListener(WaitListener* listener) { listener_ = listener; }
  // Something new is begun, which may wait for the whole time.
  void Renew();
  // What was waited for was got: the next wait has the whole time again, however short the last refusal was ago.
  void Granted() { gaveUpAt_ = Clock::time_point::min(); }
  // Whether a wait is under way now, and this is heard inside it.
  [[nodiscard]] bool IsWaiting() const { return waiting_; }

 private:
  friend class Wait;
  using Clock = std::chrono::steady_clock;

  const std::chrono::milliseconds limit_;
  WaitListener* listener_ = nullptr;
  Clock::duration used_{};
  Clock::time_point gaveUpAt_ = Clock::time_point::min();
  bool waiting_ = false;
};

// One wait, from the first time that a lock was found taken. Costs nothing until then.
class Wait {
 public:
  explicit Wait(Patience& patience) : patience_(patience) {}
  ~Wait();
  Wait(const Wait&) = delete;
  Wait& operator=(const Wait&) = delete;

  // The lock is still taken: how long to sleep before the next try; zero to give up.
  [[nodiscard]] std::chrono::milliseconds Nap();

 private:
  Patience& patience_;
  Patience::Clock::time_point start_;
  Patience::Clock::duration usedBefore_{};
  bool begun_ = false, heard_ = false;
  int naps_ = 0;
};

}  // namespace karvel
