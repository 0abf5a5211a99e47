#include "bench/syncs.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

namespace karvel::bench {

namespace {

std::atomic<long> count = 0;
std::atomic<long> rounds = 0;
std::atomic<int> running = 0;
std::atomic<int> leastMs = 0;

int Sync(long call, int file) {
  ++count;
  if (leastMs == DiskPace::kNone) return 0;
  if (running++ == 0) ++rounds;
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(leastMs);
  const int done = static_cast<int>(syscall(call, file));
  const int error = errno;
  std::this_thread::sleep_until(end);
  --running;
  errno = error;
  return done;
}

}  // namespace

long Syncs::Count() {
  return count;
}

long Syncs::Rounds() {
  return rounds;
}

DiskPace::DiskPace(int milliseconds) {
  leastMs = milliseconds;
}

DiskPace::~DiskPace() {
  leastMs = 0;
}

}  // namespace karvel::bench

// The program's own definitions stand before the C library's for the shared libraries too, the engine's among them.
extern "C" int fsync(int file) {
  return karvel::bench::Sync(SYS_fsync, file);
}
extern "C" int fdatasync(int file) {
  return karvel::bench::Sync(SYS_fdatasync, file);
}
