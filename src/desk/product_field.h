// Text1(1), the product field: typed names with completion, codes by keyboard, codes from a scanner. All ways end with a current
// record in StokData, its name in the field, and a price in Text2(0).
#pragma once

#include <deque>
#include <initializer_list>
#include <string>

#include "desk/main_button.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class ProductField {
 public:
  ProductField(const DeskParts& parts, MainButton& button);

 private:
  using Columns = std::initializer_list<const char*>;
  void Focused();
  void EnterDown();       // first pass, at the key's going down
  void EnterCharacter();  // second pass, at the key's character
  // The card of what was entered comes in front and its price into the field, while no other field follows; false when nobody has it.
  bool TakeEntered();
  // Whether the list has a name that begins so; it then stands there, and no field follows.
  bool FindQuietly(const std::string& text);
  // Stands on the card of what was entered.
  bool FindCard(const std::string& text);
  bool FindOutside(Columns columns, const std::string& text);
  bool FindName(const std::string& text);
  void NameItemInFront();
  void TextChanged();
  void KeyUp(const KeyEvent& event);
  void CodeRead(const std::string& code);
  void EnterCodes();
  // Where a code goes: into the product field, or into the panel that asks for codes.
  [[nodiscard]] Element& CodeField() const;
  void ScannedText();  // Label11 changed

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  MainButton& button_;
  bool matched_ = false;  // the first pass of this Enter found the card in front by its barcode
  bool reading_ = false;
  std::deque<std::string> codes_;  // read and not yet entered, the oldest first
  Connections connections_;
};

}  // namespace karvel
