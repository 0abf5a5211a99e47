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

// A prepared statement in use. It is at rest again when this ends, so that no read lock outlives the read.
class Running {
 public:
  Running(SQLite::Statement& statement, const std::vector<Value>& parameters);
  ~Running() { statement_.tryReset(); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

  bool Step() { return statement_.executeStep(); }
  // The number of rows that it changed.
  int Execute() { return statement_.exec(); }
  [[nodiscard]] std::int64_t Integer(int column) const { return statement_.getColumn(column).getInt64(); }
  // What can't be read as the type stays as it lies in the file: a text in a number column comes back as a text.
  [[nodiscard]] Value Read(int column, ColumnType type) const;

 private:
  SQLite::Statement& statement_;
};

// All of it throws SQLite::Exception.
class Connection {
 public:
  // Opens an existing file, read-only where it can't be written.
  Connection(const std::string& path, const std::string& vfs, int busyMs);

  [[nodiscard]] SQLite::Database& Database() { return database_; }
  // The parameters must live as long as what is returned.
  [[nodiscard]] Running Prepared(const std::string& sql, const std::vector<Value>& parameters);
  void Execute(const std::string& sql);
  // The first field of the first row as text; "" without rows. Not kept.
  std::string Ask(const std::string& sql);
  [[nodiscard]] bool InTransaction() const;

 private:
  static constexpr std::size_t keptStatements = 200;
  using Kept = std::list<std::pair<std::string, SQLite::Statement>>;

  void AddFunctions();

  SQLite::Database database_;
  Kept statements_;  // the one used last in front
  std::unordered_map<std::string_view, Kept::iterator> byText_;
};

}  // namespace karvel::sqlite
