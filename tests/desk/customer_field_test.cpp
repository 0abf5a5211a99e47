#include <algorithm>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class CustomerListTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık", "Bakiye=75.5, Borc=75.5, Hesap='Borç', KartNo='9001'");
    AddCustomer("C002", "Çetin Öz", "Gurup='Bayi', Bakiye=30, Alacak=30, Hesap='Alacak'");
    AddCustomer("C003", "İsmail Şahin", "Gurup='Bayi'");
    AddCustomer("C004", "Gizli Kart", "HesKullan=1");
    AddCustomer("T001", "Toptancı Bey", "Gurup='Toptan'");
    AddCustomer("P001", "Plasiyer Can", "Gurup='PLASiYER'");
    AddCustomer("=100", "Nakit Kasa");
    AddCustomer("Merkez", "Merkez Depo");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('Müşteri',1),('Toptan',1),('Fatura',1)");
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum) VALUES('C002','Çetin Öz',5,'2026-03-01 09:00:00','Satış')");
    ASSERT_TRUE(Start());
  }
  std::vector<std::string> Shown() {
    std::vector<std::string> names;
    for (const GridRow& row : desk->cursors.CariData.RowsFromStart(100)) names.push_back(AsText(row.values[1]));
    return names;
  }
  void Choose(const std::string& name) { ASSERT_TRUE(desk->cursors.CariData.FindFirst("Unvan='" + name + "'").Ok()); }
};

TEST_F(CustomerListTest, the_standard_list_leaves_out_what_is_no_customer_and_orders_by_the_turkish_alphabet) {
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Ahmet Işık", "Çetin Öz", "İsmail Şahin", "Muhtelif Müşteri"}));
}

TEST_F(CustomerListTest, the_row_in_front_is_the_customer_of_the_desk) {
  Choose("Çetin Öz");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.CariHarData.RecordSource(), "Select * From CariHareket Where CariHarKod='C002' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.VadeData.RecordSource(), "Select * From VadeGün Where CariKod='C002' Order By VadeTarih Asc");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 1);
}

TEST_F(CustomerListTest, in_purchase_mode_the_fields_stay_with_the_last_customer) {
  Choose("Çetin Öz");
  At("Label4").SetCaption("Alış");
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerListTest, the_walk_in_customer_turns_the_print_button_into_collection) {
  Choose("Muhtelif Müşteri");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
}

TEST_F(CustomerListTest, all_groups_shows_more_than_the_standard_list) {
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

TEST_F(CustomerListTest, a_chosen_group_is_there_after_a_restart) {
  At("GurupCombo").ChooseText("Bayi");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("GurupCombo").Text(), "Bayi");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Çetin Öz", "İsmail Şahin"}));
}

TEST_F(CustomerListTest, the_group_toptan_pays_out) {
  At("GurupCombo").ChooseText("Toptan");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Toptancı Bey"});
}

TEST_F(CustomerListTest, typing_moves_the_list_and_completes_the_name) {
  Set("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Text1(0)").SelectionStart(), 2);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(CustomerListTest, enter_takes_the_customer_and_goes_to_the_list) {
  Set("Text1(0)", "çe");
  Key("Text1(0)", key::kEnter);
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerListTest, an_unknown_name_opens_a_new_card_with_the_name_in_it) {
  Set("Text1(0)", "Zeki Yeni");
  Key("Text1(0)", key::kEnter);
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(0)").Text(), "Zeki Yeni");
  EXPECT_EQ(At("CariNew(1)").Text(), "Zeki Yeni");
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
}

TEST_F(CustomerListTest, the_filter_finds_a_dotted_capital_by_a_small_i) {
  Set("Text5", "ism");
  EXPECT_EQ(Shown(), std::vector<std::string>{"İsmail Şahin"});
  Set("Text5", "a");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
  At("Text5").SetText("");
  EXPECT_EQ(Shown().size(), 4U);
}

TEST_F(CustomerListTest, the_filter_stays_inside_the_chosen_group) {
  At("GurupCombo").ChooseText("Bayi");
  Set("Text5", "a");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  Set("Text5", "ç");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Çetin Öz"});
}

