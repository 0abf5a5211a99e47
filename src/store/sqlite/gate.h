// The line in which the terminals of one data folder stand before they write: a lock on the file karvel.lock in it. The engine's own
// busy waits are no line, a waiter may starve there; here the next one is woken as soon as the gate is free.
// The lock goes with its holder, however he ends.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel::sqlite {

class Gate {
 public:
  Gate() = default;
  ~Gate() { Close(); }
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;

  // NoRights where the folder can't be written.
  Status Open(const std::string& folder);
  void Close();
  // Waits at most so long; Busy when the gate stayed shut.
  Status Take(int milliseconds);
  void Leave();

 private:
  std::string path_;
  int file_ = -1;
};

}  // namespace karvel::sqlite
