// Looks over the files of a data folder that nobody has open.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel {

// Well when each store is there, holds its tables, and every page and index of it is in order. Whatever a killed writer left is put right
// first. Damaged or Missing name the file. O(rows).
Status CheckStores(const std::string& folder);
// Puts right what a killed writer left, so that the folder can be renamed.
Status RecoverStores(const std::string& folder);

}  // namespace karvel
