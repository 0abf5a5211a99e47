#include "app/floating_panel.h"

#include <QDialog>

#include "app/floating_key.h"
#include "window_fixture.h"

namespace karvel {
namespace {

class FloatingPanelTest : public WindowTest {
 protected:
  QWidget* Panel() { return Of(screen.Form2.Form2); }
  void Open(Element& field) {
    screen.Form2.frame.Serve(&field);
    screen.Form2.Form2.SetVisible(true);
    QTest::qWait(20);
  }
  static QRect PlaceIn(const QWidget* window, const QWidget* widget) { return {widget->mapTo(window, QPoint(0, 0)), widget->size()}; }
};

TEST_F(FloatingPanelTest, it_shows_with_its_form_element_and_takes_no_focus) {
  Focus(screen.Text1(0));
  EXPECT_FALSE(Panel()->isVisible());
  Open(screen.Text1(0));
  EXPECT_TRUE(Panel()->isVisible());
  EXPECT_TRUE(Of(screen.Text1(0))->hasFocus());
  QTest::mouseClick(Of(screen.Form2.Label1(3)), Qt::LeftButton);
  QTest::mouseClick(Panel(), Qt::LeftButton, {}, QPoint(6, 20));
  EXPECT_TRUE(Of(screen.Text1(0))->hasFocus());
  screen.Form2.Form2.SetVisible(false);
  EXPECT_FALSE(Panel()->isVisible());
}

TEST_F(FloatingPanelTest, a_key_acts_on_press_and_once_for_each_press_however_fast) {
  Open(screen.Text1(0));
  int clicks = 0;
  connections += screen.Form2.Label1(0).click.Connect([&clicks] { ++clicks; });
  QWidget* const key = Of(screen.Form2.Label1(0));
  QTest::mousePress(key, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  QTest::mouseRelease(key, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  DoubleTap(key, QPoint(5, 5));
  EXPECT_EQ(clicks, 3);
}

TEST_F(FloatingPanelTest, a_right_press_and_a_held_finger_type_nothing_more) {
  Open(screen.Text1(0));
  int clicks = 0, rights = 0;
  Element& element = screen.Form2.Label1(0);
  connections += element.click.Connect([&clicks] { ++clicks; });
  connections += element.mouseDown.Connect([&rights](const MouseEvent& event) { rights += event.button == 2; });
  QTest::mouseClick(Of(element), Qt::RightButton);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(rights, 1);
  QTest::mousePress(Of(element), Qt::LeftButton);
  QTest::qWait(900);
  QTest::mouseRelease(Of(element), Qt::LeftButton);
  EXPECT_EQ(rights, 2);
  EXPECT_EQ(clicks, 1);
}

TEST_F(FloatingPanelTest, it_covers_neither_the_field_nor_the_main_button_and_keys_are_high_enough) {
  screen.Frame2.SetVisible(true);
  screen.CariGrid.SetVisible(false);
  for (const QSize& size : {QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080), QSize(960, 640)}) {
    window.resize(size);
    QTest::qWait(20);
    for (Element* field : {&screen.Text1(0), &screen.Text1(1), &screen.Text5}) {
      Open(*field);
      const QRect panel = PlaceIn(&window, Panel());
      EXPECT_TRUE(window.rect().contains(panel)) << size.width();
      EXPECT_FALSE(panel.intersects(PlaceIn(&window, Of(*field)))) << size.width() << field->Name();
      EXPECT_FALSE(panel.intersects(PlaceIn(&window, Of(screen.Command2)))) << size.width() << field->Name();
      const int least = static_cast<int>(56 * window.Ui().theme.Scale());
      for (int key = 0; key < screen.Form2.Label1.Count(); ++key)
        EXPECT_GE(Of(screen.Form2.Label1(key))->height(), least) << size.width() << " " << key;
    }
  }
}

TEST_F(FloatingPanelTest, it_goes_out_of_sight_while_a_box_is_up) {
  Open(screen.Text1(0));
  QDialog box(&window);
  box.setModal(true);
  box.show();
  QTest::qWait(20);
  EXPECT_FALSE(Panel()->isVisible());
  box.close();
  QTest::qWait(20);
  EXPECT_TRUE(Panel()->isVisible());
}

TEST_F(FloatingPanelTest, a_finger_on_its_own_box_is_no_leaving_of_the_field) {
  Focus(screen.Text1(0));
  Open(screen.Text1(0));
  int left = 0;
  connections += screen.Text1(0).lostFocus.Connect([&left] { ++left; });
  QTest::mouseClick(Of(screen.Form2.Text1), Qt::LeftButton);
  EXPECT_TRUE(Of(screen.Form2.Text1)->hasFocus());
  EXPECT_EQ(left, 0);
  EXPECT_TRUE(screen.Text1(0).HasFocus());
  screen.Form2.Form2.SetVisible(false);
  EXPECT_TRUE(Of(screen.Text1(0))->hasFocus());
  EXPECT_EQ(left, 0);
}

TEST_F(FloatingPanelTest, a_finger_that_drags_its_ground_moves_it) {
  Open(screen.Text1(0));
  const QPoint before = Panel()->pos();
  QTest::mousePress(Panel(), Qt::LeftButton, {}, QPoint(6, 20));
  QMouseEvent move(QEvent::MouseMove, QPointF(36, -30), Panel()->mapToGlobal(QPointF(36, -30)), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(Panel(), &move);
  QTest::mouseRelease(Panel(), Qt::LeftButton, {}, QPoint(6, 20));
  EXPECT_EQ(Panel()->pos(), before + QPoint(30, -50));
}

TEST_F(FloatingPanelTest, a_finger_at_its_corner_sizes_it_and_never_below_what_keys_need) {
  Open(screen.Text1(0));
  screen.Form2.frame.Put({0, 300, 690, 300});
  const auto drag = [this](const QPoint& way) {
    const QPoint corner = Panel()->rect().bottomRight() - QPoint(2, 2);
    QTest::mousePress(Panel(), Qt::LeftButton, {}, corner);
    QMouseEvent move(QEvent::MouseMove, corner + way, Panel()->mapToGlobal(corner + way), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Panel(), &move);
    QTest::mouseRelease(Panel(), Qt::LeftButton, {}, corner);
  };
  drag(QPoint(40, 30));
  EXPECT_EQ(Panel()->size(), QSize(730, 330));
  drag(QPoint(-300, -200));
  EXPECT_EQ(Panel()->size(), QSize(690, 300));
}

TEST_F(FloatingPanelTest, the_number_block_gives_its_room_to_the_letters) {
  Open(screen.Text1(0));
  const int before = Of(screen.Form2.Label1(0))->width();
  screen.Form2.Frame1.SetVisible(false);
  QTest::qWait(20);
  EXPECT_FALSE(Of(screen.Form2.Label1(40))->isVisible());
  EXPECT_GT(Of(screen.Form2.Label1(0))->width(), before);
}

}  // namespace
}  // namespace karvel
