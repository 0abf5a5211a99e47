#include "books/slip_numbers.h"

#include "settings/slip_number.h"
#include "store/cursor.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr std::size_t kFewestDigits = 6;
constexpr std::size_t kMostDigits = 9;
}  // namespace

// Texts of one length order as their numbers do, and a longer number is greater than any shorter one.
Outcome<double> HighestSlipNumber(const Shop& shop) {
  Cursor lines(shop.stores, "slip numbers");
  lines.SetDatabaseName("Karvel.mdb");
  if (const Status opened = lines.Open("Select * From Datam Order By SeriNo Desc"); !opened.Ok()) return std::unexpected(opened);
  for (std::size_t digits = kMostDigits; digits >= kFewestDigits; --digits) {
    const Status found = lines.FindFirst("SeriNo Like '" + std::string(digits, '#') + "'");
    if (found.Ok()) return NumberOrZero(lines.Text("SeriNo"));
    if (found.Kind() != ErrorKind::NoRecord) return std::unexpected(found);
  }
  return 0;
}

Outcome<std::string> TakeSlipNumber(const Shop& shop, Settings& settings) {
  return NextSlipNumber(settings, [&] { return HighestSlipNumber(shop); });
}

}  // namespace karvel
