// The groups of a list, as its combo names them.
#pragma once

#include <string>
#include <vector>

#include "platform/status.h"
#include "store/cursor.h"

namespace karvel {

// The names of all groups of an open cursor, in its order. Where they can't be read, why, and `names` is left as it was.
Status ReadGroupNames(const Cursor& groups, std::vector<std::string>& names);

}  // namespace karvel
