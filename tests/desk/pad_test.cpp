#include "tests/desk/sale_fixture.h"

namespace karvel {
namespace {

// A sale to a customer with an item in front.
class PadTest : public SaleFixture {
 protected:
  void SetUp() override {
    SaleFixture::SetUp();
    Sql("Stok.mdb", "UPDATE StokKartlar SET KalanB=4, GirenMik=4 WHERE StokKod='1001'");
    EnterSale("Ayşe Yılmaz");
    PickItem("1001");
  }
  PadScreen& Pad() { return desk->screen.Form3; }
  bool IsUp() { return Pad().Form3.Visible(); }
  std::string Number() { return Pad().Text1.Text(); }
  // Taps on the pad's keys: digits, "," and "z" for "00".
  void Strike(const std::string& keys) {
    for (const char sign : keys) {
      if (sign == ',') {
        Pad().cmdpoint.click();
      } else if (sign == 'z') {
        Pad().Comonlu(0).click();
      } else {
        Pad().cmd(sign - '0').click();
      }
    }
  }
  // A key as the window gives it: the form sees it before the element. True when it went no further.
  bool FormTakes(int code) {
    KeyEvent event{code};
    desk->screen.Form1.keyDown(event);
    return event.dropped;
  }
  // A letter over the stock list.
  char32_t OverStock(char32_t letter) {
    At("StokGrid").SetFocus();
    CharacterEvent event{letter};
    At("StokGrid").character(event);
    return event.character;
  }
};

// How it opens.

TEST_F(PadTest, a_tap_on_a_field_of_the_sale_opens_it_there_empty) {
  for (int i = 0; i < 4; ++i) {
    const std::string field = "Text2(" + std::to_string(i) + ")";
    Tap(field);
    EXPECT_TRUE(IsUp()) << field;
    EXPECT_TRUE(desk->form.PadOpen);
    EXPECT_EQ(desk->form.PadField, &At(field));
    EXPECT_EQ(Pad().frame.Served(), &At(field));
    EXPECT_EQ(Number(), "");
    Pad().Command1.click();
    EXPECT_FALSE(IsUp());
    EXPECT_FALSE(desk->form.PadOpen);
    EXPECT_EQ(Pad().frame.Served(), nullptr);
  }
}

TEST_F(PadTest, it_says_which_field_the_number_is_for) {
  Tap("Text2(1)");
  EXPECT_EQ(Pad().Label2.Caption(), "Ad/Kg");
  EXPECT_EQ(Pad().Form3.Caption(), "Ad/Kg");
  Tap("Text2(2)");
  EXPECT_EQ(Pad().Label2.Caption(), "Tahsilat");
}

TEST_F(PadTest, it_takes_no_focus) {
  Tap("Text2(1)");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  Strike("5");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
}

TEST_F(PadTest, a_tap_on_another_field_brings_it_there_empty) {
  Tap("Text2(1)");
  Strike("12");
  Tap("Text2(0)");
  EXPECT_EQ(desk->form.PadField, &At("Text2(0)"));
  EXPECT_EQ(Number(), "");
  EXPECT_NE(At("Text2(1)").Text(), "12");
}

TEST_F(PadTest, a_second_tap_on_its_field_leaves_the_number) {
  Tap("Text2(1)");
  Strike("12");
  Tap("Text2(1)");
  EXPECT_EQ(Number(), "12");
}

TEST_F(PadTest, with_neither_customer_nor_item_there_is_nothing_to_enter) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar");
  Sql("Stok.mdb", "DELETE FROM StokKartlar");
  (void)desk->cursors.CariData.Refresh();
  (void)desk->cursors.StokData.Refresh();
  Tap("Text2(2)");
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, it_keeps_its_field_wherever_the_focus_goes) {
  Tap("Text2(1)");
  At("Text2(0)").SetFocus();
  Strike("3");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(1)").Text(), "3");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
}

// Its keys.

TEST_F(PadTest, keys_build_a_number_and_tamam_gives_it_to_the_field) {
  Tap("Text2(2)");
  Strike("1234,56");
  EXPECT_EQ(Number(), "1234,56");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(2)").Text(), "1.234,56");
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, several_zeros_come_with_one_key) {
  Tap("Text2(2)");
  Strike("15z");
  EXPECT_EQ(Number(), "1500");
  Pad().Comonlu(1).click();
  EXPECT_EQ(Number(), "1500000");
}

TEST_F(PadTest, two_zeros_at_the_empty_pad_are_zero) {
  Tap("Text2(1)");
  Strike("z");
  EXPECT_EQ(Number(), "0");
}

TEST_F(PadTest, the_comma_begins_with_a_zero) {
  Tap("Text2(1)");
  Strike(",5");
  EXPECT_EQ(Number(), "0,5");
}

TEST_F(PadTest, tamam_is_there_while_there_is_an_answer) {
  Tap("Text2(1)");
  EXPECT_FALSE(Pad().Tamam.Visible());
  Strike("0");
  EXPECT_FALSE(Pad().Tamam.Visible());
  Strike("5");
  EXPECT_TRUE(Pad().Tamam.Visible());
  Pad().Label1.click();
  EXPECT_EQ(Number(), "");
  EXPECT_FALSE(Pad().Tamam.Visible());
}

TEST_F(PadTest, the_clear_key_empties_the_box_and_zeroes_the_field) {
  At("Text2(1)").SetText("7");
  Tap("Text2(1)");
  Strike("5");
  Pad().Cmdc.click();
  EXPECT_EQ(Number(), "");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_TRUE(IsUp());
  Strike("2");
  EXPECT_EQ(Number(), "2");
}

TEST_F(PadTest, entering_its_box_empties_it) {
  Tap("Text2(1)");
  Strike("5");
  Pad().Text1.gotFocus();
  EXPECT_EQ(Number(), "");
  EXPECT_TRUE(IsUp());
}

TEST_F(PadTest, its_box_takes_figures_alone) {
  Tap("Text2(1)");
  const auto typed = [this](char32_t letter) {
    CharacterEvent event{letter};
    Pad().Text1.character(event);
    return event.character;
  };
  EXPECT_EQ(typed(U'7'), U'7');
  EXPECT_EQ(typed(U'a'), 0U);
  EXPECT_EQ(typed(U'-'), 0U);
  EXPECT_EQ(typed(U'.'), 0U);
  EXPECT_EQ(Number(), "0,");
}

TEST_F(PadTest, its_name_leads_back_to_the_field) {
  Tap("Text2(1)");
  At("StokGrid").SetFocus();
  Pad().Label2.click();
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  EXPECT_TRUE(IsUp());
}

TEST_F(PadTest, its_name_leads_from_its_box_back_to_the_field) {
  Tap("Text2(1)");
  Pad().Text1.SetFocus();
  Pad().Label2.click();
  EXPECT_FALSE(Pad().Text1.HasFocus());
  EXPECT_TRUE(At("Text2(1)").HasFocus());
}

TEST_F(PadTest, a_number_without_a_field_s_name_goes_nowhere) {
  Tap("Text2(1)");
  const std::string before = At("Text2(1)").Text();
  Pad().Label2.SetCaption("");
  Strike("9");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(1)").Text(), before);
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, the_word_exit_in_its_box_closes_it) {
  Tap("Text2(1)");
  Pad().Text1.SetText("Exit");
  EXPECT_FALSE(IsUp());
  EXPECT_FALSE(desk->form.PadOpen);
}

TEST_F(PadTest, a_right_press_or_a_long_hold_opens_its_menu) {
  Tap("Text2(1)");
  std::vector<std::string> opened;
  connections += desk->screen.popUp.Connect([&](Element& menu) { opened.push_back(menu.Name()); });
  Pad().cmd(3).mouseDown(MouseEvent{.button = 1});
  EXPECT_TRUE(opened.empty());
  Pad().cmd(3).mouseDown(MouseEvent{.button = 2});
  EXPECT_EQ(opened, std::vector<std::string>{"PopMik"});
  EXPECT_EQ(Number(), "");
}

TEST_F(PadTest, the_menu_takes_the_last_figure_back) {
  Tap("Text2(1)");
  Strike("12,");
  Pad().MikMenu(0).click();
  EXPECT_EQ(Number(), "12");
}

TEST_F(PadTest, the_menu_goes_to_the_price_and_back) {
  Tap("Text2(1)");
  Pad().MikMenu(1).click();
  EXPECT_EQ(desk->form.PadField, &At("Text2(0)"));
  Pad().MikMenu(1).click();
  EXPECT_EQ(desk->form.PadField, &At("Text2(1)"));
}

TEST_F(PadTest, a_comma_with_nothing_behind_it_goes_when_the_number_is_given) {
  Tap("Text2(1)");
  Strike("12,");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(1)").Text(), "12");
}

TEST_F(PadTest, a_full_stop_over_the_stock_list_opens_nothing_and_goes_on_as_a_comma) {
  EXPECT_EQ(OverStock(U'.'), U'.');
  EXPECT_FALSE(IsUp());
  EXPECT_EQ(OverStock(U'1'), 0U);
  EXPECT_EQ(OverStock(U'.'), 0U);
  EXPECT_EQ(OverStock(U'5'), 0U);
  EXPECT_EQ(Number(), "1,5");
}

// Also where the clerk types on a real keyboard, and none comes on the screen.
TEST_F(PadTest, a_tap_on_a_field_of_letters_ends_the_number) {
  At("Klv(2)").click();
  Tap("Text2(1)");
  Strike("3");
  Tap("Text1(1)");
  EXPECT_FALSE(IsUp());
  EXPECT_FALSE(desk->form.PadOpen);
}

TEST_F(PadTest, the_menu_closes_it) {
  Tap("Text2(1)");
  Pad().MikMenu(2).click();
  EXPECT_FALSE(IsUp());
}

// The main button.

TEST_F(PadTest, the_main_button_takes_the_number_and_posts_nothing) {
  Tap("Text2(1)");
  Strike("3");
  Click("Command2");
  EXPECT_EQ(At("Text2(1)").Text(), "3");
  EXPECT_FALSE(IsUp());
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT COUNT(*) FROM Datam"), std::vector<std::string>{"0"});
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam"), std::vector<std::string>{"1001|3.0"});
}

TEST_F(PadTest, the_main_button_takes_a_nought_and_posts_nothing_of_what_was_there) {
  At("Text2(1)").SetText("2");
  Tap("Text2(1)");
  Strike("0");
  Click("Command2");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(IsUp());
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT COUNT(*) FROM Datam"), std::vector<std::string>{"0"});
}

TEST_F(PadTest, the_main_button_posts_while_the_pad_is_empty_and_the_pad_goes) {
  At("Text2(1)").SetText("2");
  Tap("Text2(0)");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam"), std::vector<std::string>{"1001|2.0"});
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, a_number_on_the_pad_can_be_taken_by_the_main_button_before_there_is_anything_to_post) {
  At("Text2(1)").SetText("0");
  ASSERT_FALSE(At("Command2").Enabled());
  Tap("Text2(1)");
  Strike("3");
  EXPECT_TRUE(At("Command2").Enabled());
  Pad().Label1.click();
  EXPECT_FALSE(At("Command2").Enabled());
}

// The caret in its field.

TEST_F(PadTest, a_tap_that_opens_it_leaves_the_caret_behind_the_number) {
  Tap("Text2(1)");
  Strike("35");
  Pad().Tamam.click();
  At("Text2(1)").Select(0, 0);  // where the finger came down
  Click("Text2(1)");
  EXPECT_TRUE(IsUp());
  EXPECT_EQ(At("Text2(1)").SelectionStart(), 2);
}

TEST_F(PadTest, a_tap_that_opens_it_leaves_a_number_chosen_to_be_typed_over) {
  At("StokAl").SetVisible(true);
  At("Text6(3)").SetText("12");
  Tap("Text6(3)");
  EXPECT_EQ(At("Text6(3)").SelectionLength(), 2);
}

// The discount.

TEST_F(PadTest, a_discount_that_is_too_high_is_held_and_said) {
  Tap("Text2(3)");
  Strike("100");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(3)").Text(), "99,99");
  EXPECT_EQ(At("Durum").Caption(), "İskonto en çok 99,99");
}

TEST_F(PadTest, a_discount_that_may_be_is_taken_without_a_word) {
  Tap("Text2(3)");
  Strike("99,99");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(3)").Text(), "99,99");
  EXPECT_EQ(At("Durum").Caption(), "");
}

// The stock on hand.

TEST_F(PadTest, a_sale_by_stock_sells_no_more_than_is_on_hand) {
  Click("Stoklu");
  Tap("Text2(1)");
  Strike("9");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(1)").Text(), "4");
  EXPECT_EQ(At("Durum").Caption(), "Stokta 4 var");
}

TEST_F(PadTest, without_sales_by_stock_any_quantity_goes) {
  Tap("Text2(1)");
  Strike("9");
  Pad().Tamam.click();
  EXPECT_EQ(At("Text2(1)").Text(), "9");
}

TEST_F(PadTest, prices_and_payments_are_not_bound_by_the_stock) {
  Click("Stoklu");
  for (const std::string field : {"Text2(0)", "Text2(2)"}) {
    Tap(field);
    Strike("90");
    Pad().Tamam.click();
    EXPECT_EQ(At(field).Text(), "90") << field;
  }
}

TEST_F(PadTest, goods_that_come_back_or_in_are_not_bound_by_the_stock) {
  Click("Stoklu");
  for (const std::string mode : {"İade", "Alış"}) {
    DoubleTap("Label4");
    ASSERT_EQ(At("Label4").Caption(), mode);
    Tap("Text2(1)");
    Strike("9");
    Pad().Tamam.click();
    EXPECT_EQ(At("Text2(1)").Text(), "9") << mode;
  }
}

// Over the stock list.

TEST_F(PadTest, a_digit_over_the_stock_list_opens_it_on_the_quantity_as_its_first_digit) {
  EXPECT_EQ(OverStock(U'3'), 0U);
  EXPECT_EQ(desk->form.PadField, &At("Text2(1)"));
  EXPECT_EQ(Number(), "3");
  EXPECT_TRUE(At("StokGrid").HasFocus());
}

TEST_F(PadTest, further_digits_over_the_list_go_on) {
  OverStock(U'3');
  OverStock(U'5');
  OverStock(U',');
  OverStock(U'2');
  EXPECT_EQ(Number(), "35,2");
}

TEST_F(PadTest, a_comma_over_the_list_opens_it_too) {
  OverStock(U',');
  EXPECT_EQ(Number(), "0,");
}

TEST_F(PadTest, letters_over_the_list_open_nothing) {
  for (const char32_t letter : {U'a', U'-', U'ş', U' '}) EXPECT_EQ(OverStock(letter), letter);
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, a_digit_over_the_list_leaves_the_price_and_goes_to_the_quantity) {
  Tap("Text2(0)");
  OverStock(U'3');
  EXPECT_EQ(desk->form.PadField, &At("Text2(1)"));
  EXPECT_EQ(Number(), "3");
}

TEST_F(PadTest, enter_is_tamam) {
  OverStock(U'3');
  EXPECT_TRUE(FormTakes(key::kEnter));
  EXPECT_EQ(At("Text2(1)").Text(), "3");
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, enter_in_another_field_is_that_field_s_and_ends_the_number) {
  const std::string before = At("Text2(1)").Text();
  for (const std::string field : {"Text1(1)", "Text2(0)", "Text5"}) {
    Tap("Text2(1)");
    Strike("7");
    At(field).SetFocus();
    EXPECT_FALSE(FormTakes(key::kEnter)) << field;
    EXPECT_FALSE(IsUp()) << field;
    EXPECT_EQ(At("Text2(1)").Text(), before) << field;
  }
}

TEST_F(PadTest, enter_in_its_box_is_tamam) {
  Tap("Text2(1)");
  At("StokGrid").SetFocus();
  Pad().Text1.SetFocus();
  Strike("7");
  EXPECT_TRUE(FormTakes(key::kEnter));
  EXPECT_EQ(At("Text2(1)").Text(), "7");
}

TEST_F(PadTest, enter_on_an_empty_pad_is_the_field_s) {
  Tap("Text2(1)");
  EXPECT_FALSE(FormTakes(key::kEnter));
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, escape_closes_it_and_leaves_the_field) {
  const std::string before = At("Text2(1)").Text();
  OverStock(U'3');
  EXPECT_TRUE(FormTakes(key::kEscape));
  EXPECT_FALSE(IsUp());
  EXPECT_EQ(At("Text2(1)").Text(), before);
}

TEST_F(PadTest, escape_leaves_the_panel_behind_it_open) {
  At("StokAl").SetVisible(true);
  Tap("Text6(3)");
  EXPECT_TRUE(FormTakes(key::kEscape));
  EXPECT_FALSE(IsUp());
  EXPECT_TRUE(At("StokAl").Visible());
}

TEST_F(PadTest, backspace_over_the_list_takes_the_last_figure_back) {
  OverStock(U'3');
  OverStock(U'5');
  EXPECT_TRUE(FormTakes(key::kBackspace));
  EXPECT_EQ(Number(), "3");
}

TEST_F(PadTest, backspace_in_a_field_is_the_field_s) {
  Tap("Text2(1)");
  Strike("35");
  EXPECT_FALSE(FormTakes(key::kBackspace));
  EXPECT_EQ(Number(), "35");
}

TEST_F(PadTest, without_the_pad_its_keys_are_the_desk_s) {
  for (const int code : {key::kEnter, key::kF8, key::kBackspace}) EXPECT_FALSE(FormTakes(code)) << code;
}

TEST_F(PadTest, with_ctrl_or_alt_a_key_is_not_the_pad_s) {
  OverStock(U'3');
  KeyEvent save{.code = key::kEnter, .ctrl = true};
  desk->screen.Form1.keyDown(save);
  EXPECT_FALSE(save.dropped);
  EXPECT_TRUE(IsUp());
}

// A scan.

TEST_F(PadTest, a_scan_enters_its_item_and_what_waited_on_the_pad_is_nobody_s) {
  for (const std::string field : {"Text2(0)", "Text2(1)", "Text2(2)"}) {
    PickItem("1001");
    Tap(field);
    Strike("7");
    scanner.codeRead("8691002");
    EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1002") << field;
    EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
    EXPECT_EQ(At("Text2(0)").Text(), "20,00");
    EXPECT_EQ(At("Text2(1)").Text(), "1");
    EXPECT_EQ(At("Text2(2)").Text(), "0");
    EXPECT_FALSE(IsUp());
  }
}

TEST_F(PadTest, a_scan_that_posts_its_line_does_so_beside_a_number_on_the_pad) {
  Click("SecimTamam");
  Tap("Text2(1)");
  Strike("7");
  scanner.codeRead("8691002");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam"), std::vector<std::string>{"1002|1.0"});
}

TEST_F(PadTest, a_second_look_at_the_label_of_a_new_item_leaves_what_was_typed_of_it) {
  At("StokAl").SetVisible(true);
  At("Text6(0)").SetText("Yeni Helva");
  At("Text6(5)").SetFocus();
  scanner.codeRead("99999555");
  ASSERT_EQ(At("Text6(5)").Text(), "99999555");
  At("Text6(1)").SetText("7");
  At("Text6(3)").SetText("3");
  At("Text6(3)").SetFocus();
  scanner.codeRead("99999555");
  EXPECT_EQ(At("Text6(0)").Text(), "Yeni Helva");
  EXPECT_EQ(At("Text6(5)").Text(), "99999555");
  EXPECT_EQ(At("Text6(1)").Text(), "7");
  EXPECT_EQ(At("Text6(3)").Text(), "3");
  scanner.codeRead("8691002");
  EXPECT_EQ(At("Text6(0)").Text(), "Şeker");
}

TEST_F(PadTest, a_scan_into_a_delivery_finds_its_item_beside_a_number_on_the_pad) {
  At("StokAl").SetVisible(true);
  At("Text6(0)").SetFocus();
  scanner.codeRead("8691001");
  Tap("Text6(3)");
  Strike("5");
  scanner.codeRead("8691002");
  EXPECT_EQ(At("Text6(0)").Text(), "Şeker");
  EXPECT_EQ(At("Text6(5)").Text(), "8691002");
  EXPECT_NE(At("Text6(3)").Text(), "5");
  EXPECT_FALSE(IsUp());
}

// The item.

TEST_F(PadTest, another_item_is_not_given_the_number_of_the_one_before) {
  for (const std::string field : {"Text2(0)", "Text2(1)"}) {
    PickItem("1001");
    Tap(field);
    Strike("7");
    PickItem("1002");
    EXPECT_EQ(Number(), "") << field;
    Click("Command2");
  }
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar, Fiyat FROM Datam"), (std::vector<std::string>{"1002|1.0|20.0", "1002|1.0|20.0"}));
}

TEST_F(PadTest, the_same_item_once_more_leaves_the_number) {
  Tap("Text2(1)");
  Strike("7");
  PickItem("1001");
  EXPECT_EQ(Number(), "7");
}

// Quantity or price.

TEST_F(PadTest, f8_changes_between_quantity_and_price) {
  Tap("Text2(1)");
  Strike("3");
  EXPECT_TRUE(FormTakes(key::kF8));
  EXPECT_EQ(desk->form.PadField, &At("Text2(0)"));
  EXPECT_EQ(Number(), "");
  EXPECT_TRUE(At("Text2(0)").HasFocus());
  EXPECT_TRUE(FormTakes(key::kF8));
  EXPECT_EQ(desk->form.PadField, &At("Text2(1)"));
}

TEST_F(PadTest, f8_on_another_field_changes_nothing) {
  Tap("Text2(2)");
  EXPECT_FALSE(FormTakes(key::kF8));
  EXPECT_EQ(desk->form.PadField, &At("Text2(2)"));
}

TEST_F(PadTest, a_fixed_price_can_t_be_entered) {
  Click("FiyatSabit");
  Tap("Text2(1)");
  EXPECT_TRUE(FormTakes(key::kF8));
  EXPECT_EQ(desk->form.PadField, &At("Text2(1)"));
  EXPECT_EQ(At("Durum").Caption(), "Fiyat sabit, değiştirilemez");
}

// How it goes.

TEST_F(PadTest, leaving_the_customer_s_or_the_product_s_field_closes_it) {
  Tap("Text2(1)");
  At("Text1(1)").SetFocus();
  At("Text2(0)").SetFocus();
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, it_goes_with_the_sale) {
  Tap("Text2(1)");
  DoubleTap("Label1(0)");
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, it_goes_with_the_desk) {
  Tap("Text2(1)");
  EXPECT_TRUE(desk->CloseRequested(false));
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, it_goes_where_the_keyboard_comes) {
  Tap("Text2(1)");
  desk->screen.Form2.Form2.SetVisible(true);
  EXPECT_FALSE(IsUp());
}

TEST_F(PadTest, it_goes_with_the_panel_of_its_field) {
  At("StokAl").SetVisible(true);
  Tap("Text6(3)");
  ASSERT_TRUE(IsUp());
  At("StokAl").SetVisible(false);
  EXPECT_FALSE(IsUp());
}

// Its other fields.

TEST_F(PadTest, the_figures_of_a_delivery_are_entered_on_it) {
  At("StokAl").SetVisible(true);
  for (int i = 1; i <= 4; ++i) {
    const std::string field = "Text6(" + std::to_string(i) + ")";
    Tap(field);
    EXPECT_EQ(desk->form.PadField, &At(field));
    Strike("12,5");
    Pad().Tamam.click();
    EXPECT_EQ(At(field).Text(), "12,5");
  }
  EXPECT_EQ(At("Label12(5)").Caption(), "156,25");
}

TEST_F(PadTest, names_and_barcodes_of_a_delivery_are_not) {
  At("StokAl").SetVisible(true);
  for (const std::string field : {"Text6(0)", "Text6(5)"}) {
    Tap(field);
    EXPECT_FALSE(IsUp()) << field;
  }
}

TEST_F(PadTest, the_figures_of_a_new_item_are_entered_on_it) {
  At("StokGiris").SetVisible(true);
  for (int i = 3; i < 8; ++i) {
    const std::string field = "StokNew(" + std::to_string(i) + ")";
    Tap(field);
    Strike("7");
    Pad().Tamam.click();
    EXPECT_EQ(At(field).Text(), "7");
  }
}

TEST_F(PadTest, the_figures_of_an_invoice_are_entered_on_it) {
  At("FatFrame").SetVisible(true);
  for (int i = 6; i <= 8; ++i) {
    const std::string field = "Fat(" + std::to_string(i) + ")";
    Tap(field);
    Strike("7");
    EXPECT_EQ(Number(), "7") << field;
    Pad().Tamam.click();
    EXPECT_FALSE(IsUp());
  }
}

// Its place.

TEST_F(PadTest, a_place_that_the_clerk_chose_is_kept_when_it_closes) {
  Tap("Text2(1)");
  Pad().frame.LayAmong({.room = {1024, 768}});
  Pad().Command1.click();
  EXPECT_EQ(window.savedFitting, "");
  Tap("Text2(1)");
  Pad().frame.MoveBy(10, 20);
  Pad().Command1.click();
  EXPECT_EQ(window.savedFitting, "VelmoraMik");
}

TEST_F(PadTest, a_double_tap_on_its_ground_stands_it_at_the_upper_right_in_its_own_size) {
  Tap("Text2(1)");
  Pad().frame.LayAmong({.room = {1024, 768}});
  Pad().frame.Put({100, 100, 400, 500});
  Pad().Form3.dblClick();
  const WindowBox box = Pad().frame.Box();
  EXPECT_EQ(box.top, 0);
  EXPECT_EQ(box.Right(), 1024);
  EXPECT_EQ(box.width, 262);
  EXPECT_EQ(box.height, 402);
}

}  // namespace
}  // namespace karvel
