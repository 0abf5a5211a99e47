// A fresh folder for one test, gone with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace karvel {

class TempFolder {
 public:
  TempFolder() {
    // In memory where there is such a place: hundreds of small stores would wait for the disk otherwise.
    const std::filesystem::path base = std::filesystem::exists("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
    std::string pattern = (base / "karvel-XXXXXX").string();
    path_ = mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace karvel
