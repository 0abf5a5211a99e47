// Firms on a PostgreSQL of the tests' own.
#pragma once

#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "store/postgres/postgres_engine.h"
#include "store/sqlite/new_store_file.h"
#include "tests/store/engine_contract.h"
#include "tests/support/postgres_server.h"

namespace karvel::testing {

// What another program, psql for instance, does and reads on a server: the rows' fields with "|" between them, an error by its text.
inline std::vector<std::string> Psql(const PostgresServer& server, const std::string& sql, const std::string& database = "MuhasebeData") {
  std::vector<std::string> rows;
  PGconn* const session = PQconnectdb(server.Connection(database).c_str());
  PQsetNoticeProcessor(session, [](void*, const char*) {}, nullptr);
  PGresult* const result = PQexec(session, sql.c_str());
  const ExecStatusType status = PQresultStatus(result);
  if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) rows.emplace_back(PQerrorMessage(session));
  for (int row = 0; row < PQntuples(result); ++row) {
    std::string line;
    for (int column = 0; column < PQnfields(result); ++column)
      line += (column > 0 ? "|" : "") + std::string(PQgetvalue(result, row, column));
    rows.push_back(line);
  }
  PQclear(result);
  PQfinish(session);
  return rows;
}

// The server has the shops' database and lets this program in by its name.
inline void PrepareServer(const PostgresServer& server) {
  ASSERT_TRUE(server.Runs()) << server.Problem();
  setenv("PGUSER", PostgresServer::User().c_str(), 1);
  if (Psql(server, "SELECT 1 FROM pg_database WHERE datname = 'MuhasebeData'", "postgres").empty())
    Psql(server, "CREATE DATABASE \"MuhasebeData\"", "postgres");
}

// Waits are short: a test that waits in vain shall not wait long.
inline PostgresOptions PostgresTestOptions() {
  return {.makeFile = MakeSqliteStoreFile, .patienceMs = 300};
}

inline std::string NetworkFolder(int port, const std::string& firm) {
  return "\\\\127.0.0.1:" + std::to_string(port) + "\\MuhasebeData\\" + firm;
}

class PostgresKind final : public EngineKind {
 public:
  explicit PostgresKind(PostgresServer& server = PostgresServer::Shared()) : server_(server), firm_(NewFirm()) { PrepareServer(server_); }
  ~PostgresKind() override {
    for (const DatabaseFile& file : Catalogue::Files())
      Psql(server_, "DROP SCHEMA IF EXISTS \"" + firm_ + "_" + std::string(file.schema) + "\" CASCADE");
  }

  [[nodiscard]] std::string Folder() const override { return NetworkFolder(server_.Port(), firm_); }
  [[nodiscard]] std::unique_ptr<Engine> NewEngine() override { return MakePostgresEngine(PostgresTestOptions()); }
  [[nodiscard]] const std::string& Firm() const { return firm_; }
  [[nodiscard]] PostgresServer& Server() const { return server_; }

 private:
  static std::string NewFirm() {
    static int firms = 0;
    return std::to_string(getpid()) + "t" + std::to_string(++firms);
  }

  PostgresServer& server_;
  const std::string firm_;
};

}  // namespace karvel::testing
