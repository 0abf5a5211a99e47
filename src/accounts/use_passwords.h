// The two use passwords of a shop, chosen at their first use: one opens the deleted lines, one the customer menu on CariGrid.
// A typed password must match letter by letter, capitals included. (The minimum percent, which also asks for the second, asks
// only where one is set: PriceSelection.)
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class UsePasswords {
 public:
  UsePasswords(const DeskParts& parts, CustomerInFront& customer);

  // Asks for the deleted lines' password. True when it was given. Where none is set yet, what is typed becomes it, and the lines stay
  // closed; a wrong one ends the program.
  bool AdmitToDeletedLines();

 private:
  // The menu of the customer under the finger.
  void OpenCustomerMenu();
  bool AdmitToCustomerMenu();

  Screen& screen_;
  Cursors& cursors_;
  Settings& settings_;
  const World& world_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
