// The list of stock status: the tick StokChk turns the customer list over to stock cards, and the strip StokFrm narrows and searches it.
//
// What stays true: while the tick is set, CariData stands on Stok.Mdb, and nothing can be posted.
#pragma once

#include <string>

#include "desk/balance_display.h"
#include "desk/main_button.h"
#include "desk/overdue_notice.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class StockList {
 public:
  StockList(const DeskParts& parts, MainButton& button, BalanceDisplay& figure, OverdueNotice& overdue);

 private:
  void Toggled();         // StokChk
  void Turn(bool stock);  // to stock cards, or back to customers
  void OpenReceipt();     // StokChk with the wholesale list in front
  void ShowStock();
  void ShowCustomers();
  void Point(const std::string& file, const std::string& source);
  void Narrow();         // StokCek, GrpCombo
  void SearchChanged();  // Stoktxt
  void SearchTapped();
  void StartTyping();
  void TakeTyped();
  void EndTyping();
  [[nodiscard]] bool ListsStock() const;

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  MainButton& button_;
  BalanceDisplay& figure_;
  OverdueNotice& overdue_;
  bool switching_ = false;
  bool typing_ = false;  // a search in Stoktxt was begun by a tap
  Connections connections_;
};

}  // namespace karvel
