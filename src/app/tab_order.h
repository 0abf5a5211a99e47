// Which element Tab goes to.
#pragma once

#include "app/desk_ui.h"

namespace karvel {

// The widget behind (or before) an element's that can take the keyboard now; null when there is none. Elements follow each other as they
// are declared, but the way out of a panel comes behind the other buttons of its array: who walks through the fields with Enter comes to
// the button that saves. A panel that is filled in keeps Tab to itself until it is left by one of its buttons. O(elements).
QWidget* NextInTabOrder(const DeskUi& ui, const Element& from, bool forward);

}  // namespace karvel
