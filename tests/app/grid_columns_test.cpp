#include "app/grid_columns.h"

#include <gtest/gtest.h>

#include <limits>

#include "text/turkish.h"

namespace karvel {
namespace {

GridColumn Column(const char* field, double pixels = 0, bool visible = true) {
  return {field, field, visible, Align::Left, "", pixels * kTwipsPerPixel};
}

TEST(GridColumns, the_name_column_takes_the_rest) {
  const std::vector<GridColumn> columns{Column("StokKod", 80), Column("StokAdi", 50), Column("Yeri", 70)};
  const auto shown = PlaceColumns(columns, {}, nullptr, 600);
  ASSERT_EQ(shown.size(), 3U);
  EXPECT_EQ(shown[1].width, 600 - 80 - 70);
  EXPECT_EQ(shown[2].x + shown[2].width, 600);
}

TEST(GridColumns, the_name_is_known_by_its_field_wherever_it_stands) {
  EXPECT_EQ(StretchColumn({Column("Unvan"), Column("Bakiye"), Column("Hesap")}), 0);
  EXPECT_EQ(StretchColumn({Column("Tarih"), Column("Miktar"), Column("StokAd")}), 2);
  EXPECT_EQ(StretchColumn({Column("Tarih"), Column("Aciklama"), Column("Borc")}), 1);
}

TEST(GridColumns, hidden_columns_take_no_room_and_keep_their_numbers) {
  const auto shown = PlaceColumns({Column("Unvan"), Column("Giren", 90, false), Column("Bakiye", 90)}, {}, nullptr, 400);
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[1].number, 2);
  EXPECT_EQ(shown[0].width + shown[1].width, 400);
}

TEST(GridColumns, too_many_columns_give_way_together_and_never_leave_the_grid) {
  std::vector<GridColumn> columns{Column("StokAdi")};
  for (int i = 0; i < 8; ++i) columns.push_back(Column("F", 120));
  const auto shown = PlaceColumns(columns, {}, nullptr, 500);
  EXPECT_GE(shown[0].width, 150);
  EXPECT_EQ(shown.back().x + shown.back().width, 500);
}

TEST(GridColumns, a_narrow_width_never_cuts_an_amount) {
  std::vector<GridColumn> columns{Column("Unvan"), Column("Bakiye", 40)};
  columns[1].align = Align::Right;
  const auto shown = PlaceColumns(columns, {{}, {50, 110}}, nullptr, 500);
  EXPECT_EQ(shown[1].width, 110);
}

TEST(GridColumns, figures_do_not_spread_over_the_room_of_the_names) {
  std::vector<GridColumn> columns{Column("StokAdi", 120), Column("GirenMik", 400)};
  columns[1].align = Align::Right;
  const auto shown = PlaceColumns(columns, {}, nullptr, 600);
  EXPECT_GE(shown[0].width, 450);
}

TEST(GridColumns, what_is_beyond_the_need_goes_before_the_need) {
  std::vector<GridColumn> columns{Column("StokAdi"), Column("Yeri", 300), Column("Fiyat", 90)};
  columns[2].align = Align::Right;
  const auto shown = PlaceColumns(columns, {{}, {60, 50}, {60, 90}}, nullptr, 400);
  EXPECT_EQ(shown[2].width, 90);
  EXPECT_LT(shown[1].width, 150);
}

TEST(GridColumns, in_a_window_drawn_smaller_the_names_give_the_prices_their_room) {
  // The stock list of a sale on a 1024×768 screen at 200 %.
  std::vector<GridColumn> columns{Column("StokKod"), Column("StokAdi")};
  std::vector<ColumnNeed> needs{{46, 40}, {40, 120}};
  for (int price = 0; price < 5; ++price) {
    columns.push_back(Column("Fiyat"));
    columns.back().align = Align::Right;
    needs.push_back({38, 44});
  }
  const auto shown = PlaceColumns(columns, needs, nullptr, 341, 0.52);
  for (std::size_t price = 2; price < shown.size(); ++price) EXPECT_GE(shown[price].width, 44 * 6 / 7);
  EXPECT_GE(shown[1].width, 88);
  EXPECT_EQ(shown.back().x + shown.back().width, 341);
}

TEST(GridColumns, the_letters_of_all_columns_become_smaller_before_one_loses_its_end) {
  std::vector<GridColumn> columns{Column("StokKod"), Column("StokAdi"), Column("Fiyat"), Column("Fiyat2")};
  columns[2].align = columns[3].align = Align::Right;
  const auto shown = PlaceColumns(columns, {{60, 84}, {}, {70, 98}, {70, 140}}, nullptr, 462);
  EXPECT_GE(shown[0].width, 84 * 6 / 7);
  EXPECT_GE(shown[2].width, 98 * 6 / 7);
  EXPECT_GE(shown[3].width, 140 * 6 / 7);
}

TEST(GridColumns, the_order_of_a_source_is_read_from_its_text) {
  const Table* const table = Catalogue::File("Cari.mdb")->Find("CariKartlar");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(SortedPosition(*table, "Select * From CariKartlar Where HesKullan=False Order By Unvan Asc"), table->Position("Unvan"));
  EXPECT_EQ(SortedPosition(*table, "select * from CariKartlar ORDER BY Bakiye"), table->Position("Bakiye"));
  EXPECT_EQ(SortedPosition(*table, "CariKartlar"), -1);
}

TEST(GridColumns, cells_show_numbers_dates_and_ticks_in_the_shops_way) {
  GridColumn money = Column("Tutar");
  money.format = "#,##0.00";
  EXPECT_EQ(CellText(money, {Value(1234.5)}, 0), "1.234,50");
  EXPECT_EQ(CellText(Column("Miktar"), {Value(2.5)}, 0), "2,5");
  EXPECT_EQ(CellText(Column("Tarih"), {Value(DateTime{2026, 3, 1, 9, 5, 0})}, 0), "01.03.2026 09:05");
  EXPECT_EQ(CellText(Column("Tarih"), {Value(DateTime{})}, 0), "");
  EXPECT_EQ(CellText(Column("Sec"), {Value(true)}, 0), "✓");
  EXPECT_EQ(CellText(Column("Sec"), {Value(false)}, 0), "");
  EXPECT_EQ(CellText(Column("X"), {Value(1.0)}, -1), "");
}

TEST(CellText, a_number_field_that_holds_none_is_shown_as_damaged) {
  const Table& table = *Catalogue::File("Stok.mdb")->Find("StokKartlar");
  Row row(table.columns.size());
  const int price = table.Position("Fiyat"), name = table.Position("StokAdi");
  const GridColumn prices{.caption = "Fiyat", .field = "Fiyat", .format = "Standard"}, names{.caption = "Ad", .field = "StokAdi"};
  const auto shown = [&](const Value& value) {
    row[static_cast<std::size_t>(price)] = value;
    return CellText(prices, row, price, &table);
  };
  EXPECT_EQ(shown(12.5), "12,50");
  EXPECT_EQ(shown(std::string("elli")), "#bozuk");
  EXPECT_EQ(shown(std::numeric_limits<double>::infinity()), "#bozuk");
  EXPECT_EQ(shown(std::numeric_limits<double>::quiet_NaN()), "#bozuk");
  EXPECT_EQ(shown(std::string()), "");
  EXPECT_EQ(shown(std::string("12,5")), "12,5");
  EXPECT_EQ(shown({}), "");
  row[static_cast<std::size_t>(name)] = std::string("elli");
  EXPECT_EQ(CellText(names, row, name, &table), "elli");
}

TEST(CellText, a_text_without_end_is_cut) {
  const Table& table = *Catalogue::File("Stok.mdb")->Find("StokKartlar");
  Row row(table.columns.size());
  const int name = table.Position("StokAdi");
  std::string long_;
  for (int i = 0; i < 100000; ++i) long_ += "ş";
  row[static_cast<std::size_t>(name)] = long_;
  const std::string shown = CellText({.caption = "Ad", .field = "StokAdi"}, row, name, &table);
  EXPECT_EQ(LetterCount(shown), 301U);
  EXPECT_TRUE(shown.ends_with("ş…"));
}

}  // namespace
}  // namespace karvel
