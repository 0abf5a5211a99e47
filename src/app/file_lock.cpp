#include "app/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/log.h"

namespace karvel {

FileLock::FileLock(std::string path) : path_(std::move(path)) {}

FileLock::~FileLock() {
  if (handle_ >= 0) close(handle_);
}

bool FileLock::Open() {
  if (handle_ >= 0) return true;
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), error);
  handle_ = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (handle_ < 0) Log("lock " + path_ + ": " + std::generic_category().message(errno));
  return handle_ >= 0;
}

bool FileLock::Wait() {
  if (!Open()) return false;
  while (!held_) {
    if (flock(handle_, LOCK_EX) == 0) {
      held_ = true;
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

bool FileLock::Try() {
  if (!held_) held_ = Open() && flock(handle_, LOCK_EX | LOCK_NB) == 0;
  return held_;
}

void FileLock::Release() {
  if (std::exchange(held_, false)) flock(handle_, LOCK_UN);
}

}  // namespace karvel
