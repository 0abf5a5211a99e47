// "Ciro": what was sold of each item in a span of days, and the figures of the turnover panel.
#pragma once

#include <string>
#include <vector>

#include "documents/page_preparation.h"
#include "documents/z_report.h"

namespace karvel {

struct SoldItem {
  std::string name;
  double quantity = 0;
};

Drawing DrawTurnover(const Measures& measures, PrintFont body, const PrintStyle& style, const std::vector<SoldItem>& items,
                     const DayFigures& figures, const DateTime& from, const DateTime& until);

}  // namespace karvel
