#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

using Names = std::vector<std::string>;

class TappedSearchTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık", "Bakiye=75.5, Borc=75.5, Hesap='Borç', KartNo='9001'");
    AddCustomer("C002", "Çetin Öz", "Gurup='Bayi', Bakiye=30, Alacak=30, Hesap='Alacak', KartNo='9002'");
    AddCustomer("T001", "Toptancı Bey", "Gurup='Toptan', Bakiye=12, Alacak=12, Hesap='Alacak'");
    AddCustomer("T002", "Toptancı Can", "Gurup='Toptan'");
    AddCustomer("P001", "Plasiyer Can", "Gurup='Plasiyer'");
    AddCustomer("C004", "Gizli Kart", "HesKullan=1");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('Toptan',1)");
    AddStock("1001", "Pirinç Baldo", "Fiyat=50, Fiyat2=540");
    AddStock("1002", "Pirinç Osmancık", "Fiyat=40");
    AddStock("1003", "Şeker", "Fiyat=20");
    ASSERT_TRUE(Start());
    desk->screen.keyboardWanted.Connect([this](Element& field) { wanted.push_back(field.Name()); });
    desk->screen.keyboardDone.Connect([this] { ++done; });
  }
  Names Customers() { return FirstOf(desk->cursors.CariData, 1); }
  Names Items() { return FirstOf(desk->cursors.StokData, 1); }
  static Names FirstOf(const Cursor& list, std::size_t column) {
    Names names;
    for (const GridRow& row : list.RowsFromStart(100)) names.push_back(AsText(row.values[column]));
    return names;
  }
  // What the on-screen keyboard writes between the two taps.
  void Write(const std::string& field, const std::string& text) { At(field).SetText(text); }
  void Search(const std::string& field, const std::string& text) {
    Tap(field);
    ASSERT_TRUE(desk->form.KeyboardOpen);
    Write(field, text);
    Tap(field);
    EXPECT_FALSE(desk->form.KeyboardOpen);
    EXPECT_EQ(desk->form.RepositionGuard, 0);
  }
  void Special(const std::string& item, const std::string& price) {
    Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('" + item + "','C001'," + price + ")");
  }
  std::string Customer() { return desk->cursors.CariData.Text("CariKod"); }
  std::string Item() { return desk->cursors.StokData.Text("StokKod"); }

  Names wanted;
  int done = 0;
};

// The customer's field.

TEST_F(TappedSearchTest, the_first_tap_empties_the_field_and_asks_for_the_keyboard) {
  ASSERT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  Tap("Text1(0)");
  EXPECT_TRUE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{"Text1(0)"});
  EXPECT_EQ(done, 0);
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(desk->form.RepositionGuard, 0);
}

TEST_F(TappedSearchTest, the_first_tap_brings_the_standard_list_back) {
  Set("Text5", "çe");
  ASSERT_EQ(Customers(), Names{"Çetin Öz"});
  Tap("Text1(0)");
  EXPECT_EQ(Customers(), (Names{"Ahmet Işık", "Çetin Öz", "Muhtelif Müşteri"}));
}

TEST_F(TappedSearchTest, from_another_field_the_first_tap_keeps_the_group) {
  At("GurupCombo").ChooseText("Bayi");
  At("Text1(0)").SetFocus();
  desk->form.ActiveFieldCode = 3;
  Click("Text1(0)");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(),
            "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
            "CariKod<>'Merkez' And Gurup='Bayi' Order By Unvan Asc");
}

TEST_F(TappedSearchTest, all_groups_narrow_nothing) {
  At("GurupCombo").ChooseText("Bayi");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  At("Text1(0)").SetFocus();
  desk->form.ActiveFieldCode = 3;
  Click("Text1(0)");
  EXPECT_EQ(Customers(), (Names{"Ahmet Işık", "Çetin Öz", "Muhtelif Müşteri"}));
}

