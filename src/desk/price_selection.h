// Which of up to four prices of an item this customer pays: worked out whenever the current record of StokData changes,
// stepped through by a double tap on Label1(2), and kept above the floor that the shop has set.
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class PriceSelection {
 public:
  PriceSelection(const DeskParts& parts, const CustomerInFront& customer);
  // The slots and, in a sale, the fields of the current item. What a move of StokData runs.
  void ShowItem();
  // Another stock list in a sale: the fields name the item in front, and nothing of it is sold yet.
  void ShowUnsoldItem();
  // A double tap on Label1(2): the next price that isn't 0.
  void Step();
  // Text2(0) changed: a price under the floor becomes the floor.
  void KeepFloor();
  // The first-price column of StokGrid: Fiyat2 for the group "Fatura" when "Gurup 2.Fiyat" is on, else Fiyat.
  void SetFirstPriceColumn();

 private:
  void FillSlots();
  [[nodiscard]] bool SecondPriceForGroup() const;
  void AskMinPercent();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  const CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
