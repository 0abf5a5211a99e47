#include <QSignalSpy>

#include "window_fixture.h"

namespace karvel {
namespace {

class DeskWindowTest : public WindowTest {};

TEST_F(DeskWindowTest, keys_reach_what_fingers_reach_by_a_double_tap) {
  int doubles = 0;
  connections += screen.Label1(0).dblClick.Connect([&] { ++doubles; });
  Focus(screen.Text1(0));
  Strike(Of(screen.Text1(0)), Qt::Key_F2);
  EXPECT_EQ(doubles, 1);
}

TEST_F(DeskWindowTest, the_first_showing_activates_once) {
  QTest::qWait(20);
  EXPECT_EQ(activations, 1);
  window.hide();
  window.show();
  QTest::qWait(20);
  EXPECT_EQ(activations, 1);
}

TEST_F(DeskWindowTest, a_close_request_asks_the_desk) {
  QSignalSpy closed(&window, &DeskWindow::closed);
  mayClose = false;
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(closed.count(), 0);
  mayClose = true;
  window.CloseByProgram();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(closed.count(), 1);
  EXPECT_EQ(closeRequests, (std::vector<bool>{false, true}));
}

TEST_F(DeskWindowTest, ending_at_once_asks_nobody) {
  QSignalSpy closed(&window, &DeskWindow::closed);
  mayClose = false;
  window.EndAtOnce();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(closed.count(), 1);
  EXPECT_TRUE(closeRequests.empty());
}

TEST_F(DeskWindowTest, who_loses_the_keyboard_leaves_it_to_the_list_in_front) {
  Focus(screen.Command2);
  screen.Command2.SetEnabled(false);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Of(screen.CariGrid)->hasFocus(); }, 5000));
  screen.Frame2.SetVisible(true);
  screen.CariGrid.SetVisible(false);
  screen.StokGrid.SetVisible(true);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Of(screen.StokGrid)->hasFocus(); }, 5000));
}

}  // namespace
}  // namespace karvel
