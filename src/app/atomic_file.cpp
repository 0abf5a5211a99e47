#include "app/atomic_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "app/private_files.h"
#include "platform/folders.h"
#include "platform/system_error.h"

namespace karvel {
namespace {

constexpr std::string_view kMark = ".karvel-";
constexpr std::string_view kEnd = ".tmp";
std::atomic<int> counter = 0;

// Whether the process that the name of a neighbour tells may still be writing it. A number is given again: what bears our own before we
// have written anything was another's.
bool MayBeInUse(const std::string& name) {
  pid_t writer = 0;
  std::from_chars(name.data() + kMark.size(), name.data() + name.size(), writer);
  if (writer <= 0) return true;
  if (writer == getpid()) return counter > 0;
  return kill(writer, 0) == 0 || errno != ESRCH;
}

}  // namespace

AtomicFile::AtomicFile(std::string target)
    : target_(std::move(target)), neighbour_(fmt::format("{}/{}{}-{}{}", FolderOf(target_), kMark, getpid(), ++counter, kEnd)) {
  handle_ = OpenPrivate(neighbour_, O_WRONLY | O_CREAT | O_EXCL);
  if (handle_ < 0) {
    Fail(errno);
    return;
  }
  // Writing the file doesn't change who may read it.
  struct stat old{};
  if (lstat(target_.c_str(), &old) == 0 && S_ISREG(old.st_mode) && fchmod(handle_, old.st_mode & 07777) != 0) Fail(errno);
}

AtomicFile::~AtomicFile() {
  if (handle_ < 0) return;
  close(handle_);
  unlink(neighbour_.c_str());
}

bool AtomicFile::IsLeftover(std::string_view name) {
  // Whoever makes an archive may add an ending of his own until it is whole.
  return name.starts_with(kMark) && name.find(kEnd) != std::string_view::npos;
}

void AtomicFile::SweepLeftovers(const std::string& folder) {
  namespace fs = std::filesystem;
  std::vector<fs::path> left;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (IsLeftover(name) && !MayBeInUse(name)) left.push_back(entry->path());
  }
  for (const fs::path& path : left) unlink(path.c_str());
}

void AtomicFile::Fail(int error) {
  if (status_.Ok()) status_ = StatusOfSystemError(error, target_);
}

void AtomicFile::Append(std::string_view bytes) {
  while (status_.Ok() && !bytes.empty()) {
    const ssize_t written = write(handle_, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      Fail(errno);
    }
  }
}

Status AtomicFile::Finish(bool replace) {
  if (status_.Ok() && fsync(handle_) != 0) Fail(errno);
  // A link never goes over an existing name, so of two terminals that start together one lays the file and the other leaves it.
  if (status_.Ok() && !replace && link(neighbour_.c_str(), target_.c_str()) != 0 && errno != EEXIST) {
    replace = errno == EPERM || errno == EOPNOTSUPP;  // disks without links
    if (!replace) Fail(errno);
  }
  if (status_.Ok() && replace && rename(neighbour_.c_str(), target_.c_str()) != 0) Fail(errno);
  if (!status_.Ok()) return status_;
  if (!replace) unlink(neighbour_.c_str());
  close(std::exchange(handle_, -1));
  if (const int error = SyncFolder(FolderOf(target_)); error != 0) Fail(error);
  return status_;
}

}  // namespace karvel
