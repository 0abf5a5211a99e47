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

}  // namespace
}  // namespace karvel
