#include "robot/line_input.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace karvel {

LineInput::LineInput(int handle, std::function<void(std::string)> line, std::function<void()> end)
    : notifier_(handle, QSocketNotifier::Read), line_(std::move(line)), end_(std::move(end)) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { Read(); });
}

void LineInput::Read() {
  std::array<char, 1 << 16> piece;
  const ssize_t count = read(static_cast<int>(notifier_.socket()), piece.data(), piece.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) {
    notifier_.setEnabled(false);
    if (!rest_.empty()) line_(std::exchange(rest_, {}));
    end_();
    return;
  }
  rest_.append(piece.data(), static_cast<std::size_t>(count));
  std::size_t begin = 0;
  for (std::size_t mark; (mark = rest_.find('\n', begin)) != std::string::npos; begin = mark + 1) {
    std::string line = rest_.substr(begin, mark - begin);
    if (line.ends_with('\r')) line.pop_back();
    line_(std::move(line));
  }
  rest_.erase(0, begin);
}

}  // namespace karvel
