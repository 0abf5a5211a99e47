// The Delete key on a list while "Silme Açık" is checked: the current row is deleted as it stands, without a question, and nothing is taken
// back in the books.
#pragma once

#include "desk/screen.h"
#include "desk/world.h"

namespace karvel {

// Drops the key, whether or not a row is deleted. After a deletion the next row is current, at the end the last one, and the sound of the
// bin is played. A refusal of the stores is shown to the clerk; that the row is gone already is not.
void DeleteRowOnKey(Screen& screen, const World& world, Cursor& cursor, KeyEvent& event);

}  // namespace karvel
