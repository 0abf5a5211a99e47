// What stands under the cursors: one data folder's tables, read and written by catalogue names, dialect conditions and row keys.
//
// What stays true:
// - Equal order terms are broken by the row key, in the direction of the last term; without terms rows stand by rising row key.
// - Outside a transaction every write lands by itself or not at all; inside one, all writes land at Commit, over all files of the folder.
// - A transaction may hold the write lock of the whole folder from Begin on; writers wait for it in line.
// - Driver errors come out as Status kinds; no driver's own code or exception passes this interface.
// DataTemp.Mdb lies in the program folder: it is opened at its first use, and its writes land beside the transaction, not within it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "platform/status.h"
#include "platform/wait_listener.h"
#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "store/row.h"
#include "store/stores_copy.h"

namespace karvel {

// The rows of one table for which all conditions hold, in an order.
struct RowQuery {
  const DatabaseFile* file = nullptr;
  const Table* table = nullptr;
  std::vector<dialect::ExprPtr> where;
  std::vector<dialect::OrderTerm> order;
};

// Which rows of a query are wanted. They always come in the query's order.
struct RowRange {
  enum class From {
    Start,   // the first ones
    End,     // the last ones
    Behind,  // those behind `beside`, the nearest first
    Before,  // those before `beside`, the nearest last
  };
  From from = From::Start;
  const GridRow* beside = nullptr;  // a row as it was read; it may be gone or changed since
  int limit = 1;
  std::int64_t offset = 0;  // of Start: so many rows are passed over
};

struct FieldValue {
  int position;  // in the table's columns
  Value value;   // of the column's type
};

// What the rows with one text in a column sum up to.
struct TextSum {
  std::string text;
  double sum = 0;
};

class Engine {
 public:
  virtual ~Engine() = default;

  // Opens the data folder's eight files, recovers them in place where a writer died, and checks that each holds its tables.
  // Missing or Damaged name the file, and nothing is open then. An open folder is closed first.
  virtual Status Open(const std::string& folder) = 0;
  // Whether the last Open found no stores there and made them, empty. Files are made before they are opened, so theirs never are.
  [[nodiscard]] virtual bool BegunAnew() const { return false; }
  // Who hears of the waits for other terminals and programs; null for nobody. He may read through this engine meanwhile.
  virtual void SetWaitListener(WaitListener* listener) = 0;
  // Whether a read beside a transaction waits for other programs, as it does at first. One that doesn't is Busy at once.
  virtual void SetPatient(bool patient) = 0;

  // An open transaction is undone. Until the next Open everything else is NotOpen.
  virtual void Close() = 0;
  [[nodiscard]] virtual bool IsOpen() const = 0;

  // The rows of the range, in the query's order; `rows` is emptied first. Costs an index seek where an index fits the conditions and the
  // order.
  virtual Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) = 0;
  // O(rows).
  virtual Status Count(const RowQuery& query, std::int64_t& count) = 0;
  // How many rows of the query stand before a row, which may be gone or changed since. O(rows before it).
  virtual Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) = 0;
  // The sum of the number column at this position; Null when no row matched.
  virtual Status Sum(const RowQuery& query, int position, Value& sum) = 0;
  // The same for each text that stands in the column `by`, in no order; texts that only compare alike are told apart. `sums` is emptied
  // first. One walk over the rows, however many texts there are.
  virtual Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) = 0;
  // NoRecord when the row is gone. Inside a transaction no other writer can change the row until the transaction ends.
  virtual Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) = 0;

  // Adds a whole row, its values in catalogue order. Its key is greater than those of all rows that are there.
  virtual Status Insert(const DatabaseFile& file, const Table& table, const Row& values) = 0;
  // Adds `count` whole rows in their order; `fill` is given each one's number from 0 and a row of defaults. Costs far less a row than
  // Insert where they are more than there are already. NotOpen without a transaction; a failure undoes the whole of it.
  virtual Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                            const std::function<void(std::int64_t, Row&)>& fill) = 0;
  // Writes these fields only. NoRecord when the row is gone; so for Delete.
  virtual Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) = 0;
  virtual Status Delete(const DatabaseFile& file, const Table& table, RowKey key) = 0;
  // Deletes the query's rows, and counts them. Where there are none, that is no failure.
  virtual Status DeleteWhere(const RowQuery& query, std::int64_t& count) = 0;

  // Waits in line for other writers: Busy when it took too long. NoRights where the folder can't be written. Transactions don't nest.
  virtual Status Begin() = 0;
  // A commit that fails has rolled back; either way the transaction is over. NotOpen without one.
  // Where the disk failed at the very end, the files are read again before the answer: well with a message when all of it is in them all
  // the same, and Unknown while they can't be read. Until that is known nothing can be begun.
  virtual Status Commit() = 0;
  // Looks once more after a commit that answered Unknown, and answers as it would have. Waits for nobody. NotOpen where nothing is unknown.
  virtual Status LookAgain() = 0;
  // Undoes what was written since Begin. Does nothing without a transaction.
  virtual void Rollback() = 0;
  // False also when an error inside has ended the transaction and undone its writes.
  [[nodiscard]] virtual bool InTransaction() const = 0;
  // Whether every row read inside a transaction is safe from other writers until its end, not only those read by themselves.
  [[nodiscard]] virtual bool ReadsHold() const = 0;
  // The same for one row that was read by itself just now: where it is so, it needs no reading again for an edit.
  [[nodiscard]] virtual bool HoldsRow(const Table& /*table*/, RowKey /*key*/) const { return ReadsHold(); }

  // Adds the names ("cari/CariKartlar") of the tables that other terminals wrote since the last call, as far as the stores tell of it.
  // Waits for nothing. Files tell nothing.
  virtual void TakeForeignChanges(std::set<std::string>& /*tables*/) {}

  // Begins a copy of all files into a folder of this machine, which exists and is empty. They become SQLite files under their names,
  // whatever the engine. Nobody's transaction waits for it longer than a fifth of a second. Busy while another terminal makes one.
  virtual Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) = 0;
};

}  // namespace karvel
