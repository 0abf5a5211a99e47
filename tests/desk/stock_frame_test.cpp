#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class StockFrameTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    Open();
  }
  // The picker in a window of 1000×700 pixels, at (100, 200) with 400×300.
  void Open() {
    At("StkFrame").SetVisible(true);
    Place().LayAmong({.room = {1000, 700}});
    Place().Put({100, 200, 400, 300});
  }
  FloatingFrame& Place() { return desk->screen.stkPlace; }
  void Press(const std::string& name, int button, int x = 0, int y = 0) {
    At(name).mouseDown(MouseEvent{.button = button, .x = x, .y = y});
  }
  void Move(const std::string& name, int x, int y, int button = 1) { At(name).mouseMove(MouseEvent{.button = button, .x = x, .y = y}); }
  int HandlesShown() {
    int shown = 0;
    for (int i = 0; i < 9; ++i) shown += desk->screen.handle(i).Visible() ? 1 : 0;
    return shown;
  }
};

TEST_F(StockFrameTest, the_handles_are_hidden_at_first) {
  EXPECT_EQ(HandlesShown(), 0);
}

TEST_F(StockFrameTest, a_right_press_shows_the_nine_handles) {
  Press("StkFrame", 2);
  EXPECT_EQ(HandlesShown(), 9);
}

TEST_F(StockFrameTest, a_left_press_hides_them_and_keeps_the_place) {
  Press("StkFrame", 2);
  Press("StkFrame", 1);
  EXPECT_EQ(HandlesShown(), 0);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "StkFrameL", ""), "1500");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "StkFrameT", ""), "3000");
}

TEST_F(StockFrameTest, a_handle_that_is_drawn_sizes_the_picker) {
  Press("StkFrame", 2);
  Press("handle(4)", 1, 20, 20);
  Move("handle(4)", 60, 50);
  EXPECT_EQ(Place().Box(), (WindowBox{100, 200, 440, 330}));
}

TEST_F(StockFrameTest, the_body_moves_it) {
  Press("handle(8)", 1, 20, 20);
  Move("handle(8)", 10, 40);
  EXPECT_EQ(Place().Box(), (WindowBox{90, 220, 400, 300}));
}

TEST_F(StockFrameTest, a_pointer_that_passes_over_a_handle_moves_nothing) {
  Move("handle(4)", 60, 50);
  Press("handle(4)", 1);
  At("handle(4)").mouseUp(MouseEvent{});
  Move("handle(4)", 60, 50);
  Press("handle(4)", 1);
  Move("handle(4)", 60, 50, 2);
  EXPECT_EQ(Place().Box(), (WindowBox{100, 200, 400, 300}));
}

TEST_F(StockFrameTest, a_long_hold_does_not_let_the_handle_go) {
  Press("handle(4)", 1);
  Press("handle(4)", 2);
  At("handle(4)").mouseUp(MouseEvent{.button = 2});
  Move("handle(4)", 40, 0);
  EXPECT_EQ(Place().Box().width, 440);
}

TEST_F(StockFrameTest, the_handles_go_with_the_picker) {
  Press("StkFrame", 2);
  At("StkFrame").SetVisible(false);
  EXPECT_EQ(HandlesShown(), 0);
}

TEST_F(StockFrameTest, it_stands_where_it_was_kept_at_the_next_start) {
  Press("StkFrame", 1);
  ASSERT_TRUE(Start());
  At("StkFrame").SetVisible(true);
  Place().LayAmong({.room = {1000, 700}});
  EXPECT_EQ(Place().Box().left, 100);
  EXPECT_EQ(Place().Box().top, 200);
}

TEST_F(StockFrameTest, a_place_that_was_never_kept_is_nobody_s) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(Place().Kept(), "");
}

}  // namespace
}  // namespace karvel
