#include "settings/slip_number.h"

#include "text/format.h"

namespace karvel {

std::string NextSlipNumber(Settings& settings) {
  return settings.Change(Setting::SlipNo, [](const std::string& last) { return Format(NumberOrZero(last) + 1, "000000"); });
}

}  // namespace karvel
