#include "platform/folders.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

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

}  // namespace karvel
