#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class LogosTest : public DeskFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
};

TEST_F(LogosTest, the_invoice_logo_lies_beside_the_program) {
  EXPECT_FALSE(At("Picture2(0)").Visible());
  Click("Logom(0)");
  EXPECT_TRUE(At("Logom(0)").Checked());
  EXPECT_TRUE(At("Picture2(0)").Visible());
  EXPECT_TRUE(At("Picture2(0)").Text().ends_with("/Logo.jpg"));
  Click("Logom(0)");
  EXPECT_FALSE(At("Picture2(0)").Visible());
}

TEST_F(LogosTest, the_company_logo_is_chosen_and_shown_again_at_the_next_start) {
  messages.answers = {"C:\\Resim\\firma.png"};
  Click("Logom(1)");
  EXPECT_TRUE(At("Picture2(1)").Visible());
  EXPECT_EQ(desk->Parts().settings.Get(Setting::LogoPath), "C:\\Resim\\firma.png");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(At("Logom(1)").Checked());
  EXPECT_TRUE(At("Picture2(1)").Visible());
  EXPECT_EQ(At("Picture2(1)").Text(), files.RealPath("C:\\Resim\\firma.png"));
  EXPECT_FALSE(At("Logom(0)").Checked());
}

TEST_F(LogosTest, a_cancelled_choice_leaves_the_company_logo_off) {
  Click("Logom(1)");
  EXPECT_FALSE(At("Logom(1)").Checked());
  EXPECT_FALSE(At("Picture2(1)").Visible());
  EXPECT_FALSE(desk->Parts().settings.GetBooleanAt(Setting::LogoMark, 1));
}

}  // namespace
}  // namespace karvel
