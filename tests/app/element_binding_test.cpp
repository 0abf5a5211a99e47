#include <QAbstractButton>

#include "window_fixture.h"

namespace karvel {
namespace {

class ElementBindingTest : public WindowTest {
 protected:
  void Tap(const Element& element, Qt::MouseButton button = Qt::LeftButton) { QTest::mouseClick(Of(element), button); }
};

TEST_F(ElementBindingTest, a_tap_on_a_label_clicks_once_and_a_double_tap_once_more_as_double) {
  int clicks = 0, doubles = 0;
  connections += screen.Label3.click.Connect([&] { ++clicks; });
  connections += screen.Label3.dblClick.Connect([&] { ++doubles; });
  Tap(screen.Label3);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(doubles, 0);
  DoubleTap(Of(screen.Label3));
  EXPECT_EQ(clicks, 2);  // the first press of the two
  EXPECT_EQ(doubles, 1);
}

// As with a finger, whose double tap begins with a tap.
TEST_F(ElementBindingTest, on_a_tile_space_is_a_tap_and_enter_a_double_tap) {
  std::string heard;
  connections += screen.Label1(2).click.Connect([&] { heard += "tap "; });
  connections += screen.Label1(2).dblClick.Connect([&] { heard += "double "; });
  screen.Frame2.SetVisible(true);
  Focus(screen.Label1(2));
  Strike(Of(screen.Label1(2)), Qt::Key_Space, " ");
  EXPECT_EQ(heard, "tap ");
  Strike(Of(screen.Label1(2)), Qt::Key_Return, "\r");
  EXPECT_EQ(heard, "tap tap double ");
  Strike(Of(screen.Label1(2)), Qt::Key_A, "a");
  EXPECT_EQ(heard, "tap tap double ");
}

TEST_F(ElementBindingTest, a_tile_that_has_the_keyboard_shows_it) {
  screen.Frame2.SetVisible(true);
  const QImage before = Of(screen.Label1(2))->grab().toImage();
  Focus(screen.Label1(2));
  EXPECT_NE(Of(screen.Label1(2))->grab().toImage(), before);
  EXPECT_EQ(Of(screen.Label1(2))->accessibleName(), "1.Fiyat");
}

// A tile is switched off while its double tap is answered, and may then be struck again.
TEST_F(ElementBindingTest, a_tile_that_was_switched_off_meanwhile_has_the_keyboard_again) {
  screen.Frame2.SetVisible(true);
  Focus(screen.Label1(2));
  screen.Label1(2).SetEnabled(false);
  screen.Form1.SetEnabled(false);
  QCoreApplication::processEvents();
  screen.Form1.SetEnabled(true);
  screen.Label1(2).SetEnabled(true);
  QCoreApplication::processEvents();
  EXPECT_TRUE(Of(screen.Label1(2))->hasFocus());
}

TEST_F(ElementBindingTest, a_form_that_opens_again_leaves_nobody_without_the_keyboard) {
  screen.Frame2.SetVisible(true);
  Focus(screen.Label1(2));
  screen.Form1.SetEnabled(false);
  screen.Label1(2).SetEnabled(false);
  QCoreApplication::processEvents();
  EXPECT_TRUE(window.hasFocus());
  screen.Form1.SetEnabled(true);
  QCoreApplication::processEvents();
  EXPECT_TRUE(Of(screen.CariGrid)->hasFocus());
}

TEST_F(ElementBindingTest, a_press_that_ends_elsewhere_is_no_tap) {
  int clicks = 0, ups = 0;
  connections += screen.Label3.click.Connect([&] { ++clicks; });
  connections += screen.Label3.mouseUp.Connect([&](const MouseEvent&) { ++ups; });
  QTest::mousePress(Of(screen.Label3), Qt::LeftButton);
  QTest::mouseRelease(Of(screen.Label3), Qt::LeftButton, {}, QPoint(-20, -20));
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(ups, 1);
}

TEST_F(ElementBindingTest, a_right_press_tells_its_button_and_shift) {
  MouseEvent seen;
  int clicks = 0;
  connections += screen.Label1(7).mouseDown.Connect([&](const MouseEvent& event) { seen = event; });
  connections += screen.Label1(7).click.Connect([&] { ++clicks; });
  QTest::mouseClick(Of(screen.Label1(7)), Qt::RightButton, Qt::ShiftModifier);
  EXPECT_EQ(seen.button, 2);
  EXPECT_TRUE(seen.shift);
  EXPECT_EQ(clicks, 0);
}

TEST_F(ElementBindingTest, a_finger_held_on_a_label_is_the_right_press) {
  int rights = 0, clicks = 0;
  connections += screen.Label1(7).mouseDown.Connect([&](const MouseEvent& event) { rights += event.button == 2; });
  connections += screen.Label1(7).click.Connect([&] { ++clicks; });
  QTest::mousePress(Of(screen.Label1(7)), Qt::LeftButton);
  QTest::qWait(900);
  QTest::mouseRelease(Of(screen.Label1(7)), Qt::LeftButton);
  EXPECT_EQ(rights, 1);
  EXPECT_EQ(clicks, 0);
}

TEST_F(ElementBindingTest, buttons_click_by_finger_space_and_enter) {
  int clicks = 0;
  connections += screen.Command1.click.Connect([&] { ++clicks; });
  Tap(screen.Command1);
  EXPECT_TRUE(Of(screen.Command1)->hasFocus());
  Strike(Of(screen.Command1), Qt::Key_Space, " ");
  Strike(Of(screen.Command1), Qt::Key_Return, "\r");
  EXPECT_EQ(clicks, 3);
}

TEST_F(ElementBindingTest, press_and_release_of_a_button_frame_its_click) {
  std::string order;
  connections += screen.Command2.mouseDown.Connect([&](const MouseEvent&) { order += "down "; });
  connections += screen.Command2.mouseUp.Connect([&](const MouseEvent&) { order += "up "; });
  connections += screen.Command2.click.Connect([&] { order += "click "; });
  Tap(screen.Command2);
  EXPECT_EQ(order, "down up click ");
}

TEST_F(ElementBindingTest, a_check_box_ticks_its_element_and_follows_it) {
  int clicks = 0;
  auto* const box = qobject_cast<QAbstractButton*>(Of(screen.StokChk));
  connections += screen.StokChk.click.Connect([&] { ++clicks; });
  Tap(screen.StokChk);
  EXPECT_TRUE(screen.StokChk.Checked());
  EXPECT_TRUE(box->isChecked());
  screen.StokChk.SetChecked(false);
  EXPECT_FALSE(box->isChecked());
  EXPECT_EQ(clicks, 2);
}

TEST_F(ElementBindingTest, a_handler_that_clears_the_tick_leaves_it_cleared) {
  connections += screen.StokChk.click.Connect([&] { screen.StokChk.SetChecked(false); });
  Tap(screen.StokChk);
  EXPECT_FALSE(screen.StokChk.Checked());
  EXPECT_FALSE(qobject_cast<QAbstractButton*>(Of(screen.StokChk))->isChecked());
}

TEST_F(ElementBindingTest, the_focus_goes_both_ways) {
  std::string order;
  for (Element* const element : {&screen.Text1(0), &screen.Text5}) {
    connections += element->gotFocus.Connect([&order, element] { order += "+" + element->Name(); });
    connections += element->lostFocus.Connect([&order, element] { order += "-" + element->Name(); });
  }
  screen.Text1(0).SetFocus();
  EXPECT_TRUE(Of(screen.Text1(0))->hasFocus());
  QTest::mouseClick(Of(screen.Text5), Qt::LeftButton);
  EXPECT_EQ(screen.elements.Focused(), &screen.Text5);
  EXPECT_EQ(order, "+Text1(0)-Text1(0)+Text5");
}

TEST_F(ElementBindingTest, a_field_turned_off_and_on_again_keeps_the_keyboard) {
  int lost = 0, others = 0;
  connections += screen.Text1(0).lostFocus.Connect([&] { ++lost; });
  connections += screen.Text5.gotFocus.Connect([&] { ++others; });
  Focus(screen.Text1(0));
  screen.Text1(0).SetEnabled(false);
  EXPECT_FALSE(Of(screen.Text1(0))->hasFocus());
  screen.Text1(0).SetEnabled(true);
  EXPECT_TRUE(Of(screen.Text1(0))->hasFocus());
  EXPECT_EQ(lost, 0);
  EXPECT_EQ(others, 0);
}

TEST_F(ElementBindingTest, a_panel_that_closes_over_the_keyboard_gives_it_to_nobody_else) {
  int others = 0;
  for (Element* const element : screen.elements.All())
    if (element != &screen.CariNew(0)) connections += element->gotFocus.Connect([&] { ++others; });
  screen.CariFrm.SetVisible(true);
  Focus(screen.CariNew(0));
  screen.CariFrm.SetVisible(false);
  EXPECT_EQ(others, 0);
}

TEST_F(ElementBindingTest, a_focus_asked_for_inside_a_hidden_panel_arrives_when_it_shows) {
  screen.CariFrm.SetVisible(true);
  screen.CariNew(3).SetFocus();
  EXPECT_TRUE(Of(screen.CariNew(3))->hasFocus());
}

TEST_F(ElementBindingTest, nothing_reaches_a_busy_desk) {
  int clicks = 0, keys = 0;
  connections += screen.Command1.click.Connect([&] { ++clicks; });
  connections += screen.Text1(0).keyDown.Connect([&](KeyEvent&) { ++keys; });
  Focus(screen.Text1(0));
  screen.SetBusy(true);
  Tap(screen.Command1);
  Type(Of(screen.Text1(0)), "a");
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  screen.SetBusy(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(clicks + keys, 0);
  Tap(screen.Command1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ElementBindingTest, a_form_that_is_off_takes_no_taps_and_looks_as_before) {
  int clicks = 0;
  connections += screen.Command1.click.Connect([&] { ++clicks; });
  screen.Form1.SetEnabled(false);
  Tap(screen.Command1);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(Of(screen.Command1)->isEnabled());
  screen.Form1.SetEnabled(true);
  Tap(screen.Command1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ElementBindingTest, the_form_sees_a_key_first_and_may_drop_it) {
  int keys = 0;
  connections += screen.Form1.keyDown.Connect([](KeyEvent& event) { event.dropped = event.ctrl; });
  connections += screen.Text1(0).keyDown.Connect([&](KeyEvent&) { ++keys; });
  Focus(screen.Text1(0));
  Strike(Of(screen.Text1(0)), Qt::Key_Left, {}, Qt::ControlModifier);
  EXPECT_EQ(keys, 0);
  Strike(Of(screen.Text1(0)), Qt::Key_Left);
  EXPECT_EQ(keys, 1);
}

TEST_F(ElementBindingTest, enter_goes_on_from_a_tick) {
  screen.CariFrm.SetVisible(true);
  Focus(screen.CariChk);
  Strike(Of(screen.CariChk), Qt::Key_Return, "\r");
  EXPECT_EQ(screen.elements.Focused(), &screen.CariNewCmd(1));
  EXPECT_FALSE(screen.CariChk.Checked());
}

}  // namespace
}  // namespace karvel
