// Text1(1), the product field: names typed and completed, codes typed, codes from a scanner. All ways end with a current record in
// StokData, its name in the field, and a price in Text2(0).
#pragma once

#include <deque>
#include <initializer_list>
#include <string>

#include "desk/main_button.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class ProductField {
 public:
  ProductField(const DeskParts& parts, PriceSelection& prices, MainButton& button);

 private:
  using Columns = std::initializer_list<const char*>;
  void Focused();
  void EnterDown();       // the first pass of an Enter, when the key goes down
  void EnterCharacter();  // the second pass, when its character comes
  // Brings the card of what was entered in front and its price into Text2(0), while no other field follows; false when no card has it.
  bool TakeEntered();
  // Moves the list to the first name that begins so, while no field follows; false, and it stays, where there is none.
  bool FindQuietly(const std::string& text);
  // Moves to the card of what was entered; false where there is none.
  bool FindIn(Cursor& among, Columns columns, const std::string& text);
  bool Found(const Status& looked);
  bool FindCard(const std::string& text);
  bool FindOutside(Columns columns, const std::string& text);
  bool FindName(const std::string& text);
  void NameItemInFront();
  void TextChanged();
  void KeyUp(const KeyEvent& event);
  void CodeRead(const std::string& code);
  void EnterCodes();
  // The field that a code goes to: the product field, or that of a panel that asks for codes.
  [[nodiscard]] Element& CodeField() const;
  [[nodiscard]] bool StandsInDelivery(const std::string& code) const;
  void ScannedText();  // Label11 changed

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  PriceSelection& prices_;
  MainButton& button_;
  bool matched_ = false;  // the first pass of this Enter found the card in front by its barcode
  bool reading_ = false;
  std::deque<std::string> codes_;  // read and not yet entered, the oldest first
  Status fault_;                   // why the last look-up could not be done
  Connections connections_;
};

}  // namespace karvel
