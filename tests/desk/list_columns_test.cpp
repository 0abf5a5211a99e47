#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class ListColumnsTest : public DeskFixture {};

TEST_F(ListColumnsTest, the_sale_list_shows_eight_fields_of_a_card) {
  ASSERT_TRUE(Start());
  const std::vector<std::pair<std::string, std::string>> wanted{{"Stok Kodu", "StokKod"}, {"Stok Adı", "StokAdi"}, {"Maliyet", "gFiyat"},
                                                                {"1.Fiyat", "Fiyat"},     {"2.Fiyat", "Fiyat2"},   {"3.Fiyat", "Fiyat3"},
                                                                {"Kalan", "KalanB"},      {"Yeri", "Yeri"}};
  std::vector<std::pair<std::string, std::string>> shown;
  for (const GridColumn& column : desk->screen.StokGrid.Columns())
    if (column.visible) shown.emplace_back(Trim(column.caption), column.field);
  EXPECT_EQ(shown, wanted);
  EXPECT_EQ(desk->screen.StokGrid.Source(), &desk->cursors.StokData);
}

}  // namespace
}  // namespace karvel
