#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class FixedWindowTest : public DeskFixture {};

TEST_F(FixedWindowTest, keys_move_and_size_the_frame_unless_it_is_fixed) {
  ASSERT_TRUE(Start());
  KeyEvent right{key::kRight, false, true};
  At("Form1").keyDown(right);
  EXPECT_TRUE(right.dropped);
  EXPECT_EQ(window.moved, 2);
  KeyEvent down{key::kDown, false, false, true};
  At("Form1").keyDown(down);
  EXPECT_EQ(window.sized, 2);
  desk->form.Sabit = true;
  KeyEvent again{key::kRight, false, true};
  At("Form1").keyDown(again);
  EXPECT_EQ(window.moved, 2);
}

TEST_F(FixedWindowTest, the_menu_fixes_the_frame_and_frees_it_again) {
  ASSERT_TRUE(Start());
  Click("PencereSabit");
  EXPECT_TRUE(window.fixed);
  EXPECT_TRUE(desk->form.Sabit);
  EXPECT_TRUE(At("PencereSabit").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FrmSize", "Sabit", ""), "True");
  Click("PencereSabit");
  EXPECT_FALSE(window.fixed);
  EXPECT_FALSE(At("PencereSabit").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FrmSize", "Sabit", ""), "False");
}

TEST_F(FixedWindowTest, a_frame_that_was_fixed_is_fixed_at_the_next_start) {
  ASSERT_TRUE(settings.Save("Velmora Karvel1", "FrmSize", "Sabit", "True").Ok());
  ASSERT_TRUE(Start());
  EXPECT_TRUE(window.fixed);
  EXPECT_TRUE(At("PencereSabit").Checked());
}

}  // namespace
}  // namespace karvel
