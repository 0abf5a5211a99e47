// CarSil, the end of a customer's life on the desk: the first use wipes his history, the second, on a clean card, asks and deletes the
// card.
#pragma once

#include "books/wiping.h"
#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class CustomerRemoval {
 public:
  CustomerRemoval(const DeskParts& parts, CustomerInFront& customer);

 private:
  void Remove();
  void AskAndDeleteCard();
  Status WipeHistory();
  void ShowWiped();

  Shop shop_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
