#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class PriceSelectionTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    AddCustomer("C002", "Bora Çetin");
    AddStock("1001", "Pirinç", "Fiyat=50, Fiyat2=540, Fiyat3=1000, Adet2=12, Adet3=24");
    AddStock("1002", "Şeker", "Fiyat=20");
    ASSERT_TRUE(Start());
  }
  void Special(const std::string& values) {
    Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\", \"1Fiyat\", \"2Fiyat\") VALUES('1001','C001'," + values + ")");
  }
  // A card comes in front without a tap.
  void Move(const std::string& code) { ASSERT_TRUE(desk->cursors.StokData.FindFirst("StokKod='" + code + "'").Ok()); }
  const GridColumn& FirstPriceColumn() { return desk->screen.StokGrid.Columns()[3]; }
  std::string FirstPriceField() { return FirstPriceColumn().field; }
  // A group "Fatura" and a group "Bayi", the customer C001 in the first.
  void AddGroups() {
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Fatura',1),('Bayi',1)");
    Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Fatura' WHERE CariKod='C001'");
    ASSERT_TRUE(Start());
  }
  // The floor of 1001 is 45.
  void SellWithFloor() {
    desk->form.MinSalePercent = 10;
    EnterSale("Ayşe Yılmaz");
    PickItem("1001");
  }
  std::string Name() { return At("Label1(2)").Caption(); }
  std::string Price() { return At("Text2(0)").Text(); }
};

TEST_F(PriceSelectionTest, an_item_shows_the_cards_first_price) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(Name(), "1.Fiyat");
  EXPECT_EQ(Price(), "50,00");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
}

TEST_F(PriceSelectionTest, the_steps_go_through_the_prices_and_skip_a_missing_special_one) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "2.Fiyat 540,00");
  EXPECT_TRUE(At("Text2(0)").HasFocus());
  EXPECT_EQ(At("Text2(0)").SelectionLength(), 6);
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "3.Fiyat 1.000,00");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
}

TEST_F(PriceSelectionTest, a_price_of_zero_is_skipped_to_the_first) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 20,00");
}

TEST_F(PriceSelectionTest, a_price_of_zero_is_skipped_to_the_special_one) {
  Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('1002','C001',18)");
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "Özel 18,00");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 20,00");
}

TEST_F(PriceSelectionTest, a_customers_own_first_price_stands_beside_the_cards) {
  Special("45,0,0");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 45}));
}

TEST_F(PriceSelectionTest, a_customers_own_second_and_third_price_replace_the_cards) {
  Special("0,500,900");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 500, 900, 0}));
}

TEST_F(PriceSelectionTest, customer_prices_are_the_customers_alone) {
  Special("45,500,900");
  EnterSale("Bora Çetin");
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
}

TEST_F(PriceSelectionTest, in_a_sale_the_prices_are_its_customers_wherever_the_list_stands) {
  Special("45,500,900");
  EnterSale("Ayşe Yılmaz");
  {
    const Muted muted(desk->form.RepositionGuard, Mute::Customers);
    ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C002'").Ok());
  }
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 500, 900, 45}));
}

TEST_F(PriceSelectionTest, an_item_without_a_special_price_forgets_the_last_ones) {
  Special("45,0,0");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  PickItem("1002");
  EXPECT_EQ(desk->form.PriceSlots[3], 0);
}

TEST_F(PriceSelectionTest, the_discount_is_taken_off_the_slot) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(3)", "10");
  PickItem("1001");
  EXPECT_EQ(Price(), "45,00");
  EXPECT_EQ(At("Label2").Caption(), "45,00");
}

TEST_F(PriceSelectionTest, the_discount_counts_for_a_scanned_or_typed_item_as_for_a_tapped_one) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(3)", "10");
  Set("Text1(1)", "8691001");
  Key("Text1(1)", key::kEnter);
  EXPECT_EQ(Price(), "45,00");
  Set("Text1(1)", "Şek");
  EXPECT_EQ(Price(), "18,00");
  scanner.codeRead("8691001");
  EXPECT_EQ(Price(), "45,00");
  Click("Text1(1)");
  At("Text1(1)").SetText("Şek");
  Click("Text1(1)");
  EXPECT_EQ(At("Text1(1)").Text() + " " + Price(), "Şeker 18,00");
}

