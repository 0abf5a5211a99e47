#include "touch/sizing_handles.h"

#include <gtest/gtest.h>

namespace karvel {

void PrintTo(const WindowBox& box, std::ostream* out) {
  *out << box.left << ' ' << box.top << ' ' << box.width << ' ' << box.height;
}

namespace {

constexpr WindowBox kPanel{100, 200, 300, 400};
constexpr SizingHandles::Limits kLimits{.roomWidth = 1000, .roomHeight = 800, .leastWidth = 120, .leastHeight = 80};

WindowBox Drawn(int handle, int dx = 10, int dy = 20) {
  return SizingHandles::Drawn(kPanel, handle, dx, dy, kLimits);
}

TEST(SizingHandles, the_top_left_one_moves_and_shrinks) {
  EXPECT_EQ(Drawn(0), (WindowBox{110, 220, 290, 380}));
}
TEST(SizingHandles, the_top_one_moves_the_top_edge) {
  EXPECT_EQ(Drawn(1), (WindowBox{100, 220, 300, 380}));
}
TEST(SizingHandles, the_top_right_one_moves_the_top_edge_and_widens) {
  EXPECT_EQ(Drawn(2), (WindowBox{100, 220, 310, 380}));
}
TEST(SizingHandles, the_right_one_widens) {
  EXPECT_EQ(Drawn(3), (WindowBox{100, 200, 310, 400}));
}
TEST(SizingHandles, the_bottom_right_one_grows_both_ways) {
  EXPECT_EQ(Drawn(4), (WindowBox{100, 200, 310, 420}));
}
TEST(SizingHandles, the_bottom_one_heightens) {
  EXPECT_EQ(Drawn(5), (WindowBox{100, 200, 300, 420}));
}
TEST(SizingHandles, the_bottom_left_one_moves_the_left_edge_and_heightens) {
  EXPECT_EQ(Drawn(6), (WindowBox{110, 200, 290, 420}));
}
TEST(SizingHandles, the_left_one_moves_the_left_edge) {
  EXPECT_EQ(Drawn(7), (WindowBox{110, 200, 290, 400}));
}
TEST(SizingHandles, the_body_moves_the_panel_and_keeps_its_size) {
  EXPECT_EQ(Drawn(8), (WindowBox{110, 220, 300, 400}));
}

TEST(SizingHandles, no_edge_leaves_the_room) {
  EXPECT_EQ(Drawn(0, -500, -500), (WindowBox{0, 0, 400, 600}));
  EXPECT_EQ(Drawn(4, 5000, 5000), (WindowBox{100, 200, 900, 600}));
  EXPECT_EQ(Drawn(8, -500, -500), (WindowBox{0, 0, 300, 400}));
  EXPECT_EQ(Drawn(8, 5000, 5000), (WindowBox{700, 400, 300, 400}));
}

TEST(SizingHandles, the_panel_never_gets_smaller_than_its_least_size) {
  EXPECT_EQ(Drawn(0, 5000, 5000), (WindowBox{280, 520, 120, 80}));
  EXPECT_EQ(Drawn(4, -5000, -5000), (WindowBox{100, 200, 120, 80}));
}

TEST(SizingHandles, a_room_smaller_than_the_panel_holds_it_at_its_corner) {
  const SizingHandles::Limits small{.roomWidth = 200, .roomHeight = 100, .leastWidth = 120, .leastHeight = 80};
  EXPECT_EQ(SizingHandles::Drawn(kPanel, 8, 10, 10, small), (WindowBox{0, 0, 300, 400}));
}

TEST(SizingHandles, they_stand_with_their_middles_on_corners_and_edges) {
  const auto handles = SizingHandles::Around(kPanel, 20, {1000, 800});
  EXPECT_EQ(handles[0], (WindowBox{90, 190, 20, 20}));
  EXPECT_EQ(handles[1], (WindowBox{240, 190, 20, 20}));
  EXPECT_EQ(handles[2], (WindowBox{390, 190, 20, 20}));
  EXPECT_EQ(handles[3], (WindowBox{390, 390, 20, 20}));
  EXPECT_EQ(handles[4], (WindowBox{390, 590, 20, 20}));
  EXPECT_EQ(handles[5], (WindowBox{240, 590, 20, 20}));
  EXPECT_EQ(handles[6], (WindowBox{90, 590, 20, 20}));
  EXPECT_EQ(handles[7], (WindowBox{90, 390, 20, 20}));
  EXPECT_EQ(handles[8], (WindowBox{240, 390, 20, 20}));
}

TEST(SizingHandles, those_of_a_panel_at_the_edge_stay_in_the_room) {
  const auto handles = SizingHandles::Around({0, 500, 300, 300}, 20, {1000, 800});
  EXPECT_EQ(handles[0], (WindowBox{0, 490, 20, 20}));
  EXPECT_EQ(handles[6], (WindowBox{0, 780, 20, 20}));
  EXPECT_EQ(handles[4], (WindowBox{290, 780, 20, 20}));
}

TEST(SizingHandles, a_finger_that_stays_moves_nothing) {
  SizingHandles handles;
  handles.Press(4, 5, 5);
  EXPECT_FALSE(handles.Move(kPanel, 5, 5, kLimits));
}

TEST(SizingHandles, one_pixel_is_enough) {
  SizingHandles handles;
  handles.Press(4, 5, 5);
  EXPECT_EQ(handles.Move(kPanel, 5, 6, kLimits), (WindowBox{100, 200, 300, 401}));
  EXPECT_EQ(handles.Move(kPanel, 4, 5, kLimits), (WindowBox{100, 200, 299, 400}));
}

TEST(SizingHandles, without_a_finger_on_one_nothing_moves) {
  SizingHandles handles;
  EXPECT_FALSE(handles.Move(kPanel, 9, 9, kLimits));
  handles.Press(8, 0, 0);
  handles.Release();
  EXPECT_FALSE(handles.Move(kPanel, 9, 9, kLimits));
}

}  // namespace
}  // namespace karvel
