#include "books/day_sums.h"

#include <string>

#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

class DaySumsTest : public BooksFixture {
 protected:
  void Put(const std::string& code, const std::string& name, const std::string& state, const std::string& moment, const std::string& amount,
           const std::string& collected = "0") {
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, CariAd, Durum, Tarih, Tutar, Tahsilat) VALUES('" + code + "','" + name + "','" + state +
                          "','" + moment + "'," + amount + "," + collected + ")");
  }
  double Unpaid(const std::string& name) {
    double sum = -1;
    EXPECT_TRUE(SumUnpaidSales(stores, name, day, sum).Ok());
    return sum;
  }
  double Sales(const std::string& code) {
    double sum = -1;
    EXPECT_TRUE(SumSales(stores, code, day, sum).Ok());
    return sum;
  }
  double DayBook(const std::string& code) {
    double sum = -1;
    EXPECT_TRUE(SumDayBook(stores, code, day, sum).Ok());
    return sum;
  }
  const DateTime day{2026, 12, 3, 14, 0, 0};
};

TEST_F(DaySumsTest, a_day_is_written_month_first_from_its_first_to_its_last_second) {
  EXPECT_EQ(DayCriteria(day), "Tarih>=#12/03/2026 00:00:00# And Tarih<=#12/03/2026 23:59:59#");
}

TEST_F(DaySumsTest, a_day_begins_and_ends_at_midnight) {
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-02 23:59:59", "1");
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-03 00:00:00", "10");
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-03 23:59:59", "100");
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-04 00:00:00", "1000");
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-03-12 10:00:00", "10000");
  EXPECT_EQ(Unpaid("Ayşe Yılmaz"), 110);
  EXPECT_EQ(Sales("C001"), 110);
  EXPECT_EQ(DayBook("C001"), 110);
}

TEST_F(DaySumsTest, each_sum_takes_its_own_lines) {
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-03 09:00:00", "10");
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-03 09:00:00", "100", "5");  // paid for in part
  Put("C001", "Ayşe Yılmaz", "İade", "2026-12-03 09:00:00", "1000");
  Put("C001", "Ayşe Yılmaz", "Iptal", "2026-12-03 09:00:00", "10000");
  Put("C001", "Ayşe Yılmaz", "Nakit", "2026-12-03 09:00:00", "0", "50");
  EXPECT_EQ(Unpaid("Ayşe Yılmaz"), 10);
  EXPECT_EQ(Sales("C001"), 110);
  EXPECT_EQ(DayBook("C001"), 11110);
}

TEST_F(DaySumsTest, unpaid_sales_go_by_name_and_the_others_by_code) {
  Put("C001", "Ayşe Yılmaz", "Satış", "2026-12-03 09:00:00", "10");
  Put("C009", "Ayşe Yılmaz", "Satış", "2026-12-03 09:00:00", "100");
  EXPECT_EQ(Unpaid("Ayşe Yılmaz"), 110);
  EXPECT_EQ(Unpaid("C001"), 0);
  EXPECT_EQ(Sales("C001"), 10);
  EXPECT_EQ(DayBook("C009"), 100);
}

TEST_F(DaySumsTest, a_sum_over_no_line_is_nothing) {
  EXPECT_EQ(Unpaid("Ayşe Yılmaz"), 0);
  EXPECT_EQ(Sales("C001"), 0);
  EXPECT_EQ(DayBook("C001"), 0);
}

TEST_F(DaySumsTest, quotes_in_codes_and_names_change_nothing) {
  Put("O''1", "O''Neil", "Satış", "2026-12-03 09:00:00", "10.5");
  EXPECT_EQ(Unpaid("O'Neil"), 10.5);
  EXPECT_EQ(Sales("O'1"), 10.5);
  EXPECT_EQ(DayBook("O'1"), 10.5);
}

TEST_F(DaySumsTest, a_book_that_cant_be_read_is_told) {
  engine.readFault = {ErrorKind::Damaged, "a bad sector"};
  double sum = -1;
  EXPECT_EQ(SumUnpaidSales(stores, "Ayşe Yılmaz", day, sum).Kind(), ErrorKind::Damaged);
  EXPECT_EQ(sum, 0);
  EXPECT_EQ(SumSales(stores, "C001", day, sum).Kind(), ErrorKind::Damaged);
  EXPECT_EQ(SumDayBook(stores, "C001", day, sum).Kind(), ErrorKind::Damaged);
}

}  // namespace
}  // namespace karvel