TEST_F(PriceSelectionTest, a_discount_beyond_its_range_counts_as_its_end) {
  EnterSale("Ayşe Yılmaz");
  At("Text2(3)").SetText("250");
  EXPECT_EQ(At("Text2(3)").Text(), "99,99");
  PickItem("1001");
  EXPECT_EQ(Price(), "0,01");
  At("Text2(3)").SetText("-10");
  EXPECT_EQ(At("Text2(3)").Text(), "0");
  PickItem("1002");
  EXPECT_EQ(Price(), "20,00");
}

TEST_F(PriceSelectionTest, the_group_fatura_pays_the_second_price_when_the_option_is_on) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Fatura',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Fatura' WHERE CariKod='C001'");
  ASSERT_TRUE(Start());
  Click("Fiyat2");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FiyatSabit", "Fiyat2", ""), "True");
  EXPECT_EQ(desk->screen.StokGrid.Columns()[3].field, "Fiyat");
  At("GurupCombo").ChooseText("Fatura");
  EXPECT_EQ(desk->screen.StokGrid.Columns()[3].field, "Fiyat2");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 540,00");
}

TEST_F(PriceSelectionTest, a_card_price_above_the_second_wins_back_the_first_slot_beside_a_special_row) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Fatura',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Fatura' WHERE CariKod='C001'");
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat2=30 WHERE StokKod='1001'");
  Special("45,0,0");
  ASSERT_TRUE(Start());
  Click("Fiyat2");
  At("GurupCombo").ChooseText("Fatura");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots[0], 50);
}

TEST_F(PriceSelectionTest, a_fixed_price_is_not_open_to_input) {
  Click("FiyatSabit");
  EXPECT_FALSE(At("Text2(0)").Enabled());
  Click("FiyatSabit");
  EXPECT_TRUE(At("Text2(0)").Enabled());
}

TEST_F(PriceSelectionTest, a_price_under_the_floor_becomes_the_floor) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetText("44,99");
  EXPECT_EQ(Price(), "45,00");
  At("Text2(0)").SetText("45");
  EXPECT_EQ(Price(), "45");
}

TEST_F(PriceSelectionTest, a_percent_of_zero_turns_the_floor_off) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetText("1");
  EXPECT_EQ(Price(), "1");
}

TEST_F(PriceSelectionTest, a_price_above_the_cards_is_never_touched_by_the_floor) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetText("60");
  EXPECT_EQ(Price(), "60");
}

TEST_F(PriceSelectionTest, the_floor_looks_at_the_first_price_whichever_is_shown) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  At("Text2(0)").SetText("46");
  EXPECT_EQ(Price(), "46");
  At("Text2(0)").SetText("40");
  EXPECT_EQ(Price(), "45,00");
}

TEST_F(PriceSelectionTest, the_percent_is_asked_for_behind_the_use_password) {
  settings.Save("Velmora Karvel1", "Size", "aSif", "1234").Ignore();
  messages.answers = {"0000"};
  Click("Yuzde");
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(desk->form.MinSalePercent, 0);
  messages.answers = {"1234", "7,5"};
  Click("Yuzde");
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[1].text, "Lütfen Kullanım Şifresi Girin");
  EXPECT_EQ(messages.shown[1].title, "Kullanım Şifresi");
  EXPECT_EQ(messages.shown[2].text, "Lütfen Satış Yüzdesi Girin");
  EXPECT_EQ(messages.shown[2].title, "Min.Satış Yüzdesi");
  EXPECT_EQ(desk->form.MinSalePercent, 7.5F);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "Yuzdem", ""), "7,5");
}

// What mutes a move.

