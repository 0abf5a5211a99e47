// One SQLite connection with the desk's functions, and its prepared statements kept by their text.
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "store/catalogue.h"
#include "store/value.h"

namespace karvel::sqlite {

// A prepared statement in use. It is reset when this object ends, so that no read lock outlives the read.
class RunningStatement {
 public:
  RunningStatement(SQLite::Statement& statement, const std::vector<Value>& parameters);
  ~RunningStatement() { statement_.tryReset(); }
  RunningStatement(const RunningStatement&) = delete;
  RunningStatement& operator=(const RunningStatement&) = delete;

  bool Step() { return statement_.executeStep(); }
  // Runs to the end, and gives the number of rows that it changed.
  int Execute() { return statement_.exec(); }
  [[nodiscard]] std::int64_t Integer(int column) const { return statement_.getColumn(column).getInt64(); }
  // A value that is not of the column's type comes back as it lies in the file: a text in a number column as a text.
  [[nodiscard]] Value Read(int column, ColumnType type) const;
  // All columns of a table's row, where the first column of the statement is its key.
  [[nodiscard]] Row ReadRow(const Table& table) const;

 private:
  SQLite::Statement& statement_;
};

// All of it throws SQLite::Exception.
class Connection {
 public:
  // Opens an existing file, no link on the whole path, read-only where it can't be written. It never waits for a lock by itself (see
  // Patiently).
  Connection(const std::string& path, const std::string& vfs);

  [[nodiscard]] SQLite::Database& Database() { return database_; }
  // The parameters must live as long as what is returned.
  [[nodiscard]] RunningStatement Prepare(const std::string& sql, const std::vector<Value>& parameters);
  void Execute(const std::string& sql);
  // The first field of the first row as text; "" without rows. Not kept.
  std::string AskText(const std::string& sql);
  [[nodiscard]] bool InTransaction() const;
  // Where the file of a schema lies.
  [[nodiscard]] std::string PathOf(const std::string& schema) const;

 private:
  static constexpr std::size_t kMostKept = 200;
  using KeptStatements = std::list<std::pair<std::string, SQLite::Statement>>;

  void AddFunctions();

  SQLite::Database database_;
  KeptStatements statements_;  // the one used last in front
  std::unordered_map<std::string_view, KeptStatements::iterator> byText_;
};

}  // namespace karvel::sqlite
