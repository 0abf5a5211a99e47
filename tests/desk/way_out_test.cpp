#include <string>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class WayOutTest : public AccountsFixture {
 protected:
  // Whether the key found something to leave.
  bool Escape() {
    KeyEvent event{key::kEscape};
    desk->screen.Form1.keyDown(event);
    return event.dropped;
  }
};

TEST_F(WayOutTest, a_collection_is_left_and_nothing_taken) {
  Sell("Muhtelif Müşteri", "1001", "2");
  Click("Command1");
  ASSERT_TRUE(At("TahsilatFrame").Visible());
  EXPECT_TRUE(Escape());
  EXPECT_FALSE(At("TahsilatFrame").Visible());
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "100.0|0.0|100.0|Borç");
}

TEST_F(WayOutTest, a_new_customer_is_left_and_not_kept) {
  const std::string before = One("Cari.mdb", "SELECT count(*) FROM CariKartlar");
  Set("Text1(0)", "zeynep");
  Key("Text1(0)", key::kEnter);
  ASSERT_TRUE(At("CariFrm").Visible());
  EXPECT_TRUE(Escape());
  EXPECT_FALSE(At("CariFrm").Visible());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), before);
}

TEST_F(WayOutTest, a_receipt_is_left_and_not_booked) {
  At("GurupCombo").ChooseText("Toptan");
  At("StokChk").SetChecked(true);
  ASSERT_TRUE(At("StokAl").Visible());
  EXPECT_TRUE(Escape());
  EXPECT_FALSE(At("StokAl").Visible());
}

TEST_F(WayOutTest, from_the_serials_it_leads_back_to_the_quantity) {
  desk->form.SerialEntryOn = true;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Set("Text2(1)", "30");
  At("StokGrid").SetFocus();
  ASSERT_TRUE(At("Frame4").Visible());
  EXPECT_TRUE(Escape());
  EXPECT_FALSE(At("Frame4").Visible());
  EXPECT_TRUE(At("Text2(1)").HasFocus());
}

TEST_F(WayOutTest, the_overdue_notice_goes_and_without_a_panel_the_key_is_everybodys) {
  At("Vadefrm").SetVisible(true);
  EXPECT_TRUE(Escape());
  EXPECT_FALSE(At("Vadefrm").Visible());
  EXPECT_FALSE(Escape());
}

}  // namespace
}  // namespace karvel
