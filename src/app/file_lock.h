// A lock between processes on a file, which the system itself drops when its holder dies, however it dies.
#pragma once

#include <string>

namespace karvel {

class FileLock {
 public:
  // The lock file of this machine's path; it is made, with its folder, at the first use.
  explicit FileLock(std::string path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Waits for the lock. False when the file can't be made or locked.
  bool Wait();
  // Takes the lock if it is free now; true also when this object holds it already.
  bool Try();
  void Release();

 private:
  bool Open();
  const std::string path_;
  int handle_ = -1;
  bool held_ = false;
};

}  // namespace karvel
