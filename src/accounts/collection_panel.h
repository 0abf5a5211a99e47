// TahsilatFrame: the panel in which a sale is collected at once, and the choice of the form of payment in Label3.
#pragma once

#include "accounts/money_confirmation.h"
#include "desk/balance_display.h"
#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class CollectionPanel {
 public:
  CollectionPanel(const DeskParts& parts, MoneyConfirmation& money, CustomerInFront& customer, BalanceDisplay& figure);

 private:
  void Open();  // Command1 "Tahsilat"
  void ShowInstrument();
  void NextInstrument();             // Label3
  void ChooseInstrument(int index);  // Command8
  void AmountKey(KeyEvent& event);   // Text2(2)
  bool PayerStays();
  void Collect();  // Command7(1)
  void PrintBeside();
  void PrintSlip();  // DökNoYaz

  Screen& screen_;
  Cursors& cursors_;
  const World& world_;
  MoneyConfirmation& money_;
  CustomerInFront& customer_;
  BalanceDisplay& figure_;
  Element* defaultButton_ = nullptr;  // the Command8 that was chosen, which Enter in the amount presses
  Connections connections_;
};

}  // namespace karvel
