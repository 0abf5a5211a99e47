// "Sipariş Listesi": the day book of a span, customer by customer, and what of it is ordered.
#pragma once

#include <vector>

#include "documents/day_lines.h"
#include "documents/page_preparation.h"

namespace karvel {

// `ordered` is the sum of the orders alone, though all lines are listed.
Drawing DrawOrderList(const Measures& measures, PrintFont body, const std::vector<DayLine>& lines, const DateTime& today, double ordered);

}  // namespace karvel
