#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/copied_stores.h"
#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class PurgeAtStartTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=30, Borc=30, Hesap='Borç'");
    AddStock("1001", "Pirinç", "CikanMik=3, CikanTutar=30, KalanA=3");
    for (const char* const day : {"2026-01-30 23:59:59", "2026-01-31 00:00:00", "2025-06-01 12:00:00", "2026-03-01 09:00:00"}) {
      const std::string date(day);
      Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Tarih) VALUES('C001','" + date + "')");
      Sql("Stok.mdb", "INSERT INTO StokHareket(Carisi, Tarih) VALUES('C001','" + date + "')");
      Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, Tarih) VALUES('C001','" + date + "')");
    }
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod) VALUES('undated')");
    settings.Save("Velmora Karvel1", "AySil", "AySil", "True").Ignore();
  }
  void StartOn(const DateTime& day) {
    clock.now = day;
    ASSERT_TRUE(Start());
  }
  std::vector<std::string> Days(const std::string& file, const std::string& table) {
    return Rows(file, "SELECT substr(Tarih,1,10) FROM " + table + " WHERE Tarih<>'' ORDER BY Tarih");
  }
};

using Texts = std::vector<std::string>;
constexpr DateTime kSixtiethDay{2026, 3, 2, 8, 0, 0};  // the filter ends on 31 January

TEST_F(PurgeAtStartTest, a_thirtieth_day_drops_the_movements_of_all_three_books) {
  StartOn(kSixtiethDay);
  const Texts left{"2026-03-01"};
  EXPECT_EQ(Days("Cari.mdb", "CariHareket"), left);
  EXPECT_EQ(Days("Stok.mdb", "StokHareket"), left);
  EXPECT_EQ(Days("Karvel.mdb", "Datam"), left);
}

TEST_F(PurgeAtStartTest, the_last_second_of_the_limit_day_goes_and_the_next_stays) {
  for (const char* const moment : {"2026-01-31 23:59:59", "2026-02-01 00:00:00"}) {
    const std::string date(moment);
    Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Tarih) VALUES('C001','" + date + "')");
    Sql("Stok.mdb", "INSERT INTO StokHareket(Carisi, Tarih) VALUES('C001','" + date + "')");
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, Tarih) VALUES('C001','" + date + "')");
  }
  StartOn(kSixtiethDay);
  const Texts left{"2026-02-01", "2026-03-01"};
  EXPECT_EQ(Days("Cari.mdb", "CariHareket"), left);
  EXPECT_EQ(Days("Stok.mdb", "StokHareket"), left);
  EXPECT_EQ(Days("Karvel.mdb", "Datam"), left);
}

TEST_F(PurgeAtStartTest, on_new_years_day_it_reaches_back_into_the_old_year) {
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, Tarih) VALUES('C001','2025-12-02 23:59:59'),('C001','2025-12-03 00:00:00')");
  StartOn({2026, 1, 1, 8, 0, 0});
  EXPECT_EQ(Days("Karvel.mdb", "Datam"), (Texts{"2025-12-03", "2026-01-30", "2026-01-31", "2026-03-01"}));
}

TEST_F(PurgeAtStartTest, due_dates_serials_and_invoices_are_no_movements) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2025-01-01 00:00:00',30)");
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, Tarih) VALUES('S1','2025-01-01 00:00:00')");
  StartOn(kSixtiethDay);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM \"VadeGün\""), "1");
  EXPECT_EQ(One("SeriNo.mdb", "SELECT count(*) FROM SeriNo"), "1");
}

TEST_F(PurgeAtStartTest, a_row_without_a_date_stays) {
  StartOn(kSixtiethDay);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam WHERE CariKod='undated'"), "1");
}

TEST_F(PurgeAtStartTest, the_cards_keep_their_sums) {
  StartOn(kSixtiethDay);
  EXPECT_EQ(One("Cari.mdb", "SELECT Borc, Bakiye FROM CariKartlar WHERE CariKod='C001'"), "30.0|30.0");
  EXPECT_EQ(One("Stok.mdb", "SELECT CikanMik, KalanA FROM StokKartlar"), "3.0|3.0");
}

