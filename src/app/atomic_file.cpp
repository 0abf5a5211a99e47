#include "app/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "app/private_files.h"
#include "platform/folders.h"
#include "platform/system_error.h"
#include "platform/unfinished_files.h"

namespace karvel {
AtomicFile::AtomicFile(std::string target) : target_(std::move(target)), neighbour_(UnfinishedIn(FolderOf(target_))) {
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
  // Of two terminals that start together one lays the file and the other leaves it.
  if (status_.Ok() && !replace) {
    const int error = MoveToFreeName(neighbour_, target_);
    if (error == EEXIST) {
      unlink(neighbour_.c_str());
    } else if (error != 0) {
      Fail(error);
    }
  }
  if (status_.Ok() && replace && rename(neighbour_.c_str(), target_.c_str()) != 0) Fail(errno);
  if (!status_.Ok()) return status_;
  close(std::exchange(handle_, -1));
  if (const int error = SyncFolder(FolderOf(target_)); error != 0) Fail(error);
  return status_;
}

}  // namespace karvel
