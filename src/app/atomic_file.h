// New content for a file, which replaces the old whole or not at all, even when the power fails: it is written to a neighbour of the file,
// synced, and renamed over it.
#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace karvel {

class AtomicFile {
 public:
  // Opens the neighbour of `target`, a path of this machine.
  explicit AtomicFile(std::string target);
  // Deletes the neighbour, unless Finish has put it in place.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // Finish tells of a failure here; what is appended after one is dropped.
  void Append(std::string_view bytes);
  // Puts the content in place, and on the disk. After a failure the target is as it was, unless only its folder could not be synced.
  // Without `replace`, a target that has come to exist meanwhile stays as it is, and all is well.
  Status Finish(bool replace = true);

 private:
  void Fail(int error);

  const std::string target_;
  std::string neighbour_;
  Status status_;
  int handle_ = -1;
};

}  // namespace karvel
