#include <string>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

// A letter is 10 pixels wide and every grid 300 in this window: 150 and 4500 twips.
class GridLayoutTest : public DeskFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  static std::string Path(const std::string& name) { return "C:\\KarvelData\\" + name; }
  std::string Bytes(const std::string& name) {
    std::string bytes;
    EXPECT_TRUE(files.Read(Path(name), bytes).Ok()) << name;
    return bytes;
  }
  void Put(const std::string& name, const std::string& bytes) { ASSERT_TRUE(files.Write(Path(name), bytes).Ok()); }
  void Resize(GridElement& grid, std::size_t column, double width) {
    auto columns = grid.Columns();
    columns[column].width = width;
    grid.SetColumns(columns);
    grid.columnsResized();
  }
};

TEST_F(GridLayoutTest, a_first_start_fits_the_lists_and_keeps_them) {
  EXPECT_EQ(Bytes("CariGrid.dat"), "1200,#TRUE#\r\n750,#FALSE#\r\n1350,#TRUE#\r\n1200,#TRUE#\r\n450,#FALSE#\r\n");
  EXPECT_TRUE(files.Exists(Path("StokGrid.dat")));
  EXPECT_TRUE(files.Exists(Path("HareketGrid.dat")));
}

TEST_F(GridLayoutTest, a_kept_layout_comes_back_at_the_next_start) {
  Resize(desk->screen.HareketGrid, 2, 2222.5);
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->screen.HareketGrid.Columns()[2].width, 2222.5);
  EXPECT_NE(Bytes("HareketGrid.dat").find("2222.5,#TRUE#\r\n"), std::string::npos);
}

TEST_F(GridLayoutTest, widths_and_visibility_are_read_in_column_order) {
  Put("CariGrid.dat", "3000,#TRUE#\r\n900,#TRUE#\r\n1500,#FALSE#\r\n 800 , #true# \r\n700,#FALSE#\r\n");
  ASSERT_TRUE(Start());
  const auto& columns = desk->screen.CariGrid.Columns();
  const double widths[] = {3000, 900, 1500, 800, 700};
  const bool visible[] = {true, true, false, true, false};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(columns[i].width, widths[i]);
    EXPECT_EQ(columns[i].visible, visible[i]);
  }
}

TEST_F(GridLayoutTest, columns_without_a_record_stay_as_they_are) {
  Put("CariGrid.dat", "3000,#TRUE#\r\n");
  ASSERT_TRUE(Start());
  const auto& columns = desk->screen.CariGrid.Columns();
  EXPECT_EQ(columns[0].width, 3000);
  EXPECT_FALSE(columns[1].visible);
  EXPECT_EQ(columns[2].width, 0);
  EXPECT_TRUE(columns[2].visible);
}

TEST_F(GridLayoutTest, a_damaged_line_spoils_only_its_column) {
  Put("CariGrid.dat", "nan,#TRUE#\n\xFF\xFE\n1500,#TRUE#\n-5,#FALSE#\n1e30,#TRUE#\n9,#TRUE#\n9,#TRUE#");
  ASSERT_TRUE(Start());
  const auto& columns = desk->screen.CariGrid.Columns();
  EXPECT_EQ(columns[0].width, 0);
  EXPECT_EQ(columns[2].width, 1500);
  EXPECT_TRUE(columns[3].visible);
  EXPECT_EQ(columns[4].width, 0);
}

TEST_F(GridLayoutTest, a_deleted_file_is_made_anew) {
  const std::string first = Bytes("CariGrid.dat");
  Resize(desk->screen.CariGrid, 0, 4000);
  ASSERT_NE(Bytes("CariGrid.dat"), first);
  ASSERT_TRUE(files.Delete(Path("CariGrid.dat")).Ok());
  ASSERT_TRUE(Start());
  EXPECT_EQ(Bytes("CariGrid.dat"), first);
}

TEST_F(GridLayoutTest, a_heading_is_centred_by_blanks_on_its_own_side) {
  Put("CariGrid.dat", "1350,#TRUE#\r\n0,#FALSE#\r\n1800,#TRUE#\r\n100,#TRUE#\r\n0,#FALSE#\r\n");
  ASSERT_TRUE(Start());
  const auto& columns = desk->screen.CariGrid.Columns();
  EXPECT_EQ(columns[0].caption, "  Ünvan");    // (1350 - 750) / 2 / 150
  EXPECT_EQ(columns[2].caption, "Bakiye   ");  // (1800 - 900) / 2 / 150, at the right
  EXPECT_EQ(columns[3].caption, "Hesap");      // no room
  desk->screen.CariGrid.columnsResized();
  EXPECT_EQ(desk->screen.CariGrid.Columns()[0].caption, "  Ünvan") << "the blanks don't add up";
}

TEST_F(GridLayoutTest, the_stock_list_keeps_a_layout_of_its_own) {
  EXPECT_FALSE(files.Exists(Path("CariGridS.dat")));
  At("StokChk").SetChecked(true);
  EXPECT_TRUE(files.Exists(Path("CariGridS.dat")));
  Resize(desk->screen.CariGrid, 3, 1111);
  At("StokChk").SetChecked(false);
  EXPECT_NE(desk->screen.CariGrid.Columns()[3].width, 1111);
  At("StokChk").SetChecked(true);
  EXPECT_EQ(desk->screen.CariGrid.Columns()[3].width, 1111);
  EXPECT_TRUE(desk->screen.CariGrid.Columns()[4].visible);
}

TEST_F(GridLayoutTest, the_days_turnover_goes_before_the_stock_list) {
  At("StokChk").SetChecked(true);
  At("CiroChk").SetChecked(true);
  desk->screen.CariGrid.columnsResized();
  EXPECT_TRUE(files.Exists(Path("CariGridC.dat")));
}

TEST_F(GridLayoutTest, in_the_sale_list_the_name_takes_what_the_others_leave) {
  auto columns = desk->screen.StokGrid.Columns();
  for (auto& column : columns) column.visible = false;
  for (const std::size_t i : {0U, 1U, 3U}) columns[i].visible = true;
  desk->screen.StokGrid.SetColumns(columns);
  Resize(desk->screen.StokGrid, 0, 1000);
  const auto& after = desk->screen.StokGrid.Columns();
  EXPECT_EQ(after[1].width, 4500 - 1000 - after[3].width);
}

TEST_F(GridLayoutTest, a_grid_without_columns_keeps_no_file) {
  EXPECT_EQ(files.Exists(Path("FatGrid.dat")), !desk->screen.FatGrid.Columns().empty());
  desk->screen.FatGrid.SetColumns({{"Ürün", "StokAd"}, {"Tutar", "Tutar"}});
  desk->screen.FatGrid.columnsSwitched();
  EXPECT_TRUE(files.Exists(Path("FatGrid.dat")));
}

}  // namespace
}  // namespace karvel
