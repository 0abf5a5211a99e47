#include "books/slip_numbers.h"

#include "settings/slip_number.h"
#include "store/cursor.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr std::size_t kDigits = 6;
constexpr std::size_t kMostDigits = 9;

std::string LikeNumberOf(std::size_t digits) {
  return "SeriNo Like '" + std::string(digits, '#');
}

}  // namespace

// Texts of one length order as their numbers do, and a longer number is greater than any shorter one. Longer ones are rare: one look tells
// that there is none.
Outcome<double> HighestSlipNumber(const Shop& shop) {
  Cursor lines(shop.stores, "slip numbers");
  lines.SetDatabaseName("Karvel.mdb");
  if (const Status opened = lines.Open("Select * From Datam Order By SeriNo Desc"); !opened.Ok()) return std::unexpected(opened);
  Status found = lines.FindFirst(LikeNumberOf(kDigits + 1) + "*'");
  for (std::size_t digits = found.Ok() ? kMostDigits : kDigits; digits >= kDigits; --digits) {
    if (!found.Ok() && found.Kind() != ErrorKind::NoRecord) break;
    found = lines.FindFirst(LikeNumberOf(digits) + "'");
    if (found.Ok()) return NumberOrZero(lines.Text("SeriNo"));
  }
  if (found.Kind() != ErrorKind::NoRecord) return std::unexpected(found);
  return 0;
}

Outcome<std::string> TakeSlipNumber(const Shop& shop, Settings& settings) {
  return NextSlipNumber(settings, [&] { return HighestSlipNumber(shop); });
}

}  // namespace karvel