TEST_F(TappedSearchTest, the_second_tap_takes_the_customer) {
  Search("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(Customer(), "C002");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(done, 1);
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(TappedSearchTest, the_list_searched_has_the_wholesalers_but_no_salesman_nor_hidden_card) {
  Search("Text1(0)", "çe");
  EXPECT_EQ(Customers(), (Names{"Ahmet Işık", "Çetin Öz", "Muhtelif Müşteri", "Toptancı Bey", "Toptancı Can"}));
}

TEST_F(TappedSearchTest, a_sale_can_be_entered_with_the_customer_that_was_taken) {
  Search("Text1(0)", "çe");
  DoubleTap("Label1(0)");
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C002");
}

TEST_F(TappedSearchTest, a_wholesaler_is_paid_and_his_list_comes_in_front) {
  Search("Text1(0)", "toptancı c");
  EXPECT_EQ(At("Text1(0)").Text(), "Toptancı Can");
  EXPECT_EQ(Customer(), "T002");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), "Select * From CariKartlar Where HesKullan=False And Gurup='Toptan' Order By Unvan Asc");
  EXPECT_EQ(Customers(), (Names{"Toptancı Bey", "Toptancı Can"}));
  EXPECT_TRUE(At("CariGrid").HasFocus());
}

TEST_F(TappedSearchTest, after_a_wholesaler_a_customer_is_collected_from_again) {
  Search("Text1(0)", "topt");
  EXPECT_EQ(At("Label5").Caption(), "12,00");
  Search("Text1(0)", "ahm");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
}

TEST_F(TappedSearchTest, of_two_with_one_name_the_one_found_stays_in_front) {
  AddCustomer("C010", "Deniz Ak", "KartNo='9010', Bakiye=1");
  AddCustomer("C011", "Deniz Ak", "KartNo='9011', Bakiye=2");
  Search("Text1(0)", "9011");
  EXPECT_EQ(Customer(), "C011");
  EXPECT_EQ(At("Label5").Caption(), "2,00");
}

