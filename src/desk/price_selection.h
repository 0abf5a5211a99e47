// Which of up to four prices of an item this customer pays: worked out whenever the current record of StokData changes, stepped through by
// a double tap on Label1(2), and kept above the floor (price_floor.h).
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "desk/price_floor.h"
#include "platform/signal.h"

namespace karvel {

// The greatest discount in percent: an item given away is no sale, and a price below 0 would pay the customer.
inline constexpr double kMostDiscount = 99.99;
// The percent that a discount counts as: 0 to kMostDiscount.
double HeldDiscount(double percent);

class PriceSelection {
 public:
  PriceSelection(const DeskParts& parts, const CustomerInFront& customer, PriceFloor& floor);
  // Works out the slots and, in a sale, fills the fields of the current item. Runs at every move of StokData.
  void ShowItem();
  // For another stock list in a sale: the fields name its item in front, with a quantity of 0.
  void ShowUnsoldItem();
  // Shows a price of the item in front in Text2(0), less the discount in Text2(3).
  void Offer(double price);
  // A double tap on Label1(2): the next price that isn't 0.
  void Step();
  // The first-price column of StokGrid: Fiyat2 for the group "Fatura" when "Gurup 2.Fiyat" is on, else Fiyat.
  void SetFirstPriceColumn();

 private:
  void FillSlots();
  [[nodiscard]] bool SecondPriceForGroup() const;

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  const CustomerInFront& customer_;
  PriceFloor& floor_;
  Connections connections_;
};

}  // namespace karvel
