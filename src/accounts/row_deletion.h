// The Delete key on a list: the clerk's rough way while "Silme Açık" is checked. The current row goes as it stands, without a question, and
// nothing is taken back.
#pragma once

#include "desk/screen.h"
#include "desk/world.h"

namespace karvel {

// Swallows the key. After a deletion the next row is current, at the end the last one, and the bin is heard.
void DeleteRowOnKey(const Screen& screen, const World& world, Cursor& cursor, KeyEvent& event);

}  // namespace karvel
