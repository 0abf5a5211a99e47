#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class ShutDownTest : public DeskFixture {};

TEST_F(ShutDownTest, closing_saves_the_frame_and_shows_what_it_does) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(desk->CloseRequested(false));
  EXPECT_EQ(window.savedFitting, "VelmoraKrv");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FrmSize", "Sabit", ""), "False");
  EXPECT_EQ(At("Label16").Caption(), "Yedekleniyor.");
  EXPECT_TRUE(At("Frame5").Visible());
}

TEST_F(ShutDownTest, closing_by_the_program_leaves_the_kept_frame) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(desk->CloseRequested(true));
  EXPECT_EQ(window.savedFitting, "");
}

TEST_F(ShutDownTest, the_exit_button_asks_the_window_to_close) {
  ASSERT_TRUE(Start());
  Click("Command3");
  EXPECT_EQ(window.closes, 1);
}

TEST_F(ShutDownTest, the_exit_button_keeps_the_frame) {
  ASSERT_TRUE(Start());
  Click("Command3");
  EXPECT_EQ(window.savedFitting, "VelmoraKrv");
}

}  // namespace
}  // namespace karvel
