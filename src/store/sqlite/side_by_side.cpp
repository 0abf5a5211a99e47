#include "store/sqlite/side_by_side.h"

#include <algorithm>
#include <system_error>

namespace karvel::sqlite {

SideBySide::~SideBySide() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  begun_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void SideBySide::Do(const Pieces& pieces) {
  if (pieces.empty()) return;
  std::unique_lock lock(mutex_);
  pieces_ = &pieces;
  next_ = 0;
  left_ = pieces.size();
  took_ = {};
  if (pieces.size() > 1 && usual_ >= kWorthAThread) WakeThreads();
  while (DoOne(lock)) {
  }
  ended_.wait(lock, [this] { return left_ == 0; });
  pieces_ = nullptr;
  usual_ = took_ / pieces.size();
}

void SideBySide::WakeThreads() {
  // One piece is for the thread that waits.
  const std::size_t wanted = std::min(pieces_->size() - 1, mostThreads_);
  try {
    while (threads_.size() < wanted) threads_.emplace_back([this] { Work(); });
  } catch (const std::system_error&) {
    mostThreads_ = threads_.size();
  }
  begun_.notify_all();
}

void SideBySide::Work() {
  std::unique_lock lock(mutex_);
  while (!ends_) {
    if (!DoOne(lock)) begun_.wait(lock);
  }
}

bool SideBySide::DoOne(std::unique_lock<std::mutex>& lock) {
  if (pieces_ == nullptr || next_ == pieces_->size()) return false;
  const std::function<void()>& piece = (*pieces_)[next_++];
  lock.unlock();
  const auto begin = Clock::now();
  piece();
  const auto end = Clock::now();
  lock.lock();
  took_ += end - begin;
  if (--left_ == 0) ended_.notify_one();
  return true;
}

}  // namespace karvel::sqlite
