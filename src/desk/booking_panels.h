// The panels that lie over the lists and book by what stands in front there.
#pragma once

#include <array>

#include "desk/screen.h"

namespace karvel {

struct BookingPanel {
  Element* panel;
  Element* wayOut;  // the button that leaves it and books nothing; null: it has none
  bool filledIn;    // it has fields of its own, which are walked through
};

// The one that lies uppermost comes first.
inline std::array<BookingPanel, 5> BookingPanels(Screen& screen) {
  return {{{&screen.TahsilatFrame, &screen.Command7(0), false},
           {&screen.StokAl, &screen.StokAlCmd(0), true},
           {&screen.CariFrm, &screen.CariNewCmd(0), true},
           {&screen.StokGiris, &screen.StokNewCmd(0), true},
           {&screen.Frame4, nullptr, true}}};
}

// What another list or another customer makes void: a receipt, a collection, a card or serials that were begun would be booked on the
// wrong one, and an item that was typed in a sale is missing in no other.
void CloseBookingPanels(Screen& screen);

}  // namespace karvel
