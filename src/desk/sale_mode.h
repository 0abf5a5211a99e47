// Entering and leaving a sale, and the double taps on the names in Label1 and on the mode in Label4.
#pragma once

#include "books/line_mode.h"
#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/day_total.h"
#include "desk/group_list.h"
#include "desk/main_button.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class SaleMode {
 public:
  SaleMode(const DeskParts& parts, PriceSelection& prices, MainButton& button, CustomerInFront& customer, BalanceDisplay& figure,
           DayTotal& dayTotal, GroupList& groups);

 private:
  void DoubleTap(int index);
  void FlipSearch();  // Label1(1): " Ürün" and " Barkod"
  void EnterOrLeave();
  bool Enter();  // false: nothing changed
  // Leads back from the wholesale list to the customers; no sale is entered.
  void ReturnFromWholesale();
  void ShowSaleScreen();
  [[nodiscard]] bool MayHaveStock() const;
  void RefreshStock(bool quietly);
  void Leave();
  void ShowBalance();
  void ShowMode(LineMode mode);
  void DropAmounts();
  void NextMode();  // Label4
  void TapStock();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  PriceSelection& prices_;
  MainButton& button_;
  CustomerInFront& customer_;
  BalanceDisplay& figure_;
  DayTotal& dayTotal_;
  GroupList& groups_;
  Connections connections_;
};

}  // namespace karvel
