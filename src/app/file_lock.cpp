#include "app/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>
#include <utility>

#include "app/private_files.h"
#include "platform/folders.h"
#include "platform/system_error.h"

namespace karvel {

FileLock::FileLock(std::string path) : path_(std::move(path)) {}

FileLock::~FileLock() {
  if (handle_ >= 0) close(handle_);
}

Status FileLock::Open() {
  if (handle_ >= 0) return {};
  if (Status made = MakePrivateFolder(FolderOf(path_)); !made.Ok()) return made;
  handle_ = OpenPrivate(path_, O_RDWR | O_CREAT);
  return handle_ >= 0 ? Status() : StatusOfSystemError(errno, path_);
}

Status FileLock::Try() {
  if (held_) return {};
  if (Status opened = Open(); !opened.Ok()) return opened;
  while (flock(handle_, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return {ErrorKind::Busy, path_ + ": held by another terminal"};
    if (errno != EINTR) return StatusOfSystemError(errno, path_);
  }
  held_ = true;
  return {};
}

Status FileLock::WaitFor(Patience& patience) {
  for (Wait wait(patience);;) {
    Status tried = Try();
    if (tried.Kind() != ErrorKind::Busy) return tried;
    const auto nap = wait.Nap();
    if (nap.count() == 0) return tried;
    std::this_thread::sleep_for(nap);
  }
}

void FileLock::Release() {
  if (std::exchange(held_, false)) flock(handle_, LOCK_UN);
}

}  // namespace karvel
