// How the fields of the sale behave while they are typed into: Text2 price, quantity, payment and discount, the amount in Label2,
// and Text3, through which the numeric pad answers.
//
// The first digit replaces the number that stood in the field when it got the focus, or that the desk has put there since: an item tapped
// and then "3" sells 3. Backspace, an arrow and a tap into the number edit it as it stands.
#pragma once

#include "desk/main_button.h"
#include "desk/parts.h"
#include "desk/price_floor.h"
#include "platform/signal.h"

namespace karvel {

class SaleFields {
 public:
  SaleFields(const DeskParts& parts, PriceFloor& floor, MainButton& button);

 private:
  // What the clerk has typed of a price while the floor stands in the field in its place.
  struct Floored {
    std::string typed, shown;
  };
  void Changed(int index);
  void KeepFloor();
  void HoldDiscount();
  void Focused(int index);
  void KeyDown(const KeyEvent& event);
  void Character(int index, CharacterEvent& event);
  // Makes room for a letter that leaves a number in the field; false where it would leave none.
  bool TakeLetter(int index, CharacterEvent& event);
  void LeaveField(int index);
  void LookUpPriceText();
  [[nodiscard]] std::string WithinStock(const std::string& quantity);
  void TakePadValue();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  PriceFloor& floor_;
  MainButton& button_;
  Floored floored_;
  bool typing_ = false;     // a letter is on its way into the price
  bool fresh_ = false;      // the number in the field in use was put there, not typed: the first digit replaces it
  bool keyIsDown_ = false;  // what changes in the field now is the clerk's own
  Connections connections_;
};

// Makes the field names Label1(0) to Label1(6) yellow: none is marked as in use.
void UnmarkFieldNames(Screen& screen);

}  // namespace karvel
