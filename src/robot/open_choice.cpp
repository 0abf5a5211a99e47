#include "robot/open_choice.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QDeadlineTimer>
#include <QPointer>
#include <QTest>

#include "robot/hand.h"

namespace karvel {
namespace {

constexpr int kLongestMs = 2000;  // that an open list may take until it hears a finger
constexpr int kPauseMs = 50;

}  // namespace

bool OpensChoice(const QWidget* widget) {
  return qobject_cast<const QComboBox*>(widget) || qobject_cast<const QDateEdit*>(widget);
}

bool IsOpenListOf(const QWidget& widget) {
  const QObject* above = QApplication::activePopupWidget();
  while (above && above != &widget) above = above->parent();
  return above != nullptr;
}

bool TapInOpenList(int row, int column) {
  const QPointer<QWidget> open = QApplication::activePopupWidget();
  auto* const view = open ? open->findChild<QAbstractItemView*>() : nullptr;
  if (!view || row < 0 || column < 0) return false;
  const QModelIndex cell = view->model()->index(row, column);
  if (!cell.isValid() || !(cell.flags() & Qt::ItemIsEnabled)) return false;
  view->scrollTo(cell);
  // A list that has just opened takes the finger that opened it for no choice, for as long as a double tap may last.
  const QDeadlineTimer deadline(kLongestMs);
  while (open && open->isVisible() && !deadline.hasExpired()) {
    TapAt(*view->viewport(), view->visualRect(cell).center(), Tap::Click);
    QTest::qWait(kPauseMs);
  }
  return true;
}

}  // namespace karvel
