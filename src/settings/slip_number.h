// The running number of slips: six digits with leading zeros, more where six don't hold it. The terminals of a machine share it.
#pragma once

#include <expected>
#include <functional>
#include <string>

#include "settings/settings.h"

namespace karvel {

// What stands for the last number where settings were lost: it is `last` at least, and the day book knows more.
std::string UncertainSlipNumber(const std::string& last);

// Takes the next number and saves it. Never gives one number twice, whichever terminals ask. Where the last number is no number, or
// uncertain, it goes on from the highest that the day book bears: `highestInBook` is asked for it, with no lock held. A failure of either
// takes no number.
std::expected<std::string, Status> NextSlipNumber(Settings& settings, const std::function<std::expected<double, Status>()>& highestInBook);

}  // namespace karvel
