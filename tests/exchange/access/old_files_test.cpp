#include "exchange/old_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "exchange/access/access_databases.h"
#include "store/sqlite/new_store_file.h"
#include "store/sqlite/sqlite_engine.h"
#include "store/stores.h"
#include "tests/support/access_file.h"
#include "tests/support/foreign_program.h"
#include "tests/support/logged_lines.h"
#include "tests/support/no_links.h"
#include "tests/support/shop_rows.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

Value Text(const char* text) {
  return std::string(text);
}

class OldFilesTest : public ::testing::Test, protected ShopRows {
 protected:
  OldFilesTest() { fs::copy(TemplateFolder(), folder.Path(), fs::copy_options::recursive); }
  [[nodiscard]] std::string DataFolder() const override { return folder.Path(); }

  void Lay(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder.Path() + "/" + name, std::ios::binary | std::ios::trunc) << bytes;
  }
  [[nodiscard]] std::string BytesOf(const std::string& name) const {
    std::ifstream file(folder.Path() + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  Status Open() {
    Stores stores(MakeSqliteEngine({.programFolder = folder.Path(), .vfs = {}, .preparation = &oldFiles}));
    return stores.Open(folder.Path());
  }
  static AccessTable Cards() {
    return {
        "CariKartlar",
        {{"CariKod", AccessType::Text},
         {"Unvan", AccessType::Text},
         {"Bakiye", AccessType::Double},
         {"Borc", AccessType::Money},
         {"HesKullan", AccessType::Boolean},
         {"yeni", AccessType::Integer}},
        {{Text("C1"), Text("Ayşe Yılmaz, İğde Şöförü"), 0.1, 1250.75, true, 1.0}, {Text("C2"), Value(), Value(), Value(), false, Value()}}};
  }

  TempFolder folder;
  AccessDatabases databases;
  OldFiles oldFiles{databases, MakeSqliteStoreFile};
};

TEST_F(OldFilesTest, the_files_of_the_test_are_read_by_other_programs) {
  Lay("Cari.mdb", AccessFile({Cards()}));
  const std::string path = folder.Path() + "/Cari.mdb";
  EXPECT_EQ(system(("test \"$(mdb-tables -1 " + path + ")\" = CariKartlar").c_str()), 0);
  EXPECT_EQ(system(("mdb-export " + path + " CariKartlar | grep -q '\"C1\",\"Ayşe Yılmaz, İğde Şöförü\",0.1,1250.7500,1,1'").c_str()), 0);
}

TEST_F(OldFilesTest, a_start_turns_an_old_file_into_a_store_keeps_it_beside_and_says_so) {
  const std::string old = AccessFile({Cards()});
  Lay("Cari.mdb", old);
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(Rows("Cari.mdb", "SELECT CariKod, Unvan, Bakiye, Borc, HesKullan, yeni, Alacak, Telefon FROM CariKartlar"),
            (Texts{"C1|Ayşe Yılmaz, İğde Şöförü|0.1|1250.75|1|1.0|0.0|", "C2||0.0|0.0|0|0.0|0.0|"}));
  EXPECT_EQ(BytesOf("Cari.eski.mdb"), old);
  EXPECT_NE(oldFiles.Report().find("Cari.mdb: 2 kayıt. Eskisi Cari.eski.mdb adıyla duruyor."), std::string::npos) << oldFiles.Report();
  EXPECT_NE(oldFiles.Report().find("CariHareket tablosu eski dosyada yok"), std::string::npos) << oldFiles.Report();
  EXPECT_FALSE(oldFiles.IsNeeded(folder.Path()));
  EXPECT_TRUE(Open().Ok());
  EXPECT_FALSE(fs::exists(folder.Path() + "/Cari.eski2.mdb"));
}

TEST_F(OldFilesTest, the_store_has_the_indexes_of_any_other) {
  const std::string indexes = "SELECT sql FROM sqlite_schema WHERE type='index' ORDER BY name";
  const Texts before = Rows("Cari.mdb", indexes);
  Lay("Cari.mdb", AccessFile({Cards()}));
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(Rows("Cari.mdb", indexes), before);
}

TEST_F(OldFilesTest, dates_long_notes_and_numbers_of_every_kind_come_as_they_were) {
  std::string note;
  for (int i = 0; i < 3000; ++i) note += "ş" + std::to_string(i % 10);
  Lay("Karvel.mdb", AccessFile({{"Datam",
                                 {{"CariKod", AccessType::Text},
                                  {"Tarih", AccessType::Date},
                                  {"Aciklama", AccessType::Memo},
                                  {"Fiyat", AccessType::Single},
                                  {"Miktar", AccessType::Byte},
                                  {"Tutar", AccessType::Long}},
                                 {{Text("A"), 46082.427083333336, Value(note), 2.5, 200.0, -70000.0},
                                  {Text("B"), 46082.0, Text("kısa"), Value(), Value(), Value()},
                                  {Text("C"), Value(), Value(note.substr(0, 900)), Value(), Value(), Value()}}}}));
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, Tarih, length(Aciklama), Fiyat, Miktar, Tutar FROM Datam"),
            (Texts{"A|2026-03-01 10:15:00|6000|2.5|200.0|-70000.0", "B|2026-03-01 00:00:00|4|0.0|0.0|0.0", "C||600|0.0|0.0|0.0"}));
  EXPECT_EQ(One("Karvel.mdb", "SELECT Aciklama FROM Datam WHERE CariKod='A'"), note);
}

