#include "sample_shop/table_writer.h"

#include <fmt/format.h>

#include <stdexcept>
#include <vector>

#include "store/sqlite/templates.h"

namespace karvel::sample {

namespace {

[[noreturn]] void Fail(sqlite3* connection, std::string_view what) {
  throw std::runtime_error(fmt::format("{}: {}", what, sqlite3_errmsg(connection)));
}

// The first column of every row that a query gives.
std::vector<std::string> Texts(sqlite3* connection, const char* sql) {
  std::vector<std::string> texts;
  const auto collect = [](void* into, int, char** values, char**) {
    static_cast<std::vector<std::string>*>(into)->emplace_back(values[0]);
    return 0;
  };
  if (sqlite3_exec(connection, sql, collect, &texts, nullptr) != SQLITE_OK) Fail(connection, sql);
  return texts;
}

}  // namespace

FileWriter::FileWriter(const DatabaseFile& file, const std::string& folder) : file_(file) {
  const std::string path = fmt::format("{}/{}", folder, file.name);
  if (const Status made = WriteTemplate(file, path); !made) throw std::runtime_error(fmt::format("{}: {}", path, made.Message()));
  if (sqlite3_open_v2(path.c_str(), &connection_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) Fail(connection_, path);
  // A sample that breaks off is thrown away and made again, so nothing is spent on its safety.
  Execute(
      "PRAGMA synchronous=OFF; PRAGMA journal_mode=OFF; PRAGMA locking_mode=EXCLUSIVE; PRAGMA cache_size=-262144; PRAGMA "
      "temp_store=MEMORY");
  for (const std::string& sql : Texts(connection_, "SELECT sql FROM sqlite_master WHERE type='index' AND sql IS NOT NULL"))
    indexes_ += sql + ";\n";
  std::string drops;
  for (const std::string& name : Texts(connection_, "SELECT name FROM sqlite_master WHERE type='index' AND sql IS NOT NULL"))
    drops += fmt::format("DROP INDEX \"{}\";\n", name);
  Execute("BEGIN");
  Execute(drops);
  for (const Table& table : file.tables) Execute(fmt::format("DELETE FROM \"{}\"", table.name));
}

FileWriter::~FileWriter() {
  sqlite3_close_v2(connection_);
}

void FileWriter::Finish() {
  Execute(indexes_);
  Execute("COMMIT");
}

void FileWriter::Execute(const std::string& sql) {
  if (sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(connection_, sql);
}

TableWriter::TableWriter(FileWriter& file, std::string_view table, std::initializer_list<std::string_view> columns)
    : connection_(file.Connection()), columns_(static_cast<int>(columns.size())) {
  const Table* known = file.File().Find(table);
  if (!known) throw std::runtime_error(fmt::format("no table {} in {}", table, file.File().name));
  std::string names, places;
  for (const std::string_view column : columns) {
    if (known->Position(column) < 0) throw std::runtime_error(fmt::format("no column {} in {}", column, table));
    names += fmt::format("{}\"{}\"", names.empty() ? "" : ",", column);
    places += places.empty() ? "?" : ",?";
  }
  const std::string sql = fmt::format("INSERT INTO \"{}\" ({}) VALUES ({})", table, names, places);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) Fail(connection_, sql);
  statement_.reset(statement);
}

void TableWriter::Insert(int columns) {
  if (columns != columns_) throw std::logic_error("a row has one value for each column named");
  if (sqlite3_step(statement_.get()) != SQLITE_DONE) Fail(connection_, sqlite3_sql(statement_.get()));
  sqlite3_reset(statement_.get());
}

}  // namespace karvel::sample
