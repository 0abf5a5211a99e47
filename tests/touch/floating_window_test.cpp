#include "touch/floating_window.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

constexpr FloatingSizes kKeys{.least = {690, 294}, .usual = {690, 294}, .widens = true, .ample = 960};
constexpr FloatingSizes kNumbers{.least = {262, 402}, .usual = {262, 402}};
constexpr WindowSize kRoom{1024, 768};

// The desk at 1024×768: the product field on top, the main button at the lower right.
Surroundings Desk() {
  return {.room = kRoom, .field = {122, 80, 440, 48}, .button = {706, 650, 298, 76}};
}

bool Covers(const WindowBox& box, const Surroundings& around) {
  return Overlap(box, around.field) || Overlap(box, around.button);
}

bool IsInside(const WindowBox& box, const WindowSize& room) {
  return box.left >= 0 && box.top >= 0 && box.Right() <= room.width && box.Bottom() <= room.height;
}

TEST(FloatingWindow, windows_that_touch_do_not_overlap) {
  EXPECT_TRUE(Overlap({0, 0, 10, 10}, {9, 9, 10, 10}));
  EXPECT_FALSE(Overlap({0, 0, 10, 10}, {10, 0, 10, 10}));
  EXPECT_FALSE(Overlap({0, 0, 10, 10}, {0, 10, 10, 10}));
}

TEST(FloatingWindow, nothing_overlaps_what_is_not_there) {
  EXPECT_FALSE(Overlap({0, 0, 10, 10}, {5, 5, 0, 10}));
  EXPECT_FALSE(Overlap({0, 0, 0, 0}, {0, 0, 10, 10}));
}

TEST(FloatingWindow, a_height_under_the_least_becomes_the_least) {
  EXPECT_EQ(FittedSize({800, 293}, kKeys, kRoom, 1), (WindowSize{800, 294}));
}

TEST(FloatingWindow, the_least_size_fits_at_any_scale) {
  for (const double scale : {0.5, 0.52, 0.69, 0.75, 1.0, 1.25, 1.3}) {
    const WindowSize least = FittedSize({0, 0}, kNumbers, kRoom, scale);
    EXPECT_EQ(FittedSize(least, kNumbers, kRoom, scale), least) << scale;
    const WindowSize keys = FittedSize({0, 0}, {.least = kKeys.least}, kRoom, scale);
    EXPECT_EQ(FittedSize(keys, kKeys, kRoom, scale), keys) << scale;
  }
}

TEST(FloatingWindow, a_height_over_the_screen_becomes_the_least) {
  EXPECT_EQ(FittedSize({800, 769}, kKeys, kRoom, 1), (WindowSize{800, 294}));
  EXPECT_EQ(FittedSize({800, 768}, kKeys, kRoom, 1), (WindowSize{800, 768}));
}

TEST(FloatingWindow, a_keyboard_too_narrow_or_too_wide_takes_the_screen_less_a_margin) {
  EXPECT_EQ(FittedSize({689, 300}, kKeys, kRoom, 1).width, 1016);
  EXPECT_EQ(FittedSize({1025, 300}, kKeys, kRoom, 1).width, 1016);
  EXPECT_EQ(FittedSize({690, 300}, kKeys, kRoom, 1).width, 690);
}

TEST(FloatingWindow, a_pad_too_narrow_or_too_wide_takes_its_least_width) {
  EXPECT_EQ(FittedSize({100, 500}, kNumbers, kRoom, 1), (WindowSize{262, 500}));
  EXPECT_EQ(FittedSize({2000, 500}, kNumbers, kRoom, 1), (WindowSize{262, 500}));
}

TEST(FloatingWindow, sizes_are_rounded_down_to_whole_steps) {
  EXPECT_EQ(FittedSize({801, 301}, kKeys, kRoom, 1), (WindowSize{800, 300}));
}

TEST(FloatingWindow, keys_grow_with_the_fonts) {
  EXPECT_EQ(FittedSize({900, 300}, kKeys, {1920, 1080}, 1.3), (WindowSize{900, 382}));
}

TEST(FloatingWindow, no_window_is_larger_than_the_room) {
  EXPECT_EQ(FittedSize({0, 0}, kNumbers, {200, 300}, 1), (WindowSize{200, 300}));
}

TEST(FloatingWindow, a_window_past_an_edge_is_moved_back) {
  EXPECT_EQ(KeptInside({-5, -7, 100, 100}, kRoom), (WindowBox{0, 0, 100, 100}));
  EXPECT_EQ(KeptInside({1000, 700, 100, 100}, kRoom), (WindowBox{924, 668, 100, 100}));
  EXPECT_EQ(KeptInside({10, 20, 100, 100}, kRoom), (WindowBox{10, 20, 100, 100}));
}

