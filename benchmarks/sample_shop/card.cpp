#include "sample_shop/card.h"

#include <fmt/format.h>

#include "sample_shop/dice.h"
#include "sample_shop/goods.h"

namespace karvel::sample {

namespace {

constexpr std::string_view kPacks[] = {"", " 2'li", " 3'lü", " 6'lı"};
constexpr int kPackFactors[] = {1, 2, 3, 6};
constexpr int kSizeFactors[] = {100, 185, 320, 560};  // percent of the smallest size's price

// Shelf prices end in five or ten kuruş.
std::int64_t Rounded(double kurus) {
  return static_cast<std::int64_t>(kurus / 5.0 + 0.5) * 5;
}

}  // namespace

char CheckDigit(std::string_view twelveDigits) {
  int sum = 0;
  for (std::size_t i = 0; i < twelveDigits.size(); ++i) sum += (twelveDigits[i] - '0') * (i % 2 == 0 ? 1 : 3);
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

Card Cards::Make(std::size_t number) const {
  const std::size_t kinds = AllGoods().size(), makes = Makes().size(), sizes = 4, variants = Variants().size(), packs = std::size(kPacks);
  const std::size_t plain = kinds * makes * sizes, special = plain * variants * packs;
  const bool isPlain = number < plain;
  std::size_t place = isPlain ? Scatter(number, plain, seed_) : Scatter(number - plain, special, seed_ + 1);
  const Goods& goods = AllGoods()[place % kinds];
  place /= kinds;
  const std::string_view make = Makes()[place % makes];
  place /= makes;
  const std::size_t size = place % sizes;
  place /= sizes;
  const std::string_view variant = isPlain ? std::string_view() : Variants()[place % variants];
  const std::size_t pack = isPlain ? 0 : place / variants;

  Card made;
  made.code = fmt::format("S{:05}", number + 1);
  made.name = variant.empty() ? fmt::format("{} {} {}", make, goods.name, goods.sizes[size])
                              : fmt::format("{} {} {} {}{}", make, goods.name, goods.sizes[size], variant, kPacks[pack]);
  const std::string twelve = fmt::format("869{:09}", Scatter(number, 999999937, seed_));
  made.barcode = twelve + CheckDigit(twelve);
  made.group = goods.group;
  made.unit = goods.unit;
  made.weighed = goods.unit == "Kg";
  made.tax = goods.tax;

  Dice dice(seed_, 10, number);
  const double sizeFactor = (made.weighed ? 100 : kSizeFactors[size]) / 100.0 * kPackFactors[pack];
  made.price = Rounded(dice.Between(goods.lowPrice, goods.highPrice) * sizeFactor);
  made.cost = Rounded(static_cast<double>(made.price) * (0.68 + dice.Part() * 0.2));
  if (goods.packed > 0 && dice.Chance(60)) {
    made.packed = goods.packed;
    made.packUnit = goods.packUnit;
    made.price2 = Rounded(static_cast<double>(made.price * made.packed) * 0.95);
  } else if (dice.Chance(70)) {
    made.price2 = Rounded(static_cast<double>(made.price) * 0.96);
  }
  if (dice.Chance(50)) made.price3 = Rounded(static_cast<double>(made.price) * 0.93);
  if (made.price3 > 0 && dice.Chance(20)) made.thirdQuantity = dice.Chance(50) ? 10 : 50;
  made.tracksProfit = dice.Chance(60);
  made.hidden = number > 0 && dice.Chance(2);
  if (dice.Chance(40)) made.place = fmt::format("{}-{}", static_cast<char>('A' + dice.Below(8)), dice.Between(1, 24));
  // Weighed goods move in quarters of a kilo.
  const std::int64_t step = made.weighed ? 250 : 1000;
  made.openingIn = dice.Between(40, 400) * step;
  made.openingOut =
      dice.Chance(4) ? made.openingIn + dice.Between(1, 20) * step : made.openingIn * dice.Between(20, 95) / 100 / step * step;
  return made;
}

}  // namespace karvel::sample
