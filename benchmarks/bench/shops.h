// The sample shops that the measurements run on. Made once and kept; what writes takes a copy.
#pragma once

#include <string>

#include "sample_shop/shop.h"

namespace karvel::bench {

enum class Size {
  Small,  // 1,000 cards, customers and day-book rows
  Busy,   // 100,000 cards and customers, 1,000,000 day-book rows
  Wide,   // 1,000,000 cards and customers, 1,000 day-book rows
};

sample::ShopSize ShopSizeOf(Size size);

class Shops {
 public:
  // The folder that keeps them.
  explicit Shops(std::string folder);
  ~Shops();
  Shops(const Shops&) = delete;
  Shops& operator=(const Shops&) = delete;

  // A home folder with this shop, to read only.
  std::string Kept(Size size);
  // A home folder of its own, to write in; gone when this ends.
  std::string Copy(Size size);

 private:
  const std::string folder_;
  int copies_ = 0;
};

}  // namespace karvel::bench
