#pragma once

#include "bench/ratio_table.h"
#include "bench/shops.h"

namespace karvel::bench {

// Finds by code and by name: the desk's cursors beside bare look-ups on the same index.
void AddFinds(Shops& shops, RatioTable& table);

}  // namespace karvel::bench
