#include "platform/folders.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>

namespace karvel {

std::string FolderOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return slash == std::string_view::npos ? std::string(".") : std::string(path.substr(0, std::max<std::size_t>(slash, 1)));
}

int SyncFolder(const std::string& folder) {
  const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return 0;
  // A folder that can't be synced (some network disks) has its own ways of keeping names.
  const int error = fsync(handle) != 0 && errno != EINVAL ? errno : 0;
  close(handle);
  return error;
}

int SyncFile(const std::string& path) {
  const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (handle < 0) return errno;
  const int error = fsync(handle) == 0 ? 0 : errno;
  close(handle);
  return error;
}

void EmptyByPieces(const std::string& path) {
  constexpr off_t kPiece = 16 * 1024 * 1024;
  const int handle = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
  if (handle < 0) return;
  for (off_t size = lseek(handle, 0, SEEK_END); size > kPiece; size -= kPiece)
    if (ftruncate(handle, size - kPiece) != 0 || fdatasync(handle) != 0) break;
  close(handle);
}

int MoveToFreeName(const std::string& from, const std::string& to) {
  if (link(from.c_str(), to.c_str()) == 0) return unlink(from.c_str()) == 0 ? 0 : errno;
  if (errno != EPERM && errno != EOPNOTSUPP && errno != EMLINK) return errno;
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  if (access(to.c_str(), F_OK) == 0) return EEXIST;
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int ExchangeNames(const std::string& one, const std::string& other) {
  return renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0 ? 0 : errno;
}

}  // namespace karvel
