// The case mapping of the product field: a name begins with a capital, by Turkish rules, whatever key was pressed.
#pragma once

#include <string_view>

namespace karvel {

// The letter to be typed into a box that holds `text` with its selection (or caret) at `selectionStart`, in letters: a capital at the start
// of the text and behind "." or "/", the letter itself elsewhere.
char32_t TürkçeBüyük(std::string_view text, int selectionStart, char32_t letter);

}  // namespace karvel