TEST_F(CustomerListTest, signs_of_the_dialect_never_break_the_list) {
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

TEST_F(CustomerListTest, an_overdue_customer_is_noticed_and_the_notice_goes_with_a_tap) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-02-20 00:00:00',75.5)");
  Choose("Ahmet Işık");
  EXPECT_TRUE(At("Vadefrm").Visible());
  EXPECT_EQ(At("Label15").Caption(), "9 Gün");
  Click("Vadefrm");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

TEST_F(CustomerListTest, what_is_due_today_is_no_notice) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-03-01 00:00:00',75.5)");
  Choose("Ahmet Işık");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

// Guards.

TEST_F(CustomerListTest, under_guard_99_a_move_leaves_the_fields_and_the_sources) {
  Choose("Çetin Öz");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerListTest, under_guard_99_a_move_reads_the_day_book_anew) {
  Choose("Çetin Öz");
  ASSERT_EQ(desk->cursors.HareketData.RecordCount(), 1);
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum) VALUES('C002','Çetin Öz',7,'2026-03-01 09:30:00','Satış')");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Choose("Ahmet Işık");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 2);
}

TEST_F(CustomerListTest, under_guard_555_a_move_changes_nothing) {
  Choose("Muhtelif Müşteri");
  ASSERT_EQ(At("Command1").Caption(), "Tahsilat");
  const std::string book = desk->cursors.HareketData.RecordSource();
  At("Text1(0)").SetText("Ahmet Işık");
  desk->form.RepositionGuard.Keep(Mute::Customers);
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), book);
}

TEST_F(CustomerListTest, while_the_keyboard_is_open_a_move_changes_nothing) {
  Choose("Çetin Öz");
  desk->form.KeyboardOpen = true;
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerListTest, in_a_sale_a_move_shows_the_total_of_the_day_and_leaves_the_name) {
  EnterSale("Çetin Öz");
  At("Label5").SetCaption("99");
  Choose("Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "5,00");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(CustomerListTest, at_rest_a_move_shows_the_balance_without_its_side) {
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  Choose("İsmail Şahin");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
}

// Groups.

TEST_F(CustomerListTest, from_the_wholesalers_to_another_group_the_names_go_back) {
  At("GurupCombo").ChooseText("Toptan");
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
}

TEST_F(CustomerListTest, from_the_wholesalers_to_all_groups_the_names_go_back) {
  At("GurupCombo").ChooseText("Toptan");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
}

TEST_F(CustomerListTest, the_wholesalers_are_still_paid_after_a_restart) {
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  EXPECT_EQ(At("Text1(0)").Text(), "Toptancı Bey");
}

TEST_F(CustomerListTest, a_group_shows_the_balance_of_its_first_customer) {
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.VadeData.RecordSource(), "Select * From VadeGün Where CariKod='C002' Order By VadeTarih Asc");
}

TEST_F(CustomerListTest, a_group_without_customers_names_nobody) {
  At("GurupCombo").ChooseText("Fatura");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
}

TEST_F(CustomerListTest, a_group_with_a_quote_in_its_name_lists_its_customers) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Ali''nin',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Ali''nin' WHERE CariKod='C001'");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Ali'nin");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
  ASSERT_TRUE(Start());
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
}

TEST_F(CustomerListTest, a_group_chosen_in_a_sale_is_listed_when_the_sale_is_left) {
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

TEST_F(CustomerListTest, a_group_chosen_in_a_sale_has_its_prices_at_once) {
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

TEST_F(CustomerListTest, without_the_button_of_the_group_lists_a_choice_does_nothing) {
  At("ComboCmd").SetVisible(false);
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(Shown().size(), 4U);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "");
}

// The name's field.

TEST_F(CustomerListTest, keys_that_only_take_away_or_move_do_not_complete_the_name) {
  At("Text1(0)").SetFocus();
  At("Text1(0)").SetText("Çe");
  for (const int code : {key::kBackspace, key::kDelete, key::kF1, key::kLeft, key::kHome, key::kTab, 16}) {
    KeyEvent event{code};
    At("Text1(0)").keyUp(event);
    EXPECT_EQ(At("Text1(0)").Text(), "Çe") << code;
  }
  KeyEvent letter{'E'};
  At("Text1(0)").keyUp(letter);
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(CustomerListTest, backspace_takes_the_completed_rest_of_the_name_away) {
  Set("Text1(0)", "çe");
  Erase("Text1(0)");
  EXPECT_EQ(At("Text1(0)").Text(), "Çe");
  Erase("Text1(0)");
  EXPECT_EQ(At("Text1(0)").Text(), "Ç");
}

TEST_F(CustomerListTest, a_star_alone_searches_nobody) {
  Choose("Çetin Öz");
  Set("Text1(0)", "*");
  EXPECT_EQ(At("Text1(0)").Text(), "*");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
}

TEST_F(CustomerListTest, an_empty_field_takes_the_name_of_the_row_when_it_gets_the_focus) {
  At("CariGrid").SetFocus();
  At("Text1(0)").SetText("");
  At("Text1(0)").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").SelectionLength(), 10);
  EXPECT_EQ(desk->form.ActiveFieldCode, 0);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(CustomerListTest, the_name_taken_on_focus_is_that_of_a_list_read_anew) {
  At("CariGrid").SetFocus();
  At("Text1(0)").SetText("");
  AddCustomer("C000", "Abdullah");
  At("Text1(0)").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "Abdullah");
}

TEST_F(CustomerListTest, an_empty_field_over_an_empty_list_stays_empty) {
  At("GurupCombo").ChooseText("Fatura");
  At("Text1(0)").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "");
}

TEST_F(CustomerListTest, with_the_stock_in_front_the_field_searches_the_stock) {
  AddStock("1001", "Pirinç");
  AddStock("1002", "Şeker");
  ASSERT_TRUE(Start());
  At("StokChk").SetChecked(true);
  At("Text1(0)").SetFocus();
  At("Text1(0)").SetText("şe");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1002");
}

TEST_F(CustomerListTest, with_the_stock_in_front_enter_opens_no_card) {
  At("StokChk").SetChecked(true);
  At("Text1(0)").SetFocus();
  At("Text1(0)").SetText("kimse");
  Key("Text1(0)", key::kEnter);
  EXPECT_FALSE(At("CariFrm").Visible());
}

TEST_F(CustomerListTest, of_two_with_one_name_enter_takes_the_one_in_front) {
  AddCustomer("C010", "Deniz Ak");
  AddCustomer("C011", "Deniz Ak");
  ASSERT_TRUE(Start());
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C011'").Ok());
  Key("Text1(0)", key::kEnter);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C011");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C011' Order By Tarih Desc");
}

