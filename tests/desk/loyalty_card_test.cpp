#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

class LoyaltyCardTest : public CustomerListFixture {};

TEST_F(LoyaltyCardTest, at_the_resting_list_it_chooses_its_bearer) {
  Choose("İsmail Şahin");
  scanner.codeRead("9001");
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(At("Label8").Caption(), "C001");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  EXPECT_EQ(At("Durum").Caption(), "Ahmet Işık");
  EXPECT_TRUE(At("CariGrid").HasFocus());
}

TEST_F(LoyaltyCardTest, its_bearer_is_found_in_another_group_too) {
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_EQ(At("Label1(5)").Caption(), " Ödeme");
  scanner.codeRead("9001");
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
}

TEST_F(LoyaltyCardTest, a_number_that_nobody_has_chooses_nobody_and_offers_no_card) {
  scanner.codeRead("4711");
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EXPECT_EQ(At("Durum").Caption(), "Böyle bir müşteri yok: 4711");
  EXPECT_FALSE(At("CariFrm").Visible());
}

TEST_F(LoyaltyCardTest, a_number_that_two_have_chooses_neither) {
  AddCustomer("C005", "İkinci", "KartNo='9001'");
  Choose("İsmail Şahin");
  scanner.codeRead("9001");
  EXPECT_EQ(At("Text1(0)").Text(), "İsmail Şahin");
  EXPECT_EQ(At("Durum").Caption(), "Birden çok müşteri var, listeden seçin: 9001");
}

TEST_F(LoyaltyCardTest, in_a_new_card_it_is_the_cards_number) {
  Set("Text1(0)", "Yeni Biri");
  Key("Text1(0)", key::kEnter);
  ASSERT_TRUE(At("CariFrm").Visible());
  scanner.codeRead("9001");
  EXPECT_EQ(At("CariNew(9)").Text(), "9001");
  EXPECT_TRUE(At("CariFrm").Visible());
}

TEST_F(LoyaltyCardTest, over_the_stock_list_it_means_nothing) {
  Choose("İsmail Şahin");
  At("StokChk").SetChecked(true);
  scanner.codeRead("9001");
  EXPECT_TRUE(At("StokChk").Checked());
  EXPECT_EQ(At("Durum").Caption(), "");
}

}  // namespace
}  // namespace karvel
