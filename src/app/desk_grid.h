// A grid over a cursor. It holds and paints the rows that it shows; the cursor moves and sorts, and the features say what a tap means.
//
// What stays true:
// - Rows are read when the grid paints, once, however often the cursor has changed since.
// - When the cursor's current record changes, its row comes into view; a finger may scroll away from it.
// - A row that comes into view does so where no small window (the keyboard, the pad) covers it.
// - All places are pixels of viewport(); the heading is its top strip.
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QRect>
#include <QStringList>
#include <QTimer>
#include <optional>

#include "app/desk_ui.h"
#include "app/grid_columns.h"
#include "app/row_window.h"
#include "app/value_scale.h"

namespace karvel {

class DeskGrid : public QAbstractScrollArea {
  Q_OBJECT

 public:
  DeskGrid(const DeskUi& ui, GridElement& element, QWidget* parent);

  // Shows the element's columns, source and marker as they are now.
  void Sync();

  // The cell of a row, counted from the source's first, and of a column, counted over the visible ones. Scrolls there if needed.
  QRect CellRect(int row, int column);
  // A point on the current row; none while it is out of view.
  std::optional<QPoint> RowInFront();
  QRect HeadRect(int visibleColumn);
  QStringList VisibleHeadings();
  // The first `max` rows of the source, each visible column's text as shown. They are read anew, and the grid shows them.
  QList<QStringList> ShownRows(int max);
  // A small window over it came, went or moved.
  void FollowCover();
  // Counted from the source's first row; -1 without a current record.
  [[nodiscard]] int CurrentRowNumber() const;

  [[nodiscard]] int RowHeight() const;
  [[nodiscard]] int HeadHeight() const;
  // Between a cell's edge and its text.
  [[nodiscard]] int CellPad() const { return ui_.theme.Px(10); }
  [[nodiscard]] int BodyHeight() const;  // of the place for rows
  [[nodiscard]] QFont TextFont() const;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void hideEvent(QHideEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  enum class Drag { None, Pressed, Scrolling, Border };

  // Rows.
  void Watch(Cursor* cursor);
  void FetchIfStale();
  // The same for a paint: nothing waits. Where another program keeps the rows, those that are held stay, and it is tried again soon.
  void FetchForPaint();
  void BringIntoView(const GridRow& row);
  // Scrolls until the row that begins there is in the open part of the body.
  void ScrollToShow(int y);
  void ScrollBy(int pixels);
  void ScrollToPosition(std::int64_t position);
  void ScrollToPlace(double place);
  void ClampScroll();
  void TrimRows();
  void MeasureExtent();
  void ShowScrollBar();
  [[nodiscard]] int FullRows() const;
  // How far a small window lies over the body from above or from below; neither where what is left has no room for a row.
  struct Cover {
    int above = 0, below = 0;
    bool operator==(const Cover&) const = default;
  };
  [[nodiscard]] Cover CoverNow() const;
  // The bottom of what is left of the body.
  [[nodiscard]] int OpenBottom() const { return BodyHeight() - cover_.below; }
  void Uncover();
  [[nodiscard]] const Value& TopValue() const;  // the sorted value of the uppermost row shown
  [[nodiscard]] int RowAt(int y) const;         // index of the row held; -1: none

  // Columns.
  void PlaceAnew();
  [[nodiscard]] int ColumnAt(int x) const;  // among the visible; -1: none
  [[nodiscard]] int BorderAt(int x) const;  // the visible column left of the border
  void DragBorder(int x);
  void EndBorderDrag();
  [[nodiscard]] int SortedColumn(bool& descending) const;
  [[nodiscard]] int SortedField() const;  // its position in the rows; -1: none

  // Fingers and keys.
  [[nodiscard]] bool IsCurrent(int index) const;
  bool MoveToRow(int index);
  void MoveToFirstOf(const std::vector<GridRow>& rows);
  bool MoveToKey(RowKey key);
  void MoveByRows(int rows);
  bool TapRow(RowKey key, int column, const MouseEvent& at);
  void TapRowInFront(bool twice);
  // A visible column's, from 0.
  void TapHead(int column);
  void Held();
  [[nodiscard]] bool IsPressed() const;
  [[nodiscard]] bool TouchedLately() const;

  // Paint.
  [[nodiscard]] QString EmptyText() const;
  void PaintHead(QPainter& painter) const;
  // One letter size a column, small enough for the longest of the rows in sight.
  void FitColumns(const QPainter& painter);
  [[nodiscard]] bool MostlyLong(const ShownColumn& column, int first, int behind, const QFontMetrics& metrics) const;
  [[nodiscard]] QString TextAt(int index, const ShownColumn& column) const;
  void PaintRow(QPainter& painter, int index, int y, bool current) const;
  void PaintCell(QPainter& painter, const ShownColumn& column, const QString& text, int y) const;

  const DeskUi& ui_;
  GridElement& element_;
  Cursor* watched_ = nullptr;
  const Table* table_ = nullptr;
  std::string source_;
  RowWindow rows_;
  std::vector<GridColumn> columns_;
  std::vector<ShownColumn> shown_;
  Cover cover_;                      // as the list last followed it
  RowKey followed_ = 0;              // the current record that was last brought into view
  int scroll_ = 0;                   // pixels from the top of the first row held
  std::int64_t extent_ = -1;         // rows of a source of modest size; -1: too many to count in passing
  std::optional<ValueScale> scale_;  // of a longer one
  int scaleField_ = -1;              // the position of its sorted field
  bool stale_ = true, placing_ = true, placedWithRows_ = false, showingBar_ = false;
  // Why an empty list may have rows all the same.
  enum class Lack { None, Kept, Unreachable, Shut };
  Lack lack_ = Lack::None;
  QTimer measure_, hold_, again_, uncover_;
  QElapsedTimer touched_;  // since a finger or the wheel was last on it

  Drag drag_ = Drag::None;
  QPoint pressedAt_, movedTo_;
  RowKey currentKey_ = 0;  // of the last paint
  RowKey tapped_ = 0;      // the row that the last tap took, until the next press
  int borderColumn_ = -1, borderWidth_ = 0;
  bool doubled_ = false, held_ = false, rightPress_ = false;
  ScopedConnection watching_;  // of what the watched cursor shows
};

}  // namespace karvel
