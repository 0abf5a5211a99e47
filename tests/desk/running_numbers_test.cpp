#include "desk/running_numbers.h"

#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class RunningNumbersTest : public DeskFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  void TwoYears() {
    Sql("Index.mdb", "INSERT INTO Tarih(Tarih) VALUES('2025'),('2026')");
    Sql("Index.mdb", "INSERT INTO Mdbindex(Tarih, Serino, Indexi) VALUES('2025','257','2512'),('2026','269','263')");
    ASSERT_TRUE(Start());
  }
  std::string Next(int mode, const std::string& year) { return desk->Numbers().NextIndex(mode, year); }
  std::vector<std::string> Counters() { return Rows("Index.mdb", "SELECT Tarih, Serino, Indexi FROM Mdbindex ORDER BY Tarih"); }
};

using Lines = std::vector<std::string>;

TEST_F(RunningNumbersTest, a_new_year_begins_both_counters_and_gives_one) {
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(Counters(), Lines{"2026|260|261"});
  EXPECT_EQ(Rows("Index.mdb", "SELECT Tarih FROM Tarih"), Lines{"2026"});
}

TEST_F(RunningNumbersTest, with_the_other_mode_the_two_counters_change_places) {
  EXPECT_EQ(Next(1, "2026"), "261");
  EXPECT_EQ(Counters(), Lines{"2026|261|260"});
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(Next(1, "2026"), "262");
  EXPECT_EQ(Counters(), Lines{"2026|262|261"});
}

TEST_F(RunningNumbersTest, each_year_has_its_own_counters) {
  TwoYears();
  EXPECT_EQ(Next(0, "2026"), "264");
  EXPECT_EQ(Next(0, "2025"), "2513");
  EXPECT_EQ(Next(1, "2026"), "2610");
  EXPECT_EQ(Next(1, "2025"), "258");
  EXPECT_EQ(Next(0, "2026"), "265");
  EXPECT_EQ(Counters(), (Lines{"2025|258|2513", "2026|2610|265"}));
}

TEST_F(RunningNumbersTest, a_third_year_joins_two_others) {
  TwoYears();
  EXPECT_EQ(Next(0, "2027"), "271");
  EXPECT_EQ(Next(0, "2026"), "264");
  EXPECT_EQ(Next(0, "2027"), "272");
  EXPECT_EQ(Counters(), (Lines{"2025|257|2512", "2026|269|264", "2027|270|272"}));
  EXPECT_EQ(Rows("Index.mdb", "SELECT Tarih FROM Tarih ORDER BY 1"), (Lines{"2025", "2026", "2027"}));
}

TEST_F(RunningNumbersTest, the_counters_follow_the_year_in_front) {
  TwoYears();
  ASSERT_TRUE(desk->cursors.IndexPrimary.FindFirst("Tarih='2026'").Ok());
  EXPECT_EQ(desk->cursors.IndexSecondary.RecordSource(), "Select * From Mdbindex where Tarih='2026'");
  EXPECT_EQ(desk->cursors.IndexSecondary.Text("Indexi"), "263");
  ASSERT_TRUE(desk->cursors.IndexPrimary.FindFirst("Tarih='2025'").Ok());
  EXPECT_EQ(desk->cursors.IndexSecondary.Text("Indexi"), "2512");
}

TEST_F(RunningNumbersTest, a_year_without_counters_gets_them_and_keeps_its_one_row) {
  Sql("Index.mdb", "INSERT INTO Tarih(Tarih) VALUES('2026')");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Next(0, "2026"), "261");
  EXPECT_EQ(Rows("Index.mdb", "SELECT Tarih FROM Tarih"), Lines{"2026"});
  EXPECT_EQ(Counters(), Lines{"2026|260|261"});
}

TEST_F(RunningNumbersTest, counters_without_a_year_run_on) {
  Sql("Index.mdb", "INSERT INTO Mdbindex(Tarih, Serino, Indexi) VALUES('2026','269','263')");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Next(0, "2026"), "264");
  EXPECT_EQ(Rows("Index.mdb", "SELECT Tarih FROM Tarih"), Lines{"2026"});
}

TEST_F(RunningNumbersTest, the_line_id_is_the_terminal_and_ten_digits) {
  EXPECT_EQ(desk->Numbers().NextLineId(), "10000000261");
  clock.now = {2030, 6, 1, 8, 0, 0};
  EXPECT_EQ(desk->Numbers().NextLineId(), "10000000301");
}

}  // namespace
}  // namespace karvel
