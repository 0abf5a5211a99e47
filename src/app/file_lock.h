// A lock between processes, on a file. The system releases it when its holder dies, however it dies.
#pragma once

#include <string>

namespace karvel {

class FileLock {
 public:
  // `path` is this machine's own. The file is made, with its folder, at the first use.
  explicit FileLock(std::string path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Waits for the lock as long as it takes. False when the file can't be made, which is logged, or can't be locked.
  bool Wait();
  // Takes the lock if it is free now; true also when this object holds it already.
  bool Try();
  // Does nothing where the lock is not held.
  void Release();

 private:
  bool Open();
  const std::string path_;
  int handle_ = -1;
  bool held_ = false;
};

}  // namespace karvel
