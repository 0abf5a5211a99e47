// Correcting a line of the day book. Command3 reads "Düzeltme" while a line can be corrected; a press on it takes the line (EditLineId).
// The fields then hold the new price and quantity, and the main button books them.
#pragma once

#include "books/correction.h"
#include "desk/main_button.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class LineCorrection {
 public:
  LineCorrection(const DeskParts& parts, MainButton& button, PriceSelection& prices);

 private:
  void TakeLine();  // Command3
  void ShowLine();
  void Confirm();
  bool StandOnLine();
  [[nodiscard]] Correction ReadCorrection() const;
  void ShowCorrected();
  void ShowTooLate();

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  MainButton& button_;
  PriceSelection& prices_;
  Connections connections_;
};

}  // namespace karvel
