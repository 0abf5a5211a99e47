// The line in which the terminals of one data folder stand before they write: a lock on the file karvel.lock in it. With the engine's own
// busy waits there is no line, and one who waits may starve; here the next is woken as soon as the gate is free.
// The lock is released when its holder ends, however it ends.
#pragma once

#include <string>

#include "platform/patience.h"
#include "platform/status.h"

namespace karvel::sqlite {

class Gate {
 public:
  Gate() = default;
  ~Gate() { Close(); }
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;

  // Takes no place in the line yet. NoRights where the folder can't be written.
  Status Open(const std::string& folder);
  void Close();
  // Waits as long as the patience lasts; Busy when the gate stayed shut. The gate must have been opened; where that failed, it is tried
  // again.
  Status Take(Patience& patience);
  // The same without a wait.
  Status TryTake();
  // Lets the next one in; does nothing where the gate is not held.
  void Leave();

 private:
  std::string path_;
  int file_ = -1;
};

}  // namespace karvel::sqlite