TEST_F(OldFilesTest, rows_that_moved_are_read_once_and_deleted_ones_not) {
  AccessTable cards = Cards();
  for (int i = 0; i < 300; ++i) cards.rows.push_back({Value("K" + std::to_string(i)), Text("Ad"), 1.0, 1.0, false, 1.0});
  cards.deleted = {0, 5};
  cards.moved = {1, 7};
  Lay("Cari.mdb", AccessFile({cards}));
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*), count(DISTINCT CariKod), max(CariKod='C2'), max(CariKod='C1') FROM CariKartlar"),
            "300|300|1|0");
  EXPECT_EQ(oldFiles.Report().find("okunamadı"), std::string::npos) << oldFiles.Report();
}

TEST_F(OldFilesTest, fields_and_tables_that_the_desk_does_not_know_are_kept) {
  AccessTable cards = Cards();
  cards.columns.push_back({"Risk Notu", AccessType::Text});
  cards.columns.push_back({"Resim", AccessType::Object});
  cards.rows[0].insert(cards.rows[0].end(), {Text("A+"), Text("\1\2")});
  cards.rows[1].insert(cards.rows[1].end(), {Value(), Value()});
  Lay("Cari.mdb", AccessFile({cards, {"Eski Notlar", {{"No", AccessType::Long}, {"Not", AccessType::Memo}}, {{7.0, Text("sakla")}}}}));
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(Rows("Cari.mdb", "SELECT CariKod, \"Risk Notu\", Resim FROM CariKartlar"), (Texts{"C1|A+|0102", "C2||"}));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM \"Eski Notlar\""), (Texts{"7.0|sakla"}));
}

TEST_F(OldFilesTest, the_amount_due_is_the_third_column_whatever_its_name) {
  Lay("Cari.mdb", AccessFile({Cards(),
                              {"VadeGün",
                               {{"CariKod", AccessType::Text}, {"VadeTarih", AccessType::Date}, {"Ödenecek", AccessType::Double}},
                               {{Text("C1"), 46082.0, 12.5}}}}));
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM \"VadeGün\""), (Texts{"C1|2026-03-01 00:00:00|12.5"}));
}

TEST_F(OldFilesTest, what_cant_be_read_is_named) {
  AccessTable cards = Cards();
  cards.columns[2].type = AccessType::Text;
  cards.rows[0][2] = Text("bozuk");
  cards.rowsTold = 5;
  Lay("Cari.mdb", AccessFile({cards}));
  ASSERT_TRUE(Open().Ok());
  const std::string report = oldFiles.Report();
  EXPECT_NE(report.find("CariKartlar, 1. satır: Bakiye alanına uymuyor: bozuk"), std::string::npos) << report;
  EXPECT_NE(report.find("CariKartlar: 5 satırdan 3 tanesi okunamadı."), std::string::npos) << report;
  EXPECT_EQ(Rows("Cari.mdb", "SELECT Bakiye FROM CariKartlar"), (Texts{"0.0", "0.0"}));
}

TEST_F(OldFilesTest, one_that_cant_be_turned_stays_as_it_is_and_nothing_opens) {
  AccessTable cards = Cards();
  for (int i = 0; i < 300; ++i) cards.rows.push_back({Value("K" + std::to_string(i)), Text("Ad"), 1.0, 1.0, false, 1.0});
  const std::string whole = AccessFile({cards});
  const std::string without = AccessFile({{"CariHareket", {{"cariharkod", AccessType::Text}}, {{Text("C1")}}}});
  for (const std::string& bytes : {whole.substr(0, 5000), whole.substr(0, 4096), whole.substr(0, whole.size() - 100), without}) {
    SCOPED_TRACE(bytes.size());
    Lay("Cari.mdb", bytes);
    const Status refused = Open();
    EXPECT_EQ(refused.Kind(), ErrorKind::Damaged);
    EXPECT_EQ(refused.Place(), folder.Path() + "/Cari.mdb");
    EXPECT_EQ(BytesOf("Cari.mdb"), bytes);
    EXPECT_FALSE(fs::exists(folder.Path() + "/Cari.eski.mdb"));
    EXPECT_FALSE(fs::exists(folder.Path() + "/Cari.mdb.yeni"));
    EXPECT_EQ(oldFiles.Report(), "");
  }
}

