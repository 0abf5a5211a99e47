// CarSil, the end of a customer's life on the desk: the first use wipes his history, the second, on a clean card, asks and deletes the
// card. His due dates stay, and so do the money accounts' rows of what he paid.
#pragma once

#include <string>

#include "accounts/item_card.h"
#include "desk/customer_list.h"
#include "desk/parts.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

class CustomerRemoval {
 public:
  CustomerRemoval(const DeskParts& parts, CustomerList& customers);

 private:
  void Remove();
  void AskAndDeleteCard();
  Status WipeHistory(const std::string& code);
  void ClearCard();
  void TakeBackSale();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  CustomerList& customers_;
  ItemCard item_;
  Connections connections_;
};

}  // namespace karvel
