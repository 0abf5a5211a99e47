#include "store/table_rows.h"

#include <utility>

#include "store/stores.h"

namespace karvel {

TableRows::TableRows(Stores& stores, const std::string& file, const std::string& table) : stores_(stores) {
  query_.file = Catalogue::File(file);
  query_.table = query_.file->Find(table);
}

Status TableRows::ForEach(const std::function<void(const GridRow&)>& take) {
  constexpr int kAtOnce = 500;
  GridRow last;
  bool first = true;
  for (std::vector<GridRow> rows;;) {
    if (const Status read = Next(std::exchange(first, false) ? nullptr : &last, kAtOnce, rows); !read.Ok()) return read;
    for (const GridRow& row : rows) take(row);
    if (rows.size() < kAtOnce) return {};
    last = std::move(rows.back());
  }
}

Status TableRows::Next(const GridRow* last, int limit, std::vector<GridRow>& rows) {
  const RowRange range{last == nullptr ? RowRange::From::Start : RowRange::From::Behind, last, limit};
  return stores_.Read([&](Engine& engine) { return engine.Select(query_, range, rows); });
}

Status TableRows::Add(std::int64_t count, const std::function<void(std::int64_t, Row&)>& fill) {
  if (count == 0) return {};
  return stores_.Write(*query_.table, [&](Engine& engine) { return engine.InsertMany(*query_.file, *query_.table, count, fill); });
}

Status TableRows::Change(RowKey key, std::span<const FieldValue> fields) {
  return stores_.Write(*query_.table, [&](Engine& engine) { return engine.Change(*query_.file, *query_.table, key, fields); });
}

}  // namespace karvel
