// Taps in the fields of the customer and the product: the first empties the field, shows the whole list and asks for the on-screen
// keyboard, the second takes what was typed and looks it up. Whoever leaves the field without the second tap goes on with the row in front;
// where nothing was typed, that is the row from before.
#pragma once

#include <optional>

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
  // Shows the list in which the customer was found, standing on his row, while no field follows; NoRecord when nobody is found.
  Status ShowFound(const std::string& text);
  void BringCustomerBack();
  void TapProduct();
  void ShowAllStock();
  void BringItemBack();
  void TakeProduct();
  // Shows the cards whose name begins so, and the first of them in the fields; false when there is none.
  bool ShowNamed(const std::string& text);
  // Whether the focus leaves for this list.
  [[nodiscard]] bool GoesTo(const Element& list) const;
  void LeaveCustomer();
  void LeaveProduct();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  CustomerInFront& customer_;
  PriceSelection& prices_;
  // What was in front when a search began with a tap; none while none is under way.
  struct Before {
    std::string source;
    RowKey row = 0;
    std::string quantity{};  // of the item
  };
  std::optional<Before> customerBefore_, itemBefore_;
  Connections connections_;
};

}  // namespace karvel
