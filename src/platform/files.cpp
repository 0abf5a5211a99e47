#include "platform/files.h"

namespace karvel {

// The desk's paths have "\\" between their pieces, this machine's "/".
std::string PathIn(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (!path.ends_with('\\') && !path.ends_with('/')) path.push_back(path.starts_with('/') ? '/' : '\\');
  return path.append(name);
}

}  // namespace karvel
