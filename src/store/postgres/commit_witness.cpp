#include "store/postgres/commit_witness.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace karvel::postgres {
namespace {

constexpr std::string_view kLineId = "DigerId";

const Value& FieldOf(const Row& row, int position) {
  return row[static_cast<std::size_t>(position)];
}

dialect::ExprPtr Equals(int position, const Value& value) {
  const auto part = [](auto node) { return std::make_shared<const dialect::Expr>(dialect::Expr{std::move(node)}); };
  return part(dialect::Compare{dialect::CompareOp::Equal, part(dialect::Field{position}), part(dialect::Literal{value})});
}

}  // namespace

bool CommitWitness::Takes(Kind kind, const DatabaseFile& file, const Table& table, RowKey key) {
  if (kind < kind_) return false;
  kind_ = kind;
  file_ = &file;
  table_ = &table;
  key_ = key;
  return true;
}

void CommitWitness::Added(const DatabaseFile& file, const Table& table, const Row& values) {
  const int id = table.Position(kLineId);
  const bool line = id >= 0 && !AsText(FieldOf(values, id)).empty();
  if (Takes(line ? Kind::AddedLine : Kind::Added, file, table, 0)) added_ = values;
}

void CommitWitness::Changed(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) {
  if (Takes(Kind::Changed, file, table, key)) changed_.assign(fields.begin(), fields.end());
}

void CommitWitness::Deleted(const DatabaseFile& file, const Table& table, RowKey key) {
  Takes(Kind::Deleted, file, table, key);
}

void CommitWitness::Emptied(const RowQuery& query) {
  if (Takes(Kind::Emptied, *query.file, *query.table, 0)) emptied_ = query;
}

Status CommitWitness::Ask(Engine& engine, bool& stands) const {
  stands = true;
  switch (kind_) {
    case Kind::None:
      return {};
    case Kind::Emptied: {
      std::int64_t count = 0;
      Status counted = engine.Count(*emptied_, count);
      stands = count == 0;
      return counted;
    }
    case Kind::Deleted:
    case Kind::Changed: {
      GridRow row;
      const Status read = engine.Read(*file_, *table_, key_, row);
      if (read.Kind() == ErrorKind::NoRecord) {
        stands = kind_ == Kind::Deleted;
        return {};
      }
      if (!read.Ok()) return read;
      stands = kind_ == Kind::Changed &&
               std::ranges::all_of(changed_, [&](const FieldValue& field) { return FieldOf(row.values, field.position) == field.value; });
      return {};
    }
    case Kind::Added:
    case Kind::AddedLine:
      break;
  }
  return AskForAdded(engine, stands);
}

// Its line may have been changed since; a card or a counter is looked for as it was added.
Status CommitWitness::AskForAdded(Engine& engine, bool& stands) const {
  RowQuery query{file_, table_, {}, {}};
  const int id = table_->Position(kLineId);
  for (int position = 0; position < static_cast<int>(table_->columns.size()); ++position)
    if (kind_ == Kind::Added || position == id) query.where.push_back(Equals(position, FieldOf(added_, position)));
  std::vector<GridRow> rows;
  constexpr int kLikeIt = 100;
  Status read = engine.Select(query, {.from = RowRange::From::End, .limit = kLikeIt}, rows);
  stands = std::ranges::any_of(rows, [&](const GridRow& row) {
    return kind_ == Kind::Added ? row.values == added_ : FieldOf(row.values, id) == FieldOf(added_, id);
  });
  return read;
}

}  // namespace karvel::postgres
