// One row by which it can be told, after a commit that failed, whether the transaction stands: how the row was before it, and how the
// transaction leaves it. As all of a transaction lands or none of it, one row speaks for all.
//
// A row that was added is the surest: another terminal may change a counter or a card to the same value, but posts no line of the same id.
// Where nothing was added, the first row that was changed or deleted tells.
#pragma once

#include <map>
#include <optional>
#include <span>

#include "platform/status.h"
#include "store/engine.h"
#include "store/sqlite/connection.h"
#include "store/table_sql.h"

namespace karvel::sqlite {

class CommitTrace {
 public:
  explicit CommitTrace(const std::map<const Table*, TableSql>& tables) : tables_(tables) {}

  // A transaction begins.
  void Clear();
  // It has added a row.
  void Added(const Table& table, RowKey key);
  // It is about to change these fields of a row, or to delete it. These read the row as it still is, unless a row is known that tells.
  void Changing(Connection& connection, const Table& table, RowKey key, std::span<const FieldValue> fields);
  void Deleting(Connection& connection, const Table& table, RowKey key);
  // It has deleted all rows of a query, and there were some.
  void Emptied(const RowQuery& query);

  // It is about to be committed: reads how it leaves the row.
  void Fix(Connection& connection);
  // Whether it stands in the files. One that changed nothing stands in any case.
  bool Stands(Connection& connection) const;

 private:
  [[nodiscard]] bool IsKnown() const { return table_ != nullptr || emptied_.has_value(); }
  std::optional<Row> Read(Connection& connection, const Table& table, RowKey key) const;
  [[nodiscard]] bool BearsOurId(const Row& row) const;

  const std::map<const Table*, TableSql>& tables_;
  const Table* table_ = nullptr;
  RowKey key_ = 0;
  std::optional<Row> before_, after_;  // none: the row is not there
  std::optional<RowQuery> emptied_;
};

}  // namespace karvel::sqlite
