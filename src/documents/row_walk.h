// A walk over all rows of a source for a document: many at once, so that a long one costs what its rows do, and with what could not be read
// told, so that no document ends in the middle as if it were whole.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/status.h"
#include "store/cursor.h"

namespace karvel {

// Gives each row of the source to `work`, in order; ends early where it answers false. No current record moves.
template <typename Work>
Status ForEachRow(const Cursor& source, const Work& work) {
  constexpr int kAtOnce = 500;
  std::vector<GridRow> rows;
  Status read = source.RowsFromStart(kAtOnce, rows);
  while (read.Ok() && !rows.empty()) {
    for (const GridRow& row : rows)
      if (!work(row.values)) return {};
    if (rows.size() < static_cast<std::size_t>(kAtOnce)) break;
    const GridRow last = rows.back();
    read = source.RowsAfter(last, kAtOnce, rows);
  }
  return read;
}

}  // namespace karvel