TEST_F(PriceSelectionTest, under_guard_99_a_move_fills_the_slots_and_leaves_the_fields) {
  Special("45,0,0");
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  Set("Text2(1)", "7");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Move("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 45}));
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
  EXPECT_EQ(Price(), "20,00");
  EXPECT_EQ(At("Text2(1)").Text(), "7");
}

TEST_F(PriceSelectionTest, under_guard_99_a_move_names_the_first_price) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Move("1002");
  EXPECT_EQ(Name(), "1.Fiyat");
}

TEST_F(PriceSelectionTest, under_guard_66_a_move_changes_nothing) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  At("List1").AddItem("SN-1");
  desk->form.RepositionGuard.Keep(Mute::Items);
  Move("1002");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
  EXPECT_EQ(Name() + " " + Price(), "2.Fiyat 540,00");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
  EXPECT_EQ(At("List1").Items(), std::vector<std::string>{"SN-1"});
}

TEST_F(PriceSelectionTest, while_the_keyboard_is_open_a_move_changes_nothing) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  desk->form.KeyboardOpen = true;
  Move("1002");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
  EXPECT_EQ(Name() + " " + Price(), "2.Fiyat 540,00");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
}

TEST_F(PriceSelectionTest, at_rest_a_move_fills_the_slots_and_no_field) {
  const std::string name = At("Text1(1)").Text(), price = Price();
  Move("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
  EXPECT_EQ(At("Text1(1)").Text(), name);
  EXPECT_EQ(Price(), price);
}

TEST_F(PriceSelectionTest, a_move_drops_the_serials_of_the_item_before) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("List1").AddItem("SN-1");
  PickItem("1002");
  EXPECT_TRUE(At("List1").Items().empty());
}

TEST_F(PriceSelectionTest, a_move_under_guard_99_drops_the_serials_too) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("List1").AddItem("SN-1");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Move("1002");
  EXPECT_TRUE(At("List1").Items().empty());
}

TEST_F(PriceSelectionTest, an_item_is_offered_at_its_first_price_and_one_piece_whatever_the_last_one_was) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  Set("Text2(1)", "5");
  PickItem("1002");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 20,00");
  EXPECT_EQ(At("Text2(1)").Text(), "1");
}

// Steps.

TEST_F(PriceSelectionTest, without_an_item_a_double_tap_only_selects_the_price) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text1(1)").SetText("");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
  EXPECT_FALSE(At("Text2(0)").HasFocus());
  EXPECT_EQ(At("Text2(0)").SelectionStart(), 0);
  EXPECT_EQ(At("Text2(0)").SelectionLength(), 5);
}

TEST_F(PriceSelectionTest, the_steps_end_at_the_special_price_and_begin_anew) {
  Special("45,500,0");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  std::vector<std::string> seen;
  for (int i = 0; i < 4; ++i) {
    DoubleTap("Label1(2)");
    seen.push_back(Name() + " " + Price());
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"2.Fiyat 500,00", "3.Fiyat 1.000,00", "Özel 45,00", "1.Fiyat 50,00"}));
}

TEST_F(PriceSelectionTest, a_missing_third_price_jumps_to_the_first) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat3=0 WHERE StokKod='1001'");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name(), "2.Fiyat");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
}

TEST_F(PriceSelectionTest, a_missing_second_price_hides_the_third) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat2=0 WHERE StokKod='1001'");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");  // the order back may jump
}

TEST_F(PriceSelectionTest, a_step_takes_the_price_without_the_discount) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(3)", "10");
  PickItem("1001");
  EXPECT_EQ(Price(), "45,00");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Price(), "540,00");
}

// The floor, as it is met by keys, the pad and the discount.

TEST_F(PriceSelectionTest, a_price_above_the_floor_can_be_typed_digit_by_digit) {
  SellWithFloor();
  Set("Text2(0)", "6");
  EXPECT_EQ(Price(), "45,00");
  Type("Text2(0)", "0");
  EXPECT_EQ(Price(), "60");
  EXPECT_EQ(At("Label2").Caption(), "60,00");
}

