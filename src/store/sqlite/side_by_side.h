// Work that waits for the disk, done side by side: each piece on a thread of its own, the threads kept from one time to the next. Where
// the disk answers at once, waking threads would take longer than the work: then the pieces are done one after the other, until one waits.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace karvel::sqlite {

class SideBySide {
 public:
  using Pieces = std::vector<std::function<void()>>;

  SideBySide() = default;
  ~SideBySide();
  SideBySide(const SideBySide&) = delete;
  SideBySide& operator=(const SideBySide&) = delete;

  // Returns when all is done. No piece may throw. Where the machine gives no more threads, the pieces share those that there are.
  void Do(const Pieces& pieces);

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::microseconds kWorthAThread{100};

  void WakeThreads();
  void Work();
  // Takes the next piece, if there is one, and does it unlocked.
  bool DoOne(std::unique_lock<std::mutex>& lock);

  std::mutex mutex_;
  std::condition_variable begun_;
  std::condition_variable ended_;
  const Pieces* pieces_ = nullptr;
  std::size_t next_ = 0;
  std::size_t left_ = 0;
  Clock::duration took_{};                 // by all pieces at hand
  Clock::duration usual_ = kWorthAThread;  // by one piece the last time
  bool ends_ = false;
  std::vector<std::thread> threads_;
  std::size_t mostThreads_ = SIZE_MAX;  // that the machine gives
};

}  // namespace karvel::sqlite
