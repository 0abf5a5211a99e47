#include "bench/syncs.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace karvel::bench {

namespace {

std::atomic<long> count = 0;
std::atomic<long> rounds = 0;
std::atomic<int> running = 0;
std::atomic<int> moreMs = 0;

int Sync(long call, int file) {
  ++count;
  if (moreMs == DiskPace::kNone) return 0;
  if (running++ == 0) ++rounds;
  if (moreMs > 0) std::this_thread::sleep_for(std::chrono::milliseconds(moreMs));
  const int done = static_cast<int>(syscall(call, file));
  --running;
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
  moreMs = milliseconds;
}

DiskPace::~DiskPace() {
  moreMs = 0;
}

}  // namespace karvel::bench

// The program's own definitions stand before the C library's for the shared libraries too, the engine's among them.
extern "C" int fsync(int file) {
  return karvel::bench::Sync(SYS_fsync, file);
}
extern "C" int fdatasync(int file) {
  return karvel::bench::Sync(SYS_fdatasync, file);
}
