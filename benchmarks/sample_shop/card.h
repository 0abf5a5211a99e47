// The sample shop's stock cards, each worked out from the seed and its number alone. Money in kuruş, quantities in thousandths of the first
// unit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace karvel::sample {

struct Card {
  std::string code;     // StokKod
  std::string name;     // StokAdi; no two alike
  std::string barcode;  // EAN-13 with its check digit; no two alike
  std::string_view group, unit, packUnit;
  std::string place;
  int tax = 0;
  int packed = 0;         // Adet2
  int thirdQuantity = 0;  // Adet3
  std::int64_t price = 0, price2 = 0, price3 = 0, cost = 0;
  bool tracksProfit = false;
  bool hidden = false;
  bool weighed = false;                        // sold by Kg, in fractions too
  std::int64_t openingIn = 0, openingOut = 0;  // moved before the year that the movements tell
};

class Cards {
 public:
  Cards(std::uint64_t seed, std::size_t count) : seed_(seed), count_(count) {}
  [[nodiscard]] std::size_t Count() const { return count_; }
  [[nodiscard]] Card Make(std::size_t number) const;

 private:
  const std::uint64_t seed_;
  const std::size_t count_;
};

// The thirteenth digit of a barcode of twelve.
char CheckDigit(std::string_view twelveDigits);

}  // namespace karvel::sample
