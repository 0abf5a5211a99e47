// The on-screen keyboard as the desk sees it: open over one field, or not.
#pragma once

#include "desk/form_state.h"
#include "desk/screen.h"

namespace karvel {

// Names are not completed and lists do not follow while it is open.
void OpenKeyboard(FormState& form, Screen& screen, Element& field);
// Nothing happens when it is not open.
void CloseKeyboard(FormState& form, Screen& screen);

}  // namespace karvel
