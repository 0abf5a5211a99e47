// A shop in the files of a folder and a firm on the tests' own server, between which it is moved.
#pragma once

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "tests/store/postgres/postgres_kind.h"
#include "tests/support/copied_stores.h"
#include "tests/support/shop_rows.h"

namespace karvel::testing {

class MovedShop final : public ShopRows {
 public:
  explicit MovedShop(std::string folder) : folder_(std::move(folder)) {
    std::filesystem::create_directories(folder_);
    for (const DatabaseFile& file : Catalogue::Files().first(8))
      std::filesystem::copy_file(TemplateFolder() + "/" + std::string(file.name), folder_ + "/" + std::string(file.name));
  }

  [[nodiscard]] std::string DataFolder() const override { return folder_; }
  [[nodiscard]] PostgresKind& Server() { return server_; }
  // As karvel-move takes it.
  [[nodiscard]] std::string ServerPlace() const {
    return fmt::format("postgres://127.0.0.1:{}/MuhasebeData/{}", server_.Server().Port(), server_.Firm());
  }

  void Write(const std::string& file, const std::string& sql) { Sql(file, sql); }
  // Day-book rows, as many as told.
  void AddLines(int count) {
    Sql("Karvel.mdb",
        fmt::format(
            "INSERT INTO Datam (CariKod, StokKod, CariAd, StokAd, Fiyat, Miktar, Tutar, Tarih, DigerId, Durum) "
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) "
            "SELECT 'C' || (i % 1000), 'S' || (i % 500), 'Müşteri ' || (i % 1000), 'Ürün ' || (i % 500), i * 0.01, i % 7, i * 0.07, "
            "datetime('2020-01-01', i || ' minutes'), printf('01%010d', i), 'Satış' FROM n",
            count));
  }
  // One of each table, and of each kind of odd value that the files and a server hold alike.
  void AddOddRows() {
    const std::string letters = fmt::format("{}", fmt::join(std::vector<std::string>(1000, "çğıİ"), ""));
    Sql("Cari.mdb",
        "INSERT INTO CariKartlar (CariKod, Unvan, Adres1, Adres2, Bakiye, Borc, HesKullan) VALUES "
        "('C1', 'Çağrı Öğüş İIıi ŞĞÜ', 'a\\b\\\\c\\N', 'bir' || char(9) || 'iki' || char(10) || 'üç' || char(13, 10), 1e300, -1e-300, 1), "
        "('C2', '', '" +
            letters + "', NULL, -0.0, 0.1, 0), (NULL, 'O''Hara \"x\" 😀', ' ', '\\.', NULL, 9007199254740993, NULL)");
    Sql("Cari.mdb",
        "INSERT INTO CariHareket (cariharkod, Tarih, Borc) VALUES ('C1', '', 0.30000000000000004), ('C1', NULL, 1e308), "
        "('C1', '0001-01-01 00:00:00', 1e308), ('C1', '9999-12-31 23:59:59', 123456789.01), ('C1', '2024-02-29 12:00:00', 5e-324)");
    // Neither keys without a gap nor rows in the order of their names.
    Sql("Cari.mdb",
        "INSERT INTO Gurup (Gurup) VALUES ('z'), ('x'), ('a'); DELETE FROM Gurup WHERE Gurup = 'x'; "
        "INSERT INTO Gurup (rowid, Gurup) VALUES (9000000000000, 'son')");
    for (const DatabaseFile& file : Catalogue::Files().first(8))
      for (const Table& table : file.tables) Sql(std::string(file.name), fmt::format("INSERT INTO \"{}\" DEFAULT VALUES", table.name));
  }

  // Every row of every table, as any other program reads it. Files know one zero only.
  static std::map<std::string, std::vector<std::string>> Everything(const std::string& folder) {
    std::map<std::string, std::vector<std::string>> rows;
    for (const DatabaseFile& file : Catalogue::Files().first(8)) {
      for (const Table& table : file.tables) {
        std::string fields;
        for (const Column& column : table.columns)
          fields += fmt::format("{}quote(\"{}\")", fields.empty() ? "" : " || '|' || ", column.name);
        rows[fmt::format("{}/{}", file.name, table.name)] =
            PlainRows(folder + "/" + std::string(file.name), fmt::format("SELECT {} FROM \"{}\" ORDER BY rowid", fields, table.name));
      }
    }
    return rows;
  }
  // The files, byte for byte.
  [[nodiscard]] std::map<std::string, std::string> Bytes() const {
    std::map<std::string, std::string> bytes;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      std::ifstream file(entry.path(), std::ios::binary);
      bytes[entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
    }
    bytes.erase("karvel.lock");
    return bytes;
  }
  // The number of rows of the firm on the server, over all tables; -1 where it has none.
  [[nodiscard]] int RowsOnServer() const {
    int rows = -1;
    for (const DatabaseFile& file : Catalogue::Files().first(8)) {
      for (const Table& table : file.tables) {
        const std::vector<std::string> count =
            Psql(server_.Server(), fmt::format("SELECT count(*) FROM \"{}_{}\".\"{}\"", server_.Firm(), file.schema, table.name));
        if (count.size() == 1 && count.front().find_first_not_of("0123456789") == std::string::npos)
          rows = std::max(rows, 0) + std::stoi(count.front());
      }
    }
    return rows;
  }

 private:
  const std::string folder_;
  PostgresKind server_;
};

}  // namespace karvel::testing
