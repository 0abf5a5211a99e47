// Long documents: a statement of 10,000 lines, and the turnover of a shop of 100,000 cards and 1,000,000 lines of the day book, each
// against its limit and beside the bare queries that read the same.
#pragma once

#include "bench/ratio_table.h"
#include "bench/shops.h"

namespace karvel::bench {

void AddDocuments(Shops& shops, RatioTable& table);

}  // namespace karvel::bench
