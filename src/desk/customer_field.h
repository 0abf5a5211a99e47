// Text1(0), the customer's name: what is typed there is completed from the list and looked up, and a name that nobody has opens a new card.
#pragma once

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class CustomerField {
 public:
  CustomerField(const DeskParts& parts, CustomerInFront& customer);

 private:
  void Focused();
  void Left();
  void TextChanged();
  void KeyUp(const KeyEvent& event);
  void Character(CharacterEvent& event);
  bool Find(const std::string& text);
  // Moves the list to the first name that begins so, while no field follows; false, and it stays, where there is none.
  bool FindQuietly(const std::string& text);

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  CustomerInFront& customer_;
  bool searched_ = false;  // typing moved the list since the field was entered
  Connections connections_;
};

}  // namespace karvel