TEST_F(PriceSelectionTest, a_price_with_a_comma_can_be_typed_over_the_floor) {
  SellWithFloor();
  Set("Text2(0)", "47.5");
  EXPECT_EQ(Price(), "47,5");
}

TEST_F(PriceSelectionTest, a_price_typed_under_the_floor_ends_as_the_floor) {
  SellWithFloor();
  Set("Text2(0)", "40");
  EXPECT_EQ(Price(), "45,00");
  EXPECT_EQ(At("Label2").Caption(), "45,00");
  At("Text2(1)").SetFocus();
  EXPECT_EQ(Price(), "45,00");
}

TEST_F(PriceSelectionTest, what_was_begun_under_the_floor_is_forgotten_when_the_field_is_left) {
  SellWithFloor();
  Set("Text2(0)", "6");
  At("Text2(1)").SetFocus();
  At("Text2(0)").SetFocus();
  Type("Text2(0)", "1");
  EXPECT_EQ(Price(), "45,00");  // 61 is above the floor, 1 is not
}

TEST_F(PriceSelectionTest, backspace_ends_at_the_floor) {
  SellWithFloor();
  Set("Text2(0)", "60");
  Erase("Text2(0)");
  EXPECT_EQ(Price(), "45,00");
}

TEST_F(PriceSelectionTest, backspace_works_on_the_floor_that_is_shown) {
  SellWithFloor();
  Set("Text2(0)", "6");
  ASSERT_EQ(Price(), "45,00");
  Erase("Text2(0)");
  EXPECT_EQ(Price(), "45,0");
  Type("Text2(0)", "9");
  EXPECT_EQ(Price(), "45,09");
}

TEST_F(PriceSelectionTest, the_pad_meets_the_floor) {
  SellWithFloor();
  At("Text2(0)").SetFocus();
  At("Text3").SetText("40");
  EXPECT_EQ(Price(), "45,00");
  At("Text3").SetText("60");
  EXPECT_EQ(Price(), "60");
}

TEST_F(PriceSelectionTest, a_discount_ends_at_the_floor) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  Set("Text2(3)", "20");
  PickItem("1001");
  EXPECT_EQ(Price(), "45,00");
}

TEST_F(PriceSelectionTest, a_special_price_under_the_floor_is_the_floor) {
  Special("30,0,0");
  SellWithFloor();
  for (int i = 0; i < 3; ++i) DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "Özel 45,00");
}

TEST_F(PriceSelectionTest, a_card_without_a_first_price_has_no_floor) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat=0 WHERE StokKod='1001'");
  SellWithFloor();
  Set("Text2(0)", "1");
  EXPECT_EQ(Price(), "1");
}

TEST_F(PriceSelectionTest, with_a_percent_of_zero_the_keys_stay_as_typed) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(0)", "6");
  EXPECT_EQ(Price(), "6");
  Type("Text2(0)", "0");
  EXPECT_EQ(Price(), "60");
}

TEST_F(PriceSelectionTest, only_the_price_has_a_floor) {
  SellWithFloor();
  Set("Text2(1)", "2");
  Set("Text2(2)", "3");
  EXPECT_EQ(At("Text2(1)").Text(), "2");
  EXPECT_EQ(At("Text2(2)").Text(), "3");
}

// The first-price column of the stock list.

TEST_F(PriceSelectionTest, another_group_gives_the_column_its_first_price_back) {
  AddGroups();
  Click("Fiyat2");
  At("GurupCombo").ChooseText("Fatura");
  ASSERT_EQ(FirstPriceField(), "Fiyat2");
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(FirstPriceField(), "Fiyat");
}

TEST_F(PriceSelectionTest, all_groups_give_the_column_its_first_price_back) {
  AddGroups();
  Click("Fiyat2");
  At("GurupCombo").ChooseText("Fatura");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  EXPECT_EQ(FirstPriceField(), "Fiyat");
}

