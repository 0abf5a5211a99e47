#include "app/private_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/system_error.h"

namespace karvel {
namespace {

// A folder that can't be synced (some network disks) has its own ways of keeping names.
Status SyncFolder(const std::string& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return {};
  const int error = fsync(folder) == 0 || errno == EINVAL ? 0 : errno;
  close(folder);
  return StatusOfSystemError(error, path);
}

}  // namespace

Status MakePrivateFolder(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::is_directory(path, error)) return {};
  const std::string parent = fs::path(path).parent_path();
  if (!parent.empty() && parent != path) {
    if (Status made = MakePrivateFolder(parent); !made.Ok()) return made;
  }
  if (mkdir(path.c_str(), S_IRWXU) == 0) return SyncFolder(parent.empty() ? "." : parent);
  // Another terminal may have made it at this moment.
  const int failed = errno;
  if (failed != EEXIST) return StatusOfSystemError(failed, path);
  return fs::is_directory(path, error) ? Status() : StatusOfSystemError(ENOTDIR, path);
}

int OpenPrivate(const std::string& path, int flags) {
  return open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
}

bool IsLink(const std::string& path) {
  struct stat info{};
  return lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

}  // namespace karvel
