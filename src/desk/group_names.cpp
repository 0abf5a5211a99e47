#include "desk/group_names.h"

#include <limits>

namespace karvel {

Status ReadGroupNames(const Cursor& groups, std::vector<std::string>& names) {
  std::vector<GridRow> rows;
  if (Status read = groups.RowsFromStart(std::numeric_limits<int>::max(), rows); !read.Ok()) return read;
  const auto name = static_cast<std::size_t>(groups.SourceTable()->Position("Gurup"));
  names.clear();
  for (const GridRow& row : rows) names.push_back(AsText(row.values[name]));
  return {};
}

}  // namespace karvel
