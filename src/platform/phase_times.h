// How long the phases of a long piece of work took, for the log where it was long: by the clock, and in seconds of this program's processor
// time.
#pragma once

#include <fmt/format.h>

#include <chrono>
#include <ctime>
#include <string>
#include <string_view>

#include "platform/log.h"

namespace karvel {

class PhaseTimes {
 public:
  // A phase ends here; the next begins.
  void Note(std::string_view phase) {
    const auto now = std::chrono::steady_clock::now();
    const std::clock_t used = std::clock();
    text_ += fmt::format("{}{} {:.2f} s ({:.2f} s of work)", text_.empty() ? "" : ", ", phase,
                         std::chrono::duration<double>(now - begun_).count(), static_cast<double>(used - used_) / CLOCKS_PER_SEC);
    begun_ = now;
    used_ = used;
  }
  // Short work leaves the log as it is.
  void Tell(std::string_view what) const {
    if (begun_ - start_ >= std::chrono::seconds(2)) Log(fmt::format("{}: {}", what, text_));
  }

 private:
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
  std::clock_t used_ = std::clock();
  std::string text_;
};

}  // namespace karvel
