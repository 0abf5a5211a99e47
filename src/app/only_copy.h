// One copy of the program a terminal: the lock that tells whether another runs, and the bell by which a further start calls it to the
// front. Both lie in the home folder; neither is held by a copy that died.
#pragma once

#include <QSocketNotifier>
#include <expected>
#include <functional>
#include <memory>
#include <string>

#include "app/file_lock.h"
#include "platform/shell.h"

namespace karvel {

class OnlyCopy {
 public:
  // `path` is this machine's own, without an ending: PATH.lock and PATH.bell are made at the first claim. `rung` is called from the event
  // loop.
  OnlyCopy(const std::string& path, std::function<void()> rung);
  ~OnlyCopy();
  OnlyCopy(const OnlyCopy&) = delete;
  OnlyCopy& operator=(const OnlyCopy&) = delete;

  // Rings the bell of the other copy where the place is taken.
  std::expected<karvel::Claim, Status> Claim();

 private:
  void HearBell();
  void Ring() const;

  const std::string bell_;
  const std::function<void()> rung_;
  FileLock lock_;
  int handle_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace karvel
