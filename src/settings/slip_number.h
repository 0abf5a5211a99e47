// The running number of slips, six digits or more, which the terminals of a machine share.
#pragma once

#include <string>

#include "settings/settings.h"

namespace karvel {

// Takes the next number and saves it. Never gives one number twice, whichever terminals ask.
std::string NextSlipNumber(Settings& settings);

}  // namespace karvel