TEST_F(TappedSearchTest, a_card_number_finds_its_customer) {
  Search("Text1(0)", "9002");
  EXPECT_EQ(Customer(), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(TappedSearchTest, a_card_number_is_tried_only_after_the_name) {
  AddCustomer("C009", "9002 Kulübü");
  Search("Text1(0)", "9002");
  EXPECT_EQ(Customer(), "C009");
}

TEST_F(TappedSearchTest, a_part_of_a_card_number_finds_nobody) {
  Search("Text1(0)", "900");
  EXPECT_TRUE(At("CariFrm").Visible());
}

TEST_F(TappedSearchTest, a_dotted_capital_is_tried_as_a_small_i) {
  AddCustomer("C020", "ipek Tekstil");
  Search("Text1(0)", "İPEK");
  EXPECT_EQ(Customer(), "C020");
}

TEST_F(TappedSearchTest, a_capital_without_a_dot_is_tried_as_a_small_one_without) {
  AddCustomer("C021", "ışıl Optik");
  Search("Text1(0)", "IŞIL");
  EXPECT_EQ(Customer(), "C021");
}

TEST_F(TappedSearchTest, both_letters_are_tried_together) {
  AddCustomer("C022", "iki ışık");
  Search("Text1(0)", "İKİ IŞ");
  EXPECT_EQ(Customer(), "C022");
}

TEST_F(TappedSearchTest, an_unknown_customer_is_a_new_card_with_the_trimmed_name) {
  Search("Text1(0)", "  Zeki Yeni ");
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(0)").Text(), "Zeki Yeni");
  EXPECT_EQ(At("CariNew(1)").Text(), "Zeki Yeni");
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE Unvan LIKE '%Zeki%'"), "0");
}

TEST_F(TappedSearchTest, leaving_without_a_second_tap_names_the_row_in_front) {
  At("GurupCombo").ChooseText("Bayi");
  ASSERT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  Tap("Text1(0)");
  At("Text2(2)").SetFocus();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(done, 1);
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");  // the list began anew
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
}

TEST_F(TappedSearchTest, a_payment_right_after_leaving_goes_to_the_row_in_front) {
  AddCustomer("=100", "Nakit", "Gurup='Kasa'");
  At("GurupCombo").ChooseText("Bayi");
  Tap("Text1(0)");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, CariAd, Tahsilat FROM Datam"), Names{"C001|Ahmet Işık|40.0"});
}

TEST_F(TappedSearchTest, a_name_written_and_left_is_paid_by_whom_it_names) {
  AddCustomer("=100", "Nakit", "Gurup='Kasa'");
  Tap("Text1(0)");
  Write("Text1(0)", "çet");
  Set("Text2(2)", "40");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, Tahsilat FROM Datam"), Names{"C002|40.0"});
}

TEST_F(TappedSearchTest, enter_closes_the_keyboard_and_takes_the_customer) {
  Tap("Text1(0)");
  Write("Text1(0)", "çet");
  Key("Text1(0)", key::kEnter);
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(Customer(), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_TRUE(At("CariGrid").HasFocus());
}

TEST_F(TappedSearchTest, names_are_not_completed_under_the_keyboard) {
  Tap("Text1(0)");
  Type("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "çe");
  EXPECT_EQ(Customer(), "C002");
}

TEST_F(TappedSearchTest, over_the_stock_list_a_tap_does_nothing) {
  At("StokChk").SetChecked(true);
  const std::string list = desk->cursors.CariData.RecordSource();
  Tap("Text1(0)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{});
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
}

TEST_F(TappedSearchTest, the_customers_field_searches_also_while_codes_are_scanned) {
  At("Label1(1)").SetCaption(" Barkod");
  Search("Text1(0)", "çe");
  EXPECT_EQ(Customer(), "C002");
}

TEST_F(TappedSearchTest, a_field_that_is_off_in_a_sale_takes_no_tap) {
  EnterSale("Ahmet Işık");
  At("Text1(0)").click();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
}

// The product's field.

TEST_F(TappedSearchTest, the_first_tap_on_the_product_empties_it_over_the_whole_list) {
  EnterSale("Ahmet Işık");
  Set("Text5", "şe");
  ASSERT_EQ(Items(), Names{"Şeker"});
  Tap("Text1(1)");
  EXPECT_TRUE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{"Text1(1)"});
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_EQ(Items(), (Names{"Pirinç Baldo", "Pirinç Osmancık", "Şeker"}));
  EXPECT_EQ(desk->form.RepositionGuard, 0);
}

TEST_F(TappedSearchTest, the_second_tap_takes_the_item_and_narrows_the_list_to_the_name) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "pirinç o");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
  EXPECT_EQ(Item(), "1002");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  EXPECT_EQ(desk->form.LastStokSearch, "pirinç o");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(),
            "Select * From StokKartlar Where StokGizle=False And StokAdi Like 'pirinç o*' Order By StokAdi ASC");
  EXPECT_EQ(Items(), Names{"Pirinç Osmancık"});
}

TEST_F(TappedSearchTest, an_item_that_was_taken_is_sold_with_the_quantity_typed_next) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "şe");
  Post("3");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar, Fiyat, Tutar FROM Datam"), Names{"1003|3.0|20.0|60.0"});
}

TEST_F(TappedSearchTest, an_unknown_item_is_a_new_card_with_the_text_as_its_name) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  Write("Text1(1)", "Zeytin");
  Tap("Text1(1)");
  EXPECT_TRUE(At("StokGiris").Visible());
  EXPECT_EQ(At("StokNew(1)").Text(), "Zeytin");
  EXPECT_TRUE(At("StokNew(0)").HasFocus());
  EXPECT_TRUE(desk->form.KeyboardOpen);  // for the code of the new card
  EXPECT_EQ(wanted, (Names{"Text1(1)", "StokNew(0)"}));
  EXPECT_EQ(desk->form.LastStokSearch, "Zeytin");
  EXPECT_EQ(desk->form.RepositionGuard, 0);
}

TEST_F(TappedSearchTest, after_an_unknown_item_the_whole_list_is_there_for_the_scanner) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  Write("Text1(1)", "Zeytin");
  Tap("Text1(1)");
  EXPECT_EQ(Items().size(), 3U);
}

