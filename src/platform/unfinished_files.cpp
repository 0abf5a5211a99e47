#include "platform/unfinished_files.h"

#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <vector>

namespace karvel {
namespace {

constexpr std::string_view kMark = ".karvel-";
constexpr std::string_view kEnd = ".tmp";
std::atomic<int> counter = 0;

// Whether the process that a name tells may still be writing. A number is given again: what bears our own before we have written anything
// was another's.
bool MayBeInUse(const std::string& name) {
  pid_t writer = 0;
  std::from_chars(name.data() + kMark.size(), name.data() + name.size(), writer);
  if (writer <= 0) return true;
  if (writer == getpid()) return counter > 0;
  return kill(writer, 0) == 0 || errno != ESRCH;
}

}  // namespace

std::string UnfinishedIn(const std::string& folder) {
  return fmt::format("{}/{}{}-{}{}", folder, kMark, getpid(), ++counter, kEnd);
}

bool IsUnfinished(std::string_view name) {
  return name.starts_with(kMark) && name.find(kEnd) != std::string_view::npos;
}

void SweepUnfinished(const std::string& folder) {
  namespace fs = std::filesystem;
  std::vector<fs::path> left;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (IsUnfinished(name) && !MayBeInUse(name)) left.push_back(entry->path());
  }
  for (const fs::path& path : left) unlink(path.c_str());
}

}  // namespace karvel
