// Every sync of this program passes through here: counted, and made as slow as a shop's disk where a measurement wants it so.
#pragma once

namespace karvel::bench {

class Syncs {
 public:
  // Since the program started; directories count as files do.
  [[nodiscard]] static long Count();
  // Those that run side by side count once: a round is what somebody waits for. To be told apart they have to take their time (DiskPace).
  [[nodiscard]] static long Rounds();
};

// While it lives, every sync takes so many milliseconds, or longer where the real disk does; with kNone none reaches the disk, which leaves
// the work alone.
class DiskPace {
 public:
  static constexpr int kNone = -1;
  explicit DiskPace(int milliseconds);
  ~DiskPace();
  DiskPace(const DiskPace&) = delete;
  DiskPace& operator=(const DiskPace&) = delete;
};

}  // namespace karvel::bench
