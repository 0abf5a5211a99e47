#include "store/sqlite/commit_trace.h"

#include <algorithm>
#include <utility>

namespace karvel::sqlite {

void CommitTrace::Clear() {
  table_ = nullptr;
  key_ = 0;
  before_.reset();
  after_.reset();
  emptied_.reset();
}

void CommitTrace::Added(const Table& table, RowKey key) {
  Clear();
  table_ = &table;
  key_ = key;
}

void CommitTrace::Changing(Connection& connection, const Table& table, RowKey key, std::span<const FieldValue> fields) {
  if (IsKnown()) return;
  std::optional<Row> row = Read(connection, table, key);
  if (!row) return;
  // Written as it was, it would tell nothing.
  const bool alters = std::any_of(fields.begin(), fields.end(),
                                  [&](const FieldValue& field) { return (*row)[static_cast<std::size_t>(field.position)] != field.value; });
  if (!alters) return;
  Added(table, key);
  before_ = std::move(row);
}

void CommitTrace::Deleting(Connection& connection, const Table& table, RowKey key) {
  if (IsKnown()) return;
  std::optional<Row> row = Read(connection, table, key);
  if (!row) return;
  Added(table, key);
  before_ = std::move(row);
}

void CommitTrace::Emptied(const RowQuery& query) {
  if (!IsKnown()) emptied_ = query;
}

void CommitTrace::Fix(Connection& connection) {
  if (table_ != nullptr) after_ = Read(connection, *table_, key_);
}

bool CommitTrace::Stands(Connection& connection) const {
  if (emptied_) {
    const SqlText sql = tables_.at(emptied_->table).Count(*emptied_);
    RunningStatement running = connection.Prepare(sql.text, sql.parameters);
    return running.Step() && running.Integer(0) == 0;
  }
  if (table_ == nullptr || before_ == after_) return true;
  const std::optional<Row> now = Read(connection, *table_, key_);
  if (now == after_) return true;
  return !before_ && now && BearsOurId(*now);
}

// Another terminal may have changed the line that was added, or added one of its own under the same key.
bool CommitTrace::BearsOurId(const Row& row) const {
  const int position = table_->Position("DigerId");
  if (position < 0 || !after_) return false;
  const auto at = static_cast<std::size_t>(position);
  return row[at] == (*after_)[at];
}

std::optional<Row> CommitTrace::Read(Connection& connection, const Table& table, RowKey key) const {
  const std::vector<Value> parameters{static_cast<double>(key)};
  RunningStatement running = connection.Prepare(tables_.at(&table).Read(), parameters);
  if (!running.Step()) return {};
  return running.ReadRow(table);
}

}  // namespace karvel::sqlite
