// What a place can't hold of what another one does, field by field.
#pragma once

#include <vector>

#include "exchange/store_move.h"
#include "store/catalogue.h"
#include "store/row.h"

namespace karvel {

// A server's fields are of one kind each: other programs may have written a text into a number field of the files, or damaged letters.
std::vector<Misfit> WhatServerCantHold(const Table& table, const Row& row);
// The files know no number that is none.
std::vector<Misfit> WhatFilesCantHold(const Table& table, const Row& row);

}  // namespace karvel
