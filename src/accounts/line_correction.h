// Correcting a line that was already posted: the day book, the stock movement and card, the ledger and the customer's card are rewritten in
// place, all found by the line's DigerId. The line is treated as a sale, whatever it is.
//
// Command3 reads "Düzeltme" while a line is marked for it; a press on it takes the line (EditLineId), the fields then hold the new price
// and quantity, and the main button ends it.
#pragma once

#include "accounts/item_card.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

class MainButton;

class LineCorrection {
 public:
  LineCorrection(const DeskParts& parts, MainButton& button, PriceSelection& prices);

 private:
  struct Correction;
  void TakeLine();  // Command3
  void ShowLine();
  Status Correct();
  bool StandOnLine();
  void CorrectDay(const Correction& line);
  void CorrectMovement(Correction& line);
  void CorrectStock(const Correction& line);
  void CorrectLedger(const Correction& line);
  void EndCorrection();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  PriceSelection& prices_;
  ItemCard item_;
  Connections connections_;
};

}  // namespace karvel
