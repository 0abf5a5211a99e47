// StokGiris, " Stok Kayıt ": what opens when a typed name finds no card. It keeps the name in sight; new cards are made by the stock
// receipt alone, so "Kaydet" can be pressed and does nothing.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class StockCardPanel {
 public:
  explicit StockCardPanel(const DeskParts& parts);

 private:
  void OpenSave();
  void Left();  // the panel closed, or the focus moved on

  Screen& screen_;
  FormState& form_;
  Connections connections_;
};

}  // namespace karvel
