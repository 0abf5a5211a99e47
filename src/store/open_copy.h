// The open copy of a row between AddNew or Edit and Update: its values, and which of them were set.
#pragma once

#include <optional>
#include <vector>

#include "store/catalogue.h"
#include "store/engine.h"
#include "store/row.h"

namespace karvel {

// A value in a column's type. Numbers and texts turn into each other by the desk's locale, dates are read day first; a Null is the
// column's default. Nothing when the value can't stand in such a column.
std::optional<Value> ConvertTo(ColumnType type, const Value& value);
// What a new row holds: 0, "", false or the empty date.
Value DefaultOf(ColumnType type);

class OpenCopy {
 public:
  // A new row, all defaults.
  explicit OpenCopy(const Table& table);
  // A copy of a row for an edit.
  OpenCopy(const Table& table, const GridRow& row);

  [[nodiscard]] bool IsNew() const { return isNew_; }
  [[nodiscard]] RowKey Key() const { return key_; }
  [[nodiscard]] const Row& Values() const { return values_; }
  // False when the value can't stand in the column; the field is as before.
  bool Set(int position, const Value& value);
  // The fields that were set, each once.
  [[nodiscard]] std::vector<FieldValue> SetFields() const;
  // Whether a fresh reading of the row still has, in every field that was set, what the copy was made from.
  [[nodiscard]] bool StillFits(const Row& fresh) const;

 private:
  const Table& table_;
  bool isNew_;
  RowKey key_ = 0;
  Row values_;
  Row before_;  // of an edit
  std::vector<bool> set_;
};

}  // namespace karvel
