// All rows of one table, for what reads or writes them by the thousand: cards that come in from a file. Nothing follows row by row as it
// does with a cursor.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/status.h"
#include "store/catalogue.h"
#include "store/engine.h"
#include "store/row.h"

namespace karvel {

class Stores;

class TableRows {
 public:
  // The file by its bare name ("Cari.mdb"). Both must be in the catalogue.
  TableRows(Stores& stores, const std::string& file, const std::string& table);

  [[nodiscard]] const Table& Columns() const { return *query_.table; }
  // Hands over every row in the order in which they were added.
  Status ForEach(const std::function<void(const GridRow&)>& take);
  // The rows behind one that was read before, null for the first ones, in the same order; at most `limit`. `rows` is emptied first.
  Status Next(const GridRow* last, int limit, std::vector<GridRow>& rows);
  // Adds `count` rows to those that are there: `fill` is given each one's number from 0 and a row of defaults. Within an action only, which
  // a failure undoes.
  Status Add(std::int64_t count, const std::function<void(std::int64_t, Row&)>& fill);
  // Writes these fields of a row that was read within the same action. NoRecord when it is gone.
  Status Change(RowKey key, std::span<const FieldValue> fields);

 private:
  Stores& stores_;
  RowQuery query_;
};

}  // namespace karvel
