// Taps in the fields of the customer and the product: the first opens the on-screen keyboard over an empty field and the whole list, the
// second takes what was typed and looks it up. Whoever leaves the field without the second tap goes on with the row in front.
#pragma once

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "desk/price_selection.h"
#include "platform/signal.h"

namespace karvel {

class TappedSearch {
 public:
  TappedSearch(const DeskParts& parts, CustomerInFront& customer, PriceSelection& prices);

 private:
  void TapCustomer();
  void StartCustomer();
  void TakeCustomer();
  // Shows the list in which the customer was found, standing on his row, while no field follows; false when nobody is found.
  bool ShowFound(const std::string& text);
  bool FindCustomer(const std::string& text);
  void TapProduct();
  void ShowAllStock();
  void TakeProduct();
  // Shows the cards whose name begins so, and the first of them in the fields; false when there is none.
  bool ShowNamed(const std::string& text);
  void LeaveCustomer();
  void LeaveProduct();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  CustomerInFront& customer_;
  PriceSelection& prices_;
  Connections connections_;
};

}  // namespace karvel
