#include "bench/bare_engine.h"

#include <fmt/format.h>

#include <stdexcept>

namespace karvel::bench {

namespace {

[[noreturn]] void Fail(sqlite3* connection, std::string_view what) {
  throw std::runtime_error(fmt::format("{}: {}", what, sqlite3_errmsg(connection)));
}

}  // namespace

BareStatement::BareStatement(sqlite3* connection, const std::string& sql) : connection_(connection) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(connection, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) Fail(connection, sql);
  statement_.reset(statement);
}

bool BareStatement::Step() {
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) Fail(connection_, sqlite3_sql(statement_.get()));
  return result == SQLITE_ROW;
}

bool BareStatement::Run() {
  const bool row = Step();
  Rest();
  return row;
}

std::string BareStatement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  return text ? text : "";
}

BareShop::BareShop(const std::string& home) {
  const std::string folder = home + "/C/KarvelData/";
  sqlite3* connection = nullptr;
  if (sqlite3_open_v2((folder + "Karvel.mdb").c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) Fail(connection, folder);
  connection_.reset(connection);
  Execute(fmt::format("ATTACH '{0}Cari.mdb' AS cari; ATTACH '{0}Stok.mdb' AS stok; ATTACH '{0}Index.mdb' AS indeks", folder).c_str());
  for (const char* schema : {"main", "cari", "stok", "indeks"})
    Execute(fmt::format("PRAGMA {0}.journal_mode=DELETE; PRAGMA {0}.synchronous=FULL; PRAGMA {0}.cache_size=-16000", schema).c_str());
}

void BareShop::Execute(const char* sql) {
  if (sqlite3_exec(Connection(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(Connection(), sql);
}

std::vector<std::string> BareShop::Sample(const std::string& table, const std::string& column, const std::string& where, int limit) {
  BareStatement highest(Connection(), fmt::format("SELECT max(rowid) FROM {}", table));
  highest.Step();
  const double rows = highest.Number(0);
  BareStatement at(Connection(),
                   fmt::format("SELECT \"{}\" FROM {} WHERE rowid >= ?1 AND ({}) ORDER BY rowid LIMIT 1", column, table, where));
  std::vector<std::string> texts;
  std::uint64_t spread = 1;
  while (static_cast<int>(texts.size()) < limit) {
    spread = spread * 6364136223846793005u + 1442695040888963407u;
    const double row = static_cast<double>(spread >> 33) / 2147483648.0 * rows;
    if (at.With(row).Step()) texts.push_back(at.Text(0));
  }
  return texts;
}

}  // namespace karvel::bench
