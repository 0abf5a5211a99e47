#include "documents/balance_view.h"

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

BalanceLine Line(double debit, double credit = 0) {
  return {.date = {}, .text = "", .debit = debit, .credit = credit, .balance = 0, .side = ""};
}

TEST(RunningBalance, stands_on_the_side_of_the_smaller_sum) {
  std::vector<BalanceLine> lines{Line(10), Line(20), Line(5, 50)};
  RunBalance(lines, 15, 0);
  EXPECT_EQ(lines[0].balance, 5);
  EXPECT_EQ(lines[0].side, "Borç");
  EXPECT_EQ(lines[1].balance, 15);
  EXPECT_EQ(lines[1].side, "Alacak");
  EXPECT_EQ(lines[2].balance, 30);
  EXPECT_EQ(lines[2].side, "Borç");
}

TEST(RunningBalance, equal_sums_are_a_credit_of_nothing) {
  std::vector<BalanceLine> lines{Line(0.1), Line(0.2)};
  RunBalance(lines, 0.3, 0);
  EXPECT_EQ(lines[1].balance, 0);
  EXPECT_EQ(lines[1].side, "Alacak");
}

class BalanceViewTest : public AccountsFixture {
 protected:
  void AddEntry(const std::string& date, const std::string& debit, const std::string& credit, const std::string& text = "Satış") {
    Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod,Tarih,Aciklama,Borc,Alacak) VALUES('C001','" + date + "','" + text + "'," + debit +
                        "," + credit + ")");
  }
  Lines Shown() {
    Lines lines;
    for (const GridRow& row : desk->cursors.DataTmp.RowsFromStart(100))
      lines.push_back(AsText(row.values[4]) + "|" + AsText(row.values[5]));
    return lines;
  }
};

TEST_F(BalanceViewTest, opens_by_its_button_with_the_debits_from_the_date_on) {
  AddEntry("2026-02-01 10:00:00", "100", "0");
  AddEntry("2026-02-02 10:00:00", "0", "30");
  AddEntry("2026-03-01 10:00:00", "50", "0");
  AddEntry("2026-03-01 11:00:00", "0", "500");  // a payment is not listed, and moves nothing
  AddEntry("2026-03-01 12:00:00", "10", "0");
  Front("C001");
  Click("CariHesCmd");
  EXPECT_TRUE(At("CariFrame").Visible());
  EXPECT_TRUE(At("CariHesCmd").Visible());
  EXPECT_EQ(Shown(), (Lines{"120|Alacak", "130|Alacak"}));
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(BalanceViewTest, closes_by_escape_and_with_the_print_choice) {
  Front("C001");
  Click("Command1");
  Click("CariHesCmd");
  ASSERT_TRUE(At("CariFrame").Visible());
  KeyEvent escape{key::kEscape};
  At("Form1").keyDown(escape);
  EXPECT_FALSE(At("CariFrame").Visible());
  EXPECT_TRUE(At("Frame3").Visible());
  Click("CariHesCmd");
  Click("Command1");
  EXPECT_FALSE(At("Frame3").Visible());
  EXPECT_FALSE(At("CariFrame").Visible());
}

TEST_F(BalanceViewTest, closes_when_another_customer_comes_in_front) {
  Front("C001");
  Click("CariHesCmd");
  ASSERT_TRUE(At("CariFrame").Visible());
  Front("C002");
  EXPECT_FALSE(At("CariFrame").Visible());
}

TEST_F(BalanceViewTest, is_unavailable_while_the_date_is_asked_for) {
  Front("C001");
  Click("Command1");
  Click("Command5(2)");
  EXPECT_FALSE(At("CariHesCmd").Enabled());
  Click("VzgCmd");
  EXPECT_TRUE(At("CariHesCmd").Enabled());
}

TEST_F(BalanceViewTest, the_text_is_cut_at_fifty_letters) {
  AddEntry("2026-03-01 10:00:00", "50", "0", "ŞŞŞŞŞŞŞŞŞŞİİİİİİİİİİĞĞĞĞĞĞĞĞĞĞÇÇÇÇÇÇÇÇÇÇÖÖÖÖÖÖÖÖÖÖUU");
  Front("C001");
  Click("CariHesCmd");
  EXPECT_EQ(desk->cursors.DataTmp.Text("Aciklama"), "ŞŞŞŞŞŞŞŞŞŞİİİİİİİİİİĞĞĞĞĞĞĞĞĞĞÇÇÇÇÇÇÇÇÇÇÖÖÖÖÖÖÖÖÖÖ");
}

TEST_F(BalanceViewTest, is_built_anew_each_time) {
  AddEntry("2026-03-01 10:00:00", "50", "0");
  Front("C001");
  Click("CariHesCmd");
  Click("CariKapat");
  EXPECT_FALSE(At("CariFrame").Visible());
  Front("C002");
  Click("CariHesCmd");
  EXPECT_TRUE(Shown().empty());
}

TEST_F(BalanceViewTest, a_print_of_the_day_builds_it_and_shows_nothing) {
  AddEntry("2026-03-01 10:00:00", "50", "0");
  Front("C001");
  Click("Command5(1)");
  EXPECT_FALSE(At("CariFrame").Visible());
  Cursor scratch(*stores, "test");
  scratch.SetDatabaseName("DataTemp.Mdb");
  ASSERT_TRUE(scratch.Open("CariHareket").Ok());
  EXPECT_EQ(scratch.RecordCount(), 1);
}

TEST_F(BalanceViewTest, prints_the_statement_from_its_date_and_closes) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod,StokKod,StokAd,Miktar,Fiyat,Tutar,Tarih,Durum,Plasiyer,SeriNo) "
      "VALUES('C001','1001','Pirinç',1,10,10,'2026-02-15 10:00:00','Satış','WinKarvel1','')");
  Front("C001");
  At("DTPicker1").SetDate({2026, 2, 1, 0, 0, 0});
  Click("CariHesCmd");
  Click("CariCmd");
  EXPECT_FALSE(At("CariFrame").Visible());
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(At("Command5(2)").Caption(), "Tümünü Yazdır");
  EXPECT_TRUE(At("Command5(1)").Visible());
}

TEST_F(BalanceViewTest, a_scratch_table_that_cannot_be_written_is_told_and_hinders_no_print) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod,StokKod,StokAd,Miktar,Fiyat,Tutar,Tarih,Durum,Plasiyer,SeriNo) "
      "VALUES('C001','1001','Pirinç',1,10,10,'2026-03-01 10:00:00','Satış','WinKarvel1','')");
  Front("C001");
  engine.writeFault = {ErrorKind::NoRights, "read-only"};
  Click("Command5(1)");
  EXPECT_EQ(printer.jobs.size(), 1U);
  Click("CariHesCmd");
  EXPECT_FALSE(At("CariFrame").Visible());
  EXPECT_FALSE(At("Durum").Caption().empty());
  EXPECT_TRUE(At("CariHesCmd").Visible());
}

}  // namespace
}  // namespace karvel
