// A serial line without a device: what is written at this end, a program reads from the port at Path(). Closing it unplugs the device.
#pragma once

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace karvel {

class PseudoTerminal {
 public:
  PseudoTerminal() : handle_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    const bool open = handle_ >= 0 && grantpt(handle_) == 0 && unlockpt(handle_) == 0;
    const char* const name = open ? ptsname(handle_) : nullptr;
    if (!name) throw std::runtime_error("no pseudo-terminal");
    path_ = name;
  }
  ~PseudoTerminal() { Close(); }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }
  bool Write(std::string_view bytes) const { return write(handle_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()); }
  void Close() {
    if (handle_ >= 0) close(std::exchange(handle_, -1));
  }
  // How the program at the other end has set the line.
  [[nodiscard]] termios Mode() const {
    termios mode{};
    if (tcgetattr(handle_, &mode) != 0) throw std::runtime_error("no mode");
    return mode;
  }

 private:
  int handle_;
  std::string path_;
};

}  // namespace karvel
