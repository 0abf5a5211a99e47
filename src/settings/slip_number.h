// The running number of slips: six digits with leading zeros, more where six don't hold it. The terminals of a machine share it.
#pragma once

#include <expected>
#include <functional>
#include <string>

#include "settings/settings.h"

namespace karvel {

// What stands for the last number where settings were lost: it is `last` at least, and the day book knows more.
std::string UncertainSlipNumber(const std::string& last);

// Takes the next number and saves it. Never gives one number twice, whichever terminals ask. It is higher than
// `atLeast`, the newest that the day book is known to bear. Where the last number is 0, no number, or uncertain, it goes on from the
// highest of the whole book: `highestInBook` is asked for it, with no lock held. A failure of either takes no number.
std::expected<std::string, Status> NextSlipNumber(Settings& settings, double atLeast,
                                                  const std::function<std::expected<double, Status>()>& highestInBook);

}  // namespace karvel
