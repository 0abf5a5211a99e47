// CariFrm, " Müşteri Kayıt ": adds a customer's card. No card at all may have its code, and none in the list in front its name or card
// number.
#pragma once

#include <string>

#include "books/customer_cards.h"
#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

class CustomerCard {
 public:
  CustomerCard(const DeskParts& parts, CustomerInFront& customer);

 private:
  void Changed();
  void Focused(int index);
  void Character(int index, CharacterEvent& event);
  void Cancel();  // CariNewCmd(0)
  void Save();    // CariNewCmd(1)
  [[nodiscard]] bool IsNew();
  bool RefuseCode();
  bool Refuse(const std::string& text, Element& focus);
  [[nodiscard]] NewCustomer ReadCard() const;
  [[nodiscard]] std::string GroupOfNew() const;
  void ShowAdded();
  void Close();

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
