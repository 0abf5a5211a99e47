// "Stok Durum Raporu": what came in, went out and is left of each item in the list.
#pragma once

#include <string>
#include <vector>

#include "documents/page_preparation.h"

namespace karvel {

struct StockLine {
  std::string name;
  double in = 0, out = 0;
  double oversold = 0, onHand = 0;  // KalanA, KalanB
};

Drawing DrawStockStatus(const Measures& measures, PrintFont body, const PrintStyle& style, const std::vector<StockLine>& lines,
                        const DateTime& today);

}  // namespace karvel
