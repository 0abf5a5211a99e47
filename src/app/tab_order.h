// Which element Tab goes to.
#pragma once

#include "app/desk_ui.h"

namespace karvel {

// The widget after (or before) an element's that can take the keyboard now; null when there is none. Elements follow each other as they
// are declared, but for two: the tiles that answer taps come before all fields, and the button that leaves a panel after the others of its
// array, so that whoever walks through the fields with Enter comes to the one that saves. A panel that is filled in keeps Tab to itself
// until it is left by one of its buttons. O(elements).
QWidget* NextInTabOrder(const DeskUi& ui, const Element& from, bool forward);

}  // namespace karvel
