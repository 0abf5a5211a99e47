#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

class CustomerFieldTest : public CustomerListFixture {};

TEST_F(CustomerFieldTest, typing_moves_the_list_and_completes_the_name) {
  Set("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Text1(0)").SelectionStart(), 2);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(CustomerFieldTest, enter_takes_the_customer_and_goes_to_the_list) {
  Set("Text1(0)", "çe");
  Key("Text1(0)", key::kEnter);
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerFieldTest, an_unknown_name_opens_a_new_card_with_the_name_in_it) {
  Set("Text1(0)", "Zeki Yeni");
  Key("Text1(0)", key::kEnter);
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(0)").Text(), "Zeki Yeni");
  EXPECT_EQ(At("CariNew(1)").Text(), "Zeki Yeni");
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
}

TEST_F(CustomerFieldTest, keys_that_only_take_away_or_move_do_not_complete_the_name) {
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

TEST_F(CustomerFieldTest, backspace_takes_the_completed_rest_of_the_name_away) {
  Set("Text1(0)", "çe");
  Erase("Text1(0)");
  EXPECT_EQ(At("Text1(0)").Text(), "Çe");
  Erase("Text1(0)");
  EXPECT_EQ(At("Text1(0)").Text(), "Ç");
}

TEST_F(CustomerFieldTest, a_star_alone_searches_nobody) {
  Choose("Çetin Öz");
  Set("Text1(0)", "*");
  EXPECT_EQ(At("Text1(0)").Text(), "*");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
}

TEST_F(CustomerFieldTest, an_empty_field_takes_the_name_of_the_row_when_it_gets_the_focus) {
  At("CariGrid").SetFocus();
  At("Text1(0)").SetText("");
  At("Text1(0)").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").SelectionLength(), 10);
  EXPECT_EQ(desk->form.ActiveFieldCode, 0);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(CustomerFieldTest, the_name_taken_on_focus_is_that_of_a_list_read_anew) {
  At("CariGrid").SetFocus();
  At("Text1(0)").SetText("");
  AddCustomer("C000", "Abdullah");
  At("Text1(0)").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "Abdullah");
}

TEST_F(CustomerFieldTest, an_empty_field_over_an_empty_list_stays_empty) {
  At("GurupCombo").ChooseText("Fatura");
  At("Text1(0)").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "");
}

TEST_F(CustomerFieldTest, with_the_stock_in_front_the_field_searches_the_stock) {
  AddStock("1001", "Pirinç");
  AddStock("1002", "Şeker");
  ASSERT_TRUE(Start());
  At("StokChk").SetChecked(true);
  At("Text1(0)").SetFocus();
  At("Text1(0)").SetText("şe");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1002");
}

TEST_F(CustomerFieldTest, with_the_stock_in_front_enter_opens_no_card) {
  At("StokChk").SetChecked(true);
  At("Text1(0)").SetFocus();
  At("Text1(0)").SetText("kimse");
  Key("Text1(0)", key::kEnter);
  EXPECT_FALSE(At("CariFrm").Visible());
}

TEST_F(CustomerFieldTest, of_two_with_one_name_enter_takes_the_one_in_front) {
  AddCustomer("C010", "Deniz Ak");
  AddCustomer("C011", "Deniz Ak");
  ASSERT_TRUE(Start());
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C011'").Ok());
  Key("Text1(0)", key::kEnter);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C011");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C011' Order By Tarih Desc");
}

TEST_F(CustomerFieldTest, files_that_can_not_be_read_offer_no_new_card) {
  At("GurupCombo").ChooseText("Bayi");
  Set("Text1(0)", "Ahmet Işık");
  engine.readFault = Status(ErrorKind::Busy, "kept by another program");
  Key("Text1(0)", key::kEnter);
  engine.readFault = {};
  EXPECT_FALSE(At("CariFrm").Visible());
  EXPECT_EQ(At("Durum").Caption(), "Başka bir terminal kayıt yapıyor. Kayıt yapılmadı; biraz bekleyip yeniden deneyin.");
  Key("Text1(0)", key::kEnter);
  EXPECT_EQ(At("Label8").Caption(), "C001");
}

TEST_F(CustomerFieldTest, a_name_of_another_list_is_brought_when_its_field_is_left) {
  At("GurupCombo").ChooseText("Bayi");
  Set("Text1(0)", "Toptancı Bey");
  At("Text2(2)").SetFocus();
  EXPECT_EQ(At("Label8").Caption() + At("Label1(5)").Caption(), "T001 Ödeme");
  EXPECT_EQ(At("GurupCombo").Text(), "Toptan");
}

TEST_F(CustomerFieldTest, left_for_the_list_the_row_there_is_meant) {
  At("GurupCombo").ChooseText("Bayi");
  Set("Text1(0)", "Toptancı Bey");
  At("CariGrid").SetFocus();
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("GurupCombo").Text(), "Bayi");
}

}  // namespace
}  // namespace karvel
