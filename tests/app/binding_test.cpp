#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QListWidget>
#include <QSignalSpy>

#include "window_fixture.h"

namespace karvel {
namespace {

class BindingTest : public WindowTest {
 protected:
  void Tap(const Element& element, Qt::MouseButton button = Qt::LeftButton) { QTest::mouseClick(Of(element), button); }
};

TEST_F(BindingTest, a_tap_on_a_label_clicks_once_and_a_double_tap_once_more_as_double) {
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

TEST_F(BindingTest, a_press_that_ends_elsewhere_is_no_tap) {
  int clicks = 0, ups = 0;
  connections += screen.Label3.click.Connect([&] { ++clicks; });
  connections += screen.Label3.mouseUp.Connect([&](const MouseEvent&) { ++ups; });
  QTest::mousePress(Of(screen.Label3), Qt::LeftButton);
  QTest::mouseRelease(Of(screen.Label3), Qt::LeftButton, {}, QPoint(-20, -20));
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(ups, 1);
}

TEST_F(BindingTest, a_right_press_tells_its_button_and_shift) {
  MouseEvent seen;
  int clicks = 0;
  connections += screen.Label1(7).mouseDown.Connect([&](const MouseEvent& event) { seen = event; });
  connections += screen.Label1(7).click.Connect([&] { ++clicks; });
  QTest::mouseClick(Of(screen.Label1(7)), Qt::RightButton, Qt::ShiftModifier);
  EXPECT_EQ(seen.button, 2);
  EXPECT_TRUE(seen.shift);
  EXPECT_EQ(clicks, 0);
}

TEST_F(BindingTest, a_finger_held_on_a_label_is_the_right_press) {
  int rights = 0, clicks = 0;
  connections += screen.Label1(7).mouseDown.Connect([&](const MouseEvent& event) { rights += event.button == 2; });
  connections += screen.Label1(7).click.Connect([&] { ++clicks; });
  QTest::mousePress(Of(screen.Label1(7)), Qt::LeftButton);
  QTest::qWait(900);
  QTest::mouseRelease(Of(screen.Label1(7)), Qt::LeftButton);
  EXPECT_EQ(rights, 1);
  EXPECT_EQ(clicks, 0);
}

TEST_F(BindingTest, buttons_click_by_finger_space_and_enter) {
  int clicks = 0;
  connections += screen.Command1.click.Connect([&] { ++clicks; });
  Tap(screen.Command1);
  EXPECT_TRUE(Of(screen.Command1)->hasFocus());
  Strike(Of(screen.Command1), Qt::Key_Space, " ");
  Strike(Of(screen.Command1), Qt::Key_Return, "\r");
  EXPECT_EQ(clicks, 3);
}

TEST_F(BindingTest, press_and_release_of_a_button_frame_its_click) {
  std::string order;
  connections += screen.Command2.mouseDown.Connect([&](const MouseEvent&) { order += "down "; });
  connections += screen.Command2.mouseUp.Connect([&](const MouseEvent&) { order += "up "; });
  connections += screen.Command2.click.Connect([&] { order += "click "; });
  Tap(screen.Command2);
  EXPECT_EQ(order, "down up click ");
}

TEST_F(BindingTest, a_check_box_ticks_its_element_and_follows_it) {
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

TEST_F(BindingTest, a_handler_that_clears_the_tick_leaves_it_cleared) {
  connections += screen.StokChk.click.Connect([&] { screen.StokChk.SetChecked(false); });
  Tap(screen.StokChk);
  EXPECT_FALSE(screen.StokChk.Checked());
  EXPECT_FALSE(qobject_cast<QAbstractButton*>(Of(screen.StokChk))->isChecked());
}

TEST_F(BindingTest, a_combo_shows_its_entries_and_a_choice_clicks) {
  auto* const combo = qobject_cast<QComboBox*>(Of(screen.GurupCombo));
  int clicks = 0;
  connections += screen.GurupCombo.click.Connect([&] { ++clicks; });
  screen.GurupCombo.SetItems({"Tüm Guruplar", "Şarküteri", "İçecek"});
  EXPECT_EQ(combo->count(), 3);
  EXPECT_EQ(combo->currentIndex(), -1);
  screen.GurupCombo.ChooseText("Şarküteri");
  EXPECT_EQ(combo->currentText(), "Şarküteri");
  EXPECT_EQ(clicks, 1);
  combo->setCurrentIndex(2);
  EXPECT_EQ(screen.GurupCombo.Text(), "İçecek");
  EXPECT_EQ(clicks, 2);
}

TEST_F(BindingTest, a_date_goes_both_ways_and_writes_day_first) {
  auto* const picker = qobject_cast<QDateEdit*>(Of(screen.DTPicker1));
  screen.Frame3.SetVisible(true);
  screen.DTPicker1.SetDate({2026, 3, 1});
  EXPECT_EQ(picker->text(), "01.03.2026");
  picker->setDate(QDate(2026, 12, 31));
  EXPECT_EQ(screen.DTPicker1.Date(), (DateTime{2026, 12, 31}));
}

TEST_F(BindingTest, a_list_tells_its_entry_also_when_tapped_again) {
  screen.StkFrame.SetVisible(true);
  screen.List2.SetItems({"Ayran", "Çay", "Şeker"});
  QTest::qWait(20);
  auto* const list = qobject_cast<QListWidget*>(Of(screen.List2));
  int clicks = 0;
  connections += screen.List2.click.Connect([&] { ++clicks; });
  const QPoint second = list->visualItemRect(list->item(1)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(screen.List2.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(clicks, 2);
}

TEST_F(BindingTest, the_focus_goes_both_ways) {
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

TEST_F(BindingTest, tab_goes_in_the_order_of_the_elements_past_what_is_hidden_or_off) {
  Focus(screen.Text1(0));
  screen.Command1.SetEnabled(false);
  std::vector<std::string> way;
  for (int i = 0; i < 6; ++i) {
    Strike(QApplication::focusWidget(), Qt::Key_Tab, "\t");
    way.push_back(screen.elements.Focused()->Name());
  }
  EXPECT_EQ(way, (std::vector<std::string>{"Text2(2)", "Command2", "Command4", "CariGrid", "Text5", "ComboCmd"}));
  Strike(QApplication::focusWidget(), Qt::Key_Backtab, {}, Qt::ShiftModifier);
  EXPECT_EQ(screen.elements.Focused(), &screen.Text5);
}

TEST_F(BindingTest, a_field_turned_off_and_on_again_keeps_the_keyboard) {
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

TEST_F(BindingTest, a_panel_that_closes_over_the_keyboard_gives_it_to_nobody_else) {
  int others = 0;
  for (Element* const element : screen.elements.All())
    if (element != &screen.CariNew(0)) connections += element->gotFocus.Connect([&] { ++others; });
  screen.CariFrm.SetVisible(true);
  Focus(screen.CariNew(0));
  screen.CariFrm.SetVisible(false);
  EXPECT_EQ(others, 0);
}

TEST_F(BindingTest, a_focus_asked_for_inside_a_hidden_panel_arrives_when_it_shows) {
  screen.CariFrm.SetVisible(true);
  screen.CariNew(3).SetFocus();
  EXPECT_TRUE(Of(screen.CariNew(3))->hasFocus());
}

TEST_F(BindingTest, nothing_reaches_a_busy_desk) {
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

TEST_F(BindingTest, a_form_that_is_off_takes_no_taps_and_looks_as_before) {
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

TEST_F(BindingTest, the_form_sees_a_key_first_and_may_drop_it) {
  int keys = 0;
  connections += screen.Form1.keyDown.Connect([](KeyEvent& event) { event.dropped = event.ctrl; });
  connections += screen.Text1(0).keyDown.Connect([&](KeyEvent&) { ++keys; });
  Focus(screen.Text1(0));
  Strike(Of(screen.Text1(0)), Qt::Key_Left, {}, Qt::ControlModifier);
  EXPECT_EQ(keys, 0);
  Strike(Of(screen.Text1(0)), Qt::Key_Left);
  EXPECT_EQ(keys, 1);
}

TEST_F(BindingTest, keys_reach_what_fingers_reach_by_a_double_tap) {
  int doubles = 0;
  connections += screen.Label1(0).dblClick.Connect([&] { ++doubles; });
  Focus(screen.Text1(0));
  Strike(Of(screen.Text1(0)), Qt::Key_F2);
  EXPECT_EQ(doubles, 1);
}

TEST_F(BindingTest, a_menu_entry_tells_its_tap_and_mirrors_the_check_mark) {
  QAction* const entry = window.ActionOf(screen.Stoklu);
  ASSERT_NE(entry, nullptr);
  int clicks = 0;
  connections += screen.Stoklu.click.Connect([&] { ++clicks; });
  entry->trigger();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(entry->isChecked());  // only the element decides
  screen.Stoklu.SetChecked(true);
  EXPECT_TRUE(entry->isChecked());
  EXPECT_EQ(clicks, 1);
  screen.CarSil.SetCaption("Cari Hareketleri Sil");
  EXPECT_EQ(window.ActionOf(screen.CarSil)->text(), "Cari Hareketleri Sil");
  EXPECT_EQ(window.WidgetOf(screen.Stoklu), nullptr);
}

TEST_F(BindingTest, a_pop_up_opens_when_the_desk_asks) {
  screen.popUp(screen.PopBrk);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(QApplication::activePopupWidget(), window.MenuOf(screen.PopBrk));
  QApplication::activePopupWidget()->close();
}

TEST_F(BindingTest, the_overdue_notice_moves_under_the_finger_and_goes_by_a_tap) {
  int clicks = 0;
  connections += screen.Vadefrm.click.Connect([&] { ++clicks; });
  screen.Vadefrm.SetVisible(true);
  QTest::qWait(20);
  QWidget* const notice = Of(screen.Vadefrm);
  const QPoint before = notice->pos();
  QTest::mousePress(notice, Qt::LeftButton, {}, QPoint(40, 40));
  QTest::mouseMove(notice, QPoint(0, 0));
  QMouseEvent move(QEvent::MouseMove, QPointF(-60, -20), notice->mapToGlobal(QPointF(-60, -20)), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(notice, &move);
  QTest::mouseRelease(notice, Qt::LeftButton, {}, QPoint(40, 40));
  EXPECT_LT(notice->x(), before.x());
  EXPECT_EQ(clicks, 0);
  QTest::mouseClick(notice, Qt::LeftButton, {}, QPoint(40, 40));
  EXPECT_EQ(clicks, 1);
}

TEST_F(BindingTest, the_first_showing_activates_once) {
  QTest::qWait(20);
  EXPECT_EQ(activations, 1);
  window.hide();
  window.show();
  QTest::qWait(20);
  EXPECT_EQ(activations, 1);
}

TEST_F(BindingTest, a_close_request_asks_the_desk) {
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

TEST_F(BindingTest, ending_at_once_asks_nobody) {
  QSignalSpy closed(&window, &DeskWindow::closed);
  mayClose = false;
  window.EndAtOnce();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(closed.count(), 1);
  EXPECT_TRUE(closeRequests.empty());
}

TEST_F(BindingTest, who_loses_the_keyboard_leaves_it_to_the_list_in_front) {
  Focus(screen.Command2);
  screen.Command2.SetEnabled(false);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Of(screen.CariGrid)->hasFocus(); }, 5000));
  screen.Frame2.SetVisible(true);
  screen.CariGrid.SetVisible(false);
  screen.StokGrid.SetVisible(true);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Of(screen.StokGrid)->hasFocus(); }, 5000));
}

TEST_F(BindingTest, tab_is_heard_also_while_nobody_has_the_keyboard) {
  window.setFocus();
  ASSERT_TRUE(window.hasFocus());
  Strike(&window, Qt::Key_Tab, "\t");
  EXPECT_FALSE(window.hasFocus());
  EXPECT_NE(QApplication::focusWidget(), nullptr);
}

TEST_F(BindingTest, tab_walks_a_panel_round_and_comes_to_its_way_out_last) {
  screen.CariFrm.SetVisible(true);
  Focus(screen.CariNew(9));
  std::string way;
  for (int i = 0; i < 4; ++i) {
    Strike(QApplication::focusWidget(), Qt::Key_Tab, "\t");
    way += screen.elements.Focused()->Name() + " ";
  }
  EXPECT_EQ(way, "CariChk CariNewCmd(1) CariNewCmd(0) CariNew(0) ");
  Strike(QApplication::focusWidget(), Qt::Key_Backtab, "\t", Qt::ShiftModifier);
  EXPECT_EQ(screen.elements.Focused(), &screen.CariNewCmd(0));
}

TEST_F(BindingTest, enter_goes_on_from_a_tick) {
  screen.CariFrm.SetVisible(true);
  Focus(screen.CariChk);
  Strike(Of(screen.CariChk), Qt::Key_Return, "\r");
  EXPECT_EQ(screen.elements.Focused(), &screen.CariNewCmd(1));
  EXPECT_FALSE(screen.CariChk.Checked());
}

TEST_F(BindingTest, the_entries_of_an_open_choice_are_as_high_as_a_finger) {
  screen.GurupCombo.SetItems({"Tüm Guruplar", "Müşteri", "Toptan"});
  auto* const combo = qobject_cast<QComboBox*>(Of(screen.GurupCombo));
  combo->showPopup();
  EXPECT_GE(combo->view()->visualRect(combo->model()->index(1, 0)).height(), 48);
  combo->hidePopup();
}

}  // namespace
}  // namespace karvel
