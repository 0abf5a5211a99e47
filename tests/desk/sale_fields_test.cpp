#include "tests/desk/sale_fixture.h"

namespace karvel {
namespace {

class SaleFieldsTest : public SaleFixture {};

TEST_F(SaleFieldsTest, the_amount_follows_price_and_quantity) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "2,5");
  EXPECT_EQ(At("Label2").Caption(), "125,00");
  Set("Text2(0)", "1.5");  // the point of the numeric pad is the comma
  EXPECT_EQ(At("Text2(0)").Text(), "1,5");
  EXPECT_EQ(At("Label2").Caption(), "3,75");
}

TEST_F(SaleFieldsTest, letters_and_signs_are_dropped_with_a_beep) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(1)", "-1a2+,5,");
  EXPECT_EQ(At("Text2(1)").Text(), "12,5");
  EXPECT_EQ(keyboard.beeps, 4);
}

// The first digit.

TEST_F(SaleFieldsTest, the_first_digit_replaces_the_number_that_stood_in_the_field) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Type("Text2(1)", "3");
  EXPECT_EQ(At("Text2(1)").Text(), "3");
  Type("Text2(0)", "170");
  EXPECT_EQ(At("Text2(0)").Text(), "170");
  Type("Text2(2)", "12,5");
  EXPECT_EQ(At("Text2(2)").Text(), "12,5");
  Type("Text2(3)", "5");
  At("Text2(0)").SetFocus();
  Type("Text2(3)", "7");
  EXPECT_EQ(At("Text2(3)").Text(), "7");
}

TEST_F(SaleFieldsTest, the_digits_after_the_first_go_on_from_it) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Type("Text2(1)", "1");  // the same digit that stands there
  Type("Text2(1)", "2");
  EXPECT_EQ(At("Text2(1)").Text(), "12");
}

TEST_F(SaleFieldsTest, a_comma_first_begins_a_number_below_one) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Type("Text2(1)", ".");
  EXPECT_EQ(At("Text2(1)").Text(), "0,");
  Type("Text2(1)", "5");
  EXPECT_EQ(At("Text2(1)").Text(), "0,5");
  Set("Text2(0)", ",75");
  EXPECT_EQ(At("Text2(0)").Text(), "0,75");
}

TEST_F(SaleFieldsTest, a_letter_that_is_refused_replaces_nothing) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Type("Text2(0)", "a-");
  EXPECT_EQ(At("Text2(0)").Text(), "50,00");
  Type("Text2(0)", "7");
  EXPECT_EQ(At("Text2(0)").Text(), "7");
}

TEST_F(SaleFieldsTest, backspace_edits_the_number_as_it_stands) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetFocus();
  EXPECT_EQ(At("Text2(0)").SelectionStart(), 5);
  EXPECT_EQ(At("Text2(0)").SelectionLength(), 0);
  Erase("Text2(0)");
  EXPECT_EQ(At("Text2(0)").Text(), "50,0");
  Type("Text2(0)", "5");
  EXPECT_EQ(At("Text2(0)").Text(), "50,05");
}

TEST_F(SaleFieldsTest, an_arrow_or_a_tap_into_the_number_edits_it_as_it_stands) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  for (const int code : {key::kLeft, key::kRight, key::kHome, key::kEnd, key::kDelete}) {
    At("Text2(1)").SetText("1");
    At("Text2(1)").SetFocus();
    KeyEvent arrow{code};
    At("Text2(1)").keyDown(arrow);
    At("Text2(1)").keyUp(arrow);
    Type("Text2(1)", "3");
    EXPECT_EQ(At("Text2(1)").Text(), "13") << code;
    At("Text2(0)").SetFocus();
  }
  At("Text2(1)").SetText("1");
  At("Text2(1)").SetFocus();
  At("Text2(1)").mouseDown(MouseEvent{.entering = true});
  Type("Text2(1)", "2");
  EXPECT_EQ(At("Text2(1)").Text(), "2");
  At("Text2(0)").SetFocus();
  At("Text2(1)").SetFocus();
  At("Text2(1)").mouseDown(MouseEvent{});
  Type("Text2(1)", "4");
  EXPECT_EQ(At("Text2(1)").Text(), "24");
}

TEST_F(SaleFieldsTest, a_number_that_the_desk_puts_into_the_field_in_use_is_replaced_too) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Type("Text2(1)", "12");
  At("Text2(1)").SetText("1");  // the next item came
  Type("Text2(1)", "3");
  EXPECT_EQ(At("Text2(1)").Text(), "3");
}