TEST_F(TappedSearchTest, while_codes_are_scanned_a_tap_on_the_product_opens_nothing) {
  EnterSale("Ahmet Işık");
  PickItem("1002");
  At("Label1(1)").SetCaption(" Barkod");
  Tap("Text1(1)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{});
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
}

TEST_F(TappedSearchTest, leaving_an_empty_product_field_names_the_row_in_front_unsold) {
  EnterSale("Ahmet Işık");
  PickItem("1003");
  Tap("Text1(1)");
  At("Text2(0)").SetFocus();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Baldo");
  EXPECT_EQ(At("Text2(0)").Text(), "50,00");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(TappedSearchTest, leaving_a_written_name_completes_it_with_the_customers_own_prices) {
  Special("1002", "35");
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Tap("Text1(1)");
  Write("Text1(1)", "pirinç o");
  At("Text2(1)").SetFocus();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{40, 0, 0, 35}));
  DoubleTap("Label1(2)");
  EXPECT_EQ(At("Label1(2)").Caption() + " " + At("Text2(0)").Text(), "Özel 35,00");
}

TEST_F(TappedSearchTest, the_second_tap_brings_the_customers_own_prices) {
  Special("1002", "35");
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Search("Text1(1)", "pirinç o");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{40, 0, 0, 35}));
}

TEST_F(TappedSearchTest, enter_on_a_written_name_brings_the_customers_own_prices) {
  Special("1002", "35");
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Tap("Text1(1)");
  Write("Text1(1)", "Pirinç Osmancık");
  Key("Text1(1)", key::kEnter);
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(Item(), "1002");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{40, 0, 0, 35}));
}

TEST_F(TappedSearchTest, enter_on_a_written_name_drops_the_serials_of_the_item_before) {
  EnterSale("Ahmet Işık");
  PickItem("1001");
  At("List1").AddItem("SN-1");
  Tap("Text1(1)");
  Write("Text1(1)", "Pirinç Osmancık");
  Key("Text1(1)", key::kEnter);
  EXPECT_TRUE(At("List1").Items().empty());
}

// The next of a name, by a double tap on Label1(1).

TEST_F(TappedSearchTest, a_double_tap_goes_round_the_cards_of_the_name_searched_for) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "Su");
  Names seen{Item()};
  for (int i = 0; i < 2; ++i) {
    DoubleTap("Label1(1)");
    seen.push_back(Item());
  }
  EXPECT_EQ(seen, (Names{"1004", "1005", "1004"}));
  EXPECT_EQ(At("Label1(1)").Caption(), " Ürün");
  EXPECT_EQ(desk->form.LastStokSearch, "Su");
}

TEST_F(TappedSearchTest, the_fields_show_the_next_card_of_the_name) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "Su");
  DoubleTap("Label1(1)");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Su 2,00");
}

TEST_F(TappedSearchTest, a_name_with_a_wild_card_goes_round_all_its_cards) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "pir*");
  ASSERT_EQ(Item(), "1001");
  DoubleTap("Label1(1)");
  EXPECT_EQ(Item(), "1002");
  DoubleTap("Label1(1)");
  EXPECT_EQ(Item(), "1001");
}

TEST_F(TappedSearchTest, a_name_that_no_card_has_is_forgotten_and_names_and_codes_change_places) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "pir");  // the beginning of a name, not a whole one
  DoubleTap("Label1(1)");
  EXPECT_EQ(desk->form.LastStokSearch, "");
  EXPECT_EQ(At("Label1(1)").Caption(), " Barkod");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
}

// The keyboard is never left open behind the clerk's back.

TEST_F(TappedSearchTest, a_tap_on_the_stock_list_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  PickItem("1003");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(done, 1);
}

TEST_F(TappedSearchTest, enter_on_an_unknown_code_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  Write("Text1(1)", "404");
  Key("Text1(1)", key::kEnter);
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchTest, a_scan_closes_the_keyboard_and_finds_its_item) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  scanner.codeRead("8691003");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(Item(), "1003");
  EXPECT_EQ(At("Text2(0)").Text(), "20,00");
}

TEST_F(TappedSearchTest, entering_a_sale_closes_the_keyboard) {
  Tap("Text1(0)");
  Write("Text1(0)", "Çetin Öz");
  DoubleTap("Label1(0)");
  ASSERT_FALSE(At("CariGrid").Visible());
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C002");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Baldo");
}

