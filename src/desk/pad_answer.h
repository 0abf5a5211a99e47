// What the pad gives to the field that it was opened on, and how it closes: "Tamam", which the desk's own main button stands in for while
// a number waits on the pad, the clear key, and the close key.
#pragma once

#include "desk/main_button.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class PadAnswer {
 public:
  PadAnswer(const DeskParts& parts, MainButton& button);

 private:
  void Confirm();
  // True where the tap on the main button was meant for the number on the pad: it is taken, and nothing is posted.
  bool ConfirmForMainButton();
  void Clear();
  void Leave(const Element& key);
  void Give(const std::string& number);
  void StandAtSide();

  Screen& screen_;
  FormState& form_;
  PadScreen& pad_;
  Connections connections_;
};

}  // namespace karvel
