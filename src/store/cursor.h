// A data cursor: a named object over a database file and a record source, with a current record.
//
// What stays true:
// - A failed find leaves the current record where it was and sets NoMatch; so does a criterion that can't be understood.
// - Refresh re-runs the source and stands on the first record.
// - After the update of an added row the record that was current before stays current.
// - While an add or edit is open, reading a field reads the open copy.
// - Every change of the current record, every refresh and every update fires `repositioned`, once, when it is done.
// - Edit takes the write lock and reads the row afresh; an update never loses another terminal's change to other fields.
// - Cost does not grow with the table: finds and moves run on an index, nothing is read before it is asked for, and only
//   RecordCount counts.
// Every operation gives its outcome. One that fails is also logged under the cursor's name, and changes nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/signal.h"
#include "platform/status.h"
#include "store/catalogue.h"
#include "store/row.h"
#include "store/value.h"

namespace karvel {

class Stores;

class Cursor {
 public:
  Cursor(Stores& stores, std::string name);
  ~Cursor();
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  [[nodiscard]] const std::string& Name() const;

  // The database file, as a path or a bare name; takes effect at the next Refresh.
  void SetDatabaseName(const std::string& path);
  [[nodiscard]] const std::string& DatabaseName() const;
  // A table's name or a Select text; takes effect at the next Refresh.
  void SetRecordSource(const std::string& source);
  [[nodiscard]] const std::string& RecordSource() const;

  Status Refresh();
  // SetRecordSource and Refresh.
  Status Open(const std::string& source);
  // Drops the rows and the current record: no rows until the next Refresh, which runs the record source as it then is.
  void Close();

  // The table behind the source as last refreshed; null before the first Refresh, or after one that failed.
  [[nodiscard]] const Table* SourceTable() const;

  // At least one row in the source. O(1).
  [[nodiscard]] bool HasRows() const;
  // Exact, counted by the engine when first asked after a change: O(rows).
  [[nodiscard]] std::int64_t RecordCount() const;
  [[nodiscard]] bool Bof() const;
  [[nodiscard]] bool Eof() const;
  [[nodiscard]] bool NoMatch() const;
  // A current record to read: not before the first, behind the last, or on a deleted row.
  [[nodiscard]] bool HasCurrent() const;

  // NoRecord, which is not logged, when nothing matches.
  Status FindFirst(const std::string& criteria);
  // From the row behind the current one.
  Status FindNext(const std::string& criteria);
  // First and last are read when they are first asked for; without rows both leave no current record.
  Status MoveFirst();
  Status MoveLast();
  // Behind the last row, with no current record: Eof. Nothing is read, so this is where a cursor stands that only adds rows.
  Status MoveBehindLast();
  Status MoveNext();      // from the last row: Eof, no current record
  Status MovePrevious();  // from the first row: Bof, no current record
  // To a row that a grid showed; fails when it is gone.
  Status MoveTo(RowKey key);
  [[nodiscard]] RowKey CurrentKey() const;  // 0 without a current record

  Status AddNew();
  Status Edit();
  Status Update();
  void CancelUpdate();
  Status Delete();                       // afterwards there is no current record; MoveNext goes to the row behind it
  [[nodiscard]] bool IsEditing() const;  // an add or edit is open

  // Fields of the open copy or of the current record, by name (ignoring case) or position. Without either: Null.
  [[nodiscard]] Value Get(std::string_view field) const;
  [[nodiscard]] Value Get(int position) const;
  [[nodiscard]] std::string Text(std::string_view field) const { return AsText(Get(field)); }
  [[nodiscard]] std::string Text(int position) const { return AsText(Get(position)); }
  [[nodiscard]] double Number(std::string_view field) const { return AsNumber(Get(field)); }
  [[nodiscard]] double Number(int position) const { return AsNumber(Get(position)); }
  // Sets a field of the open copy. The value is converted to the field's type; one that can't be leaves the field as it was and is logged.
  void Set(std::string_view field, const Value& value);
  void Set(int position, const Value& value);
  void Set(std::string_view field, const char* text) { Set(field, Value(std::string(text))); }
  void Set(std::string_view field, double number) { Set(field, Value(number)); }
  void Set(std::string_view field, int number) { Set(field, Value(static_cast<double>(number))); }
  void Set(int position, const char* text) { Set(position, Value(std::string(text))); }
  void Set(int position, int number) { Set(position, Value(static_cast<double>(number))); }
  void Set(int position, double number) { Set(position, Value(number)); }

  // For grids. None of these moves the current record.
  // Up to `count` rows of the source in its order: from the first, before the last, or beside a row that was shown (which may be gone
  // since).
  [[nodiscard]] std::vector<GridRow> RowsFromStart(int count) const;
  Status RowsFromStart(int count, std::vector<GridRow>& rows) const;  // tells what could not be read; so do its like
  [[nodiscard]] std::vector<GridRow> RowsFromEnd(int count) const;
  Status RowsFromEnd(int count, std::vector<GridRow>& rows) const;
  [[nodiscard]] std::vector<GridRow> RowsAfter(const GridRow& row, int count) const;
  Status RowsAfter(const GridRow& row, int count, std::vector<GridRow>& rows) const;
  [[nodiscard]] std::vector<GridRow> RowsBefore(const GridRow& row, int count) const;  // in source order, the nearest last
  [[nodiscard]] std::vector<GridRow> RowsAt(std::int64_t position, int count) const;   // O(position)
  // The row's position from 0. O(position).
  [[nodiscard]] std::int64_t PositionOf(const GridRow& row) const;
  // The current record as a grid row; key 0 without one. Reads the stored row, not an open copy.
  [[nodiscard]] GridRow CurrentRow() const;

  // The current record changed, or the rows did.
  Signal<> repositioned;
  // Grids repaint after this: any change of rows, source or current record, muted handlers or not.
  Signal<> shown;

 private:
  friend class Stores;
  friend class Glance;
  // After a write to this table by someone else: tells the grids, unless they know of it already.
  void ShowIfStale();
  class Impl;
  std::unique_ptr<Impl> impl_;
};

// The reads of a list that paints itself: while this lives none waits for another program, so that the window never stands still.
class Glance {
 public:
  explicit Glance(const Cursor& cursor);
  ~Glance();
  Glance(const Glance&) = delete;
  Glance& operator=(const Glance&) = delete;
  // False when another program did not let a read through since, or no server answered: what was read is not what is there.
  [[nodiscard]] bool Complete() const;
  // Why there may be no rows to read at all.
  [[nodiscard]] bool ServerIsAway() const;
  [[nodiscard]] bool NothingIsOpen() const;

 private:
  Stores& stores_;
  const std::uint64_t busyBefore_;
};

}  // namespace karvel
