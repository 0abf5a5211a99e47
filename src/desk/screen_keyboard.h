// The on-screen keyboard as the desk sees it: open over one field, or not.
#pragma once

#include "desk/parts.h"

namespace karvel {

// Names are not completed and lists do not follow while it is open.
void OpenKeyboard(const DeskParts& parts, Element& field);
// Nothing happens when it is not open.
void CloseKeyboard(const DeskParts& parts);

}  // namespace karvel
