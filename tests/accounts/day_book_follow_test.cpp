#include <string>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class DayBookFollowTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=75.5, Borc=75.5, Hesap='Borç'");
    AddStock("1001", "Pirinç");
    Sql("Karvel.mdb",
        "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum, Tahsilat) VALUES"
        "('C001','Ayşe Yılmaz',10,'2026-03-01 00:00:00','Satış',0),"
        "('C001','Ayşe Yılmaz',20.5,'2026-03-01 23:59:59','İade',0),"
        "('C001','Ayşe Yılmaz',40,'2026-02-28 23:59:59','Satış',0),"
        "('C002','Ayşe Yılmaz',80,'2026-03-01 10:00:00','Satış',0)");
    ASSERT_TRUE(Start());
    desk->form.PriceFormat = "#,##0.00";
  }
};

TEST_F(DayBookFollowTest, a_move_in_the_day_book_sums_todays_rows_of_the_customer) {
  EnterSale("Ayşe Yılmaz");
  desk->screen.Label5.SetCaption("1");
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "30,50");
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayBookFollowTest, a_day_book_without_rows_reads_zero_and_marks_none) {
  AddCustomer("C003", "Cem Ak");
  EnterSale("Cem Ak");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  EXPECT_FALSE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayBookFollowTest, at_rest_the_balance_stays) {
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "75,50");
}

TEST_F(DayBookFollowTest, guard_100_mutes_it) {
  EnterSale("Ayşe Yılmaz");
  desk->screen.Label5.SetCaption("1");
  desk->screen.HareketGrid.SetMarker(false);
  desk->form.RepositionGuard.Keep(Mute::DayBook);
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "1,00");
  EXPECT_FALSE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayBookFollowTest, after_a_posting_the_balance_stands) {
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(At("Label5").Caption(), "95,50");
}

TEST_F(DayBookFollowTest, the_print_choice_leads_back_to_the_whole_day_book) {
  int printed = 0;
  connections += At("Command1").click.Connect([&printed] { ++printed; });
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  At("Command5(1)").SetEnabled(false);
  At("Command5(2)").SetCaption("x");
  ASSERT_TRUE(desk->cursors.HareketData.Open("Datam").Ok());
  Click("VzgCmd");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 3);
  EXPECT_TRUE(At("Command5(1)").Enabled());
  EXPECT_EQ(At("Command5(2)").Caption(), "Tümünü Yazdır");
  EXPECT_EQ(printed, 1);
}

TEST_F(DayBookFollowTest, the_totals_find_a_customer_with_a_quote_in_code_and_name) {
  AddCustomer("O''1", "O''Neil", "Bakiye=7, Borc=7, Hesap='Borç'");
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum, Tahsilat) VALUES"
      "('O''1','O''Neil',5,'2026-03-01 09:00:00','Satış',0),('O''1','O''Neil',2,'2026-03-01 10:00:00','İade',0)");
  ASSERT_TRUE(Start());
  desk->form.PriceFormat = "#,##0.00";
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='O''1'").Ok());
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Label5").Caption(), "5,00");  // the day's sales, by name
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "7,00");  // the day's rows, by code
  DoubleTap("Label5");
  EXPECT_EQ(At("Text2(2)").Text(), "5,00");  // the sales of the row's day, by code
}

}  // namespace
}  // namespace karvel
