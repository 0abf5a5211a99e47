// A lock between processes, on a file. The system releases it when its holder dies, however it dies.
#pragma once

#include <string>

#include "platform/patience.h"
#include "platform/status.h"

namespace karvel {

class FileLock {
 public:
  // `path` is this machine's own. The file is made, with its folder, at the first use.
  explicit FileLock(std::string path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Takes the lock if it is free now; well also when this object holds it already. Busy when somebody else does; any other failure names
  // the file or folder that could not be made.
  Status Try();
  // Waits for the lock as long as the patience lasts, then it is Busy.
  Status WaitFor(Patience& patience);
  // Does nothing where the lock is not held.
  void Release();

 private:
  Status Open();
  const std::string path_;
  int handle_ = -1;
  bool held_ = false;
};

}  // namespace karvel
