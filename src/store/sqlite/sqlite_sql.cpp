#include "store/sqlite/sqlite_sql.h"

#include <fmt/format.h>

#include "text/turkish.h"

namespace karvel::sqlite {

std::string SqliteWords::ColumnName(std::string_view column) const {
  return QuotedName(column);
}

std::string SqliteWords::Parameter(std::size_t n) const {
  return fmt::format("?{}", n + 1);
}

std::string SqliteWords::IndexedKey(std::string_view columnSql) const {
  return FoldKeySql(columnSql);
}

std::string SqliteWords::ComputedKey(std::string_view textSql) const {
  return fmt::format("karvel_fold({})", textSql);
}

std::string SqliteWords::Fits(std::string_view textSql, std::string_view patternSql) const {
  return fmt::format("karvel_like({}, {})", textSql, patternSql);
}

std::string SqliteWords::LeftOf(std::string_view textSql, int count) const {
  return fmt::format("substr({}, 1, {})", textSql, count);
}

TableNames NamesOf(const Table& table, std::string_view schema) {
  return {fmt::format("{}.{}", schema, QuotedName(table.name)), "_rowid_"};
}

std::string CreateTableSql(const Table& table) {
  std::string columns;
  for (const Column& column : table.columns) {
    if (!columns.empty()) columns += ", ";
    columns += QuotedName(column.name);
    switch (column.type) {
      case ColumnType::Number:
        columns += " REAL DEFAULT 0";
        break;
      case ColumnType::Boolean:
        columns += " INTEGER DEFAULT 0";
        break;
      case ColumnType::Text:
      case ColumnType::Date:
        columns += " TEXT DEFAULT ''";
        break;
    }
  }
  return fmt::format("CREATE TABLE {} ({})", QuotedName(table.name), columns);
}

std::string IndexName(const Table& table, const Index& index) {
  std::string name = "ix_" + std::string(table.name);
  for (const std::string_view column : index.columns) name += "_" + std::string(column);
  return QuotedName(name);
}

std::string CreateIndexSql(const Table& table, const Index& index, std::string_view schema) {
  std::string keys;
  for (const std::string_view column : index.columns) {
    if (!keys.empty()) keys += ", ";
    const bool text = table.columns[static_cast<std::size_t>(table.Position(column))].type == ColumnType::Text;
    keys += text ? FoldKeySql(QuotedName(column)) : QuotedName(column);
  }
  return fmt::format("CREATE INDEX {}.{} ON {} ({})", schema, IndexName(table, index), QuotedName(table.name), keys);
}

}  // namespace karvel::sqlite
