// The stock groups of GurupCombo, while ComboCmd reads "Stok".
#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class StockGroupTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık");
    AddStock("1001", "Pirinç", "Fiyat=50");
    AddStock("1002", "Şeker", "Fiyat=20");
    AddStock("2001", "Sabun", "Gurup='Temizlik'");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Müşteri',1)");
    Sql("Stok.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Gıda',1),('Temizlik',1),('Boş',1)");
    ASSERT_TRUE(Start());
    Click("ComboCmd");
  }
  std::vector<std::string> Cards() {
    std::vector<std::string> names;
    for (const GridRow& row : desk->cursors.StokData.RowsFromStart(100)) names.push_back(AsText(row.values[1]));
    return names;
  }
};

TEST_F(StockGroupTest, a_group_narrows_the_stock_list_and_is_kept) {
  At("GurupCombo").ChooseText("Gıda");
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Şeker"}));
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "SGurup", ""), "Gıda");
  EXPECT_EQ(desk->form.StockGroup, "Gıda");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StockGroupTest, the_first_entry_gives_the_whole_list_back) {
  At("GurupCombo").ChooseText("Temizlik");
  ASSERT_EQ(Cards(), std::vector<std::string>{"Sabun"});
  At("GurupCombo").Choose(0);
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Sabun", "Şeker"}));
  EXPECT_EQ(desk->cursors.StokData.RecordSource(), "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC");
}

TEST_F(StockGroupTest, a_stock_group_leaves_the_customers_alone) {
  At("GurupCombo").ChooseText("Gıda");
  EXPECT_EQ(desk->cursors.CariData.RecordCount(), 2);
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "");
}

TEST_F(StockGroupTest, in_a_sale_a_group_shows_its_first_item_unsold) {
  EnterSale("Ahmet Işık");
  PickItem("1002");
  At("GurupCombo").ChooseText("Temizlik");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Sabun 10,00");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(StockGroupTest, out_of_an_empty_group_nothing_can_be_sold) {
  EnterSale("Ahmet Işık");
  PickItem("1002");
  At("GurupCombo").ChooseText("Boş");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_FALSE(At("Command2").Enabled());
  Post("3");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
  EXPECT_EQ(desk->form.SlipNo, "");
}

TEST_F(StockGroupTest, after_an_empty_group_the_next_one_sells_again) {
  EnterSale("Ahmet Işık");
  At("GurupCombo").ChooseText("Boş");
  At("GurupCombo").ChooseText("Temizlik");
  Post("3");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokAd, Tutar FROM Datam"), std::vector<std::string>{"Sabun|30.0"});
}

TEST_F(StockGroupTest, both_groups_are_there_after_a_restart) {
  At("GurupCombo").ChooseText("Temizlik");
  Click("ComboCmd");
  At("GurupCombo").ChooseText("Müşteri");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("GurupCombo").Text(), "Müşteri");
  EXPECT_EQ(desk->form.StockGroup, "Temizlik");
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Text(), "Temizlik");
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Text(), "Müşteri");
}

TEST_F(StockGroupTest, the_desk_opens_with_all_items_whatever_group_was_kept) {
  At("GurupCombo").ChooseText("Temizlik");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Sabun", "Şeker"}));
}

TEST_F(StockGroupTest, a_kept_group_that_is_gone_shows_the_first_entry) {
  settings.Save("Velmora Karvel1", "Size", "SGurup", "Eski");
  ASSERT_TRUE(Start());
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Text(), "Tüm Guruplar");
}

TEST_F(StockGroupTest, the_entry_that_stands_there_can_be_chosen_once_more) {
  At("GurupCombo").ChooseText("Temizlik");
  EnterSale("Ahmet Işık");
  Set("Text5", "pir");  // another way to narrow the same list
  ASSERT_EQ(Cards(), std::vector<std::string>{"Pirinç"});
  At("GurupCombo").click();
  EXPECT_EQ(Cards(), std::vector<std::string>{"Sabun"});
}

TEST_F(StockGroupTest, the_list_is_that_of_the_saved_group_as_soon_as_the_stock_groups_are_shown) {
  settings.Save("Velmora Karvel1", "Size", "SGurup", "Temizlik");
  ASSERT_TRUE(Start());
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Text(), "Temizlik");
  EXPECT_EQ(Cards(), std::vector<std::string>{"Sabun"});
}

TEST_F(StockGroupTest, a_list_that_a_name_narrowed_is_whole_again_for_the_next_customer) {
  EnterSale("Ahmet Işık");
  At("Text5").SetText("Şek");
  ASSERT_EQ(Cards(), std::vector<std::string>{"Şeker"});
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text5").Text(), "");
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Sabun", "Şeker"}));
}

}  // namespace
}  // namespace karvel
