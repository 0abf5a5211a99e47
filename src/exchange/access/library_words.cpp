#include "exchange/access/library_words.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/log.h"

namespace karvel {
namespace {

constexpr int kMostLines = 20;

// The beginning of a file; the rest of a line that is longer is left out.
std::string BeginningOf(int file) {
  std::array<char, 8192> bytes{};
  const ssize_t count = pread(file, bytes.data(), bytes.size(), 0);
  return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

void LogLines(std::string_view text) {
  for (int line = 0; line < kMostLines && !text.empty(); ++line) {
    const std::size_t end = text.find('\n');
    Log("old file: " + std::string(text.substr(0, end)));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
}

}  // namespace

LibraryWords::LibraryWords() {
  std::fflush(stderr);
  kept_ = memfd_create("library words", MFD_CLOEXEC);
  if (kept_ >= 0) output_ = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (output_ >= 0) dup2(kept_, STDERR_FILENO);
}

LibraryWords::~LibraryWords() {
  std::fflush(stderr);
  if (output_ >= 0) {
    dup2(output_, STDERR_FILENO);
    close(output_);
    LogLines(BeginningOf(kept_));
  }
  if (kept_ >= 0) close(kept_);
}

}  // namespace karvel
