#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QToolButton>

#include "window_fixture.h"

namespace karvel {
namespace {

class ChoiceFieldsTest : public WindowTest {};

TEST_F(ChoiceFieldsTest, a_combo_shows_its_entries_and_a_choice_clicks) {
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

TEST_F(ChoiceFieldsTest, a_date_goes_both_ways_and_writes_day_first) {
  auto* const picker = qobject_cast<QDateEdit*>(Of(screen.DTPicker1));
  screen.Frame3.SetVisible(true);
  screen.DTPicker1.SetDate({2026, 3, 1});
  EXPECT_EQ(picker->text(), "01.03.2026");
  picker->setDate(QDate(2026, 12, 31));
  EXPECT_EQ(screen.DTPicker1.Date(), (DateTime{2026, 12, 31}));
}

TEST_F(ChoiceFieldsTest, space_opens_the_calendar_of_a_date_and_its_arrows_are_ours) {
  screen.Frame3.SetVisible(true);
  auto* const picker = qobject_cast<QDateEdit*>(Of(screen.DTPicker1));
  picker->setFocus();
  Strike(picker, Qt::Key_Space, " ");
  QCalendarWidget* const calendar = picker->calendarWidget();
  ASSERT_TRUE(calendar->isVisible());
  for (const char* const name : {"qt_calendar_prevmonth", "qt_calendar_nextmonth"}) {
    const auto* const arrow = calendar->findChild<QToolButton*>(name);
    ASSERT_NE(arrow, nullptr);
    const QImage picture = arrow->icon().pixmap(arrow->iconSize()).toImage();
    EXPECT_EQ(picture.pixelColor(picture.rect().center()).rgb(), palette::kText.rgb()) << name;
  }
  QApplication::activePopupWidget()->close();
}

TEST_F(ChoiceFieldsTest, a_date_opens_its_calendar_wherever_the_finger_comes_down) {
  screen.Frame3.SetVisible(true);
  screen.DTPicker1.SetDate({2026, 3, 1});
  QTest::qWait(20);
  auto* const picker = qobject_cast<QDateEdit*>(Of(screen.DTPicker1));
  auto* const text = picker->findChild<QLineEdit*>();
  QTest::mouseClick(text, Qt::LeftButton, {}, QPoint(4, text->height() / 2));
  ASSERT_TRUE(picker->calendarWidget()->isVisible());
  auto* const days = picker->calendarWidget()->findChild<QTableView*>();
  QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, days->visualRect(days->model()->index(3, 2)).center());
  EXPECT_FALSE(picker->calendarWidget()->isVisible());
  EXPECT_EQ(screen.DTPicker1.Date(), (DateTime{2026, 3, 11}));
}

TEST_F(ChoiceFieldsTest, a_list_tells_its_entry_also_when_tapped_again) {
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

TEST_F(ChoiceFieldsTest, the_entries_of_an_open_choice_are_as_high_as_a_finger) {
  screen.GurupCombo.SetItems({"Tüm Guruplar", "Müşteri", "Toptan"});
  auto* const combo = qobject_cast<QComboBox*>(Of(screen.GurupCombo));
  combo->showPopup();
  EXPECT_GE(combo->view()->visualRect(combo->model()->index(1, 0)).height(), 48);
  combo->hidePopup();
}

}  // namespace
}  // namespace karvel
