// The panels of new cards, with the name in them that no card has.
#pragma once

#include <string>

#include "desk/form_state.h"
#include "desk/screen.h"

namespace karvel {

// An unknown customer: the panel of a new card with the name in it.
void OpenCustomerCard(Screen& screen, const std::string& name);
// An unknown item: the panel of a new stock card with the name in it, and the keyboard for its code.
void OpenStockCard(FormState& form, Screen& screen, const std::string& name);

}  // namespace karvel
