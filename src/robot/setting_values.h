#pragma once

#include "robot/json.h"
#include "robot/targets.h"

namespace karvel {

// Puts a value into a field through its widget, so that the same handlers run as for a person: a date picker's day "2026-03-01", a combo's
// or list's entry by its text, a check box's true or false, a text box's text, which replaces the old one key by key. The target has the
// focus. A RequestError for a value that the field can't take.
void SetValue(const Target& target, const Json& value);

}  // namespace karvel
