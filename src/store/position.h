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

  // Takes this source and stands on its first row.
  void SetSource(RowQuery source);
  // No source, no rows.
  void ClearSource();
  [[nodiscard]] const RowQuery* Source() const { return source_ ? &*source_ : nullptr; }

  // Reads the current row where that has not happened yet, or where something was written since. When the store can't be read, the next
  // look tries again.
  void ReadIfNeeded();
  [[nodiscard]] bool OnRow();
  [[nodiscard]] bool Bof();
  [[nodiscard]] bool Eof();
  [[nodiscard]] bool HasRows();
  // The current row. Only when OnRow.
  [[nodiscard]] const GridRow& Current() const { return current_; }

  void ToFirst();
  void ToLast();
  void ToEnd();  // behind the last row: nothing is read
  Status Next();
  Status Previous();
  // To the first row with the criterion, from the start or behind the current row. NoRecord leaves everything as it was.
  Status Find(const dialect::ExprPtr& criterion, bool behindCurrent);
  Status ToKey(RowKey key);

  // Makes sure that the current row is as it stands in the store, under the write lock of the action: reads it again unless it was
  // read inside this action.
  Status ReadForEdit();
  // The cursor has just written the current row, which holds these values now. `before` is the write count from before that.
  void NoteWritten(const Row& values, std::uint64_t before);
  // The cursor has just added a row; the current one stays current. `before` is the write count from before that.
  void NoteAdded(std::uint64_t before);
  // The current row is deleted. A step still goes to the row that stood behind it, or before it.
  void NoteDeleted();

  Status Rows(const RowRange& range, std::vector<GridRow>& rows);
  Status Count(std::int64_t& count);
  Status CountBefore(const GridRow& row, std::int64_t& count);
  [[nodiscard]] std::uint64_t WriteCount() const;

 private:
  void LogFailure(const Status& read) const;
  enum class Place {
    None,   // no source, or one without rows
    First,  // on the first row, not read yet
    Last,
    OnRow,
    Gone,  // on a deleted row; current_ still tells where it stood
    Bof,
    Eof,
  };

  void ReadCurrentAgain();
  // A source, and the stores still as they were when it was taken.
  [[nodiscard]] bool IsLive() const;
  // The number of the open action, where it keeps what was read safe from other writers; else 0.
  [[nodiscard]] std::uint64_t HoldingAction() const;
  // The same for one row that was read by itself just now.
  [[nodiscard]] std::uint64_t ActionThatHolds(RowKey key) const;
  Status Step(bool forward);
  void StandOn(GridRow row);
  // The same row, read or written again.
  void SetCurrentValues(Row values);
  // Whose place in the order a step goes on from.
  [[nodiscard]] const GridRow& ReachedRow() const { return asReached_ ? *asReached_ : current_; }
  // The rows of the source, with `also` only those that meet this condition too.
  Status Select(const RowRange& range, std::vector<GridRow>& rows, const dialect::ExprPtr& also = nullptr);

  Stores& stores_;
  std::optional<RowQuery> source_;
  std::uint64_t opening_ = 0;  // of the stores, when the source was taken
  Place place_ = Place::None;
  GridRow current_;
  std::uint64_t currentWrites_ = 0;  // the write count under which current_ was read
  std::uint64_t currentAction_ = 0;  // the action inside which it was read, and so under the write lock; 0 for none
  // The current row as it was when the walk reached it, where a field that orders has changed since: the walk goes on from that place.
  std::optional<GridRow> asReached_;

  // Rows beside the current one in the direction of the walk, the nearest first, read under the write count aheadWrites_.
  std::vector<GridRow> ahead_;
  std::size_t aheadAt_ = 0;
  bool aheadForward_ = true;
  int aheadSize_ = 0;
  std::uint64_t aheadWrites_ = 0;
  std::uint64_t aheadAction_ = 0;

  std::int64_t rowCount_ = -1;                // -1: not counted yet
  std::uint64_t rowCountWrites_ = 0;          // the write count under which rowCount_ was counted
  std::optional<std::uint64_t> emptyWrites_;  // the write count under which the source had no row
};

}  // namespace karvel
