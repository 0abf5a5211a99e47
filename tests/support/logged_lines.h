// Keeps what is logged while it lives.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/log.h"

namespace karvel::testing {

class LoggedLines {
 public:
  LoggedLines() : before_(SetLogSink([this](std::string_view line) { lines_.emplace_back(line); })) {}
  ~LoggedLines() { SetLogSink(before_); }
  LoggedLines(const LoggedLines&) = delete;
  LoggedLines& operator=(const LoggedLines&) = delete;

  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }
  [[nodiscard]] bool Holds(std::string_view part) const {
    for (const std::string& line : lines_)
      if (line.find(part) != std::string::npos) return true;
    return false;
  }

 private:
  std::vector<std::string> lines_;
  std::function<void(std::string_view)> before_;
};

}  // namespace karvel::testing
