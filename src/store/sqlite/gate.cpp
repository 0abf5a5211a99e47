#include "store/sqlite/gate.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/system_error.h"

namespace karvel::sqlite {
namespace {

// A share may know only the older kind of lock, which belongs to the process instead of the opened file. That does too, for a process
// holds one desk.
int SetLock(int file, int type, bool wait) {
  struct flock lock{};
  lock.l_type = static_cast<short>(type);
  lock.l_whence = SEEK_SET;
  int result = fcntl(file, wait ? F_OFD_SETLKW : F_OFD_SETLK, &lock);
  if (result != 0 && errno == EINVAL) result = fcntl(file, wait ? F_SETLKW : F_SETLK, &lock);
  return result;
}

// Made with the rights of the books beside it: who may write these must be able to stand in line.
int OpenFile(const std::string& path) {
  const int there = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (there >= 0 || errno != ENOENT) return there;
  const int made = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  struct stat books{};
  const std::string main = path.substr(0, path.rfind('/') + 1) + "Karvel.mdb";
  if (made >= 0 && stat(main.c_str(), &books) == 0) fchmod(made, books.st_mode & 0666);
  return made;
}

// A place in the line: a thread that waits for the lock, so that the kernel wakes it in its turn, with the file opened once more for
// itself. A terminal that gives up waiting leaves the thread behind, which lets the lock go as soon as it gets it.
struct Waiter {
  std::mutex mutex;
  std::condition_variable changed;
  int file = -1;
  int error = 0;
  bool done = false;
  bool gaveUp = false;
};

void WaitForLock(const std::shared_ptr<Waiter>& waiter) {
  int result = 0;
  do {
    result = SetLock(waiter->file, F_WRLCK, true);
  } while (result != 0 && errno == EINTR);
  const std::lock_guard lock(waiter->mutex);
  waiter->error = result == 0 ? 0 : errno;
  waiter->done = true;
  if (waiter->gaveUp) close(waiter->file);
  waiter->changed.notify_one();
}

}  // namespace

Status Gate::Open(const std::string& folder) {
  Close();
  path_ = folder + "/karvel.lock";
  file_ = OpenFile(path_);
  return file_ >= 0 ? Status() : StatusOfSystemError(errno, path_);
}

void Gate::Close() {
  if (file_ >= 0) close(std::exchange(file_, -1));
}

Status Gate::TryTake() {
  if (file_ < 0) {
    file_ = OpenFile(path_);
    if (file_ < 0) return StatusOfSystemError(errno, path_);
  }
  if (SetLock(file_, F_WRLCK, false) == 0) return {};
  if (errno != EAGAIN && errno != EACCES) return StatusOfSystemError(errno, path_);
  return {ErrorKind::Busy, fmt::format("{}: held by another terminal", path_)};
}

Status Gate::Take(Patience& patience) {
  Status tried = TryTake();
  if (tried.Kind() != ErrorKind::Busy) return tried;
  Wait wait(patience);
  if (wait.Nap() == std::chrono::milliseconds(0)) return tried;

  auto waiter = std::make_shared<Waiter>();
  waiter->file = OpenFile(path_);
  if (waiter->file < 0) return StatusOfSystemError(errno, path_);
  std::thread(WaitForLock, waiter).detach();
  std::unique_lock lock(waiter->mutex);
  while (!waiter->done) {
    lock.unlock();
    const auto nap = wait.Nap();
    lock.lock();
    if (waiter->changed.wait_for(lock, nap, [&] { return waiter->done; })) break;
    if (nap > std::chrono::milliseconds(0)) continue;
    waiter->gaveUp = true;
    return tried;
  }
  if (waiter->error != 0) {
    close(waiter->file);
    return StatusOfSystemError(waiter->error, path_);
  }
  close(file_);
  file_ = waiter->file;
  return {};
}

void Gate::Leave() {
  if (file_ >= 0) SetLock(file_, F_UNLCK, false);
}

}  // namespace karvel::sqlite
