#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/status.h"

namespace karvel {

// Zip files of this machine, packed and opened whole. All paths are this machine's own.
class Archives {
 public:
  // A file under the name that it has in the archive; "/" stands between a folder and what lies in it.
  struct Item {
    std::string name;
    std::string path;
  };
  // Called some dozens of times a second while it lasts, with what is done in hundredths.
  using Progress = std::function<void(int percent)>;

  virtual ~Archives() = default;
  // Packs these files. What was packed is read back and compared with them, is safe on the disk, and only then stands under its name, in
  // place of an older archive: until then, and after any failure, that is as it was.
  virtual Status Pack(const std::string& archive, const std::vector<Item>& items, const Progress& progress) = 0;
  // Reads all files of an archive, each compared with its sum, and writes them into an empty folder: then `names` are theirs. Damaged where
  // it is no archive, cut short or changed, or holds a name that leads out of the folder. What was written before a failure lies there.
  virtual Status Unpack(const std::string& archive, const std::string& folder, std::vector<std::string>& names) = 0;
};

}  // namespace karvel
