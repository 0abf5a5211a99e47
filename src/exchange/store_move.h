// All rows of a shop's stores from one place into another that holds none: from the files of a folder into a main machine's server, or
// back.
//
// What stays true:
// - Nobody posts into the source meanwhile: an action of its own is open there, in which nothing is written.
// - A value that the target can't hold as it is ends the move before anything is written.
// - The target gets all rows in one action. Before its commit they are read back: every row is compared, and so are the sums of the number
//   columns. Whatever ends the move earlier, a kill too, leaves the target without a row.
// Rows keep their order, not their keys. Memory stays small, however many there are.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/status.h"
#include "store/catalogue.h"
#include "store/row.h"
#include "store/stores.h"

namespace karvel {

// A value that the target can't hold.
struct Misfit {
  std::size_t column;
  std::string why;  // in plain Turkish
};

enum class MoveStage { Check, Write, Compare };

struct MoveProgress {
  MoveStage stage;
  const DatabaseFile& file;
  const Table& table;
  std::int64_t rows;  // of this table in this stage
  bool done = false;  // all of them
};

struct MoveOrder {
  Stores& source;  // both open
  Stores& target;
  std::function<std::vector<Misfit>(const Table&, const Row&)> misfits;
  std::function<void(const MoveProgress&)> progress;
  // Asked every thousand rows: the move ends, and the target stays empty.
  std::function<bool()> stops;
  // Asked where it isn't known whether the commit stands, before each further look. It naps as long as it likes; false gives up.
  std::function<bool()> looksAgain;
  // How long nothing is asked of the source while the target works on its rows: a server ends a session that is silent for a minute.
  std::chrono::milliseconds longestSilence = std::chrono::seconds(10);
};

enum class MoveEnd {
  Moved,
  SourceFailed,
  TargetFailed,
  TargetHoldsRows,  // `where` names the table
  Misfits,
  NotAlike,  // what was read back differs; `where` names the place
  Stopped,
  OutcomeUnknown,  // whether the rows are in the target
};

struct StoreMove {
  MoveEnd end = MoveEnd::Moved;
  Status status;  // of what failed
  std::string where;
  std::int64_t rows = 0;
  std::int64_t misfits = 0;
  std::vector<std::string> firstMisfits;  // by file, table, row and field
};

StoreMove MoveStores(const MoveOrder& order);

}  // namespace karvel
