// What is the server's own in the SQL of the stores: the words for the pieces of a statement, and the making of schemas, tables and
// indexes.
//
// One schema a file and firm ("01_cari"), tables and columns by their catalogue names. Each table has one column more, the key of its rows.
// A row without a date holds the server's earliest moment, so that it compares and orders as the empty date does in the files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "store/table_sql.h"

namespace karvel::postgres {

// The words, as any server of version 15 or later understands them: there is no function of our own on it.
class PostgresWords final : public dialect::SqlTarget {
 public:
  [[nodiscard]] std::string ColumnName(std::string_view column) const override;
  [[nodiscard]] std::string Parameter(std::size_t n) const override;
  [[nodiscard]] std::string IndexedKey(std::string_view columnSql) const override;
  [[nodiscard]] std::string ComputedKey(std::string_view textSql) const override;
  [[nodiscard]] std::string KeyUnlike(std::string_view textSql, std::string_view key) const override;
  [[nodiscard]] std::string Fits(std::string_view textSql, std::string_view patternSql) const override;
  [[nodiscard]] std::string LeftOf(std::string_view textSql, int count) const override;
  [[nodiscard]] std::string Holds(std::string_view columnSql, bool value) const override;
  [[nodiscard]] std::string Pattern(std::string_view pattern) const override;
  [[nodiscard]] std::string_view Direction(bool descending) const override;
};

inline constexpr std::string_view kRowKey = "karvel_sira";
inline constexpr std::string_view kNoDate = "-infinity";

// The files of a firm that lie on the server: all but the scratch file, which is each terminal's own.
bool IsOnServer(const DatabaseFile& file);
// "01_cari", not quoted.
std::string SchemaOf(const DatabaseFile& file, std::string_view firm);
// A table of the scratch file is one of the session.
TableNames NamesOf(const DatabaseFile& file, const Table& table, std::string_view firm);

// The statements that make a file's schema with its tables and indexes, one after another.
std::vector<std::string> CreateSchemaSql(const DatabaseFile& file, std::string_view firm);
// Makes a table of the scratch file where the session has none yet.
std::string CreateScratchSql(const DatabaseFile& file, const Table& table);
// Those of one table's indexes. An index that is there is left as it is.
std::vector<std::string> CreateIndexesSql(const DatabaseFile& file, const Table& table, std::string_view firm);
// Takes them away, to be made anew behind many rows.
std::vector<std::string> DropIndexesSql(const DatabaseFile& file, const Table& table, std::string_view firm);

// What an open transaction of the firm holds against all others: the number of its advisory lock.
std::int64_t LockOf(std::string_view firm, std::string_view purpose);
// The channel on which a commit tells which tables it wrote.
std::string ChannelOf(std::string_view firm);

}  // namespace karvel::postgres