TEST_F(PurgeAtStartTest, other_days_drop_nothing) {
  StartOn({2026, 3, 1, 8, 0, 0});
  EXPECT_EQ(Days("Karvel.mdb", "Datam").size(), 4U);
  StartOn({2026, 3, 3, 8, 0, 0});
  EXPECT_EQ(Days("Karvel.mdb", "Datam").size(), 4U);
}

TEST_F(PurgeAtStartTest, unchecked_it_never_runs) {
  settings.Save("Velmora Karvel1", "AySil", "AySil", "False").Ignore();
  StartOn(kSixtiethDay);
  EXPECT_EQ(Days("Karvel.mdb", "Datam").size(), 4U);
}

TEST_F(PurgeAtStartTest, it_runs_before_the_desk_waits_for_the_network_or_shows_its_button) {
  settings.Save("Velmora Karvel1", "Size", "FtpUrl", "ftp://example.org").Ignore();
  connection.downFor = 1;
  std::size_t left = 0;
  bool opened = true;
  loop.duringWait = [&] {
    if (!desk || !desk->screen.BağlantıFrm.Visible()) return;
    opened = desk->screen.Command3.Visible();
    left = Days("Karvel.mdb", "Datam").size();
  };
  StartOn(kSixtiethDay);
  EXPECT_FALSE(opened);
  EXPECT_EQ(left, 1U);
}

TEST_F(PurgeAtStartTest, the_lists_show_what_is_left) {
  StartOn(kSixtiethDay);
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 1);
  EXPECT_EQ(desk->cursors.CariHarData.RecordCount(), 1);
}

TEST_F(PurgeAtStartTest, a_backup_with_the_old_rows_is_made_first) {
  StartOn(kSixtiethDay);
  const std::string archive = folder.Path() + "/C/KarvelYedek/20260302/0800Data.ZIP", unpacked = folder.Path() + "/unpacked";
  Texts names;
  std::filesystem::create_directory(unpacked);
  ASSERT_TRUE(archives.Unpack(archive, unpacked, names).Ok());
  EXPECT_EQ(testing::PlainRows(unpacked + "/Karvel.mdb", "SELECT count(*) FROM Datam WHERE Tarih<>''"), Texts{"4"});
}

TEST_F(PurgeAtStartTest, without_its_backup_nothing_goes_and_the_clerk_is_told) {
  files.room = {{"C:", 1000}};
  StartOn(kSixtiethDay);
  EXPECT_EQ(Days("Karvel.mdb", "Datam").size(), 4U);
  ASSERT_FALSE(messages.shown.empty());
  EXPECT_THAT(messages.shown.back().text, ::testing::HasSubstr("Eski hareketler bu yüzden silinmedi."));
}

TEST_F(PurgeAtStartTest, the_days_before_tell_what_will_go_and_when) {
  const std::string told =
      "02.03.2026 günü program açılırken yedek alınacak, sonra 31.01.2026 ve öncesinin cari, stok ve gün hareketleri silinecek";
  StartOn({2026, 2, 26, 8, 0, 0});
  EXPECT_NE(At("Durum").Caption(), told);
  StartOn({2026, 2, 27, 8, 0, 0});
  EXPECT_EQ(At("Durum").Caption(), told);
  StartOn({2026, 3, 1, 23, 0, 0});
  EXPECT_EQ(At("Durum").Caption(), told);
}

TEST_F(PurgeAtStartTest, who_checks_it_reads_at_once_what_will_go_and_when) {
  settings.Save("Velmora Karvel1", "AySil", "AySil", "False").Ignore();
  StartOn({2026, 3, 2, 9, 0, 0});
  Click("AySil");
  EXPECT_THAT(At("Durum").Caption(), ::testing::StartsWith("01.04.2026 günü"));
  EXPECT_THAT(At("Durum").Caption(), ::testing::HasSubstr("02.03.2026 ve öncesinin"));
  Click("AySil");
  EXPECT_EQ(At("Durum").Caption(), "Eski hareketler silinmeyecek");
}

TEST_F(PurgeAtStartTest, after_it_the_quiet_line_tells_what_went) {
  StartOn(kSixtiethDay);
  EXPECT_EQ(At("Durum").Caption(), "Yedek alındı, 31.01.2026 ve öncesinin hareketleri silindi");
}

}  // namespace
}  // namespace karvel
