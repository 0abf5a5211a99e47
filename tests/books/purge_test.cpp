#include "books/purge.h"

#include <string>
#include <vector>

#include "tests/support/failing_books.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class PurgeBook : public FailingBooks {
 protected:
  PurgeBook() { clock.now = {2026, 3, 2, 8, 0, 0}; }  // what goes ends with 31 January

  // A row of each of the three books.
  void Put(const std::string& moment) {
    Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Tarih) VALUES('C001','" + moment + "')");
    Sql("Stok.mdb", "INSERT INTO StokHareket(Carisi, Tarih) VALUES('C001','" + moment + "')");
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, Tarih) VALUES('C001','" + moment + "')");
  }
  void ExpectLeft(const Texts& moments) {
    EXPECT_EQ(Rows("Cari.mdb", "SELECT Tarih FROM CariHareket ORDER BY Tarih"), moments);
    EXPECT_EQ(Rows("Stok.mdb", "SELECT Tarih FROM StokHareket ORDER BY Tarih"), moments);
    EXPECT_EQ(Rows("Karvel.mdb", "SELECT Tarih FROM Datam ORDER BY Tarih"), moments);
  }
};

TEST(PurgeDays, come_on_new_years_day_and_every_thirtieth_after) {
  EXPECT_TRUE(IsPurgeDue({2026, 1, 1, 23, 0, 0}));
  EXPECT_FALSE(IsPurgeDue({2026, 1, 2, 0, 0, 0}));
  EXPECT_FALSE(IsPurgeDue({2026, 1, 30, 0, 0, 0}));
  EXPECT_TRUE(IsPurgeDue({2026, 1, 31, 0, 0, 0}));
  EXPECT_TRUE(IsPurgeDue({2024, 3, 1, 0, 0, 0}));  // of a leap year
  EXPECT_FALSE(IsPurgeDue({2026, 3, 1, 0, 0, 0}));
}

TEST(PurgeDays, that_go_are_whole_ones_up_to_thirty_days_ago) {
  EXPECT_EQ(PurgeCriteria({2026, 1, 1, 9, 30, 0}), "Tarih<=#12/02/2025 23:59:59#");
}

TEST_F(PurgeBook, the_three_books_lose_the_same_days) {
  for (const char* const moment : {"2026-01-30 23:59:59", "2025-06-01 12:00:00", "2026-03-01 09:00:00"}) Put(moment);
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  ExpectLeft({"2026-03-01 09:00:00"});
}

TEST_F(PurgeBook, the_last_second_of_the_limit_day_goes_and_the_next_stays) {
  for (const char* const moment : {"2026-01-31 00:00:00", "2026-01-31 23:59:59", "2026-02-01 00:00:00"}) Put(moment);
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  ExpectLeft({"2026-02-01 00:00:00"});
}

TEST_F(PurgeBook, on_new_years_day_it_reaches_back_into_the_old_year) {
  for (const char* const moment : {"2025-12-02 23:59:59", "2025-12-03 00:00:00"}) Put(moment);
  clock.now = {2026, 1, 1, 8, 0, 0};
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  ExpectLeft({"2025-12-03 00:00:00"});
}

TEST_F(PurgeBook, it_runs_when_it_is_told_to_due_or_not) {
  clock.now = {2026, 3, 3, 8, 0, 0};
  Put("2026-02-01 10:00:00");
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  ExpectLeft({});
}

TEST_F(PurgeBook, a_row_without_a_date_stays) {
  Put("");
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  ExpectLeft({""});
}

TEST_F(PurgeBook, the_cards_keep_their_sums) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=30, Bakiye=30, Hesap='Borç' WHERE CariKod='C001'");
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=3, CikanTutar=30, KalanA=3 WHERE StokKod='1001'");
  const Fields customer = Customer("C001"), item = Card("1001");
  Put("2025-06-01 12:00:00");
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  EXPECT_EQ(Customer("C001"), customer);
  EXPECT_EQ(Card("1001"), item);
}

TEST_F(PurgeBook, due_dates_serials_and_invoices_are_no_movements) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2025-01-01 00:00:00',30)");
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, Tarih) VALUES('S1','2025-01-01 00:00:00')");
  Sql("Fatura.mdb", "INSERT INTO Faturalar(FaturaNo, FatTarih) VALUES('1','2025-01-01 00:00:00')");
  const Texts before = AllRows();
  EXPECT_TRUE(PurgeOldRows(shop).Ok());
  EXPECT_EQ(AllRows(), before);
}

TEST_F(PurgeBook, a_fault_of_the_stores_leaves_all_three_whole_and_says_what_it_was) {
  Put("2025-06-01 12:00:00");
  FailsWholeOrWorks([this] { return PurgeOldRows(shop); });
  ExpectLeft({});
}

}  // namespace
}  // namespace karvel
