#include "books/running_numbers.h"

#include <string>
#include <vector>

#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class RunningNumbersTest : public BooksFixture {
 protected:
  void TwoYears() {
    Sql("Index.mdb", "INSERT INTO Tarih(Tarih) VALUES('2025'),('2026')");
    Sql("Index.mdb", "INSERT INTO Mdbindex(Tarih, Serino, Indexi) VALUES('2025','257','2512'),('2026','269','263')");
  }
  std::string Next(int mode, const std::string& year) { return NextIndex(stores, mode, year); }
  Lines Counters() { return Rows("Index.mdb", "SELECT Tarih, Serino, Indexi FROM Mdbindex ORDER BY Tarih"); }
  Lines Years() { return Rows("Index.mdb", "SELECT Tarih FROM Tarih ORDER BY Tarih"); }
};

TEST_F(RunningNumbersTest, a_new_year_begins_both_counters_and_gives_one) {
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(Counters(), Lines{"2026|260|261"});
  EXPECT_EQ(Years(), Lines{"2026"});
}

TEST_F(RunningNumbersTest, with_the_other_mode_the_two_counters_change_places) {
  EXPECT_EQ(Next(1, "2026"), "261");
  EXPECT_EQ(Counters(), Lines{"2026|261|260"});
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(Next(1, "2026"), "262");
  EXPECT_EQ(Counters(), Lines{"2026|262|261"});
}

TEST_F(RunningNumbersTest, behind_nine_comes_ten_without_padding) {
  TwoYears();
  EXPECT_EQ(Next(1, "2026"), "2610");
  EXPECT_EQ(Next(1, "2026"), "2611");
}

TEST_F(RunningNumbersTest, each_year_has_its_own_counters) {
  TwoYears();
  EXPECT_EQ(Next(0, "2026"), "264");
  EXPECT_EQ(Next(0, "2025"), "2513");
  EXPECT_EQ(Next(1, "2025"), "258");
  EXPECT_EQ(Next(0, "2027"), "271");
  EXPECT_EQ(Next(0, "2026"), "265");
  EXPECT_EQ(Counters(), (Lines{"2025|258|2513", "2026|269|265", "2027|270|271"}));
  EXPECT_EQ(Years(), (Lines{"2025", "2026", "2027"}));
}

TEST_F(RunningNumbersTest, a_year_without_counters_gets_them_and_keeps_its_one_row) {
  Sql("Index.mdb", "INSERT INTO Tarih(Tarih) VALUES('2026')");
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(Years(), Lines{"2026"});
  EXPECT_EQ(Counters(), Lines{"2026|260|261"});
}

TEST_F(RunningNumbersTest, counters_without_a_year_run_on) {
  Sql("Index.mdb", "INSERT INTO Mdbindex(Tarih, Serino, Indexi) VALUES('2026','269','263')");
  EXPECT_EQ(Next(0, "2026"), "264");
  EXPECT_EQ(Years(), Lines{"2026"});
}

TEST_F(RunningNumbersTest, another_terminals_numbers_are_passed_over) {
  Stores other(MakeSqliteEngine({.programFolder = folder.Path(), .vfs = {}}));
  ASSERT_TRUE(other.Open(folder.Path()).Ok());
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(NextIndex(other, 0, "2026"), "262");
  EXPECT_EQ(Next(0, "2026"), "263");
}

TEST_F(RunningNumbersTest, a_number_of_an_action_that_fails_is_taken_again) {
  Action action(stores, "posting");
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(engine.commits, 0);
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  EXPECT_FALSE(action.Finish().Ok());
  EXPECT_EQ(Counters(), Lines{});
  engine.commitFault = {};
  EXPECT_EQ(Next(0, "2026"), "261");
}

TEST_F(RunningNumbersTest, a_number_that_was_not_stored_is_not_given) {
  TwoYears();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  EXPECT_EQ(Next(0, "2026"), "");
  engine.commitFault = {};
  engine.writeFault = {ErrorKind::NoRights, "read only"};
  EXPECT_EQ(Next(0, "2026"), "");
  engine.writeFault = {};
  EXPECT_EQ(Next(0, "2026"), "264");
  stores.Close();
  EXPECT_EQ(Next(0, "2026"), "");
}

TEST_F(RunningNumbersTest, counters_that_cant_be_read_do_not_begin_anew) {
  TwoYears();
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  for (const int before : {0, 1}) {  // the list of years, then the counters
    engine.readsBeforeFault = before;
    EXPECT_EQ(Next(0, "2026"), "");
    EXPECT_EQ(NextLineId(shop), "");
  }
  EXPECT_EQ(Counters(), (Lines{"2025|257|2512", "2026|269|263"}));
  EXPECT_EQ(Years(), (Lines{"2025", "2026"}));
}

TEST_F(RunningNumbersTest, the_line_id_is_the_terminal_and_ten_digits) {
  EXPECT_EQ(NextLineId(shop), "10000000261");
  EXPECT_EQ(NextLineId(shop), "10000000262");
  terminalNo = "03";
  EXPECT_EQ(NextLineId(shop), "30000000263");
}

TEST_F(RunningNumbersTest, the_line_id_is_of_the_year_of_its_moment) {
  clock.now = {2030, 6, 1, 8, 0, 0};
  EXPECT_EQ(NextLineId(shop), "10000000301");
  EXPECT_EQ(NextLineId(shop, {2029, 12, 31, 23, 59, 59}), "10000000291");
  EXPECT_EQ(NextLineId(shop), "10000000302");
}

TEST_F(RunningNumbersTest, the_day_book_counts_terminals_from_nought_and_a_movement_carries_both_digits) {
  EXPECT_EQ(DayBookTag(shop), "WinKarvel0");
  EXPECT_EQ(MovementTag(shop), "WinKarvel01");
  terminalNo = "09";
  EXPECT_EQ(DayBookTag(shop), "WinKarvel8");
  EXPECT_EQ(MovementTag(shop), "WinKarvel09");
}

}  // namespace
}  // namespace karvel
