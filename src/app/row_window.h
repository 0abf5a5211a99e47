// The run of rows that a grid holds of its cursor: those that it shows and a few beside them, never the whole table.
//
// What stays true: the rows stand in the source's order without gaps; AtStart and AtEnd tell whether the source goes on beside them.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "store/cursor.h"

namespace karvel {

class RowWindow {
 public:
  void SetSource(const Cursor* cursor);

  [[nodiscard]] const std::vector<GridRow>& Rows() const { return rows_; }
  [[nodiscard]] int Count() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] bool AtStart() const { return atStart_; }
  [[nodiscard]] bool AtEnd() const { return atEnd_; }
  // The position of the first row held, where it is known: at the start, after LoadAt, and as far as moves carry it.
  [[nodiscard]] std::optional<std::int64_t> Position() const { return position_; }
  void SetPosition(std::int64_t position) { position_ = position; }
  [[nodiscard]] int IndexOf(RowKey key) const;  // -1: not held

  void Clear();
  void LoadStart(int count);
  void LoadEnd(int count);
  // Loads the row with up to `margin` rows before it and `count` from it on. Returns its index, or that of its successor when it is gone.
  int LoadAround(const GridRow& row, int margin, int count);
  // Loads the rows from a position on, with up to `margin` rows before it. Returns the index of the row at the position.
  int LoadAt(std::int64_t position, int margin, int count);
  // Adds rows at an end; returns how many came.
  int GrowUp(int count);
  int GrowDown(int count);
  // Drops rows at an end.
  void DropTop(int count);
  void DropBottom(int count);

 private:
  const Cursor* cursor_ = nullptr;
  std::vector<GridRow> rows_;
  std::optional<std::int64_t> position_;
  bool atStart_ = true, atEnd_ = true;
};

}  // namespace karvel
