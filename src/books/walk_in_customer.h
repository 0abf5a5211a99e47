// The customer whom every shop has: "Muhtelif Müşteri", who buys without a name.
#pragma once

#include "books/shop.h"

namespace karvel {

// Adds his card when there is none: he exists once, however many starts and terminals.
Status KeepWalkInCustomer(const Shop& shop);

}  // namespace karvel
