// The day book's line in front as the files hold it now. The list read it a while ago: another terminal may have changed or cancelled it.
#pragma once

#include "desk/cursors.h"
#include "desk/form_state.h"

namespace karvel {

// Reads it anew. False when it is gone, or was cancelled since the list showed it; the list then shows how it is. What was to be done
// with the line is void: it would be taken back twice.
bool ReadLineAnew(FormState& form, Cursors& cursors);

}  // namespace karvel
