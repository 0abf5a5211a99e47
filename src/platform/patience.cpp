#include "platform/patience.h"

#include <algorithm>

namespace karvel {
namespace {
using namespace std::chrono_literals;
constexpr auto kCalm = 500ms;
constexpr auto kLongestNap = 20ms;
}  // namespace

void Patience::Renew() {
  if (waiting_ || (gaveUpAt_ != Clock::time_point::min() && Clock::now() - gaveUpAt_ < kCalm)) return;
  used_ = {};
}

Wait::~Wait() {
  if (!begun_) return;
  patience_.used_ = usedBefore_ + (Patience::Clock::now() - start_);
  patience_.waiting_ = false;
  if (heard_ && patience_.listener_ != nullptr) patience_.listener_->WaitOver();
}

std::chrono::milliseconds Wait::Nap() {
  if (!begun_) {
    if (patience_.waiting_) return 0ms;
    begun_ = patience_.waiting_ = true;
    start_ = Patience::Clock::now();
    usedBefore_ = patience_.used_;
  } else if (patience_.listener_ != nullptr) {
    heard_ = true;
    patience_.listener_->Waiting(std::chrono::duration_cast<std::chrono::milliseconds>(Patience::Clock::now() - start_));
  }
  const auto now = Patience::Clock::now();
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(patience_.limit_ - usedBefore_ - (now - start_));
  if (left <= 0ms) {
    patience_.gaveUpAt_ = now;
    patience_.used_ = patience_.limit_;
    return 0ms;
  }
  // A lock is mostly held for a moment, so the first tries follow closely.
  const std::chrono::milliseconds nap(std::min<std::int64_t>(++naps_, kLongestNap.count()));
  return std::min(nap, left);
}

}  // namespace karvel
