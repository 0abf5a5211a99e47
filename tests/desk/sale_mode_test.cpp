#include "tests/desk/sale_fixture.h"
#include "text/format.h"

namespace karvel {
namespace {

class SaleModeTest : public SaleFixture {};

TEST_F(SaleModeTest, entering_a_sale_puts_the_customer_in_front) {
  EnterSale("Ayşe Yılmaz");
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C001");
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_TRUE(At("Frame2").Visible());
  EXPECT_TRUE(At("StokGrid").Visible());
  EXPECT_EQ(At("Label1(0)").Caption(), " Müşteri");
  EXPECT_EQ(At("Label4").Caption(), "Satış");
  EXPECT_EQ(At("Label4").Color(), color::kYellow);
  EXPECT_EQ(At("Label5").Color(), color::kGreen);
  EXPECT_EQ(At("Label8").Caption(), "Ayşe Yılmaz");
  EXPECT_FALSE(At("Text1(0)").Enabled());
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
  EXPECT_EQ(At("Text2(0)").Text(), "50,00");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_EQ(At("Label2").Caption(), "0,00");
  EXPECT_FALSE(At("Command2").Enabled());
  EXPECT_TRUE(At("StokGrid").HasFocus());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
  EXPECT_TRUE(scanner.enabled);
  EXPECT_TRUE(At("Form1").Enabled());
}

TEST_F(SaleModeTest, a_name_that_is_not_in_the_list_does_nothing) {
  At("Text1(0)").SetText("Kimse");
  At("Label1(0)").dblClick();
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(At("Frame2").Visible());
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
  EXPECT_EQ(At("Text1(0)").Text(), "Kimse");
}

TEST_F(SaleModeTest, a_name_is_found_whatever_its_case) {
  EnterSale("AYşE YıLMAZ");
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C001");
}

TEST_F(SaleModeTest, a_quote_in_the_name_is_just_not_found) {
  At("Text1(0)").SetText("D'Artagnan");
  At("Label1(0)").dblClick();
  EXPECT_TRUE(At("CariGrid").Visible());
}

TEST_F(SaleModeTest, payment_and_discount_are_reset_on_entering_and_leaving) {
  At("Text2(2)").SetText("15");
  At("Text2(3)").SetText("5");
  EnterSale("Ayşe Yılmaz");
  EXPECT_EQ(At("Text2(2)").Text(), "0");
  EXPECT_EQ(At("Text2(3)").Text(), "0");
  At("Text2(2)").SetText("15");
  At("Text2(3)").SetText("5");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text2(2)").Text(), "0");
  EXPECT_EQ(At("Text2(3)").Text(), "0");
}

TEST_F(SaleModeTest, leaving_a_sale_shows_the_list_again) {
  EnterSale("Ayşe Yılmaz");
  DoubleTap("Label1(0)");
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(At("StokGrid").Visible());
  EXPECT_FALSE(At("Frame2").Visible());
  EXPECT_EQ(At("Label5").Color(), color::kWhite);
  EXPECT_TRUE(At("Text1(0)").Enabled());
  EXPECT_EQ(At("Label8").Caption(), "C001");
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
}

TEST_F(SaleModeTest, the_walk_in_customer_collects_at_once) {
  EnterSale("Muhtelif Müşteri");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
}

TEST_F(SaleModeTest, with_a_scanner_no_item_is_offered_and_the_product_field_has_the_focus) {
  settings.Save("Velmora Karvel1", "Size", "Label1", " Barkod").Ignore();
  ASSERT_TRUE(Start());
  EnterSale("Ayşe Yılmaz");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(SaleModeTest, the_mode_goes_round) {
  EnterSale("Ayşe Yılmaz");
  const auto mode = [&] { return At("Label4").Caption(); };
  DoubleTap("Label4");
  EXPECT_EQ(mode(), "İade");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Asc");
  DoubleTap("Label4");
  EXPECT_EQ(mode(), "Alış");
  DoubleTap("Label4");
  EXPECT_EQ(mode(), "Satış");
}

TEST_F(SaleModeTest, a_double_tap_on_a_field_name_goes_to_its_field) {
  EnterSale("Ayşe Yılmaz");
  DoubleTap("Label1(3)");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  DoubleTap("Label1(5)");
  EXPECT_TRUE(At("Text2(2)").HasFocus());
  DoubleTap("Label1(6)");
  EXPECT_TRUE(At("Text2(3)").HasFocus());
}

TEST_F(SaleModeTest, names_and_codes_change_places_and_are_kept) {
  EnterSale("Ayşe Yılmaz");
  DoubleTap("Label1(1)");
  EXPECT_EQ(At("Label1(1)").Caption(), " Barkod");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "Label1", ""), " Barkod");
  DoubleTap("Label1(1)");
  EXPECT_EQ(At("Label1(1)").Caption(), " Ürün");
}

TEST_F(SaleModeTest, a_tap_on_the_stock_list_makes_the_desk_ready_to_sell) {
  EnterSale("Ayşe Yılmaz");
  DoubleTap("Label4");
  desk->form.EditLineId = "x";
  At("Command3").SetCaption("Düzeltme");
  PickItem("1002");
  EXPECT_EQ(desk->form.EditLineId, "");
  EXPECT_EQ(At("Label4").Caption(), "Satış");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_TRUE(At("Command2").Enabled());
  EXPECT_EQ(At("Label1(7)").Caption(), "Bakiye");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  EXPECT_EQ(At("Label5").Color(), color::kGreen);
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
  EXPECT_EQ(At("Text2(1)").Text(), "1");
  EXPECT_EQ(At("Label2").Caption(), "20,00");
  EXPECT_EQ(desk->form.ActiveCursor, &desk->cursors.StokData);
}

TEST_F(SaleModeTest, from_the_wholesale_list_the_way_leads_back_to_the_customers) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Toptan',1)");
  AddCustomer("T1", "Toptancı", "Gurup='Toptan'");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Toptan");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  EXPECT_EQ(At("Text1(0)").Text(), "Toptancı");
  DoubleTap("Label1(0)");
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label1(0)").Caption(), " Müşteri");
  EXPECT_EQ(At("Text1(0)").Text(), "");
}

