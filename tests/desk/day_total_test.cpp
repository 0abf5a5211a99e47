#include "tests/desk/sale_fixture.h"

namespace karvel {
namespace {

class DayTotalTest : public SaleFixture {};

TEST_F(DayTotalTest, the_day_total_counts_todays_unpaid_sales_by_name) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum, Tahsilat) VALUES"
      "('C001','Ayşe Yılmaz',10,'2026-03-01 00:00:00','Satış',0),"
      "('C001','Ayşe Yılmaz',20.5,'2026-03-01 23:59:59','Satış',0),"
      "('C001','Ayşe Yılmaz',40,'2026-02-28 23:59:59','Satış',0),"
      "('C001','Ayşe Yılmaz',80,'2026-03-01 10:00:00','İade',0),"
      "('C001','Ayşe Yılmaz',160,'2026-03-01 10:00:00','Satış',5),"
      "('C002','Bora Çetin',320,'2026-03-01 10:00:00','Satış',0)");
  EnterSale("Ayşe Yılmaz");
  EXPECT_EQ(At("Label5").Caption(), "30,50");
}

TEST_F(DayTotalTest, a_double_tap_on_the_total_takes_the_day_of_the_current_row_as_payment) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum) VALUES"
      "('C001','Ayşe Yılmaz',1000,'2026-02-20 09:00:00','Satış'),('C001','Ayşe Yılmaz',234.5,'2026-02-20 18:00:00','Satış')");
  EnterSale("Ayşe Yılmaz");
  DoubleTap("Label5");
  EXPECT_EQ(At("Label5").Caption(), "1.234,50");
  EXPECT_EQ(At("Text2(2)").Text(), "1.234,50");
}

// Over a day book with rows of two days and two customers.
class DayTotalOfRowsTest : public DeskFixture {
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

TEST_F(DayTotalOfRowsTest, a_move_in_the_day_book_sums_todays_rows_of_the_customer) {
  EnterSale("Ayşe Yılmaz");
  desk->screen.Label5.SetCaption("1");
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "30,50");
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayTotalOfRowsTest, a_day_book_without_rows_reads_zero_and_marks_none) {
  AddCustomer("C003", "Cem Ak");
  EnterSale("Cem Ak");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  EXPECT_FALSE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayTotalOfRowsTest, at_rest_the_balance_stays) {
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "75,50");
}

TEST_F(DayTotalOfRowsTest, with_the_day_book_muted_it_stays) {
  EnterSale("Ayşe Yılmaz");
  desk->screen.Label5.SetCaption("1");
  desk->screen.HareketGrid.SetMarker(false);
  desk->form.RepositionGuard.Keep(Mute::DayBook);
  ASSERT_TRUE(desk->cursors.HareketData.MoveNext().Ok());
  EXPECT_EQ(At("Label5").Caption(), "1,00");
  EXPECT_FALSE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayTotalOfRowsTest, after_a_posting_the_balance_stands) {
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(At("Label5").Caption(), "95,50");
}

TEST_F(DayTotalOfRowsTest, the_totals_find_a_customer_with_a_quote_in_code_and_name) {
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
