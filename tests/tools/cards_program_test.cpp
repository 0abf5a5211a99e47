// karvel-cards and karvel-import as a shopkeeper runs them: as programs, on a home of their own.
#include <filesystem>
#include <string>

#include "tests/support/access_file.h"
#include "tests/support/no_links.h"
#include "tests/support/program_home.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {
namespace {

namespace fs = std::filesystem;

using CardsProgram = ProgramHome;

TEST_F(CardsProgram, a_new_shop_gets_its_cards_and_what_goes_out_as_a_spreadsheet_comes_in_without_a_change) {
  const std::string file =
      Lay("stok.csv", "Stok Kodu;Stok Adı;Barkod;1.Fiyat;Kalan\n0001;Çay;8690000000012;12,50;3\n0002;Şeker;8690000000029;1.250,75;\n");
  const Ended tried = Run("karvel-cards import " + file);
  EXPECT_EQ(tried.code, 0) << tried.said;
  EXPECT_NE(tried.said.find("2 yeni stok kartı yazılacak"), std::string::npos) << tried.said;
  const Ended written = Run("karvel-cards import " + file + " --write");
  EXPECT_EQ(written.code, 0) << written.said;
  EXPECT_NE(written.said.find("2 yeni stok kartı yazıldı"), std::string::npos) << written.said;
  for (const char* const name : {"out.xlsx", "out.csv"}) {
    const Ended out = Run("karvel-cards export stok " + Path(name));
    EXPECT_EQ(out.code, 0) << out.said;
    const Ended again = Run("karvel-cards import " + Path(name) + " --write");
    EXPECT_EQ(again.said, "0 yeni stok kartı yazıldı, 0 kart değişti, 2 kart aynı.\n");
    EXPECT_EQ(Run("karvel-cards export stok " + Path(name)).code, 1) << "a file that is there stays";
  }
}

TEST_F(CardsProgram, every_fault_is_told_and_nothing_is_written) {
  const Ended faulty = Run("karvel-cards import --write " + Lay("cari.csv", "Cari Kodu;Ünvan;Bakiye\nC1;Ali;12.50\nC1;Veli;beş\n"));
  EXPECT_EQ(faulty.code, 1);
  EXPECT_NE(faulty.said.find("Satır 2, sütun C (Bakiye)"), std::string::npos) << faulty.said;
  EXPECT_NE(faulty.said.find("Satır 3, sütun A (Cari Kodu)"), std::string::npos) << faulty.said;
  EXPECT_NE(faulty.said.find("3 hata bulundu; hiçbir kart yazılmadı."), std::string::npos) << faulty.said;
  EXPECT_EQ(Run("karvel-cards export cari " + Path("out.csv")).code, 0);
  EXPECT_EQ(BytesOf("out.csv").find("Ali"), std::string::npos);
}

TEST_F(CardsProgram, what_it_cant_read_and_words_it_does_not_know_are_told) {
  EXPECT_EQ(Run("karvel-cards import " + Path("none.csv")).code, 1);
  EXPECT_EQ(Run("karvel-cards import " + Lay("broken.xlsx", "PK\x03\x04 broken")).code, 1);
  for (const char* const words :
       {"karvel-cards", "karvel-cards import", "karvel-cards import a b", "karvel-cards export kasa x", "karvel-import"}) {
    const Ended misused = Run(words);
    EXPECT_EQ(misused.code, 2) << words;
    EXPECT_NE(misused.said.find("Kullanım:"), std::string::npos) << words;
  }
  EXPECT_FALSE(fs::exists(Path("home/C/KarvelData"))) << "nothing was opened for any of it";
}

TEST_F(CardsProgram, a_spreadsheet_that_is_none_is_refused_in_words_that_help) {
  for (const auto& [name, bytes] : {std::pair("liste.xlsx", "Stok Kodu;Stok Adı\n1;Çay\n"), std::pair("LISTE.XLSX", "<html>"),
                                    std::pair("eski.xlsx", "\xD0\xCF\x11\xE0 old or locked"), std::pair("bos.xlsx", "")}) {
    const Ended refused = Run("karvel-cards import " + Lay(name, bytes));
    EXPECT_EQ(refused.code, 1) << name;
    EXPECT_NE(refused.said.find(".xlsx olarak kaydedin"), std::string::npos) << name << ": " << refused.said;
  }
  EXPECT_FALSE(fs::exists(Path("home/C/KarvelData")));
}

TEST_F(CardsProgram, an_old_file_goes_into_a_folder_that_has_none_of_its_name) {
  const std::string old = Lay(
      "CARI.MDB",
      AccessFile(
          {{"CariKartlar", {{"CariKod", AccessType::Text}, {"Unvan", AccessType::Text}}, {{std::string("C1"), std::string("Ayşe Öz")}}}}));
  const Ended taken = Run("karvel-import " + old);
  EXPECT_EQ(taken.code, 0) << taken.said;
  EXPECT_NE(taken.said.find("Cari.mdb: 1 kayıt alındı."), std::string::npos) << taken.said;
  EXPECT_EQ(Run("karvel-import " + old).code, 1) << "never over a file that is there";
  const Ended out = Run("karvel-cards export cari " + Path("out.csv"));
  EXPECT_EQ(out.code, 0) << out.said;
  EXPECT_NE(BytesOf("out.csv").find("C1;Ayşe Öz;"), std::string::npos) << BytesOf("out.csv");
  EXPECT_EQ(Run("karvel-import " + Lay("Stok.mdb", "no database")).code, 1);
}

TEST_F(CardsProgram, where_the_data_lies_beside_no_empty_shop_is_begun) {
  fs::create_directories(Path("home/C/KarvelData.eski-20260301-091507"));
  for (const std::string& program : {"karvel-cards export cari " + Path("out.csv"), "karvel-import " + Lay("Cari.mdb", AccessFile({}))}) {
    const Ended refused = Run(program);
    EXPECT_EQ(refused.code, 1) << refused.said;
    EXPECT_NE(refused.said.find("KarvelData.eski-20260301-091507"), std::string::npos) << refused.said;
    EXPECT_FALSE(fs::exists(Path("home/C/KarvelData")));
  }
}

TEST_F(CardsProgram, whatever_is_no_old_file_is_refused_in_words_that_tell_why) {
  const std::string old = AccessFile({{"CariKartlar", {{"CariKod", AccessType::Text}}, {{std::string("C1")}}}});
  std::string older = old, later = old, damaged = old;
  older[20] = 0;
  later.replace(4, 15, "Standard ACE DB");
  later[20] = 2;
  damaged.resize(4096 * 2);
  fs::create_directories(Path("folder.mdb"));
  for (const auto& [file, why] :
       {std::pair(Path("none.mdb"), "bulunamadı"), std::pair(Path("folder.mdb"), "bir klasör"),
        std::pair(Lay("Musteri.mdb", old), "adı eski programın"), std::pair(Lay("Stok.mdb", "Ürün;Fiyat\n"), "bir Access dosyası değil"),
        std::pair(Lay("Cari.mdb", older), "Access 97"), std::pair(Lay("Index.mdb", later), "Access 2007"),
        std::pair(Lay("Karvel.mdb", damaged), "dosya bozuk"), std::pair(Lay("Temp.mdb", "SQLite format 3"), "zaten bu programın")}) {
    const Ended refused = Run("karvel-import " + file);
    EXPECT_EQ(refused.code, 1) << file;
    EXPECT_NE(refused.said.find(why), std::string::npos) << refused.said;
  }
  std::error_code none;
  EXPECT_TRUE(fs::is_empty(Path("home/C/KarvelData"), none) || none) << "nothing half made is left";
  EXPECT_EQ(Run("karvel-import").code, 2);
}

TEST_F(CardsProgram, an_old_file_comes_in_on_a_disk_without_links_too) {
  const std::string old = Lay("Cari.mdb", AccessFile({{"CariKartlar", {{"CariKod", AccessType::Text}}, {{std::string("C1")}}}}));
  const auto run = [&] { return Run("karvel-import " + old).code; };
  EXPECT_EQ(WithoutLinks(run), 0);
  EXPECT_EQ(WithoutLinks(run), 1) << "never over a file that is there";
  EXPECT_TRUE(fs::exists(Path("home/C/KarvelData/Cari.mdb")));
}

}  // namespace
}  // namespace karvel::testing
