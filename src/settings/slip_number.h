// The running number of slips: six digits with leading zeros, more where six don't hold it. The terminals of a machine share it.
#pragma once

#include <string>

#include "settings/settings.h"

namespace karvel {

// Takes the next number and saves it. Never gives one number twice, whichever terminals ask.
std::string NextSlipNumber(Settings& settings);

}  // namespace karvel
