// The panels that lie over the lists and book on the customer or item in front there.
#pragma once

#include <array>
#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "desk/screen.h"
#include "platform/signal.h"

namespace karvel {

struct BookingPanel {
  Element* panel;
  Element* wayOut;  // the button that leaves it without booking; null: it has none
  bool filledIn;    // it has fields of its own, and Tab stays among them
};

// The one that lies uppermost comes first.
inline std::array<BookingPanel, 6> BookingPanels(Screen& screen) {
  return {{{&screen.TahsilatFrame, &screen.Command7(0), false},
           {&screen.FatFrame, &screen.FatCmd(0), true},
           {&screen.StokAl, &screen.StokAlCmd(0), true},
           {&screen.CariFrm, &screen.CariNewCmd(0), true},
           {&screen.StokGiris, &screen.StokNewCmd(0), true},
           {&screen.Frame4, nullptr, true}}};
}

// Closes all of them, for when another list or customer comes in front: a receipt, a collection, a card or serials that were begun would be
// booked on the wrong one, and an item that was typed in one sale is not asked for in another.
void CloseBookingPanels(Screen& screen);

// Closes the receipt, the collection and the balance view when another customer than the one for whom they were opened comes in front.
class CustomerPanels {
 public:
  CustomerPanels(const DeskParts& parts, const CustomerInFront& customer);

 private:
  [[nodiscard]] std::array<Element*, 3> Panels() const;
  void Opened(Element& panel);
  void CustomerMoved();

  Screen& screen_;
  const FormState& form_;
  const CustomerInFront& customer_;
  std::string openedFor_;  // his code; "" while none is open
  Connections connections_;
};

}  // namespace karvel
