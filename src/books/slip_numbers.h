// The numbers of slips, as the day book bears them.
#pragma once

#include <string>

#include "books/shop.h"
#include "settings/settings.h"

namespace karvel {

// The highest slip number of a line in the day book; 0 where none has one. Takes no turn of the shop.
Outcome<double> HighestSlipNumber(const Shop& shop);
// The number of a new slip: the next after the last one, which the settings keep, or after that of the newest lines in the day book where
// the settings lag behind; where they were lost, after the highest in the whole book.
Outcome<std::string> TakeSlipNumber(const Shop& shop, Settings& settings);

}  // namespace karvel
