#include <algorithm>

#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

// Groups of customers.
class GroupListTest : public CustomerListFixture {};

TEST_F(GroupListTest, all_groups_shows_more_than_the_standard_list) {
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Çetin Öz", "İsmail Şahin"}));
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "Bayi");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Ahmet Işık", "Çetin Öz", "İsmail Şahin", "Merkez Depo", "Muhtelif Müşteri", "Nakit Kasa",
                                               "Plasiyer Can", "Toptancı Bey"}));
}

TEST_F(GroupListTest, a_chosen_group_is_there_after_a_restart) {
  At("GurupCombo").ChooseText("Bayi");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("GurupCombo").Text(), "Bayi");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Çetin Öz", "İsmail Şahin"}));
}

TEST_F(GroupListTest, the_group_toptan_pays_out) {
  At("GurupCombo").ChooseText("Toptan");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Toptancı Bey"});
}

TEST_F(GroupListTest, from_the_wholesalers_to_another_group_the_names_go_back) {
  At("GurupCombo").ChooseText("Toptan");
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
}

TEST_F(GroupListTest, from_the_wholesalers_to_all_groups_the_names_go_back) {
  At("GurupCombo").ChooseText("Toptan");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
}

TEST_F(GroupListTest, the_wholesalers_are_still_paid_after_a_restart) {
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  EXPECT_EQ(At("Text1(0)").Text(), "Toptancı Bey");
}

TEST_F(GroupListTest, a_group_shows_the_balance_of_its_first_customer) {
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.VadeData.RecordSource(), "Select * From VadeGün Where CariKod='C002' Order By VadeTarih Asc");
}

TEST_F(GroupListTest, a_group_without_customers_names_nobody) {
  At("GurupCombo").ChooseText("Fatura");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
}

TEST_F(GroupListTest, a_group_with_a_quote_in_its_name_lists_its_customers) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Ali''nin',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Ali''nin' WHERE CariKod='C001'");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Ali'nin");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
  ASSERT_TRUE(Start());
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
}

TEST_F(GroupListTest, a_group_chosen_in_a_sale_is_listed_when_the_sale_is_left) {
  EnterSale("Ahmet Işık");
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(At("GurupCombo").Text(), "Bayi");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "Bayi");
  // The customer of the sale stands.
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C001");
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  DoubleTap("Label1(0)");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Çetin Öz", "İsmail Şahin"}));
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
}

TEST_F(GroupListTest, a_group_chosen_in_a_sale_has_its_prices_at_once) {
  AddStock("1001", "Pirinç", "Fiyat=50, Fiyat2=40");
  ASSERT_TRUE(Start());
  At("Fiyat2").SetChecked(true);
  EnterSale("Ahmet Işık");
  At("GurupCombo").ChooseText("Fatura");
  PickItem("1001");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
  const auto& columns = desk->screen.StokGrid.Columns();
  const auto first = std::ranges::find_if(columns, [](const GridColumn& column) { return Trim(column.caption) == "1.Fiyat"; });
  ASSERT_NE(first, columns.end());
  EXPECT_EQ(first->field, "Fiyat2");
}

TEST_F(GroupListTest, without_the_button_of_the_group_lists_a_choice_does_nothing) {
  At("ComboCmd").SetVisible(false);
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(Shown().size(), 4U);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "");
}

// Groups of stock cards, while ComboCmd reads "Stok".
class StockGroupListTest : public DeskFixture {
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

TEST_F(StockGroupListTest, a_group_narrows_the_stock_list_and_is_kept) {
  At("GurupCombo").ChooseText("Gıda");
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Şeker"}));
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "SGurup", ""), "Gıda");
  EXPECT_EQ(desk->form.StockGroup, "Gıda");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StockGroupListTest, the_first_entry_gives_the_whole_list_back) {
  At("GurupCombo").ChooseText("Temizlik");
  ASSERT_EQ(Cards(), std::vector<std::string>{"Sabun"});
  At("GurupCombo").Choose(0);
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Sabun", "Şeker"}));
  EXPECT_EQ(desk->cursors.StokData.RecordSource(), "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC");
}

TEST_F(StockGroupListTest, a_stock_group_leaves_the_customers_alone) {
  At("GurupCombo").ChooseText("Gıda");
  EXPECT_EQ(desk->cursors.CariData.RecordCount(), 2);
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "");
}

