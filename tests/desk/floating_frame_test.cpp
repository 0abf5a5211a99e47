#include "desk/floating_frame.h"

#include <gtest/gtest.h>

#include "desk/elements.h"

namespace karvel {
namespace {

class FloatingFrameTest : public ::testing::Test {
 protected:
  FloatingFrameTest() {
    frame.LayAmong(desk);
    connections += frame.changed.Connect([this] { ++changes; });
  }

  const Surroundings desk{.room = {1024, 768}, .field = {122, 80, 440, 48}, .button = {706, 650, 298, 76}};
  FloatingFrame frame{kKeyboardSizes};
  int changes = 0;
  Connections connections;
};

TEST_F(FloatingFrameTest, the_clerk_moves_and_sizes_it) {
  const WindowBox before = frame.Box();
  frame.MoveBy(30, -20);
  EXPECT_EQ(frame.Box(), (WindowBox{before.left + 30, before.top - 20, before.width, before.height}));
  frame.SizeBy(10, 20);
  EXPECT_EQ(frame.Box().width, before.width + 10);
  EXPECT_EQ(frame.Box().height, before.height + 20);
  EXPECT_EQ(changes, 2);
}

TEST_F(FloatingFrameTest, moving_it_leaves_its_size_at_any_scale) {
  for (const double scale : {0.5, 0.52, 0.69, 0.75, 1.0, 1.3, 1.5}) {
    const auto scaled = [scale](int base) { return static_cast<int>(base * scale); };
    const Surroundings around{.room = {scaled(984), scaled(740)},
                              .field = {scaled(122), scaled(80), scaled(440), scaled(48)},
                              .button = {scaled(650), scaled(400), scaled(298), scaled(76)},
                              .scale = scale};
    FloatingFrame small(kKeyboardSizes);
    small.LayAmong(around);
    const WindowBox before = small.Box();
    small.MoveBy(2, -2);
    EXPECT_EQ(small.Box(), (WindowBox{before.left + 2, before.top - 2, before.width, before.height})) << scale;
    const WindowBox moved = small.Box();
    small.LayAmong(around);
    EXPECT_EQ(small.Box(), moved) << scale;
  }
}

TEST_F(FloatingFrameTest, one_that_made_itself_narrow_is_moved_as_it_stands) {
  Surroundings around = desk;
  around.button = {560, 320, 460, 448};
  frame.LayAmong(around);
  const WindowBox before = frame.Box();
  ASSERT_LT(before.width, kKeyboardSizes.least.width);
  frame.MoveBy(0, -10);
  EXPECT_EQ(frame.Box(), (WindowBox{before.left, before.top - 10, before.width, before.height}));
  const WindowBox moved = frame.Box();
  frame.LayAmong(around);
  EXPECT_EQ(frame.Box(), moved);
}

TEST_F(FloatingFrameTest, it_is_never_moved_off_the_desk) {
  frame.MoveBy(-5000, 5000);
  EXPECT_EQ(frame.Box().left, 0);
  EXPECT_EQ(frame.Box().Bottom(), 768);
}

TEST_F(FloatingFrameTest, a_fixed_one_does_not_move_for_the_clerk) {
  const WindowBox before = frame.Box();
  frame.SetFixed(true);
  frame.MoveBy(30, 30);
  frame.SizeBy(30, 30);
  frame.Put({0, 0, 800, 400});
  EXPECT_EQ(frame.Box(), before);
  EXPECT_EQ(changes, 0);
}

TEST_F(FloatingFrameTest, a_fixed_one_still_leaves_a_field_in_sight) {
  frame.SetFixed(true);
  Surroundings around = desk;
  around.field = {20, 600, 300, 48};
  frame.LayAmong(around);
  EXPECT_FALSE(Overlap(frame.Box(), around.field));
}

TEST_F(FloatingFrameTest, what_the_clerk_chose_is_kept) {
  frame.Put({100, 200, 800, 320});
  EXPECT_EQ(frame.Kept(), "100 200 800 320");
  FloatingFrame next(kKeyboardSizes);
  next.TakeKept(frame.Kept());
  next.LayAmong(desk);
  EXPECT_EQ(next.Box(), frame.Box());
}

TEST_F(FloatingFrameTest, a_shift_that_keeps_a_field_in_view_is_not_kept) {
  frame.Put({0, 400, 700, 320});
  Surroundings around = desk;
  around.field = {20, 600, 300, 48};
  frame.LayAmong(around);
  EXPECT_FALSE(Overlap(frame.Box(), around.field));
  EXPECT_EQ(frame.Kept(), "0 400 700 320");
  frame.LayAmong(desk);
  EXPECT_EQ(frame.Box(), (WindowBox{0, 400, 700, 320}));
}

TEST_F(FloatingFrameTest, where_nothing_was_chosen_nothing_is_kept) {
  EXPECT_EQ(frame.Kept(), "");
}

TEST_F(FloatingFrameTest, a_text_that_tells_no_place_changes_nothing) {
  const WindowBox before = frame.Box();
  for (const char* text : {"", "100 200", "left top", "1 2 0 0"}) {
    frame.TakeKept(text);
    frame.LayAmong(desk);
    EXPECT_EQ(frame.Box(), before) << text;
  }
}

TEST_F(FloatingFrameTest, another_field_is_told_once) {
  int told = 0;
  connections += frame.servedChanged.Connect([&told] { ++told; });
  Elements elements;
  const Element& field = elements.Add("Text1", ElementKind::TextBox, "", nullptr);
  frame.Serve(&field);
  frame.Serve(&field);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(frame.Served(), &field);
  frame.Serve(nullptr);
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace karvel
