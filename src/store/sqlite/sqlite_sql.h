// What is SQLite's own in the SQL of the stores: the words for the pieces of a statement, and the making of tables and indexes.
#pragma once

#include <string>
#include <string_view>

#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "store/table_sql.h"

namespace karvel::sqlite {

// The words, as a Connection with the desk's functions understands them.
class SqliteWords final : public dialect::SqlTarget {
 public:
  [[nodiscard]] std::string ColumnName(std::string_view column) const override;
  [[nodiscard]] std::string Parameter(std::size_t n) const override;
  [[nodiscard]] std::string IndexedKey(std::string_view columnSql) const override;
  [[nodiscard]] std::string ComputedKey(std::string_view textSql) const override;
  [[nodiscard]] std::string Fits(std::string_view textSql, std::string_view patternSql) const override;
  [[nodiscard]] std::string LeftOf(std::string_view textSql, int count) const override;
};

// The table in an attached file, by the connection's name for the file ("main", "cari").
TableNames NamesOf(const Table& table, std::string_view schema);

std::string CreateTableSql(const Table& table);
// The name of an index of the catalogue, in quotes.
std::string IndexName(const Table& table, const Index& index);
// An index of the catalogue as the files hold it, in built-in functions only. With a schema for a file that is attached under it.
std::string CreateIndexSql(const Table& table, const Index& index, std::string_view schema = "main");

}  // namespace karvel::sqlite
