#include "platform/files.h"

#include <algorithm>

namespace karvel {

// The desk's paths have "\\" between their pieces, this machine's "/".
std::string PathIn(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (!path.ends_with('\\') && !path.ends_with('/')) path.push_back(path.starts_with('/') ? '/' : '\\');
  return path.append(name);
}

bool IsPlainName(std::string_view text) {
  if (text.empty() || text == "." || text == "..") return false;
  return std::ranges::none_of(
      text, [](char letter) { return static_cast<unsigned char>(letter) < ' ' || std::string_view("\\/:*?\"<>|").contains(letter); });
}

}  // namespace karvel
