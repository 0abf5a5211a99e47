// Taps in the fields of the customer and the product: the first opens the on-screen keyboard over an empty field and the whole list, the
// second takes what was typed and looks it up. Whoever leaves the field without the second tap goes on with the row in front.
#pragma once

#include "desk/customer_list.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class TappedSearch {
 public:
  TappedSearch(const DeskParts& parts, CustomerList& customers, PriceSelection& prices);

 private:
  void TapCustomer();
  void StartCustomer();
  void TakeCustomer();
  bool FindCustomer(const std::string& text);
  void TapProduct();
  void StartProduct();
  void TakeProduct();
  void LeftCustomer();
  void LeftProduct();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  CustomerList& customers_;
  PriceSelection& prices_;
  Connections connections_;
};

}  // namespace karvel
