// A new content for a file, which comes to stand there whole or not at all, also when the power goes: written to a neighbour,
// synced, then renamed over the target.
#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace karvel {

class AtomicFile {
 public:
  // Opens the neighbour of `target`, a path of this machine.
  explicit AtomicFile(std::string target);
  // Without a Finish that went well nothing remains of it.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // After a failure the rest does nothing and Finish tells the first one.
  void Append(std::string_view bytes);
  // Without `replace`, a target that stands there by now stays as it is.
  Status Finish(bool replace = true);

  // True for the name of a neighbour that a crash left behind.
  static bool IsLeftover(std::string_view name);

 private:
  void Fail(int error);

  const std::string target_;
  std::string neighbour_;
  Status status_;
  int handle_ = -1;
};

}  // namespace karvel