TEST_F(PriceSelectionTest, turning_the_option_off_gives_the_column_its_first_price_back) {
  AddGroups();
  At("GurupCombo").ChooseText("Fatura");
  EXPECT_EQ(FirstPriceField(), "Fiyat");  // the option is off
  Click("Fiyat2");
  EXPECT_EQ(FirstPriceField(), "Fiyat2");
  Click("Fiyat2");
  EXPECT_EQ(FirstPriceField(), "Fiyat");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FiyatSabit", "Fiyat2", ""), "False");
}

TEST_F(PriceSelectionTest, the_column_is_set_at_the_start_by_the_group_that_was_kept) {
  AddGroups();
  settings.Save("Velmora Karvel1", "FiyatSabit", "Fiyat2", "True").Ignore();
  settings.Save("Velmora Karvel1", "Size", "CGurup", "Fatura").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_EQ(FirstPriceField(), "Fiyat2");
  settings.Save("Velmora Karvel1", "Size", "CGurup", "Bayi").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_EQ(FirstPriceField(), "Fiyat");
}

TEST_F(PriceSelectionTest, the_column_is_fitted_to_its_heading_again) {
  AddGroups();
  Click("Fiyat2");
  auto columns = desk->screen.StokGrid.Columns();
  for (GridColumn& column : columns) column.width = 900;
  desk->screen.StokGrid.SetColumns(columns);
  At("GurupCombo").ChooseText("Fatura");
  EXPECT_EQ(FirstPriceColumn().width, 0);
  EXPECT_EQ(desk->screen.StokGrid.Columns()[1].width, 900);
}

TEST_F(PriceSelectionTest, the_second_price_needs_the_group_in_the_combo) {
  AddGroups();
  Click("Fiyat2");
  EnterSale("Ayşe Yılmaz");  // of the group "Fatura", but the list shows all
  PickItem("1001");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
}

// The percent.

TEST_F(PriceSelectionTest, without_a_use_password_the_percent_is_asked_for_at_once) {
  messages.answers = {"10"};
  Click("Yuzde");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Lütfen Satış Yüzdesi Girin");
  EXPECT_EQ(messages.shown[0].preset, "0");
  EXPECT_EQ(desk->form.MinSalePercent, 10);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "Yuzdem", ""), "10");
}

TEST_F(PriceSelectionTest, a_percent_that_is_not_answered_stays) {
  desk->form.MinSalePercent = 5;
  Click("Yuzde");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(desk->form.MinSalePercent, 5);
}

TEST_F(PriceSelectionTest, a_percent_of_zero_is_taken_and_kept) {
  settings.Save("Velmora Karvel1", "Size", "Yuzdem", "10").Ignore();
  ASSERT_TRUE(Start());
  ASSERT_EQ(desk->form.MinSalePercent, 10);
  messages.answers = {"0"};
  Click("Yuzde");
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.MinSalePercent, 0);
}

TEST_F(PriceSelectionTest, a_right_press_on_the_price_name_opens_the_percent_menu) {
  std::vector<const Element*> opened;
  connections += desk->screen.popUp.Connect([&opened](Element& menu) { opened.push_back(&menu); });
  At("Label1(2)").mouseDown(MouseEvent{.button = 1});
  EXPECT_TRUE(opened.empty());
  At("Label1(2)").mouseDown(MouseEvent{.button = 2});
  EXPECT_EQ(opened, std::vector<const Element*>{&desk->screen.Popyuzde});
}

TEST_F(PriceSelectionTest, the_floor_holds_also_when_the_price_below_it_stood_in_the_field_before) {
  AddStock("9001", "Yarı Fiyat", "Fiyat=12.5");
  AddStock("9002", "Tam Fiyat", "Fiyat=25");
  ASSERT_TRUE(Start());
  EnterSale("Ayşe Yılmaz");
  desk->form.MinSalePercent = 10;
  PickItem("9001");
  Set("Text2(3)", "50");
  ASSERT_EQ(At("Text2(0)").Text(), "12,50");
  PickItem("9002");
  EXPECT_EQ(At("Text2(0)").Text(), "22,50");
}

}  // namespace
}  // namespace karvel
