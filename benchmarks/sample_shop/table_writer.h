// Fills a table of a store, row by row, by the columns that the caller names; the others keep the template's defaults.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "store/catalogue.h"

namespace karvel::sample {

// A database file made from its template and filled in one transaction, with its indexes built last. Every failure is thrown as
// std::runtime_error.
class FileWriter {
 public:
  FileWriter(const DatabaseFile& file, const std::string& folder);
  ~FileWriter();
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  void Finish();
  [[nodiscard]] const DatabaseFile& File() const { return file_; }
  [[nodiscard]] sqlite3* Connection() const { return connection_; }
  void Execute(const std::string& sql);

 private:
  const DatabaseFile& file_;
  sqlite3* connection_ = nullptr;
  std::string indexes_;  // the statements that build them again
};

class TableWriter {
 public:
  // Every name must be a column of the table in the catalogue.
  TableWriter(FileWriter& file, std::string_view table, std::initializer_list<std::string_view> columns);

  // One value a column, in their order.
  template <typename... Values>
  void Add(const Values&... values) {
    int column = 0;
    (Bind(++column, values), ...);
    Insert(column);
  }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  // Texts must stay until Add returns; they do, as its arguments.
  void Bind(int column, std::string_view text) {
    sqlite3_bind_text(statement_.get(), column, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  void Bind(int column, const char* text) { Bind(column, std::string_view(text)); }
  void Bind(int column, const std::string& text) { Bind(column, std::string_view(text)); }
  void Bind(int column, double number) { sqlite3_bind_double(statement_.get(), column, number); }
  void Bind(int column, int number) { sqlite3_bind_double(statement_.get(), column, number); }
  void Bind(int column, bool flag) { sqlite3_bind_int(statement_.get(), column, flag ? 1 : 0); }
  void Insert(int columns);

  sqlite3* connection_;
  const int columns_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace karvel::sample
