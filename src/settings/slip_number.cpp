#include "settings/slip_number.h"

#include <algorithm>
#include <optional>

#include "text/format.h"

namespace karvel {
namespace {
constexpr char kUncertain = '?';
}

std::string UncertainSlipNumber(const std::string& last) {
  return last + kUncertain;
}

std::expected<std::string, Status> NextSlipNumber(Settings& settings, double atLeast,
                                                  const std::function<std::expected<double, Status>()>& highestInBook) {
  std::optional<double> highest;
  for (;;) {
    bool asksBook = false;
    auto next = settings.Change(Setting::SlipNo, [&](const std::string& last) {
      const bool certain = IsNumeric(last) && NumberOrZero(last) > 0;
      asksBook = !certain && !highest;
      if (asksBook) return last;
      const double given = NumberOrZero(certain ? last : last.substr(0, last.find(kUncertain)));
      return Format(std::max({given, atLeast, certain ? 0 : *highest}) + 1, "000000");
    });
    if (!next || !asksBook) return next;
    const auto found = highestInBook();
    if (!found) return std::unexpected(found.error());
    highest = *found;
  }
}

}  // namespace karvel
