#include "desk/booking_panels.h"

#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

class BookingPanelsTest : public CustomerListFixture {
 protected:
  void SetUp() override {
    CustomerListFixture::SetUp();
    Choose("Ahmet Işık");
  }
};

TEST_F(BookingPanelsTest, a_delivery_and_a_collection_end_when_another_customer_comes_in_front) {
  for (const char* const panel : {"StokAl", "TahsilatFrame"}) {
    Choose("Ahmet Işık");
    At(panel).SetVisible(true);
    Choose("İsmail Şahin");
    EXPECT_FALSE(At(panel).Visible()) << panel;
  }
}

TEST_F(BookingPanelsTest, they_end_when_the_list_no_longer_has_their_customer) {
  At("StokAl").SetVisible(true);
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_FALSE(At("StokAl").Visible());
}

TEST_F(BookingPanelsTest, they_stay_while_their_customer_is_read_anew) {
  At("TahsilatFrame").SetVisible(true);
  ASSERT_TRUE(desk->cursors.CariData.MoveTo(desk->cursors.CariData.CurrentKey()).Ok());
  EXPECT_TRUE(At("TahsilatFrame").Visible());
  {
    const Muted muted(desk->form.RepositionGuard, Mute::Customers);
    Choose("İsmail Şahin");
    Choose("Ahmet Işık");
  }
  EXPECT_TRUE(At("TahsilatFrame").Visible());
}

TEST_F(BookingPanelsTest, one_that_was_closed_is_opened_for_whoever_is_in_front_then) {
  At("StokAl").SetVisible(true);
  At("StokAl").SetVisible(false);
  Choose("İsmail Şahin");
  At("StokAl").SetVisible(true);
  EXPECT_TRUE(At("StokAl").Visible());
  Choose("Ahmet Işık");
  EXPECT_FALSE(At("StokAl").Visible());
}

}  // namespace
}  // namespace karvel