TEST_F(SaleModeTest, due_dates_follow_the_customer_also_when_the_last_sale_was_left_as_a_purchase) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Post("1");
  DoubleTap("Label1(0)");
  Sell("Bora Çetin", "1002", "1");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT CariKod, Tutar FROM \"VadeGün\" ORDER BY 1"), (std::vector<std::string>{"C001|50.0", "C002|20.0"}));
}

TEST_F(SaleModeTest, back_at_the_list_the_balance_stands_on_the_screen) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "2");
  Click("Command2");
  At("Label1(7)").SetCaption("Fiş Top.");
  At("Label5").SetCaption("7");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Label1(7)").Caption(), "Bakiye");
  EXPECT_EQ(At("Label5").Caption(), Format(desk->cursors.CariData.Number("Bakiye"), "Standard"));
}

TEST_F(SaleModeTest, back_from_the_wholesalers_the_balance_is_that_of_the_customer_in_front) {
  AddCustomer("C050", "Aaa Bakkal", "Borc=7, Bakiye=7");
  AddCustomer("T050", "Aaa Toptan", "Gurup='Toptan', Alacak=90, Bakiye=90, Hesap='Alacak'");
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Toptan',1)");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_EQ(At("Label5").Caption(), "90,00");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text1(0)").Text(), "");
  ASSERT_EQ(desk->cursors.CariData.Text("CariKod"), "C050");
  EXPECT_EQ(At("Label5").Caption(), "7,00");
}

TEST_F(SaleModeTest, the_balance_in_and_behind_a_sale_is_the_one_in_the_files) {
  EnterSale("Ayşe Yılmaz");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=25.5, Alacak=50 WHERE CariKod='C001'");
  desk->screen.StokGrid.TapCell(1);
  EXPECT_EQ(At("Label5").Caption(), "25,50");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=5.5, Alacak=70 WHERE CariKod='C001'");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Label5").Caption(), "5,50");
}

}  // namespace
}  // namespace karvel
