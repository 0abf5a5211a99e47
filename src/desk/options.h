// The options of the menu PopBrk: entries with a check mark, toggled and saved at once, and read again at the first activation.
#pragma once

#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class Options {
 public:
  Options(const DeskParts& parts, PriceSelection& prices);
  // Reads all of them from the settings into their check marks.
  void Read();
  // Creates the scanner when "Barkod Oku" is checked; a failure takes the mark away.
  void StartScanner();

 private:
  void ShowKeyboardChoice();
  void OpenMenu(const MouseEvent& event);

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  PriceSelection& prices_;
  Connections connections_;
};

}  // namespace karvel
