#pragma once

#include <QSocketNotifier>
#include <functional>
#include <string>

namespace karvel {

// The lines of a file handle as they come, reported from the event loop: `line` for each, without its end mark, then `end` once. A last
// line without an end mark counts.
class LineInput {
 public:
  LineInput(int handle, std::function<void(std::string)> line, std::function<void()> end);

 private:
  void Read();

  QSocketNotifier notifier_;
  const std::function<void(std::string)> line_;
  const std::function<void()> end_;
  std::string rest_;
};

}  // namespace karvel
