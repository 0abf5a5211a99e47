#include "books/running_numbers.h"

#include <array>
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

TEST_F(RunningNumbersTest, a_counter_that_was_lost_goes_on_behind_the_lines_of_the_books) {
  Sql("Karvel.mdb", "INSERT INTO Datam(DigerId) VALUES('10000000269'),('10000002612'),('10000000261'),('10000259999')");
  EXPECT_TRUE(KeepCounterAhead(shop).Ok());
  EXPECT_EQ(Counters(), Lines{"2026|260|2612"});
  EXPECT_EQ(Years(), Lines{"2026"});
  EXPECT_EQ(Next(0, "2026"), "2613");
}

TEST_F(RunningNumbersTest, a_lost_counter_goes_on_behind_the_lines_of_each_terminal_as_it_starts) {
  Sql("Karvel.mdb", "INSERT INTO Datam(DigerId) VALUES('10000000269'),('100000002612'),('20000002613')");
  EXPECT_TRUE(KeepCounterAhead(shop).Ok());
  EXPECT_EQ(Counters(), Lines{"2026|260|269"}) << "what terminals 10 and 2 gave can't be given here";
  terminalNo = "10";
  EXPECT_TRUE(KeepCounterAhead(shop).Ok());
  EXPECT_EQ(Counters(), Lines{"2026|260|2612"});
}

TEST_F(RunningNumbersTest, a_counter_of_an_old_copy_is_raised_by_whatever_table_knows_more) {
  TwoYears();
  for (const auto& [file, table, id, count] :
       std::vector<std::array<std::string, 4>>{{"Karvel.mdb", "Datam", "10000000268", "268"},
                                               {"Stok.mdb", "StokHareket", "10000002611", "2611"},
                                               {"Cari.mdb", "CariHareket", "10000026345", "26345"}}) {
    Sql(file, "INSERT INTO " + table + "(DigerId) VALUES('" + id + "')");
    EXPECT_TRUE(KeepCounterAhead(shop).Ok());
    EXPECT_EQ(One("Index.mdb", "SELECT Indexi FROM Mdbindex WHERE Tarih='2026'"), count);
  }
  EXPECT_EQ(Counters(), (Lines{"2025|257|2512", "2026|269|26345"}));
}

TEST_F(RunningNumbersTest, a_counter_that_is_ahead_is_left_alone) {
  TwoYears();
  Sql("Karvel.mdb", "INSERT INTO Datam(DigerId) VALUES('10000000262'),('10000000263'),('T10000000269'),('abc'),('')");
  const int writes = engine.writes;
  EXPECT_TRUE(KeepCounterAhead(shop).Ok());
  EXPECT_EQ(engine.writes, writes);
  EXPECT_EQ(Counters(), (Lines{"2025|257|2512", "2026|269|263"}));
}

TEST_F(RunningNumbersTest, books_that_cannot_be_read_are_a_failure_and_change_no_counter) {
  TwoYears();
  Sql("Karvel.mdb", "INSERT INTO Datam(DigerId) VALUES('10000000269')");
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  int reads = 0;
  while (engine.readsBeforeFault = reads, !KeepCounterAhead(shop).Ok() && reads < 100) {
    ++reads;
    EXPECT_EQ(Counters(), (Lines{"2025|257|2512", "2026|269|263"}));
  }
  EXPECT_GT(reads, 5) << "each of the books is read";
  engine.readFault = {};
  EXPECT_EQ(Counters(), (Lines{"2025|257|2512", "2026|269|269"})) << "when all can be read";
}

}  // namespace
}  // namespace karvel
