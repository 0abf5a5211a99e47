// StokAl, " Stok Miktar Girişi ": goods received from the supplier in front. It raises the stock card, which a new name makes, credits the
// supplier, and writes one row each to stock movements, ledger and day book under one DigerId. A receipt has one ledger side only.
//
// Text6(0) name or search text, (1) price written to the rows, (2) price of the total, (3) quantity, (4) Kdv, (5) barcode; Label12(5)
// total.
#pragma once

#include <string>

#include "desk/parts.h"
#include "desk/running_numbers.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

class StockReceipt {
 public:
  StockReceipt(const DeskParts& parts, RunningNumbers& numbers);

  // Books the receipt in the fields and empties them. When the stores refuse it, nothing of it is in them and the fields stay.
  Status Receive();

 private:
  void Changed(int index);
  void Character(int index, CharacterEvent& event);
  void Search();
  void Save();  // StokAlCmd(1)
  void RaiseStockCard();
  void StandOnCard();
  void CreditSupplier();
  void BookMovement();
  void BookLedger();
  void BookDay();
  [[nodiscard]] const std::string& Field(int index) const { return screen_.Text6(index).Text(); }
  [[nodiscard]] double Total() const;

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  RunningNumbers& numbers_;
  std::string narrowed_;  // the stock list that the new card is not in
  Connections connections_;
};

}  // namespace karvel
