#include "books/slip_numbers.h"

#include <algorithm>
#include <vector>

#include "books/book_cursor.h"
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

// The settings may be older than the book: a file that was brought back from a copy, or another machine that counts for itself. The last
// rows of the book tell.
Outcome<double> NewestSlipNumber(const Shop& shop) {
  constexpr int kRows = 200;
  BookCursor lines(shop.stores, "newest slips", "Karvel.Mdb", "Datam");
  const Status there = lines.MoveLast();
  if (!there.Ok()) return std::unexpected(there);
  const int number = lines.SourceTable() ? lines.SourceTable()->Position("SeriNo") : -1;
  std::vector<GridRow> rows;
  if (const Status read = lines.RowsFromEnd(kRows, rows); !read.Ok()) return std::unexpected(read);
  double newest = 0;
  for (const GridRow& row : rows) {
    const std::string slip = AsText(row.values[static_cast<std::size_t>(number)]);
    const bool digits = slip.size() >= kDigits && slip.size() <= kMostDigits && slip.find_first_not_of("0123456789") == std::string::npos;
    if (digits) newest = std::max(newest, NumberOrZero(slip));
  }
  return newest;
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
  const Outcome<double> newest = NewestSlipNumber(shop);
  if (!newest) return std::unexpected(newest.error());
  return NextSlipNumber(settings, *newest, [&] { return HighestSlipNumber(shop); });
}

}  // namespace karvel
