// The on-screen keyboard as the desk sees it: open over one field, or not.
#pragma once

#include "desk/form_state.h"
#include "desk/screen.h"

namespace karvel {

// Names are not completed and lists do not follow while it is open. Where none comes in sight it isn't open: the clerk types on a real one.
void OpenKeyboard(FormState& form, Screen& screen, Element& field);
// Nothing happens when it is not open.
void CloseKeyboard(FormState& form, Screen& screen);

}  // namespace karvel
