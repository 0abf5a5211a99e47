// Finding and listing while the clerk types, among a million cards and a million customers, beside the bare engine's own look-up.
#pragma once

#include "bench/ratio_table.h"
#include "bench/shops.h"

namespace karvel::bench {

void AddLists(Shops& shops, RatioTable& table);

}  // namespace karvel::bench
