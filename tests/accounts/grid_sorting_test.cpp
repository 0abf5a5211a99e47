#include "accounts/grid_sorting.h"

#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class GridSortingTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=20, Hesap='Borç'");
    AddCustomer("C002", "Çiğdem Ak", "Bakiye=5, Hesap='Borç'");
    AddCustomer("C003", "Cem Ak", "Bakiye=90, Hesap='Alacak'");
    AddStock("2", "Pirinç");
    AddStock("3", "Şeker");
    AddStock("1", "Un");
    ASSERT_TRUE(Start());
  }
  static std::vector<std::string> Shown(const Cursor& cursor, const char* field) {
    std::vector<std::string> texts;
    for (const GridRow& row : cursor.RowsFromStart(100))
      texts.push_back(AsText(row.values[static_cast<std::size_t>(cursor.SourceTable()->Position(field))]));
    return texts;
  }
  std::vector<std::string> Customers() { return Shown(desk->cursors.CariData, "Unvan"); }
  std::vector<std::string> Items() { return Shown(desk->cursors.StokData, "StokAdi"); }
};

using Names = std::vector<std::string>;

TEST_F(GridSortingTest, a_second_tap_on_a_heading_turns_the_customers_round) {
  desk->screen.CariGrid.headClick(0);
  EXPECT_EQ(Customers(), (Names{"Muhtelif Müşteri", "Çiğdem Ak", "Cem Ak", "Ayşe Yılmaz"}));
  desk->screen.CariGrid.headClick(0);
  EXPECT_EQ(Customers(), (Names{"Ayşe Yılmaz", "Cem Ak", "Çiğdem Ak", "Muhtelif Müşteri"}));
  EXPECT_TRUE(desk->cursors.CariData.RecordSource().ends_with(" Order By Unvan ASC"));
}

TEST_F(GridSortingTest, customers_sort_by_balance_and_the_first_is_in_front) {
  desk->screen.CariGrid.SetMarker(false);
  desk->screen.CariGrid.headClick(2);
  EXPECT_EQ(Customers(), (Names{"Cem Ak", "Ayşe Yılmaz", "Çiğdem Ak", "Muhtelif Müşteri"}));
  EXPECT_EQ(At("Text1(0)").Text(), "Cem Ak");
  EXPECT_TRUE(desk->screen.CariGrid.Marker());
}

TEST_F(GridSortingTest, sorting_keeps_what_the_list_selects) {
  const std::string before = desk->cursors.CariData.RecordSource();
  desk->screen.CariGrid.headClick(2);
  const std::string after = desk->cursors.CariData.RecordSource();
  EXPECT_EQ(after.substr(0, after.find(" Order By")), before.substr(0, before.find(" Order By")));
}

TEST_F(GridSortingTest, a_heading_without_a_field_sorts_nothing) {
  const std::string before = desk->cursors.CariData.RecordSource();
  desk->screen.CariGrid.headClick(1);
  desk->screen.CariGrid.headClick(99);
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), before);
}

TEST_F(GridSortingTest, the_day_book_sorts_with_its_own_words) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, StokAd, Tarih) VALUES('C001','Un','2026-02-01 10:00:00'),('C001','Bal','2026-02-02 10:00:00')");
  EnterSale("Ayşe Yılmaz");
  const Cursor& day = desk->cursors.HareketData;
  EXPECT_EQ(Shown(day, "StokAd"), (Names{"Bal", "Un"}));
  desk->screen.HareketGrid.headClick(0);
  EXPECT_EQ(day.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Asc");
  EXPECT_EQ(Shown(day, "StokAd"), (Names{"Un", "Bal"}));
  desk->screen.HareketGrid.headClick(2);
  EXPECT_EQ(day.RecordSource(), "Select * From Datam Where CariKod='C001' Order By StokAd Desc");
}

TEST_F(GridSortingTest, the_sale_list_sorts_by_code_and_name_alone) {
  desk->screen.StokGrid.headClick(1);
  EXPECT_EQ(Items(), (Names{"Un", "Şeker", "Pirinç"}));
  desk->screen.StokGrid.headClick(0);
  EXPECT_EQ(Items(), (Names{"Un", "Pirinç", "Şeker"}));
  desk->screen.StokGrid.headClick(3);
  EXPECT_EQ(Items(), (Names{"Un", "Pirinç", "Şeker"}));
}

TEST(GridSorting, a_whole_table_becomes_a_query) {
  EXPECT_EQ(GridSorting::Sorted("Datam", "Tarih", " Asc", " Desc"), "Select * From Datam Order By Tarih Desc");
}

TEST(GridSorting, a_name_in_the_condition_is_not_taken_for_the_order) {
  EXPECT_EQ(GridSorting::Sorted("Select * From T Where A Like ' DESC order by b*' ORDER BY A", "B", " ASC", " DESC"),
            "Select * From T Where A Like ' DESC order by b*' Order By B DESC");
}

TEST_F(GridSortingTest, a_heading_of_the_day_book_marks_its_row) {
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, StokAd, Tarih) VALUES('C001','Un','2026-02-01 10:00:00')");
  EnterSale("Ayşe Yılmaz");
  desk->screen.HareketGrid.SetMarker(false);
  desk->screen.HareketGrid.headClick(2);
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
}

TEST_F(GridSortingTest, a_sorted_list_of_a_quoted_group_keeps_its_group) {
  EXPECT_EQ(GridSorting::Sorted("Select * From StokKartlar Where Gurup='Süt''lük' Order By StokAdi Asc", "StokKod", " ASC", " DESC"),
            "Select * From StokKartlar Where Gurup='Süt''lük' Order By StokKod DESC");
}

}  // namespace
}  // namespace karvel
