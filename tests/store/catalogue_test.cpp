#include "store/catalogue.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace karvel {

TEST(Catalogue, lists_the_files_in_the_order_in_which_a_start_copies_them) {
  std::string names;
  for (const DatabaseFile& file : Catalogue::Files()) names += std::string(file.name) + " ";
  EXPECT_EQ(names, "Cari.mdb Stok.mdb Index.mdb Karvel.mdb SeriNo.mdb Fatura.mdb Temp.mdb DataStok.mdb DataTemp.Mdb ");
}

TEST(Catalogue, finds_a_file_by_path_or_name_in_any_case) {
  EXPECT_EQ(Catalogue::File("C:\\KarvelData\\STOK.mdb")->name, "Stok.mdb");
  EXPECT_EQ(Catalogue::File("/home/x/Cari.Mdb")->name, "Cari.mdb");
  EXPECT_EQ(Catalogue::File("\\\\HOST\\Share\\index.mdb")->name, "Index.mdb");
  EXPECT_EQ(Catalogue::File("Yok.mdb"), nullptr);
  EXPECT_EQ(Catalogue::File(""), nullptr);
}

TEST(Catalogue, finds_tables_and_columns_in_any_case) {
  const DatabaseFile& file = *Catalogue::File("Cari.mdb");
  EXPECT_EQ(file.Find("VADEGÜN")->name, "VadeGün");
  EXPECT_EQ(file.Find("carihareket")->Position("CariHarKod"), 0);
  EXPECT_EQ(file.Find("CariHareket")->Position("Yok"), -1);
  EXPECT_EQ(file.Find("Datam"), nullptr);
}

TEST(Catalogue, holds_the_positions_that_handlers_read_by) {
  const Table& cards = *Catalogue::File("Stok.mdb")->Find("StokKartlar");
  EXPECT_EQ(cards.columns.size(), 26U);
  const std::pair<int, const char*> stock[] = {{0, "StokKod"},     {1, "StokAdi"},   {2, "Kdv"},         {11, "StokGizle"},
                                               {15, "Barkod"},     {16, "Fiyat"},    {17, "Fiyat2"},     {18, "Fiyat3"},
                                               {19, "gFiyat"},     {20, "GirenMik"}, {21, "GirenTutar"}, {22, "CikanMik"},
                                               {23, "CikanTutar"}, {24, "KalanA"},   {25, "KalanB"}};
  for (const auto& [position, name] : stock) EXPECT_EQ(cards.Position(name), position) << name;
  const DatabaseFile& customers = *Catalogue::File("Cari.mdb");
  EXPECT_EQ(customers.Find("CariKartlar")->Position("CariKod"), 0);
  EXPECT_EQ(customers.Find("CariKartlar")->Position("yeni"), 27);
  EXPECT_EQ(customers.Find("CariKartlar")->columns.size(), 28U);
  EXPECT_EQ(customers.Find("VadeGün")->Position("Tutar"), 2);
  EXPECT_EQ(customers.Find("CariHareket")->Position("Gurup"), 15);
  EXPECT_EQ(Catalogue::File("SeriNo.mdb")->Find("SeriNo")->Position("BarCode1"), 10);
}

TEST(Catalogue, names_no_column_twice_and_indexes_only_columns_that_are_there) {
  std::set<std::string_view> schemas;
  for (const DatabaseFile& file : Catalogue::Files()) {
    EXPECT_TRUE(schemas.insert(file.schema).second);
    for (const Table& table : file.tables) {
      for (std::size_t i = 0; i < table.columns.size(); ++i) EXPECT_EQ(table.Position(table.columns[i].name), static_cast<int>(i));
      EXPECT_FALSE(table.indexes.empty()) << table.name;
      for (const Index& index : table.indexes)
        for (const std::string_view column : index.columns) EXPECT_GE(table.Position(column), 0) << table.name << "." << column;
    }
  }
}

TEST(Catalogue, the_scratch_file_has_tables_of_the_same_shape) {
  const DatabaseFile& scratch = *Catalogue::File("Temp.mdb");
  const auto same = [](const Table& a, const Table& b) {
    if (a.columns.size() != b.columns.size()) return false;
    for (std::size_t i = 0; i < a.columns.size(); ++i)
      if (a.columns[i].name != b.columns[i].name || a.columns[i].type != b.columns[i].type) return false;
    return true;
  };
  EXPECT_TRUE(same(*scratch.Find("Datam"), *Catalogue::File("Karvel.mdb")->Find("Datam")));
  EXPECT_TRUE(same(*scratch.Find("CariHareket"), *Catalogue::File("Cari.mdb")->Find("CariHareket")));
}

}  // namespace karvel
