// The write by which it can be told, on a machine that took over after a commit whose answer was lost, whether the transaction stands. As
// all of it lands or none, one row speaks for all: best a line that was added, by its id; else any row added; else the last change.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "store/engine.h"

namespace karvel::postgres {

class CommitWitness {
 public:
  // A transaction begins.
  void Clear() { *this = {}; }
  void Added(const DatabaseFile& file, const Table& table, const Row& values);
  void Changed(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields);
  void Deleted(const DatabaseFile& file, const Table& table, RowKey key);
  void Emptied(const RowQuery& query);

  // Whether it tells this transaction from all others: nobody else adds a row like it.
  [[nodiscard]] bool IsSure() const { return kind_ >= Kind::Added; }
  // Whether it stands in the engine's stores. A transaction without a write stands in any case.
  Status Ask(Engine& engine, bool& stands) const;

 private:
  enum class Kind { None, Emptied, Deleted, Changed, Added, AddedLine };  // each tells more surely than those before it

  // Whether this write is a better witness than the one that is there; takes its place then.
  bool Takes(Kind kind, const DatabaseFile& file, const Table& table, RowKey key);
  Status AskForAdded(Engine& engine, bool& stands) const;

  Kind kind_ = Kind::None;
  const DatabaseFile* file_ = nullptr;
  const Table* table_ = nullptr;
  RowKey key_ = 0;
  Row added_;
  std::vector<FieldValue> changed_;
  std::optional<RowQuery> emptied_;
};

}  // namespace karvel::postgres
