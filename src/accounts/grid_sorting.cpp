#include "accounts/grid_sorting.h"

#include <algorithm>
#include <cctype>

#include "books/steps.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("GridSorting");
// Only the code and name columns of StokGrid sort the list: the sale goes on while its list changes, and these two are read in order
// at once.
constexpr int kLastSortedOfStock = 1;

// Where the last " Order By" begins, in whatever case; npos without one.
std::size_t OrderPart(const std::string& source) {
  static constexpr std::string_view kOrder = " order by";
  const auto found = std::find_end(source.begin(), source.end(), kOrder.begin(), kOrder.end(),
                                   [](unsigned char a, unsigned char b) { return std::tolower(a) == b; });
  return found == source.end() ? std::string::npos : static_cast<std::size_t>(found - source.begin());
}

}  // namespace

GridSorting::GridSorting(const DeskParts& parts) : screen_(parts.screen) {
  Screen& screen = screen_;
  connections_ += screen.CariGrid.headClick.Connect([this](int column) { Sort(screen_.CariGrid, column, " ASC", " DESC"); });
  connections_ += screen.HareketGrid.headClick.Connect([this](int column) { Sort(screen_.HareketGrid, column, " Asc", " Desc"); });
  connections_ += screen.StokGrid.headClick.Connect([this](int column) {
    if (column <= kLastSortedOfStock) Sort(screen_.StokGrid, column, " ASC", " DESC");
  });
}

std::string GridSorting::Sorted(const std::string& source, const std::string& field, const std::string& up, const std::string& down) {
  const std::size_t order = OrderPart(source);
  std::string kept = source.substr(0, order);
  if (kept.find(' ') == std::string::npos) kept = "Select * From " + kept;  // a whole table
  const bool downwards = order != std::string::npos && ContainsText(source.substr(order), " DESC");
  return kept + " Order By " + field + (downwards ? up : down);
}

void GridSorting::Sort(GridElement& grid, int column, const std::string& up, const std::string& down) {
  Cursor* const cursor = grid.Source();
  if (!cursor || column < 0 || column >= static_cast<int>(grid.Columns().size())) return;
  const std::string field = grid.Columns()[static_cast<std::size_t>(column)].field;
  if (field.empty()) return;
  step("sort", cursor->Open(Sorted(cursor->RecordSource(), field, up, down)));
  grid.SetMarker(true);
}

}  // namespace karvel
