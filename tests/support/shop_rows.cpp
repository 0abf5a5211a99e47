#include "tests/support/shop_rows.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "store/catalogue.h"
#include "store/sqlite/templates.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

struct Database {
  explicit Database(const std::string& path) {
    if (sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) ADD_FAILURE() << path;
  }
  ~Database() { sqlite3_close(handle); }
  sqlite3* handle = nullptr;
};

std::string ColumnText(sqlite3_stmt* statement, int i) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
  return text ? text : "NULL";
}

}  // namespace

const std::string& TemplateFolder() {
  static const TempFolder folder;
  static const bool made = [] {
    for (const DatabaseFile& file : Catalogue::Files())
      if (!WriteTemplate(file, folder.Path() + "/" + std::string(file.name)).Ok()) return false;
    return true;
  }();
  EXPECT_TRUE(made);
  return folder.Path();
}

void ShopRows::Sql(const std::string& file, const std::string& sql) {
  const Database database(DataFolder() + "/" + file);
  char* error = nullptr;
  if (sqlite3_exec(database.handle, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) ADD_FAILURE() << sql << ": " << error;
  sqlite3_free(error);
}

std::vector<std::string> ShopRows::Rows(const std::string& file, const std::string& sql) {
  const Database database(DataFolder() + "/" + file);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    ADD_FAILURE() << sql << ": " << sqlite3_errmsg(database.handle);
  std::vector<std::string> rows;
  while (statement && sqlite3_step(statement) == SQLITE_ROW) {
    std::string row;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) row += (i ? "|" : "") + ColumnText(statement, i);
    rows.push_back(row);
  }
  sqlite3_finalize(statement);
  return rows;
}

std::string ShopRows::One(const std::string& file, const std::string& sql) {
  const auto rows = Rows(file, sql);
  EXPECT_EQ(rows.size(), 1U) << sql;
  return rows.empty() ? std::string() : rows.front();
}

ShopRows::Fields ShopRows::RowOf(const std::string& file, const std::string& table, const std::string& where) {
  const Database database(DataFolder() + "/" + file);
  const std::string sql = fmt::format("SELECT * FROM \"{}\" WHERE {}", table, where);
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    ADD_FAILURE() << sql << ": " << sqlite3_errmsg(database.handle);
  Fields fields;
  int count = 0;
  while (statement && sqlite3_step(statement) == SQLITE_ROW) {
    ++count;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) fields[sqlite3_column_name(statement, i)] = ColumnText(statement, i);
  }
  sqlite3_finalize(statement);
  EXPECT_EQ(count, 1) << sql;
  return fields;
}

void ShopRows::AddCustomer(const std::string& code, const std::string& name, const std::string& more) {
  Sql("Cari.mdb", fmt::format("INSERT INTO CariKartlar(CariKod, Unvan, Gurup) VALUES('{}','{}','Müşteri')", code, name));
  if (!more.empty()) Sql("Cari.mdb", fmt::format("UPDATE CariKartlar SET {} WHERE CariKod='{}'", more, code));
}

void ShopRows::AddStock(const std::string& code, const std::string& name, const std::string& more) {
  Sql("Stok.mdb", fmt::format("INSERT INTO StokKartlar(StokKod, StokAdi, Barkod, Birim, Fiyat, gFiyat, Gurup) "
                              "VALUES('{0}','{1}','869{0}','Adet',10,6,'Gıda')",
                              code, name));
  if (!more.empty()) Sql("Stok.mdb", fmt::format("UPDATE StokKartlar SET {} WHERE StokKod='{}'", more, code));
}

}  // namespace karvel
