// How a name field completes itself while the clerk types.
#pragma once

#include <string>

#include "desk/element.h"

namespace karvel {

// Whether the key adds to the text. After Backspace, Delete and keys that only move, the text stays as the clerk left it.
bool IsCompletingKey(const KeyEvent& event);
// Whether the trimmed text of a field means the card of this name: it is the name, signs of a search in it included, or its beginning.
bool NamesCard(const std::string& shown, const std::string& name);
// Shows the whole name with the caret where it was and the rest selected, so that the next letter typed replaces the rest.
void Complete(Element& field, const std::string& name);

}  // namespace karvel
