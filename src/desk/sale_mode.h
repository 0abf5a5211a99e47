// Entering and leaving a sale, and the double taps on the names in Label1 and on the mode in Label4.
#pragma once

#include "desk/day_total.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "desk/sale_fields.h"
#include "platform/signal.h"

namespace karvel {

class SaleMode {
 public:
  SaleMode(const DeskParts& parts, PriceSelection& prices, SaleFields& fields, DayTotal& dayTotal);

 private:
  void DoubleTap(int index);
  void FlipSearch();  // Label1(1): " Ürün" and " Barkod"
  void EnterOrLeave();
  bool Enter();  // false: nothing changed
  void ShowSaleScreen();
  void Leave();
  void NextMode();  // Label4
  void TapStock();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  PriceSelection& prices_;
  SaleFields& fields_;
  DayTotal& dayTotal_;
  Connections connections_;
};

}  // namespace karvel