// The filter.

TEST_F(CustomerListTest, both_i_stand_for_any_letter_in_the_filter) {
  Set("Text5", "İSMA");
  EXPECT_EQ(Shown(), std::vector<std::string>{"İsmail Şahin"});
  At("Text5").SetText("iş");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  At("Text5").SetText("ahmet Işi");  // any letter for the last one
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
}

TEST_F(CustomerListTest, the_filter_keeps_wholesalers_and_salesmen_out) {
  Set("Text5", "t");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  Set("Text5", "p");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
}

TEST_F(CustomerListTest, among_the_wholesalers_the_filter_lists_them) {
  AddCustomer("T002", "Anadolu", "Gurup='Toptan'");
  At("GurupCombo").ChooseText("Toptan");
  Set("Text5", "ana");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Anadolu"});
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
}

TEST_F(CustomerListTest, the_filter_works_in_a_group_with_a_quote) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Ali''nin',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Ali''nin' WHERE CariKod IN ('C001','C003')");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Ali'nin");
  Set("Text5", "ahm");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
}

TEST_F(CustomerListTest, name_balance_due_dates_and_button_follow_the_filter) {
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

TEST_F(CustomerListTest, the_notice_of_the_customer_before_goes_with_the_filter) {
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

TEST_F(CustomerListTest, when_nothing_fits_nobody_is_named_and_nothing_is_paid) {
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

TEST_F(CustomerListTest, a_payment_goes_to_the_customer_that_the_filter_found) {
  Set("Text5", "ç");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, Tahsilat FROM Datam WHERE Tahsilat<>0"), std::vector<std::string>{"C002|40.0"});
}

TEST_F(CustomerListTest, over_a_new_customers_card_the_filter_writes_into_its_field) {
  At("CariFrm").SetVisible(true);
  At("CariNew(2)").SetFocus();
  desk->form.ActiveFieldCode = 2;
  At("Text5").SetText("Kadıköy");
  EXPECT_EQ(At("CariNew(2)").Text(), "Kadıköy");
  EXPECT_EQ(Shown().size(), 4U);
}

TEST_F(CustomerListTest, over_a_delivery_the_filter_writes_into_its_field) {
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

TEST_F(CustomerListTest, in_a_sale_the_filter_narrows_the_stock) {
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

TEST_F(CustomerListTest, in_a_sale_a_filter_that_fits_nothing_sells_nothing) {
  AddStock("1001", "Pirinç", "Fiyat=50");
  ASSERT_TRUE(Start());
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Set("Text5", "yok");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  Post("2");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
}

TEST_F(CustomerListTest, a_keyboard_that_was_closed_gives_the_whole_list_back) {
  Set("Text5", "ç");
  ASSERT_EQ(Shown(), std::vector<std::string>{"Çetin Öz"});
  desk->form.ActiveFieldCode = 999;
  At("Text5").SetText("Form2Off");
  EXPECT_EQ(At("Text5").Text(), "");
  EXPECT_EQ(Shown().size(), 4U);
  EXPECT_EQ(desk->form.ActiveFieldCode, 0);
}

}  // namespace
}  // namespace karvel
