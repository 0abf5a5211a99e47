// A whole sample shop: its data folder with the eight files, filled with cards and a year of movements that fit together.
#pragma once

#include <cstdint>
#include <string>

namespace karvel::sample {

struct ShopSize {
  std::size_t cards = 500;
  std::size_t customers = 300;  // suppliers and salesmen among them; the shop's own accounts come on top
  std::size_t rows = 5000;      // of the day book
  std::uint64_t seed = 1;       // the same seed makes the same shop, byte by byte
};

// Makes C/KarvelData in the home folder. Throws std::runtime_error, also when there is a shop already: nothing is written over.
void MakeShop(const std::string& home, const ShopSize& size);

}  // namespace karvel::sample
