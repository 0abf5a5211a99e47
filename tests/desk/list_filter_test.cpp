#include "books/sources.h"
#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

class ListFilterTest : public CustomerListFixture {};

TEST_F(ListFilterTest, the_filter_finds_a_dotted_capital_by_a_small_i) {
  Set("Text5", "ism");
  EXPECT_EQ(Shown(), std::vector<std::string>{"İsmail Şahin"});
  Set("Text5", "a");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
  At("Text5").SetText("");
  EXPECT_EQ(Shown().size(), 4U);
}

TEST_F(ListFilterTest, the_filter_stays_inside_the_chosen_group) {
  At("GurupCombo").ChooseText("Bayi");
  Set("Text5", "a");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  Set("Text5", "ç");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Çetin Öz"});
}

TEST_F(ListFilterTest, signs_of_the_dialect_never_break_the_list) {
  for (const char* text : {"*", "?", "'", "\"", "[", "#", "%", "_", "a'b", "'; DELETE FROM CariKartlar; --"}) {
    Set("Text5", text);
    At("Text5").SetText("");
    Set("Text1(0)", text);
    At("Text1(0)").SetText("");
  }
  Set("Text5", std::string(10000, 'q'));
  At("Text5").SetText("");
  EXPECT_EQ(Shown().size(), 4U);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "9");
}

TEST_F(ListFilterTest, both_i_stand_for_any_letter_in_the_filter) {
  Set("Text5", "İSMA");
  EXPECT_EQ(Shown(), std::vector<std::string>{"İsmail Şahin"});
  At("Text5").SetText("iş");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  At("Text5").SetText("ahmet Işi");  // any letter for the last one
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
}

TEST_F(ListFilterTest, the_filter_keeps_wholesalers_and_salesmen_out) {
  Set("Text5", "t");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  Set("Text5", "p");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
}

TEST_F(ListFilterTest, among_the_wholesalers_the_filter_lists_them) {
  AddCustomer("T002", "Anadolu", "Gurup='Toptan'");
  At("GurupCombo").ChooseText("Toptan");
  Set("Text5", "ana");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Anadolu"});
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
}

TEST_F(ListFilterTest, the_filter_works_in_a_group_with_a_quote) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Ali''nin',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Ali''nin' WHERE CariKod IN ('C001','C003')");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Ali'nin");
  Set("Text5", "ahm");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
}

TEST_F(ListFilterTest, name_balance_due_dates_and_button_follow_the_filter) {
  Choose("Muhtelif Müşteri");
  Set("Text5", "ç");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
  EXPECT_EQ(desk->cursors.VadeData.RecordSource(), "Select * From VadeGün Where CariKod='C002' Order By VadeTarih Asc");
  Set("Text5", "muh");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(ListFilterTest, the_notice_of_the_customer_before_goes_with_the_filter) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-02-20 00:00:00',75.5)");
  Choose("Ahmet Işık");
  ASSERT_TRUE(At("Vadefrm").Visible());
  Set("Text5", "ç");
  EXPECT_FALSE(At("Vadefrm").Visible());
  Set("Text5", "ahm");
  EXPECT_TRUE(At("Vadefrm").Visible());
  Set("Text5", "yok");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

TEST_F(ListFilterTest, when_nothing_fits_nobody_is_named_and_nothing_is_paid) {
  Set("Text5", "yok");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");  // the one that was there
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT sum(Borc) || '|' || sum(Alacak) FROM CariKartlar"), "75.5|30.0");
}

TEST_F(ListFilterTest, a_payment_goes_to_the_customer_that_the_filter_found) {
  Set("Text5", "ç");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, Tahsilat FROM Datam WHERE Tahsilat<>0"), std::vector<std::string>{"C002|40.0"});
}

TEST_F(ListFilterTest, over_a_new_customers_card_the_filter_writes_into_its_field) {
  At("CariFrm").SetVisible(true);
  At("CariNew(2)").SetFocus();
  desk->form.ActiveFieldCode = 2;
  At("Text5").SetText("Kadıköy");
  EXPECT_EQ(At("CariNew(2)").Text(), "Kadıköy");
  EXPECT_EQ(Shown().size(), 4U);
}

TEST_F(ListFilterTest, over_a_delivery_the_filter_writes_into_its_field) {
  At("StokAl").SetVisible(true);
  desk->form.ActiveFieldCode = 99;
  At("Text5").SetText("Şeker");
  EXPECT_EQ(At("Text6(0)").Text(), "Şeker");
  desk->form.ActiveFieldCode = 103;
  At("Text5").SetText("12");
  EXPECT_EQ(At("Text6(3)").Text(), "12");
  desk->form.ActiveFieldCode = 105;
  At("Text5").SetText("8690001");
  EXPECT_EQ(At("Text6(5)").Text(), "8690001");
  EXPECT_EQ(At("Text6(0)").Text(), "Şeker");
  EXPECT_EQ(Shown().size(), 4U);
}

TEST_F(ListFilterTest, in_a_sale_the_filter_narrows_the_stock) {
  AddStock("1001", "Pirinç", "Fiyat=50");
  AddStock("1002", "Şeker", "Fiyat=20");
  ASSERT_TRUE(Start());
  EnterSale("Ahmet Işık");
  Set("Text5", "şe");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(),
            "Select * From StokKartlar Where StokGizle=False And StokAdi Like 'şe*' Order By StokAdi ASC");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Şeker 20,00");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C001");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  Post("2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, StokKod, Tutar FROM Datam WHERE StokKod<>''"), std::vector<std::string>{"C001|1002|40.0"});
}

TEST_F(ListFilterTest, in_a_sale_a_filter_that_fits_nothing_sells_nothing) {
  AddStock("1001", "Pirinç", "Fiyat=50");
  ASSERT_TRUE(Start());
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Set("Text5", "yok");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  Post("2");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
}

TEST_F(ListFilterTest, a_filter_from_before_the_sale_goes_with_it) {
  AddCustomer("C050", "Ömer Bakkal");
  AddCustomer("C051", "Önder Kasap");
  ASSERT_TRUE(Start());
  Set("Text5", "ö");
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C051'").Ok());
  DoubleTap("Label1(0)");
  ASSERT_FALSE(At("CariGrid").Visible());
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text5").Text(), "");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), sources::kCustomers);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C051");
  EXPECT_EQ(At("Text1(0)").Text(), "Önder Kasap");
}

}  // namespace
}  // namespace karvel
