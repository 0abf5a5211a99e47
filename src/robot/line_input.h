#pragma once

#include <QSocketNotifier>
#include <functional>
#include <string>

namespace karvel {

// The lines of a file handle, as they come, on the event loop. A last line without an end mark counts.
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
