// What fingers and keys do in a grid.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "app/desk_grid.h"
#include "app/key_codes.h"
#include "store/cursor.h"

namespace karvel {
namespace {

constexpr int kDragSlack = 12;    // pixels before a press becomes a drag
constexpr int kBorderReach = 10;  // pixels around a border of the heading
constexpr int kLeastDragged = 40;

}  // namespace

int DeskGrid::BorderAt(int x) const {
  for (std::size_t i = 0; i + 1 < shown_.size(); ++i)
    if (std::abs(x - (shown_[i].x + shown_[i].width)) <= kBorderReach) return static_cast<int>(i);
  return -1;
}

bool DeskGrid::IsCurrent(int index) const {
  if (index < 0 || index >= rows_.Count() || !watched_) return false;
  return watched_->HasCurrent() && watched_->CurrentKey() == rows_.Rows()[static_cast<std::size_t>(index)].key;
}

bool DeskGrid::MoveToRow(int index) {
  if (index < 0 || index >= rows_.Count() || !watched_) return false;
  return MoveToKey(rows_.Rows()[static_cast<std::size_t>(index)].key);
}

bool DeskGrid::MoveToKey(RowKey key) {
  followed_ = key;  // it is in view where the finger is: nothing jumps away under it
  return watched_->MoveTo(key).Ok();
}

void DeskGrid::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (!ui_.Reaches(element_)) return;
  FetchIfStale();
  touched_.start();
  pressedAt_ = movedTo_ = event->position().toPoint();
  tapped_ = 0;
  doubled_ = held_ = false;
  rightPress_ = event->button() == Qt::RightButton;
  const bool inHead = pressedAt_.y() < HeadHeight();
  drag_ = Drag::Pressed;
  borderColumn_ = inHead && !rightPress_ ? BorderAt(pressedAt_.x()) : -1;
  const QPointer<DeskGrid> self(this);
  if (const int row = RowAt(pressedAt_.y()); rightPress_ && !inHead && !IsCurrent(row)) MoveToRow(row);
  if (!self) return;
  if (!rightPress_ && !inHead) hold_.start();
  element_.mouseDown(ToMouseEvent(*event));
}

void DeskGrid::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
  if (drag_ == Drag::None) return;
  const QPoint at = event->position().toPoint();
  const QPoint way = at - pressedAt_;
  if (drag_ == Drag::Pressed && !rightPress_ && !held_) {
    if (borderColumn_ >= 0 && std::abs(way.x()) > 3) {
      drag_ = Drag::Border;
      borderWidth_ = 0;
    } else if (pressedAt_.y() >= HeadHeight() && std::abs(way.y()) > kDragSlack) {
      drag_ = Drag::Scrolling;
    }
    if (drag_ != Drag::Pressed) hold_.stop();
  }
  if (drag_ == Drag::Border) DragBorder(at.x());
  if (drag_ == Drag::Scrolling) ScrollBy(movedTo_.y() - at.y());
  movedTo_ = at;
  if (ui_.Reaches(element_)) element_.mouseMove(ToMouseEvent(*event));
}

void DeskGrid::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  hold_.stop();
  touched_.start();
  if (stale_) viewport()->update();
  element_.released();
  if (drag_ == Drag::None) return;
  const Drag ended = drag_;
  drag_ = Drag::None;
  if (ended == Drag::Border) {
    EndBorderDrag();
    return;
  }
  if (rightPress_ || doubled_) {
    element_.mouseUp(ToMouseEvent(*event));
    return;
  }
  if (ended != Drag::Pressed || held_ || !ui_.Reaches(element_)) return;
  const QPoint at = event->position().toPoint();
  const int column = ColumnAt(at.x());
  if (rows_.Count() == 0 && pressedAt_.y() >= HeadHeight() && at.y() >= HeadHeight()) {
    element_.click();  // there is no row to tap, but the list was tapped
    return;
  }
  if (column < 0 || column != ColumnAt(pressedAt_.x())) return;
  const int number = shown_[static_cast<std::size_t>(column)].number;
  if (pressedAt_.y() < HeadHeight()) {
    if (at.y() >= 0 && at.y() < HeadHeight()) element_.headClick(number);
    return;
  }
  const int row = RowAt(at.y());
  if (row < 0 || row != RowAt(pressedAt_.y())) return;
  // A tap on the row in front chooses it again: the fields may show something else meanwhile.
  tapped_ = rows_.Rows()[static_cast<std::size_t>(row)].key;
  TapRow(tapped_, number, ToMouseEvent(*event));
}

// The row is in front before the element hears of the tap. False when a handler destroyed the grid, or the row is gone.
bool DeskGrid::TapRow(RowKey key, int column, const MouseEvent& at) {
  const QPointer<DeskGrid> self(this);
  if (!MoveToKey(key) || !self) return false;
  element_.mouseUp(at);
  if (self) element_.TapCell(column);
  return !self.isNull();
}

void DeskGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
  if (!ui_.Reaches(element_)) return;
  FetchIfStale();
  const QPoint at = event->position().toPoint();
  const int column = ColumnAt(at.x());
  // The second tap means the row of the first, even if the list has moved under it since, for instance by lines of another terminal.
  const int row = RowAt(at.y());
  const RowKey meant = at.y() < HeadHeight() ? 0 : tapped_ != 0 ? tapped_ : row < 0 ? 0 : rows_.Rows()[static_cast<std::size_t>(row)].key;
  if (event->button() != Qt::LeftButton || meant == 0 || column < 0) {
    mousePressEvent(event);  // a second tap on a heading is one more tap
    return;
  }
  tapped_ = 0;
  pressedAt_ = movedTo_ = at;
  drag_ = Drag::Pressed;
  doubled_ = true;
  const QPointer<DeskGrid> self(this);
  const int number = shown_[static_cast<std::size_t>(column)].number;
  if (!watched_ || (watched_->CurrentKey() != meant && !MoveToKey(meant))) return;
  if (self) element_.DoubleTapCell(number);
}

void DeskGrid::Held() {
  if (drag_ != Drag::Pressed || !ui_.Reaches(element_)) return;
  held_ = true;
  viewport()->update();
  const QPointer<DeskGrid> self(this);
  if (const int row = RowAt(pressedAt_.y()); !IsCurrent(row)) MoveToRow(row);
  if (!self) return;
  MouseEvent right;
  right.button = 2;
  right.x = pressedAt_.x();
  right.y = pressedAt_.y();
  element_.mouseDown(right);
  if (self) element_.mouseUp(right);
}

void DeskGrid::wheelEvent(QWheelEvent* event) {
  event->accept();
  FetchIfStale();
  touched_.start();
  const int turned = event->pixelDelta().isNull() ? event->angleDelta().y() * 3 * RowHeight() / 120 : event->pixelDelta().y();
  ScrollBy(-turned);
}

void DeskGrid::DragBorder(int x) {
  const auto left = static_cast<std::size_t>(borderColumn_);
  const auto stretch = static_cast<std::size_t>(StretchColumn(columns_));
  // The border of the column that takes the rest belongs to its neighbour.
  const bool turned = left == stretch;
  const ShownColumn& column = shown_[turned ? left + 1 : left];
  if (borderWidth_ == 0) borderWidth_ = column.width;
  const int dragged = std::max(kLeastDragged, borderWidth_ + (turned ? pressedAt_.x() - x : x - pressedAt_.x()));
  columns_[static_cast<std::size_t>(column.number)].width = dragged * kTwipsPerPixel;
  placing_ = true;
  viewport()->update();
}

void DeskGrid::EndBorderDrag() {
  FetchIfStale();
  std::vector<GridColumn> widths = element_.Columns();
  for (const ShownColumn& column : shown_)
    if (static_cast<std::size_t>(column.number) < widths.size())
      widths[static_cast<std::size_t>(column.number)].width = column.width * kTwipsPerPixel;
  const QPointer<DeskGrid> self(this);
  element_.SetColumns(std::move(widths));
  if (self) element_.columnsResized();
}

// To a row that was read: where another program keeps the rows, the one in front stays, with the fields that show it.
void DeskGrid::MoveToFirstOf(const std::vector<GridRow>& rows) {
  if (!rows.empty()) watched_->MoveTo(rows.front().key).Ignore();
}

void DeskGrid::MoveByRows(int rows) {
  const GridRow current = watched_->CurrentRow();
  if (current.key == 0) {
    MoveToFirstOf(watched_->RowsFromStart(1));
    return;
  }
  const auto beside = rows > 0 ? watched_->RowsAfter(current, rows) : watched_->RowsBefore(current, -rows);
  if (!beside.empty()) watched_->MoveTo(rows > 0 ? beside.back().key : beside.front().key).Ignore();
}

void DeskGrid::keyPressEvent(QKeyEvent* event) {
  event->accept();
  if (!watched_ || !watched_->HasRows() || !ui_.Reaches(element_)) return;
  if (event->modifiers() == Qt::ControlModifier && event->key() >= Qt::Key_1 && event->key() <= Qt::Key_9) {
    TapHead(event->key() - Qt::Key_1);
    return;
  }
  switch (event->key()) {
    case Qt::Key_Down:
      MoveByRows(1);
      break;
    case Qt::Key_Up:
      MoveByRows(-1);
      break;
    case Qt::Key_PageDown:
      MoveByRows(FullRows());
      break;
    case Qt::Key_PageUp:
      MoveByRows(-FullRows());
      break;
    case Qt::Key_Home:
      MoveToFirstOf(watched_->RowsFromStart(1));
      break;
    case Qt::Key_End:
      MoveToFirstOf(watched_->RowsFromEnd(1));
      break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      TapRowInFront(event->key() != Qt::Key_Space);
      break;
    default:
      break;
  }
}

void DeskGrid::TapHead(int column) {
  FetchIfStale();
  if (column < static_cast<int>(shown_.size())) element_.headClick(shown_[static_cast<std::size_t>(column)].number);
}

// What a finger does to the row in front, by its first column. A double tap begins with a tap.
void DeskGrid::TapRowInFront(bool twice) {
  FetchIfStale();
  if (shown_.empty() || !watched_->HasCurrent()) return;
  const int number = shown_.front().number;
  const RowKey meant = watched_->CurrentKey();
  const QPointer<DeskGrid> self(this);
  if (!TapRow(meant, number, MouseEvent{}) || !twice || !watched_) return;
  if ((watched_->CurrentKey() == meant || MoveToKey(meant)) && self) element_.DoubleTapCell(number);
}

void DeskGrid::hideEvent(QHideEvent* event) {
  QAbstractScrollArea::hideEvent(event);
  hold_.stop();
  drag_ = Drag::None;
  element_.released();  // the finger comes up over something else
}

void DeskGrid::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void DeskGrid::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace karvel
