// The lowest price at which an item may be sold: so many percent below its card's price (MinSalePercent), which the shop sets in a menu.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class PriceFloor {
 public:
  explicit PriceFloor(const DeskParts& parts);
  // A price in Text2(0) that is under the floor of the item in front becomes the floor.
  void Keep();

 private:
  void AskMinPercent();  // Yuzde, after the use password where one is set

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
