// Another program on a database file: a plain SQLite connection that knows nothing of the desk.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace karvel::testing {

class ForeignProgram {
 public:
  explicit ForeignProgram(const std::string& path) { EXPECT_EQ(sqlite3_open(path.c_str(), &database_), SQLITE_OK); }
  ~ForeignProgram() { sqlite3_close(database_); }
  ForeignProgram(const ForeignProgram&) = delete;
  ForeignProgram& operator=(const ForeignProgram&) = delete;

  void Run(const std::string& sql) { EXPECT_EQ(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql; }
  // Nobody else reads or writes the file from here on.
  void Keep() { Run("BEGIN EXCLUSIVE"); }
  // Nobody else can finish writing it from here on.
  void Read(const std::string& table) { Run("BEGIN; SELECT * FROM " + table + " LIMIT 1"); }
  void Leave() { Run("ROLLBACK"); }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace karvel::testing
