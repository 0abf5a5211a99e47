// How a name field completes itself while the clerk types.
#pragma once

#include <string>

#include "desk/element.h"

namespace karvel {

// A key that adds to the text: Backspace, Delete and keys that only move leave it as the clerk wants it.
bool IsCompletingKey(const KeyEvent& event);
// What stands in a field, trimmed, means this card: its name, whatever signs of a search are in it, or the beginning of it.
bool NamesCard(const std::string& shown, const std::string& name);
// Shows the whole name with the caret where it was and the rest selected, so that the next letter replaces it.
void Complete(Element& field, const std::string& name);

}  // namespace karvel
