// StokAl, " Stok Miktar Girişi ": the panel in which goods are received from the supplier in front.
//
// Text6(0) name or search text, (1) price written to the rows, (2) price of the total, (3) quantity, (4) Kdv, (5) barcode; Label12(5)
// total.
#pragma once

#include <string>

#include "books/receipt.h"
#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class StockReceipt {
 public:
  StockReceipt(const DeskParts& parts, CustomerInFront& customer);

  // Books the receipt in the fields and empties them. When the stores refuse it, nothing of it is in them and the fields stay.
  Status Receive();

 private:
  void Changed(int index);
  void Character(int index, CharacterEvent& event);
  void Search();
  // Moves to the first card with this barcode, else to the first whose name, else whose code, begins so; NoRecord when there is none.
  Status StandOnSearched(const std::string& text);
  void Save();  // StokAlCmd(1)
  [[nodiscard]] Receipt ReadReceipt() const;
  void ShowReceipt(const Receipt& receipt, const BookedReceipt& received);
  void ShowReceived(RowKey item);
  [[nodiscard]] const std::string& Field(int index) const { return screen_.Text6(index).Text(); }
  [[nodiscard]] double Total() const;

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
