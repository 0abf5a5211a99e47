// The panels that lie over the lists and book by what stands in front there.
#pragma once

#include "desk/screen.h"

namespace karvel {

// What another list or another customer makes void: a receipt, a collection, a card or serials that were begun would be booked on the
// wrong one, and an item that was typed in a sale is missing in no other.
void CloseBookingPanels(Screen& screen);

}  // namespace karvel
