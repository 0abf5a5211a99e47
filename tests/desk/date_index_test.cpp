#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class DateIndexTest : public DeskFixture {};

TEST_F(DateIndexTest, the_counters_shown_are_those_of_the_year_in_front) {
  ASSERT_TRUE(Start());
  Sql("Index.mdb", "INSERT INTO Tarih(Tarih) VALUES('2025'),('2026')");
  Sql("Index.mdb", "INSERT INTO Mdbindex(Tarih, Serino, Indexi) VALUES('2025','257','2512'),('2026','269','263')");
  ASSERT_TRUE(Start());
  ASSERT_TRUE(desk->cursors.IndexPrimary.FindFirst("Tarih='2026'").Ok());
  EXPECT_EQ(desk->cursors.IndexSecondary.RecordSource(), "Select * From Mdbindex where Tarih='2026'");
  EXPECT_EQ(desk->cursors.IndexSecondary.Text("Indexi"), "263");
  ASSERT_TRUE(desk->cursors.IndexPrimary.FindFirst("Tarih='2025'").Ok());
  EXPECT_EQ(desk->cursors.IndexSecondary.Text("Indexi"), "2512");
}

}  // namespace
}  // namespace karvel
