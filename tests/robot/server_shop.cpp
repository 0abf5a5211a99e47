#include "server_shop.h"

#include <fmt/format.h>
#include <sqlite3.h>
#include <strings.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <vector>

#include "platform/share.h"
#include "store/postgres/postgres_engine.h"
#include "store/sqlite/new_store_file.h"
#include "tests/support/postgres_server.h"

namespace karvel::test {
namespace fs = std::filesystem;
namespace {

constexpr const char* kDatabase = "MuhasebeData";

void Check(const Status& status) {
  if (!status.Ok()) throw std::runtime_error(status.Message());
}

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Database OpenFile(const fs::path& file) {
  sqlite3* raw = nullptr;
  const int code = sqlite3_open(file.c_str(), &raw);
  Database database(raw, &sqlite3_close);
  if (code != SQLITE_OK) throw std::runtime_error("can't open " + file.string());
  sqlite3_exec(raw, "PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
  return database;
}

Statement Prepare(sqlite3* database, const std::string& sql) {
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(database, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
  return {raw, &sqlite3_finalize};
}

std::string ColumnNames(const Table& table) {
  std::string names = "rowid";
  for (const Column& column : table.columns) names += fmt::format(", \"{}\"", column.name);
  return names;
}

void Bind(sqlite3_stmt* statement, int at, const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    sqlite3_bind_double(statement, at, *number);
  } else if (const auto* yes = std::get_if<bool>(&value)) {
    sqlite3_bind_int(statement, at, *yes ? 1 : 0);
  } else if (std::holds_alternative<std::string>(value) || std::holds_alternative<DateTime>(value)) {
    const auto* date = std::get_if<DateTime>(&value);
    const std::string text = date ? date->ToIso() : std::get<std::string>(value);
    sqlite3_bind_text(statement, at, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  }
}

Value Read(sqlite3_stmt* statement, int at, ColumnType type) {
  if (sqlite3_column_type(statement, at) == SQLITE_NULL) return {};
  const std::string text(reinterpret_cast<const char*>(sqlite3_column_text(statement, at)));
  switch (type) {
    case ColumnType::Number:
      return sqlite3_column_double(statement, at);
    case ColumnType::Boolean:
      return sqlite3_column_int(statement, at) != 0;
    case ColumnType::Date:
      return DateTime::FromIso(text);
    case ColumnType::Text:
      break;
  }
  return text;
}

// Every row of a table in the file.
std::map<RowKey, Row> ReadFile(const fs::path& file, const Table& table) {
  std::map<RowKey, Row> rows;
  const Database database = OpenFile(file);
  const Statement statement = Prepare(database.get(), fmt::format("SELECT {} FROM \"{}\"", ColumnNames(table), table.name));
  while (sqlite3_step(statement.get()) == SQLITE_ROW) {
    Row row;
    for (const Column& column : table.columns) row.push_back(Read(statement.get(), static_cast<int>(row.size()) + 1, column.type));
    rows.emplace(sqlite3_column_int64(statement.get(), 0), std::move(row));
  }
  return rows;
}

fs::path NamedIn(const fs::path& folder, const std::string& name) {
  for (const auto& entry : fs::directory_iterator(folder))
    if (strcasecmp(entry.path().filename().c_str(), name.c_str()) == 0) return entry.path();
  throw std::runtime_error(name + ": no such template");
}

}  // namespace

ServerShop::ServerShop(fs::path folder, fs::path templates, std::unique_ptr<PostgresServer> own)
    : own_(std::move(own)),
      server_(own_ ? *own_ : PostgresServer::Shared()),
      folder_(std::move(folder)),
      templates_(std::move(templates)),
      firm_(fmt::format("s{}", getpid())),
      engine_(MakePostgresEngine({.makeFile = MakeSqliteStoreFile})) {
  if (!server_.Runs()) throw std::runtime_error(server_.Problem());
  setenv("PGUSER", PostgresServer::User().c_str(), 1);
  if (!server_.HasDatabase(kDatabase) && !server_.MakeDatabase(kDatabase)) throw std::runtime_error(server_.Problem());
  fs::create_directories(folder_);
  Check(engine_->Open(DataFolder()));
}

ServerShop::~ServerShop() {
  engine_->Close();
  if (own_) return;
  std::string statement;
  for (const DatabaseFile& file : Catalogue::Files())
    statement += fmt::format("DROP SCHEMA IF EXISTS \"{}_{}\" CASCADE;", firm_, file.schema);
  if (!server_.Run(kDatabase, statement)) std::fprintf(stderr, "firm %s is left on the server\n", firm_.c_str());
}

void ServerShop::StopServer() {
  if (!own_ || !own_->Stop("immediate")) throw std::runtime_error("the server doesn't stop");
}

void ServerShop::StartServer() {
  if (!own_ || !own_->Start()) throw std::runtime_error("the server doesn't start");
}

std::string ServerShop::Address() const {
  return fmt::format("127.0.0.1:{}", server_.Port());
}

std::string ServerShop::DataFolder() const {
  return karvel::ShareFolder(Address(), firm_);
}

fs::path ServerShop::ShareFolder() const {
  return fs::path("net") / Address() / kDatabase / firm_;
}

fs::path ServerShop::LayOut(const std::string& name) {
  file_ = Catalogue::File(name);
  if (!file_) throw std::runtime_error(name + ": no such database file");
  laid_ = folder_ / file_->name;
  fs::copy_file(NamedIn(templates_, name), laid_, fs::copy_options::overwrite_existing);
  before_.clear();
  for (const Table& table : file_->tables) LayTable(laid_, table);
  return laid_;
}

void ServerShop::LayTable(const fs::path& laid, const Table& table) {
  std::vector<GridRow> rows;
  Check(engine_->Select({file_, &table, {}, {}}, {.limit = std::numeric_limits<int>::max()}, rows));
  const Database database = OpenFile(laid);
  sqlite3_exec(database.get(), fmt::format("DELETE FROM \"{}\"; BEGIN", table.name).c_str(), nullptr, nullptr, nullptr);
  std::string marks = "?";
  for (std::size_t i = 0; i < table.columns.size(); ++i) marks += ", ?";
  const Statement insert =
      Prepare(database.get(), fmt::format("INSERT INTO \"{}\" ({}) VALUES ({})", table.name, ColumnNames(table), marks));
  for (const GridRow& row : rows) {
    sqlite3_bind_int64(insert.get(), 1, row.key);
    int at = 1;
    for (const Value& value : row.values) Bind(insert.get(), ++at, value);
    if (sqlite3_step(insert.get()) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database.get()));
    sqlite3_reset(insert.get());
    sqlite3_clear_bindings(insert.get());
  }
  sqlite3_exec(database.get(), "COMMIT", nullptr, nullptr, nullptr);
  before_[&table] = ReadFile(laid, table);
}

void ServerShop::TakeBack() {
  Check(engine_->Begin());
  for (const Table& table : file_->tables) TakeTable(table);
  Check(engine_->Commit());
}

void ServerShop::TakeTable(const Table& table) {
  const Rows now = ReadFile(laid_, table);
  Rows& before = before_[&table];
  for (const auto& [key, row] : before)
    if (!now.contains(key)) Check(engine_->Delete(*file_, table, key));
  for (const auto& [key, row] : now) {
    const auto was = before.find(key);
    if (was == before.end()) {
      Check(engine_->Insert(*file_, table, row));
      continue;
    }
    std::vector<FieldValue> changed;
    for (std::size_t i = 0; i < row.size(); ++i)
      if (row[i] != was->second[i]) changed.push_back({static_cast<int>(i), row[i]});
    if (!changed.empty()) Check(engine_->Change(*file_, table, key, changed));
  }
  before = now;
}

}  // namespace karvel::test