TEST_F(OldFilesTest, no_cut_and_no_blank_page_loses_the_customers_in_silence) {
  AccessTable cards = Cards();
  for (int i = 0; i < 300; ++i) cards.rows.push_back({Value("K" + std::to_string(i)), Text("Ad"), 1.0, 1.0, false, 1.0});
  const std::string whole = AccessFile({cards});
  constexpr std::size_t kPage = 4096;
  ASSERT_EQ(whole.size() % kPage, 0U);
  const auto open = [&](const std::string& bytes) {
    fs::remove(folder.Path() + "/Cari.eski.mdb");
    Lay("Cari.mdb", bytes);
    OldFiles turned{databases, MakeSqliteStoreFile};
    Stores stores(MakeSqliteEngine({.programFolder = folder.Path(), .vfs = {}, .preparation = &turned}));
    if (!stores.Open(folder.Path()).Ok()) return;
    if (One("Cari.mdb", "SELECT count(*) FROM CariKartlar") == "302") return;
    EXPECT_NE(turned.Report().find("okunamadı"), std::string::npos) << turned.Report();
  };
  for (std::size_t page = 1; page < whole.size() / kPage; ++page) {
    SCOPED_TRACE(page);
    open(whole.substr(0, page * kPage));
    open(whole.substr(0, page * kPage + 1000));
    open(std::string(whole).replace(page * kPage, kPage, kPage, '\0'));
  }
}

TEST_F(OldFilesTest, what_the_library_says_of_a_damaged_file_goes_to_the_log_alone) {
  std::string bytes = AccessFile({Cards()});
  bytes.replace(2 * 4096, 4096, 4096, '\0');
  Lay("Cari.mdb", bytes);
  const LoggedLines logged;
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(Open().Ok());
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(logged.Holds("MSysObjects"));
}

TEST_F(OldFilesTest, on_a_disk_without_links_the_old_file_is_kept_as_a_copy) {
  const std::string bytes = AccessFile({Cards()});
  Lay("Cari.mdb", bytes);
  EXPECT_EQ(WithoutLinks([&] { return Open().Ok() ? 0 : 1; }), 0);
  EXPECT_EQ(BytesOf("Cari.eski.mdb"), bytes);
  EXPECT_EQ(Rows("Cari.mdb", "SELECT CariKod FROM CariKartlar ORDER BY 1"), (Texts{"C1", "C2"}));
}

TEST_F(OldFilesTest, one_that_the_older_program_has_open_is_not_turned) {
  const std::string old = AccessFile({Cards()});
  Lay("Cari.mdb", old);
  Lay("CARI.LDB", "TERMINAL2");
  const Status refused = Open();
  EXPECT_EQ(refused.Kind(), ErrorKind::Busy);
  EXPECT_EQ(refused.Place(), folder.Path() + "/CARI.LDB");
  EXPECT_EQ(BytesOf("Cari.mdb"), old);
  fs::remove(folder.Path() + "/CARI.LDB");
  EXPECT_TRUE(Open().Ok());
}

TEST_F(OldFilesTest, a_start_that_was_cut_in_the_middle_is_done_again_and_every_old_file_is_still_there) {
  const std::string old = AccessFile({Cards()});
  Lay("Cari.mdb", old);
  Lay("Cari.mdb.yeni", "yarım");
  fs::create_hard_link(folder.Path() + "/Cari.mdb", folder.Path() + "/Cari.eski.mdb");
  ASSERT_TRUE(Open().Ok());
  EXPECT_EQ(BytesOf("Cari.eski.mdb"), old);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "2");
}

TEST_F(OldFilesTest, a_file_whose_name_has_other_capitals_keeps_its_name) {
  fs::remove(folder.Path() + "/Cari.mdb");
  Lay("CARI.MDB", AccessFile({Cards()}));
  ASSERT_TRUE(Open().Ok());
  EXPECT_TRUE(fs::exists(folder.Path() + "/CARI.MDB"));
  EXPECT_TRUE(fs::exists(folder.Path() + "/CARI.eski.MDB"));
}

}  // namespace
}  // namespace karvel::testing
