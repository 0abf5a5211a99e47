// Every sync of this program passes through here: counted, and made as slow as a shop's disk where a measurement wants it so.
#pragma once

namespace karvel::bench {

class Syncs {
 public:
  // Since the program started; directories count as files do.
  [[nodiscard]] static long Count();
};

// While it lives, every sync takes so many milliseconds more.
class SlowSyncs {
 public:
  explicit SlowSyncs(int milliseconds);
  ~SlowSyncs();
  SlowSyncs(const SlowSyncs&) = delete;
  SlowSyncs& operator=(const SlowSyncs&) = delete;
};

}  // namespace karvel::bench
