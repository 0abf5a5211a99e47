// Text5, the list filter: it narrows the customers at rest and the stock in a sale. The on-screen keyboard writes into it too, so under an
// open panel its text goes on into the panel's field.
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class ListFilter {
 public:
  ListFilter(const DeskParts& parts, CustomerInFront& customer, PriceSelection& prices);

 private:
  void Changed();
  void FilterCustomers();
  void ShowAllAgain();
  void OpenCustomers(const std::string& named);
  void FilterStock();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  CustomerInFront& customer_;
  PriceSelection& prices_;
  bool followsLater_ = false;  // the list was narrowed while a keyboard was open over it
  Connections connections_;
};

}  // namespace karvel
