// Where a cursor stands in its source, and the moves over it. Nothing is read before it is asked for: a move to the first or last row
// only says so, and the row itself is read when something looks at it. What was written meanwhile is seen at the next look.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/status.h"
#include "store/engine.h"
#include "store/row.h"

namespace karvel {

class Stores;

class Position {
 public:
  explicit Position(Stores& stores) : stores_(stores) {}

  // Takes a source and stands on its first row.
  void Take(RowQuery source);
  // No source, no rows.
  void Drop();
  [[nodiscard]] const RowQuery* Source() const { return source_ ? &*source_ : nullptr; }

  // Reads what the place stands for, if that has not happened yet. When the store can't be read now, the next look tries again.
  void Settle();
  [[nodiscard]] bool OnRow();
  [[nodiscard]] bool Bof();
  [[nodiscard]] bool Eof();
  [[nodiscard]] bool HasRows();
  // The current row. Only when OnRow.
  [[nodiscard]] const GridRow& Current() const { return current_; }

  void ToFirst();
  void ToLast();
  Status Next();
  Status Previous();
  // To the first row with the criterion, from the start or behind the current row. NoRecord leaves everything as it was.
  Status Find(const dialect::ExprPtr& criterion, bool behindCurrent);
  Status To(RowKey key);

  // Makes sure that the current row is as it stands in the store, under the write lock of the action: reads it again unless it was
  // read inside this action.
  Status ReadForEdit();
  // The current row now reads so: it has just been written by the cursor itself. `before` is the write count before that.
  void Written(const Row& values, std::uint64_t before);
  // A row was added by the cursor itself; the current one stays.
  void Added(std::uint64_t before);
  // The current row is deleted; the next one is still the next.
  void Deleted();

  Status Rows(const RowRange& range, std::vector<GridRow>& rows);
  Status Count(std::int64_t& count);
  Status CountBefore(const GridRow& row, std::int64_t& count);
  [[nodiscard]] std::uint64_t WriteCount() const;

 private:
  enum class Place {
    None,   // no source, or one without rows
    First,  // on the first row, not read yet
    Last,
    OnRow,
    Gone,  // on a deleted row, whose place current_ still tells
    Bof,
    Eof,
  };

  void ReadAgain();
  // A source, and the stores still as they were when it was taken.
  [[nodiscard]] bool IsLive() const;
  [[nodiscard]] std::uint64_t Action() const;
  Status Step(bool forward);
  void StandOn(GridRow row);
  void Reread(Row values);
  [[nodiscard]] const GridRow& Beside() const { return stoodAs_ ? *stoodAs_ : current_; }
  Status Select(const RowRange& range, std::vector<GridRow>& rows, const dialect::ExprPtr& also = nullptr);

  Stores& stores_;
  std::optional<RowQuery> source_;
  std::uint64_t opening_ = 0;  // of the stores, when the source was taken
  Place place_ = Place::None;
  GridRow current_;
  std::uint64_t currentCount_ = 0;   // the write count under which current_ was read
  std::uint64_t currentAction_ = 0;  // the action inside which it was read, and so under the write lock; 0 for none
  // The current row as it stood when the walk came to it, where an order field has changed since: the walk goes on from there.
  std::optional<GridRow> stoodAs_;

  // Rows beside the current one, in the direction of travel, read under aheadCount_.
  std::vector<GridRow> ahead_;
  std::size_t aheadAt_ = 0;
  bool aheadForward_ = true;
  int aheadSize_ = 0;
  std::uint64_t aheadCount_ = 0;
  std::uint64_t aheadAction_ = 0;

  std::int64_t rowCount_ = -1;
  std::uint64_t rowCountCount_ = 0;
  std::optional<std::uint64_t> emptyCount_;  // the write count under which the source had no row
};

}  // namespace karvel
