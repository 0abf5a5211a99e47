// Throws that come out the same on every machine for the same seed, so that two runs of a measurement see the same shop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace karvel::sample {

class Dice {
 public:
  // One independent row of throws for each (seed, stream, index).
  explicit Dice(std::uint64_t seed, std::uint64_t stream = 0, std::uint64_t index = 0)
      : state_(Mix(Mix(seed + 0x9e3779b97f4a7c15u) ^ Mix(stream * 0xbf58476d1ce4e5b9u + 1) ^ (index * 0x94d049bb133111ebu))) {}

  std::uint64_t Next() {
    state_ += 0x9e3779b97f4a7c15u;
    return Mix(state_);
  }
  // 0 to size - 1; size above 0.
  std::size_t Below(std::size_t size) { return static_cast<std::size_t>(Next() % size); }
  // From low to high, both included.
  int Between(int low, int high) { return low + static_cast<int>(Below(static_cast<std::size_t>(high - low) + 1)); }
  // 0 to just below 1.
  double Part() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }
  bool Chance(int percent) { return Between(1, 100) <= percent; }
  template <typename T, std::size_t N>
  const T& Pick(std::span<const T, N> from) {
    return from[Below(from.size())];
  }

 private:
  static std::uint64_t Mix(std::uint64_t x) {
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9u;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebu;
    return x ^ (x >> 31);
  }
  std::uint64_t state_;
};

// Shuffles 0 … size-1 onto itself: ranks that follow each other land far apart, and no two land on the same place.
inline std::size_t Scatter(std::size_t rank, std::size_t size, std::uint64_t seed) {
  constexpr std::uint64_t kPrime = 2654435761u;  // above every size in use, so it shares no factor with one
  const std::uint64_t spread = (rank % size) * kPrime + seed % size * 7919u;
  return static_cast<std::size_t>(spread % size);
}

}  // namespace karvel::sample
