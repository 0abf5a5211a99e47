#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class LongPressTest : public DeskFixture {};

TEST_F(LongPressTest, a_long_press_on_exit_drops_the_fixed_frame_and_closes) {
  settings.Save("Velmora Karvel1", "FrmSize", "Sabit", "True").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_TRUE(window.fixed);
  At("Command3").mouseDown({});
  for (int i = 0; i < 16 && loop.timer; ++i) loop.timer();
  EXPECT_EQ(window.closes, 0);  // the deadline itself is not past it
  loop.timer();
  EXPECT_EQ(window.closes, 1);
  EXPECT_FALSE(window.fixed);
  EXPECT_FALSE(desk->form.Sabit);
}

TEST_F(LongPressTest, a_released_press_closes_nothing) {
  ASSERT_TRUE(Start());
  At("CariGrid").mouseDown({1, false, false, false, 10, 10});
  ASSERT_TRUE(loop.timer);
  for (int i = 0; i < 8; ++i) loop.timer();
  desk->screen.CariGrid.released();
  EXPECT_FALSE(loop.timer);
  EXPECT_EQ(window.closes, 0);
}

TEST_F(LongPressTest, a_long_press_behind_another_window_closes_nothing) {
  ASSERT_TRUE(Start());
  window.active = false;
  At("CariGrid").mouseDown({1, false, false, false, 10, 10});
  for (int i = 0; i < 12 && loop.timer; ++i) {
    const auto tick = loop.timer;
    tick();
  }
  EXPECT_EQ(window.closes, 0);
}

}  // namespace
}  // namespace karvel
