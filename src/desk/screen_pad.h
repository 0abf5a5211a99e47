// The number pad as the desk sees it: open over one field, or not.
#pragma once

#include <string>

#include "desk/form_state.h"
#include "desk/screen.h"

namespace karvel {

// Opens the pad on a field, empty, under the name by which the clerk knows it; the on-screen keyboard closes. Open already, it goes to the
// other field. It keeps the field until it closes, wherever the focus goes.
void OpenPad(FormState& form, Screen& screen, Element& field, const std::string& name);
// Nothing happens when it is not open.
void ClosePad(FormState& form, Screen& screen);

}  // namespace karvel
