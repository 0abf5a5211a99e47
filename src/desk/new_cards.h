// The panels that lie over the lists and go by what stands in front there: those of new cards, and those that book on the customer.
#pragma once

#include <string>

#include "desk/parts.h"

namespace karvel {

// An unknown name is a new customer: his card opens with the name in it.
void OpenCustomerCard(const DeskParts& parts, const std::string& name);
// An unknown item: the panel of a new stock card with the name in it, and the keyboard for its code.
void OpenStockCard(const DeskParts& parts, const std::string& name);
// What another list or another customer makes void: a receipt, a collection or a card that was begun would be booked on the wrong one,
// and an item that was typed in a sale is missing in no other.
void CloseBookingPanels(Screen& screen);

}  // namespace karvel