TEST_F(StockGroupListTest, in_a_sale_a_group_shows_its_first_item_unsold) {
  EnterSale("Ahmet Işık");
  PickItem("1002");
  At("GurupCombo").ChooseText("Temizlik");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Sabun 10,00");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(StockGroupListTest, out_of_an_empty_group_nothing_can_be_sold) {
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

TEST_F(StockGroupListTest, after_an_empty_group_the_next_one_sells_again) {
  EnterSale("Ahmet Işık");
  At("GurupCombo").ChooseText("Boş");
  At("GurupCombo").ChooseText("Temizlik");
  Post("3");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokAd, Tutar FROM Datam"), std::vector<std::string>{"Sabun|30.0"});
}

TEST_F(StockGroupListTest, both_groups_are_there_after_a_restart) {
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

TEST_F(StockGroupListTest, the_desk_opens_with_all_items_whatever_group_was_kept) {
  At("GurupCombo").ChooseText("Temizlik");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Sabun", "Şeker"}));
}

TEST_F(StockGroupListTest, a_kept_group_that_is_gone_shows_the_first_entry) {
  settings.Save("Velmora Karvel1", "Size", "SGurup", "Eski").Ignore();
  ASSERT_TRUE(Start());
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Text(), "Tüm Guruplar");
}

TEST_F(StockGroupListTest, the_entry_that_stands_there_can_be_chosen_once_more) {
  At("GurupCombo").ChooseText("Temizlik");
  EnterSale("Ahmet Işık");
  Set("Text5", "pir");  // another way to narrow the same list
  ASSERT_EQ(Cards(), std::vector<std::string>{"Pirinç"});
  At("GurupCombo").click();
  EXPECT_EQ(Cards(), std::vector<std::string>{"Sabun"});
}

TEST_F(StockGroupListTest, the_list_is_that_of_the_saved_group_as_soon_as_the_stock_groups_are_shown) {
  settings.Save("Velmora Karvel1", "Size", "SGurup", "Temizlik").Ignore();
  ASSERT_TRUE(Start());
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Text(), "Temizlik");
  EXPECT_EQ(Cards(), std::vector<std::string>{"Sabun"});
}

TEST_F(StockGroupListTest, a_list_that_a_name_narrowed_is_whole_again_for_the_next_customer) {
  EnterSale("Ahmet Işık");
  At("Text5").SetText("Şek");
  ASSERT_EQ(Cards(), std::vector<std::string>{"Şeker"});
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text5").Text(), "");
  EXPECT_EQ(Cards(), (std::vector<std::string>{"Pirinç", "Sabun", "Şeker"}));
}

// ComboCmd, which changes between the two.
class GroupListFlipTest : public DeskFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
};

TEST_F(GroupListFlipTest, the_group_list_changes_between_customers_and_stock) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('Kapalı',0)");
  Sql("Stok.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Gıda',1),('WinKarvel1',1)");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("GurupCombo").Items(), (std::vector<std::string>{"Tüm Guruplar", "Bayi"}));
  Click("ComboCmd");
  EXPECT_EQ(At("ComboCmd").Caption(), "Stok");
  EXPECT_EQ(At("GurupCombo").Items(), (std::vector<std::string>{"Tüm Guruplar", "Gıda"}));
  At("GurupCombo").ChooseText("Gıda");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(), "Select * From StokKartlar Where StokGizle=False And Gurup='Gıda' Order By StokAdi Asc");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "SGurup", ""), "Gıda");
  Click("ComboCmd");
  EXPECT_EQ(At("ComboCmd").Caption(), "Cari");
  EXPECT_EQ(At("GurupCombo").Text(), "Tüm Guruplar");
}

// However many of its reads still work: the list ends, and the desk goes on.
TEST_F(GroupListTest, groups_that_cannot_be_read_do_not_hold_the_desk) {
  for (int works = 0; works < 6; ++works) {
    SCOPED_TRACE(works);
    engine.readFault = {ErrorKind::Busy, "locked"};
    engine.readsBeforeFault = works;
    At("ComboCmd").click();
    engine.readFault = {};
    At("ComboCmd").click();
    EXPECT_GT(At("GurupCombo").Items().size(), 1U);
  }
}

}  // namespace
}  // namespace karvel