TEST_F(SaleFieldsTest, the_payment_that_is_grouped_while_it_is_typed_goes_on) {
  EnterSale("Ayşe Yılmaz");
  Type("Text2(2)", "1500");
  EXPECT_EQ(At("Text2(2)").Text(), "1.500");
  Type("Text2(2)", ",5");
  EXPECT_EQ(At("Text2(2)").Text(), "1.500,5");
}

// The discount.

TEST_F(SaleFieldsTest, a_discount_is_0_to_99_99_with_a_point_as_the_comma) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(3)", "150");
  EXPECT_EQ(At("Text2(3)").Text(), "15");
  EXPECT_EQ(keyboard.beeps, 1);
  Set("Text2(3)", "-5a");
  EXPECT_EQ(At("Text2(3)").Text(), "5");
  EXPECT_EQ(keyboard.beeps, 3);
  Set("Text2(3)", "99.999");
  EXPECT_EQ(At("Text2(3)").Text(), "99,99");
  EXPECT_EQ(keyboard.beeps, 4);
  Set("Text2(3)", "100");
  EXPECT_EQ(At("Text2(3)").Text(), "10");
}

TEST_F(SaleFieldsTest, the_pad_gives_no_discount_beyond_the_range) {
  EnterSale("Ayşe Yılmaz");
  At("Text2(3)").SetFocus();
  At("Text3").SetText("100");
  EXPECT_EQ(At("Text2(3)").Text(), "99,99");
  At("Text3").SetText("12,5");
  EXPECT_EQ(At("Text2(3)").Text(), "12,5");
}

TEST_F(SaleFieldsTest, an_empty_field_becomes_zero) {
  EnterSale("Ayşe Yılmaz");
  At("Text2(1)").SetText("");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
}

TEST_F(SaleFieldsTest, enter_goes_on_to_the_next_field) {
  EnterSale("Ayşe Yılmaz");
  Key("Text2(1)", key::kEnter);
  EXPECT_FALSE(At("Text2(1)").HasFocus());
}

TEST_F(SaleFieldsTest, the_name_of_the_field_in_use_is_green_and_the_others_yellow) {
  EnterSale("Ayşe Yılmaz");
  At("Text2(1)").SetFocus();
  EXPECT_EQ(At("Label1(3)").Color(), color::kGreen);
  EXPECT_EQ(At("Label1(2)").Color(), color::kYellow);
  EXPECT_EQ(desk->form.ActiveFieldCode, 1);
  At("Text2(3)").SetFocus();
  EXPECT_EQ(At("Label1(3)").Color(), color::kYellow);
  EXPECT_EQ(At("Label1(6)").Color(), color::kGreen);
}

TEST_F(SaleFieldsTest, enter_in_the_price_takes_an_item_by_its_barcode) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(0)", "8691002");
  Key("Text2(0)", key::kEnter);
  EXPECT_EQ(At("Text2(0)").Text(), "Şeker");
  EXPECT_EQ(At("Text6(5)").Text(), "8691002");
}

TEST_F(SaleFieldsTest, the_pads_value_goes_to_the_field_in_use_and_is_capped_by_the_stock) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET KalanB=4, GirenMik=4 WHERE StokKod='1001'");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(1)").SetFocus();
  At("Text3").SetText("9");
  EXPECT_EQ(At("Text2(1)").Text(), "9");
  EXPECT_EQ(At("Text3").Text(), "");
  Click("Stoklu");
  At("Text3").SetText("9");
  EXPECT_EQ(At("Text2(1)").Text(), "4");
}

TEST_F(SaleFieldsTest, purchases_with_serials_open_the_serial_panel_on_leaving_the_quantity) {
  desk->form.SerialEntryOn = true;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(1)").SetFocus();
  At("Text2(0)").SetFocus();
  EXPECT_FALSE(At("Frame4").Visible());
  DoubleTap("Label4");
  DoubleTap("Label4");
  At("Text2(1)").SetFocus();
  At("Text2(0)").SetFocus();
  EXPECT_TRUE(At("Frame4").Visible());
  // Whoever goes back to the price types a price; the serials follow the quantity.
  EXPECT_TRUE(At("Text2(0)").HasFocus());
  At("Text2(1)").SetFocus();
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  Key("Text2(1)", key::kEnter);
  EXPECT_TRUE(At("Text4").HasFocus());
}

}  // namespace
}  // namespace karvel
