#include "desk/tapped_search_fixture.h"

namespace karvel {
namespace {

class TappedSearchCustomerTest : public TappedSearchFixture {};

// The customer's field.

TEST_F(TappedSearchCustomerTest, the_first_tap_empties_the_field_and_asks_for_the_keyboard) {
  ASSERT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  Tap("Text1(0)");
  EXPECT_TRUE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{"Text1(0)"});
  EXPECT_EQ(done, 0);
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(TappedSearchCustomerTest, the_first_tap_brings_the_standard_list_back) {
  Set("Text5", "çe");
  ASSERT_EQ(Customers(), Names{"Çetin Öz"});
  Tap("Text1(0)");
  EXPECT_EQ(Customers(), (Names{"Ahmet Işık", "Çetin Öz", "Muhtelif Müşteri"}));
}

TEST_F(TappedSearchCustomerTest, from_another_field_the_first_tap_keeps_the_group) {
  At("GurupCombo").ChooseText("Bayi");
  At("Text1(0)").SetFocus();
  desk->form.ActiveFieldCode = 3;
  Click("Text1(0)");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(),
            "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
            "CariKod<>'Merkez' And Gurup='Bayi' Order By Unvan Asc");
}

TEST_F(TappedSearchCustomerTest, all_groups_narrow_nothing) {
  At("GurupCombo").ChooseText("Bayi");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  At("Text1(0)").SetFocus();
  desk->form.ActiveFieldCode = 3;
  Click("Text1(0)");
  EXPECT_EQ(Customers(), (Names{"Ahmet Işık", "Çetin Öz", "Muhtelif Müşteri"}));
}

TEST_F(TappedSearchCustomerTest, the_second_tap_takes_the_customer) {
  Search("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(Customer(), "C002");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(done, 1);
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(TappedSearchCustomerTest, the_list_searched_has_the_wholesalers_but_no_salesman_nor_hidden_card) {
  Search("Text1(0)", "çe");
  EXPECT_EQ(Customers(), (Names{"Ahmet Işık", "Çetin Öz", "Muhtelif Müşteri", "Toptancı Bey", "Toptancı Can"}));
}

TEST_F(TappedSearchCustomerTest, a_sale_can_be_entered_with_the_customer_that_was_taken) {
  Search("Text1(0)", "çe");
  DoubleTap("Label1(0)");
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C002");
}

TEST_F(TappedSearchCustomerTest, a_wholesaler_is_paid_and_his_list_comes_in_front) {
  Search("Text1(0)", "toptancı c");
  EXPECT_EQ(At("Text1(0)").Text(), "Toptancı Can");
  EXPECT_EQ(Customer(), "T002");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), "Select * From CariKartlar Where HesKullan=False And Gurup='Toptan' Order By Unvan Asc");
  EXPECT_EQ(Customers(), (Names{"Toptancı Bey", "Toptancı Can"}));
  EXPECT_TRUE(At("CariGrid").HasFocus());
}

TEST_F(TappedSearchCustomerTest, after_a_wholesaler_a_customer_is_collected_from_again) {
  Search("Text1(0)", "topt");
  EXPECT_EQ(At("Label5").Caption(), "12,00");
  Search("Text1(0)", "ahm");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
}

TEST_F(TappedSearchCustomerTest, of_two_with_one_name_the_one_found_stays_in_front) {
  AddCustomer("C010", "Deniz Ak", "KartNo='9010', Bakiye=1");
  AddCustomer("C011", "Deniz Ak", "KartNo='9011', Bakiye=2");
  Search("Text1(0)", "9011");
  EXPECT_EQ(Customer(), "C011");
  EXPECT_EQ(At("Label5").Caption(), "2,00");
}

TEST_F(TappedSearchCustomerTest, a_card_number_finds_its_customer) {
  Search("Text1(0)", "9002");
  EXPECT_EQ(Customer(), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(TappedSearchCustomerTest, a_card_number_is_tried_only_after_the_name) {
  AddCustomer("C009", "9002 Kulübü");
  Search("Text1(0)", "9002");
  EXPECT_EQ(Customer(), "C009");
}

TEST_F(TappedSearchCustomerTest, a_part_of_a_card_number_finds_nobody) {
  Search("Text1(0)", "900");
  EXPECT_TRUE(At("CariFrm").Visible());
}

TEST_F(TappedSearchCustomerTest, a_dotted_capital_is_tried_as_a_small_i) {
  AddCustomer("C020", "ipek Tekstil");
  Search("Text1(0)", "İPEK");
  EXPECT_EQ(Customer(), "C020");
}

TEST_F(TappedSearchCustomerTest, a_capital_without_a_dot_is_tried_as_a_small_one_without) {
  AddCustomer("C021", "ışıl Optik");
  Search("Text1(0)", "IŞIL");
  EXPECT_EQ(Customer(), "C021");
}

TEST_F(TappedSearchCustomerTest, both_letters_are_tried_together) {
  AddCustomer("C022", "iki ışık");
  Search("Text1(0)", "İKİ IŞ");
  EXPECT_EQ(Customer(), "C022");
}

TEST_F(TappedSearchCustomerTest, an_unknown_customer_is_a_new_card_with_the_trimmed_name) {
  Search("Text1(0)", "  Zeki Yeni ");
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(0)").Text(), "Zeki Yeni");
  EXPECT_EQ(At("CariNew(1)").Text(), "Zeki Yeni");
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE Unvan LIKE '%Zeki%'"), "0");
}

TEST_F(TappedSearchCustomerTest, leaving_without_a_second_tap_brings_the_row_from_before_back) {
  At("GurupCombo").ChooseText("Bayi");
  ASSERT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  Tap("Text1(0)");
  At("Text2(2)").SetFocus();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(done, 1);
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(Customers(), Names{"Çetin Öz"});
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(TappedSearchCustomerTest, a_payment_right_after_leaving_goes_to_the_row_from_before) {
  AddCustomer("=100", "Nakit", "Gurup='Kasa'");
  At("GurupCombo").ChooseText("Bayi");
  Tap("Text1(0)");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, CariAd, Tahsilat FROM Datam"), Names{"C002|Çetin Öz|40.0"});
}

TEST_F(TappedSearchCustomerTest, a_name_written_and_left_is_paid_by_whom_it_names) {
  AddCustomer("=100", "Nakit", "Gurup='Kasa'");
  Tap("Text1(0)");
  Write("Text1(0)", "çet");
  Set("Text2(2)", "40");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, Tahsilat FROM Datam"), Names{"C002|40.0"});
}

TEST_F(TappedSearchCustomerTest, enter_closes_the_keyboard_and_takes_the_customer) {
  Tap("Text1(0)");
  Write("Text1(0)", "çet");
  Key("Text1(0)", key::kEnter);
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(Customer(), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_TRUE(At("CariGrid").HasFocus());
}

TEST_F(TappedSearchCustomerTest, names_are_not_completed_under_the_keyboard) {
  Tap("Text1(0)");
  Type("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "çe");
  EXPECT_EQ(Customer(), "C002");
}

TEST_F(TappedSearchCustomerTest, over_the_stock_list_a_tap_does_nothing) {
  At("StokChk").SetChecked(true);
  const std::string list = desk->cursors.CariData.RecordSource();
  Tap("Text1(0)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{});
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
}

TEST_F(TappedSearchCustomerTest, the_customers_field_searches_also_while_codes_are_scanned) {
  At("Label1(1)").SetCaption(" Barkod");
  Search("Text1(0)", "çe");
  EXPECT_EQ(Customer(), "C002");
}

TEST_F(TappedSearchCustomerTest, a_field_that_is_off_in_a_sale_takes_no_tap) {
  EnterSale("Ahmet Işık");
  At("Text1(0)").click();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
}

// The keyboard is never left open behind the clerk's back.

TEST_F(TappedSearchCustomerTest, a_group_closes_the_keyboard) {
  Tap("Text1(0)");
  At("GurupCombo").SetFocus();
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(TappedSearchCustomerTest, the_desk_closes_with_its_keyboard) {
  Tap("Text1(0)");
  EXPECT_TRUE(desk->CloseRequested(false));
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(done, 1);
}

TEST_F(TappedSearchCustomerTest, a_tap_without_a_keyboard_open_tells_no_end) {
  At("Text1(0)").SetFocus();
  At("Text2(2)").SetFocus();
  Key("Text1(0)", key::kEnter);
  EXPECT_EQ(done, 0);
}

// Whatever is written.

TEST_F(TappedSearchCustomerTest, signs_of_the_dialect_never_break_the_customers_search) {
  for (const std::string& text :
       {std::string("*"), std::string("?"), std::string("'"), std::string("\""), std::string("["), std::string("#"), std::string("a'b"),
        std::string("x' Or 'a'='a"), std::string("'; DELETE FROM CariKartlar; --"), std::string(10000, 'q'), std::string("\x01\x02\t")}) {
    Search("Text1(0)", text);
    At("CariFrm").SetVisible(false);
  }
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "7");
  Search("Text1(0)", "çe");
  EXPECT_EQ(Customer(), "C002");
}

}  // namespace
}  // namespace karvel
