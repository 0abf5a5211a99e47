#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

class DoubleTapHintsTest : public CustomerListFixture {};

TEST_F(DoubleTapHintsTest, a_tap_says_where_a_double_tap_leads) {
  Click("Label1(0)");
  EXPECT_EQ(At("Durum").Caption(), "Satışa geçmek için çift dokunun");
  At("GurupCombo").ChooseText("Toptan");
  Click("Label1(0)");
  EXPECT_EQ(At("Durum").Caption(), "Müşterilere dönmek için çift dokunun");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  EnterSale("Ahmet Işık");
  Click("Label1(0)");
  EXPECT_EQ(At("Durum").Caption(), "Müşteri listesine dönmek için çift dokunun");
}

TEST_F(DoubleTapHintsTest, the_hint_goes_with_the_double_tap_and_what_that_says_stays) {
  Choose("Ahmet Işık");
  Click("Label1(0)");
  DoubleTap("Label1(0)");
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_EQ(At("Durum").Caption(), "");
  Set("Text2(2)", "20");
  Click("Label1(0)");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Durum").Caption(), "20 alınmadı: tutarı müşteri listesinde yazıp Tamam'a dokunun");
}

TEST_F(DoubleTapHintsTest, what_was_booked_stays_when_a_tile_without_a_hint_is_tapped) {
  At("Durum").SetCaption("Silindi");
  Click("Label5");
  EXPECT_EQ(At("Durum").Caption(), "Silindi");
}

}  // namespace
}  // namespace karvel
