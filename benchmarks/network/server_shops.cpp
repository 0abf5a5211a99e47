#include "network/server_shops.h"

#include <fmt/format.h>
#include <libpq-fe.h>

#include <cstdlib>
#include <initializer_list>
#include <stdexcept>

#include "store/sqlite/new_store_file.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/stores.h"
#include "store/table_rows.h"

namespace karvel::bench {
namespace {

void Must(const Status& status, const std::string& what) {
  if (!status.Ok()) throw std::runtime_error(what + ": " + status.Message());
}

std::string FolderOf(int port, const std::string& firm) {
  return fmt::format("\\\\127.0.0.1:{}\\MuhasebeData\\{}", port, firm);
}

// All rows of a table, from one shop into another.
void CopyTable(Stores& from, Stores& to, const DatabaseFile& file, const Table& table) {
  const RowQuery query{&file, &table, {}, {}};
  std::int64_t count = 0;
  Must(from.Driver().Count(query, count), "count");
  constexpr int kAtOnce = 1000;
  std::vector<GridRow> rows;
  GridRow last;
  std::size_t next = 0;
  Must(TableRows(to, std::string(file.name), std::string(table.name))
           .Add(count,
                [&](std::int64_t, Row& row) {
                  if (next == rows.size()) {
                    RowRange range{.limit = kAtOnce};
                    if (!rows.empty()) {
                      last = std::move(rows.back());
                      range.from = RowRange::From::Behind;
                      range.beside = &last;
                    }
                    Must(from.Driver().Select(query, range, rows), "read");
                    next = 0;
                  }
                  row = rows[next++].values;
                }),
       std::string(table.name));
}

void Run(const std::string& connection, std::initializer_list<const char*> statements) {
  PGconn* const session = PQconnectdb(connection.c_str());
  for (const char* const statement : statements) {
    PGresult* const result = PQexec(session, statement);
    const bool done = PQresultStatus(result) == PGRES_COMMAND_OK;
    PQclear(result);
    if (!done) throw std::runtime_error(PQerrorMessage(session));
  }
  PQfinish(session);
}

}  // namespace

ServerShops::ServerShops() : server_({.durable = true, .onLoopback = true}) {
  if (!server_.Runs()) throw std::runtime_error(server_.Problem());
  setenv("PGUSER", PostgresServer::User().c_str(), 1);
  Run(server_.Connection(), {"CREATE DATABASE \"MuhasebeData\""});
}

void ServerShops::Settle() const {
  Run(server_.Connection("MuhasebeData"), {"VACUUM ANALYZE", "CHECKPOINT"});
}

std::string ServerShops::Firm(const std::string& home, const std::string& firm) {
  Stores from(MakeSqliteEngine({.programFolder = home, .vfs = {}})), to(MakePostgresEngine({.makeFile = MakeSqliteStoreFile}));
  Must(from.Open(home + "/C/KarvelData"), home);
  const std::string folder = FolderOf(server_.Port(), firm);
  Must(to.Open(folder), folder);
  Action action(to, "sample shop");
  for (const DatabaseFile& file : Catalogue::Files()) {
    if (file.schema == "datatemp") continue;
    for (const Table& table : file.tables) CopyTable(from, to, file, table);
  }
  Must(action.Finish(), firm);
  return folder;
}

std::string ServerShops::Behind(const LoopbackProxy& line, const std::string& firm) const {
  return FolderOf(line.Port(), firm);
}

namespace {

// Hands everything on, but for the folder.
class Elsewhere final : public Engine {
 public:
  Elsewhere(std::string folder, std::unique_ptr<PostgresEngine> inner) : folder_(std::move(folder)), inner_(std::move(inner)) {}

  Status Open(const std::string& /*folder*/) override { return inner_->Open(folder_); }
  void SetWaitListener(WaitListener* listener) override { inner_->SetWaitListener(listener); }
  void SetPatient(bool patient) override { inner_->SetPatient(patient); }
  void Close() override { inner_->Close(); }
  [[nodiscard]] bool IsOpen() const override { return inner_->IsOpen(); }
  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    return inner_->Select(query, range, rows);
  }
  Status Count(const RowQuery& query, std::int64_t& count) override { return inner_->Count(query, count); }
  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    return inner_->CountBefore(query, row, count);
  }
  Status Sum(const RowQuery& query, int position, Value& sum) override { return inner_->Sum(query, position, sum); }
  Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) override {
    return inner_->SumBy(query, position, by, sums);
  }
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) override {
    return inner_->Read(file, table, key, row);
  }
  Status Insert(const DatabaseFile& file, const Table& table, const Row& values) override { return inner_->Insert(file, table, values); }
  Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                    const std::function<void(std::int64_t, Row&)>& fill) override {
    return inner_->InsertMany(file, table, count, fill);
  }
  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    return inner_->Change(file, table, key, fields);
  }
  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override { return inner_->Delete(file, table, key); }
  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override { return inner_->DeleteWhere(query, count); }
  Status Begin() override { return inner_->Begin(); }
  Status Commit() override { return inner_->Commit(); }
  Status LookAgain() override { return inner_->LookAgain(); }
  void Rollback() override { inner_->Rollback(); }
  [[nodiscard]] bool InTransaction() const override { return inner_->InTransaction(); }
  [[nodiscard]] bool ReadsHold() const override { return inner_->ReadsHold(); }
  [[nodiscard]] bool HoldsRow(const Table& table, RowKey key) const override { return inner_->HoldsRow(table, key); }
  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) override { return inner_->Copy(folder, copy); }
  void TakeForeignChanges(std::set<std::string>& tables) override { inner_->TakeForeignChanges(tables); }

 private:
  const std::string folder_;
  const std::unique_ptr<PostgresEngine> inner_;
};

}  // namespace

std::unique_ptr<Engine> EngineOfFirm(const std::string& networkFolder, PostgresEngine*& engine) {
  auto made = MakePostgresEngine({.makeFile = MakeSqliteStoreFile});
  engine = made.get();
  return std::make_unique<Elsewhere>(networkFolder, std::move(made));
}

}  // namespace karvel::bench
