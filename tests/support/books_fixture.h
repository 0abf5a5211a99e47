// The books of a small shop on real SQLite stores, with no screen: two customers, a wholesaler, the money accounts, three items.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "books/shop.h"
#include "store/catalogue.h"
#include "store/sqlite/sqlite_engine.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/shop_rows.h"
#include "tests/support/temp_folder.h"
#include "tests/support/watched_engine.h"

namespace karvel {

class BooksFixture : public ::testing::Test, protected ShopRows {
 protected:
  BooksFixture() {
    std::filesystem::copy(TemplateFolder(), folder.Path(), std::filesystem::copy_options::recursive);
    for (const char* const code : {"=100", "=110", "=150", "=500", "=600"}) AddCustomer(code, std::string("Hesap ") + code, "Gurup='Kasa'");
    AddCustomer("C001", "Ayşe Yılmaz");
    AddCustomer("C002", "Burak Demir");
    AddCustomer("T001", "Toptan Gıda", "Gurup='Toptan'");
    AddStock("1001", "Pirinç", "Fiyat=50, gFiyat=40, Fiyat2=540, Birim2='Koli', Adet2=12");
    AddStock("1002", "Şeker", "Maliyet=1, Fiyat=20, gFiyat=12");
    AddStock("1003", "Tuz", "Fiyat=8");
    EXPECT_TRUE(stores.Open(folder.Path()).Ok());
  }

  [[nodiscard]] std::string DataFolder() const override { return folder.Path(); }
  // Every row of every file, to be compared before and after what must change nothing.
  std::vector<std::string> AllRows() {
    std::vector<std::string> all;
    for (const DatabaseFile& file : Catalogue::Files()) {
      for (const Table& table : file.tables) {
        const std::string name(table.name);
        for (const std::string& row : Rows(std::string(file.name), "SELECT rowid, * FROM \"" + name + "\" ORDER BY rowid"))
          all.push_back(name + " " + row);
      }
    }
    return all;
  }
  // The key of the card with this code.
  RowKey Item(const std::string& code) { return std::stoll(One("Stok.mdb", "SELECT rowid FROM StokKartlar WHERE StokKod='" + code + "'")); }
  RowKey CustomerKey(const std::string& code) {
    return std::stoll(One("Cari.mdb", "SELECT rowid FROM CariKartlar WHERE CariKod='" + code + "'"));
  }
  RowKey DayKey(const std::string& id) { return std::stoll(One("Karvel.mdb", "SELECT rowid FROM Datam WHERE DigerId='" + id + "'")); }

  Fields Day(const std::string& id) { return RowOf("Karvel.mdb", "Datam", "DigerId='" + id + "'"); }
  Fields Movement(const std::string& id) { return RowOf("Stok.mdb", "StokHareket", "DigerId='" + id + "'"); }
  // The row of the ledger that stands under this card.
  Fields Ledger(const std::string& id, const std::string& card) {
    return RowOf("Cari.mdb", "CariHareket", "DigerId='" + id + "' AND cariharkod='" + card + "'");
  }
  Fields Card(const std::string& code) { return RowOf("Stok.mdb", "StokKartlar", "StokKod='" + code + "'"); }
  Fields Customer(const std::string& code) { return RowOf("Cari.mdb", "CariKartlar", "CariKod='" + code + "'"); }
  // "Borc|Alacak|Bakiye|Hesap".
  std::string Balance(const std::string& code) {
    return One("Cari.mdb", "SELECT Borc, Alacak, Bakiye, Hesap FROM CariKartlar WHERE CariKod='" + code + "'");
  }
  // The amounts due of a customer, the earliest first.
  std::vector<std::string> Due(const std::string& code) {
    return Rows("Cari.mdb", "SELECT Tutar FROM \"VadeGün\" WHERE CariKod='" + code + "' ORDER BY VadeTarih");
  }

  TempFolder folder;
  FixedClock clock;
  std::string terminalNo = "01";
  testing::EngineWatch engine;  // counts what the stores do, and lets them fail
  Stores stores{std::make_unique<testing::WatchedEngine>(MakeSqliteEngine({.programFolder = folder.Path(), .vfs = {}}), engine)};
  Shop shop{stores, clock, terminalNo};
};

}  // namespace karvel
