#include "window_fixture.h"

namespace karvel {
namespace {

class PanelCardTest : public WindowTest {};

TEST_F(PanelCardTest, the_overdue_notice_moves_under_the_finger_and_goes_by_a_tap) {
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

}  // namespace
}  // namespace karvel
