// Serial numbers of goods that come in: each is scanned into Text4 and gathered in List1, and the posted line takes the list along.
//
// What stays true: List1 holds no serial twice, none that is in the stores already, and no item's barcode; outside the mode
// "Alış" it is empty and the panel closed.
#pragma once

#include <string>

#include "desk/main_button.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class SerialCapture {
 public:
  SerialCapture(const DeskParts& parts, MainButton& button);
  // Runs at the end of a scan in Text4: takes the serial, and closes the panel when there are as many as pieces.
  void CheckSerialEntry();

 private:
  void FollowMode();
  void Take();
  void Refuse(const std::string& first, const std::string& second);
  [[nodiscard]] bool IsReadAlready(const std::string& serial);
  [[nodiscard]] bool IsBarcode(const std::string& serial);

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  MainButton& button_;
  Connections connections_;
};

}  // namespace karvel
