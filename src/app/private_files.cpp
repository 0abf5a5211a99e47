#include "app/private_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/folders.h"
#include "platform/system_error.h"

namespace karvel {

Status MakePrivateFolder(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::is_directory(path, error)) return {};
  const std::string above = FolderOf(path);
  if (above != path) {
    if (Status made = MakePrivateFolder(above); !made.Ok()) return made;
  }
  if (mkdir(path.c_str(), S_IRWXU) != 0) {
    const int failed = errno;
    if (failed != EEXIST) return StatusOfSystemError(failed, path);
    if (!fs::is_directory(path, error)) return StatusOfSystemError(ENOTDIR, path);
    // Another terminal has made it at this moment; its name is to be safe for this one too.
  }
  return StatusOfSystemError(SyncFolder(above), above);
}

int OpenPrivate(const std::string& path, int flags) {
  return open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
}

bool IsLink(const std::string& path) {
  struct stat info{};
  return lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

}  // namespace karvel
