#pragma once

#include "bench/ratio_table.h"
#include "bench/shops.h"

namespace karvel::bench {

// Sale lines: the desk's posting beside the bare row writes, a full shop beside a small one, and the syncs of each.
void AddPostings(Shops& shops, RatioTable& table);

}  // namespace karvel::bench
