#include "store/sqlite/change_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/system_error.h"

namespace karvel::sqlite {
namespace {

static_assert(sizeof(Change) == 16, "the notes lie in the file as they lie in memory");

std::string NotesOf(const std::string& store) {
  return store + "-changes";
}

struct flock WholeFile() {
  struct flock lock{};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  return lock;
}

// A copy keeps its notes locked as long as it lives. A share that can't tell counts as locked.
bool IsKept(int file) {
  struct flock lock = WholeFile();
  return fcntl(file, F_OFD_GETLK, &lock) != 0 || lock.l_type != F_UNLCK;
}

}  // namespace

std::uint32_t CounterIn(const char* head) {
  std::uint32_t counter = 0;
  for (int i = 0; i < 4; ++i) counter = counter << 8U | static_cast<unsigned char>(head[kCounterAt + i]);
  return counter;
}

void ChangeNotes::Open(const std::string& store) {
  Close();
  path_ = NotesOf(store);
  file_ = open(path_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW);
  if (file_ < 0 || IsKept(file_)) return;
  // Who begins a copy has the write lock, which is this desk's now: so nobody is just about to lock them.
  unlink(path_.c_str());
  Close();
}

void ChangeNotes::Close() {
  if (file_ >= 0) close(std::exchange(file_, -1));
}

std::uint32_t ChangeNotes::CounterOf(const char* bytes, int count, std::int64_t at) {
  return at == 0 && count >= kCounterAt + 4 ? CounterIn(bytes) : 0;
}

void ChangeNotes::Write(const Change& change) {
  if (file_ < 0) return;
  ssize_t written = 0;
  do {
    written = write(file_, &change, sizeof(change));
  } while (written < 0 && errno == EINTR);
  if (written == sizeof(change)) return;
  unlink(path_.c_str());
  Close();
}

Status ChangeLog::Open(const std::string& store) {
  Close();
  path_ = NotesOf(store);
  file_ = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  if (file_ < 0) return StatusOfSystemError(errno, path_);
  struct flock lock = WholeFile();
  if (fcntl(file_, F_OFD_SETLK, &lock) != 0 && errno != EINVAL) {
    const bool taken = errno == EAGAIN || errno == EACCES;
    const Status failed = StatusOfSystemError(errno, path_);
    close(std::exchange(file_, -1));
    return taken ? Status(ErrorKind::Busy, path_ + ": copied by another terminal").At(path_) : failed;
  }
  // Whoever may write the store must be able to note it.
  struct stat books{};
  if (stat(store.c_str(), &books) == 0) fchmod(file_, books.st_mode & 0666);
  read_ = 0;
  if (ftruncate(file_, 0) == 0) return {};
  const Status failed = StatusOfSystemError(errno, path_);
  Close();
  return failed;
}

void ChangeLog::Close() {
  if (file_ < 0) return;
  unlink(path_.c_str());
  close(std::exchange(file_, -1));
}

bool ChangeLog::ReadNew(std::vector<Change>& changes) {
  changes.clear();
  struct stat now{};
  if (file_ < 0 || fstat(file_, &now) != 0 || now.st_nlink == 0) return false;
  std::array<Change, 256> piece;
  for (;;) {
    const ssize_t count = pread(file_, piece.data(), sizeof(piece), read_);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 || count % static_cast<ssize_t>(sizeof(Change)) != 0) return false;
    if (count == 0) return true;
    changes.insert(changes.end(), piece.begin(), piece.begin() + count / static_cast<ssize_t>(sizeof(Change)));
    read_ += count;
  }
}

}  // namespace karvel::sqlite
