// What the clerk waits for in the window itself, measured by karvel-window-bench, which runs as a program of its own.
#pragma once

#include <string>

#include "bench/ratio_table.h"
#include "bench/shops.h"

namespace karvel::bench {

// `program` is the path of karvel-window-bench.
void AddWindowWaits(Shops& shops, RatioTable& table, const std::string& program);

}  // namespace karvel::bench
