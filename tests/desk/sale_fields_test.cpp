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