TEST_F(TappedSearchTest, a_sale_entered_from_the_keyboard_sells_what_it_shows) {
  EnterSale("Ahmet Işık");
  PickItem("1003");
  DoubleTap("Label1(0)");
  Tap("Text1(0)");
  Write("Text1(0)", "Çetin Öz");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Pirinç Baldo 50,00");
  Post("2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, StokKod, Tutar FROM Datam"), Names{"C002|1001|100.0"});
}

TEST_F(TappedSearchTest, changing_to_codes_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  DoubleTap("Label1(1)");
  EXPECT_EQ(At("Label1(1)").Caption(), " Barkod");
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchTest, the_next_of_a_name_is_shown_also_from_the_keyboard) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "Su");
  Tap("Text1(1)");
  DoubleTap("Label1(1)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Su 1,00");  // the whole list began anew
}

TEST_F(TappedSearchTest, leaving_a_sale_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  DoubleTap("Label1(0)");
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchTest, a_group_closes_the_keyboard) {
  Tap("Text1(0)");
  At("GurupCombo").SetFocus();
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(TappedSearchTest, the_desk_closes_with_its_keyboard) {
  Tap("Text1(0)");
  EXPECT_TRUE(desk->CloseRequested(false));
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(done, 1);
}

TEST_F(TappedSearchTest, a_tap_without_a_keyboard_open_tells_no_end) {
  At("Text1(0)").SetFocus();
  At("Text2(2)").SetFocus();
  Key("Text1(0)", key::kEnter);
  EXPECT_EQ(done, 0);
}

// Whatever is written.

TEST_F(TappedSearchTest, signs_of_the_dialect_never_break_the_customers_search) {
  for (const std::string& text : {std::string("*"), std::string("?"), std::string("'"), std::string("\""), std::string("["), std::string("#"),
                                  std::string("a'b"), std::string("x' Or 'a'='a"), std::string("'; DELETE FROM CariKartlar; --"),
                                  std::string(10000, 'q'), std::string("\x01\x02\t")}) {
    Search("Text1(0)", text);
    At("CariFrm").SetVisible(false);
  }
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "7");
  Search("Text1(0)", "çe");
  EXPECT_EQ(Customer(), "C002");
}

TEST_F(TappedSearchTest, signs_of_the_dialect_never_break_the_products_search) {
  EnterSale("Ahmet Işık");
  for (const std::string& text : {std::string("*"), std::string("?"), std::string("'"), std::string("\""), std::string("["), std::string("#"),
                                  std::string("a'b"), std::string("x' Or 'a'='a"), std::string("'; DELETE FROM StokKartlar; --"),
                                  std::string(10000, 'q'), std::string("\x01\x02\t")}) {
    Tap("Text1(1)");
    Write("Text1(1)", text);
    Tap("Text1(1)");
    EXPECT_EQ(desk->form.RepositionGuard, 0);
    At("StokGiris").SetVisible(false);
    At("StokGrid").SetFocus();
    PickItem("1001");
    EXPECT_FALSE(desk->form.KeyboardOpen);
  }
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "3");
  Search("Text1(1)", "şe");
  EXPECT_EQ(Item(), "1003");
}

TEST_F(TappedSearchTest, a_wild_card_finds_inside_names) {
  Search("Text1(0)", "*öz");
  EXPECT_EQ(Customer(), "C002");
  EnterSale("Çetin Öz");
  Search("Text1(1)", "*man");
  EXPECT_EQ(Item(), "1002");
}

TEST_F(TappedSearchTest, a_name_with_a_quote_is_found_by_what_stands_before_it) {
  AddCustomer("C030", "O''Neil Ltd");
  AddStock("1006", "Lay''s Klasik", "Fiyat=15");
  Search("Text1(0)", "o?ne");
  EXPECT_EQ(Customer(), "C030");
  EXPECT_EQ(At("Text1(0)").Text(), "O'Neil Ltd");
  DoubleTap("Label1(0)");
  ASSERT_FALSE(At("CariGrid").Visible());
  Search("Text1(1)", "lay");
  Post("2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, StokAd, Tutar FROM Datam"), Names{"C030|Lay's Klasik|30.0"});
}

}  // namespace
}  // namespace karvel