TEST(FloatingWindow, a_keyboard_opens_at_the_lower_left_beside_the_main_button) {
  EXPECT_EQ(FloatingPlace({}, kKeys, Desk()), (WindowBox{0, 474, 702, 294}));
}

TEST(FloatingWindow, a_keyboard_a_little_wider_than_the_room_beside_the_button_gives_way) {
  // 1024×768 pixels at 200 %.
  const Surroundings around{.room = {512, 384}, .field = {14, 73, 149, 26}, .button = {358, 315, 144, 40}, .scale = 0.52};
  const WindowBox place = FloatingPlace({}, kKeys, around);
  EXPECT_EQ(place, (WindowBox{0, 232, 354, 152}));
}

TEST(FloatingWindow, a_wide_desk_gives_the_keyboard_wider_keys) {
  Surroundings around = Desk();
  around.room = {1366, 768};
  around.button = {970, 650, 380, 76};
  EXPECT_EQ(FloatingPlace({}, kKeys, around).width, 960);
}

TEST(FloatingWindow, a_keyboard_opens_above_a_field_at_the_bottom) {
  Surroundings around = Desk();
  around.field = {20, 600, 300, 48};
  const WindowBox place = FloatingPlace({}, kKeys, around);
  EXPECT_EQ(place.Bottom(), 596);
  EXPECT_FALSE(Covers(place, around));
}

TEST(FloatingWindow, neither_the_field_nor_the_button_is_covered_wherever_the_field_is) {
  struct Desk {
    WindowSize room;
    WindowBox button;
    double scale;
  };
  // The last two: three quarters of a 1366 and a 1920 pixel screen at 150 %.
  const Desk desks[] = {{{1024, 768}, {706, 650, 298, 76}, 1},
                        {{1366, 768}, {970, 650, 380, 76}, 1},
                        {{1920, 1080}, {1490, 930, 410, 99}, 1.3},
                        {{960, 640}, {642, 522, 298, 76}, 1},
                        {{1280, 720}, {909, 602, 351, 76}, 1}};
  for (const auto& [room, button, scale] : desks) {
    for (const FloatingSizes& sizes : {kKeys, kNumbers}) {
      for (int top = 0; top + 50 <= room.height; top += 10) {
        for (const int left : {12, room.width / 3, room.width - 200}) {
          const Surroundings around{.room = room, .field = {left, top, 180, 48}, .button = button, .scale = scale};
          if (Overlap(around.field, button)) continue;
          const WindowBox place = FloatingPlace({}, sizes, around);
          EXPECT_TRUE(IsInside(place, room)) << room.width << " " << left << " " << top;
          EXPECT_FALSE(Covers(place, around)) << room.width << " " << left << " " << top;
        }
      }
    }
  }
}

TEST(FloatingWindow, a_chosen_place_is_kept_also_over_the_main_button) {
  const WindowBox chosen{300, 460, 700, 300};
  ASSERT_TRUE(Overlap(chosen, Desk().button));
  EXPECT_EQ(FloatingPlace(chosen, kKeys, Desk()), chosen);
}

TEST(FloatingWindow, a_chosen_place_over_the_field_is_left_with_its_size) {
  const WindowBox chosen{0, 60, 700, 300};
  const WindowBox place = FloatingPlace(chosen, kKeys, Desk());
  EXPECT_FALSE(Covers(place, Desk()));
  EXPECT_EQ(place.width, 700);
  EXPECT_EQ(place.height, 300);
}

TEST(FloatingWindow, a_chosen_place_off_this_screen_is_moved_onto_it) {
  EXPECT_EQ(FloatingPlace(WindowBox{1500, 900, 700, 300}, kKeys, Desk()), (WindowBox{324, 468, 700, 300}));
}

TEST(FloatingWindow, without_a_field_only_the_button_is_spared) {
  Surroundings around = Desk();
  around.field = {};
  EXPECT_FALSE(Covers(FloatingPlace({}, kNumbers, around), around));
}

TEST(FloatingWindow, a_pad_stands_beside_the_panel_of_its_field) {
  Surroundings around = Desk();
  around.field = {490, 400, 170, 48};
  around.card = {10, 220, 670, 410};
  around.keys = {20, 560, 650, 52};
  const WindowBox place = FloatingPlace({}, kNumbers, around);
  EXPECT_FALSE(Overlap(place, around.card));
  EXPECT_FALSE(Covers(place, around));
}

TEST(FloatingWindow, where_both_can_not_be_spared_it_is_the_field) {
  Surroundings around{.room = {960, 640}, .field = {0, 300, 960, 40}, .button = {0, 0, 960, 20}};
  const WindowBox place = FloatingPlace({}, kKeys, around);
  EXPECT_FALSE(Overlap(place, around.field));
}

}  // namespace
}  // namespace karvel
