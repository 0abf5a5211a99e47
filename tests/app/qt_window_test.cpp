#include "app/qt_window.h"

#include <filesystem>

#include "app/desk_grid.h"
#include "tests/support/temp_folder.h"
#include "window_fixture.h"

namespace karvel {
namespace {

class QtWindowTest : public WindowTest {
 protected:
  QtWindowTest() { frame.Attach(&window); }
  TempFolder folder;
  QtWindow frame{folder.Path()};
};

TEST_F(QtWindowTest, keeps_the_fitting_under_its_name) {
  window.resize(1000, 700);
  frame.SaveFitting("VelmoraKrv");
  EXPECT_TRUE(std::filesystem::exists(folder.Path() + "/fitting/VelmoraKrv.bin"));
  window.resize(1100, 760);
  frame.RestoreFitting("VelmoraKrv");
  EXPECT_EQ(window.size(), QSize(1000, 700));
  frame.RestoreFitting("never kept");
  EXPECT_EQ(window.size(), QSize(1000, 700));
}

TEST_F(QtWindowTest, a_fixed_window_has_no_frame_and_a_free_one_has_it_back) {
  frame.SetFixed(true);
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(window.isVisible());
  frame.SetFixed(false);
  EXPECT_FALSE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(window.isVisible());
}

TEST_F(QtWindowTest, a_raised_window_is_no_longer_minimized_and_a_hidden_one_stays_hidden) {
  window.showMinimized();
  ASSERT_TRUE(window.isMinimized());
  frame.Raise();
  EXPECT_FALSE(window.isMinimized());
  window.hide();
  frame.Raise();
  EXPECT_FALSE(window.isVisible());
}

TEST_F(QtWindowTest, moves_stay_on_the_screen) {
  frame.MoveBy(-5000, -5000);
  EXPECT_GE(window.geometry().left(), 0);
  EXPECT_GE(window.geometry().top(), 0);
  frame.SizeBy(9000, 9000);
  EXPECT_EQ(window.frameGeometry(), window.screen()->availableGeometry());
}

TEST_F(QtWindowTest, measures_texts_in_the_elements_own_font) {
  EXPECT_GT(frame.TextWidth("Label5", "1.234,50"), frame.TextWidth("Label8", "1.234,50"));
  EXPECT_GT(frame.InnerWidth("CariGrid"), 300);
  EXPECT_EQ(frame.TextWidth("no such element", "x"), 0);
}

TEST_F(QtWindowTest, a_larger_grid_font_makes_higher_rows) {
  const int before = frame.TextWidth("CariGrid", "Abdullah");
  frame.SetGridFont("", 24, false);
  EXPECT_GT(frame.TextWidth("CariGrid", "Abdullah"), before);
}

TEST_F(QtWindowTest, a_chosen_font_is_four_points_smaller_in_the_day_book_list) {
  const auto font = [this](const Element& grid) { return qobject_cast<DeskGrid*>(Of(grid))->TextFont(); };
  frame.SetGridFont("", 24, true);
  EXPECT_EQ(font(screen.CariGrid).pixelSize(), 32);
  EXPECT_EQ(font(screen.StokGrid).pixelSize(), 32);
  EXPECT_EQ(font(screen.HareketGrid).pixelSize(), 27);  // 20 points
  EXPECT_TRUE(font(screen.HareketGrid).bold());
}

class HeardWindowTest : public QtWindowTest {
 protected:
  HeardWindowTest() {
    screen.Frame5.SetVisible(true);
    screen.DurCmd.SetVisible(true);
    connections += screen.DurCmd.click.Connect([this] { ++stops; });
    connections += screen.Command3.click.Connect([this] { ++others; });
    screen.Command3.SetVisible(true);
    connections += screen.Text5.changed.Connect([this] { ++others; });
    QCoreApplication::processEvents();  // the panel is laid out
    frame.HearOnly("DurCmd");
  }
  void TapBoth() {
    QTest::mouseClick(Of(screen.Command3), Qt::LeftButton);
    QTest::mouseClick(Of(screen.DurCmd), Qt::LeftButton);
  }
  int stops = 0, others = 0;
};

TEST_F(HeardWindowTest, while_one_element_is_heard_taps_and_keys_elsewhere_are_dropped) {
  TapBoth();
  EXPECT_EQ(stops, 1);
  screen.Text5.SetFocus();
  Type(Of(screen.Text5), "a");
  EXPECT_EQ(others, 0);
  frame.HearOnly("");
  TapBoth();
  EXPECT_EQ(stops, 2);
  EXPECT_EQ(others, 1);
}

TEST_F(HeardWindowTest, escape_is_a_tap_on_it) {
  Strike(Of(screen.Text5), Qt::Key_Escape);
  EXPECT_EQ(stops, 1);
}

TEST_F(HeardWindowTest, the_window_does_not_close_meanwhile) {
  window.close();
  EXPECT_TRUE(closeRequests.empty());
  EXPECT_TRUE(window.isVisible());
  frame.HearOnly("");
  window.close();
  EXPECT_EQ(closeRequests.size(), 1U);
}

TEST_F(QtWindowTest, closing_by_the_program_says_so) {
  frame.Close();
  EXPECT_EQ(closeRequests, (std::vector<bool>{true}));
}

}  // namespace
}  // namespace karvel
