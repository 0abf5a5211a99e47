// What stands on the shelves of the sample shop: kinds of goods, invented makes, and what sets one packet apart from the next.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace karvel::sample {

struct Goods {
  std::string_view name;
  std::string_view group;
  int tax;                // Kdv, percent
  std::string_view unit;  // Birim
  std::array<std::string_view, 4> sizes;
  int lowPrice, highPrice;  // kuruş, of the smallest size
  int packed = 0;           // pieces of the first unit in a second one; 0: sold singly only
  std::string_view packUnit{};
};

std::span<const Goods> AllGoods();
std::span<const std::string_view> Makes();
std::span<const std::string_view> Variants();

}  // namespace karvel::sample
