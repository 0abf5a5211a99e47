#include "app/desk_grid.h"

#include <QEvent>
#include <QFontMetrics>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>

#include "app/qt_text.h"
#include "store/cursor.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kMargin = 24;           // rows held beside those shown
constexpr int kMostHeld = 400;        // rows
constexpr int kModest = 1000;         // rows that are counted in passing
constexpr int kWideSpan = 1'000'000;  // the scroll bar of a source that is not counted
constexpr int kMeasured = 40;         // rows looked at for the width of a column
constexpr int kTouchMilliseconds = 1500;
constexpr int kUncoverMilliseconds = 50;  // from the small window's going to the tap that sent it away

}  // namespace

DeskGrid::DeskGrid(const DeskUi& ui, GridElement& element, QWidget* parent) : QAbstractScrollArea(parent), ui_(ui), element_(element) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  viewport()->setAutoFillBackground(false);
  measure_.setSingleShot(true);
  measure_.setInterval(60);
  connect(&measure_, &QTimer::timeout, this, &DeskGrid::MeasureExtent);
  again_.setSingleShot(true);
  again_.setInterval(100);
  connect(&again_, &QTimer::timeout, viewport(), qOverload<>(&QWidget::update));
  uncover_.setSingleShot(true);
  connect(&uncover_, &QTimer::timeout, this, &DeskGrid::Uncover);
  hold_.setSingleShot(true);
  hold_.setInterval(700);
  connect(&hold_, &QTimer::timeout, this, &DeskGrid::Held);
}

QFont DeskGrid::TextFont() const {
  return ui_.theme.Font(&element_ == &ui_.screen.HareketGrid ? FontRole::DayBook : FontRole::Grid);
}

int DeskGrid::RowHeight() const {
  return std::max(ui_.theme.Px(42), QFontMetrics(TextFont()).height() + ui_.theme.Px(16));
}
int DeskGrid::HeadHeight() const {
  return ui_.theme.Px(44);
}
QSize DeskGrid::sizeHint() const {
  return {ui_.theme.Px(420), HeadHeight() + 6 * RowHeight()};
}
QSize DeskGrid::minimumSizeHint() const {
  return {ui_.theme.Px(160), HeadHeight() + 2 * RowHeight()};
}
int DeskGrid::BodyHeight() const {
  return std::max(0, viewport()->height() - HeadHeight());
}
int DeskGrid::FullRows() const {
  return std::max(1, BodyHeight() / RowHeight());
}

DeskGrid::Cover DeskGrid::CoverNow() const {
  Cover cover;
  const Screen& screen = ui_.screen;
  const QRect body(0, HeadHeight(), viewport()->width(), BodyHeight());
  for (const Element* const form : {&screen.Form2.Form2, &screen.Form3.Form3}) {
    const QWidget* const small = ui_.widgets.value(form);
    if (!small || small->isHidden()) continue;
    const QRect covered = QRect(viewport()->mapFrom(small->parentWidget(), small->pos()), small->size()) & body;
    if (covered.isEmpty()) continue;
    const int above = covered.top() - body.top(), below = body.bottom() - covered.bottom();
    if (std::max(above, below) >= RowHeight()) cover = above >= below ? Cover{0, BodyHeight() - above} : Cover{BodyHeight() - below, 0};
  }
  return cover;
}

void DeskGrid::FollowCover() {
  const Cover cover = CoverNow();
  uncover_.stop();
  if (cover == cover_) return;
  if (cover == Cover{}) {
    uncover_.start(kUncoverMilliseconds);
    return;
  }
  cover_ = cover;
  followed_ = 0;  // the row in front comes out from under it
  stale_ = true;
  viewport()->update();
}

// A tap on a row closes the keyboard, and the row must not go from under the finger, nor from under its second tap.
void DeskGrid::Uncover() {
  if (IsPressed() || TouchedLately()) {
    uncover_.start(kTouchMilliseconds);
    return;
  }
  cover_ = {};
  stale_ = true;
  viewport()->update();
}

void DeskGrid::Watch(Cursor* cursor) {
  watched_ = cursor;
  rows_.SetSource(cursor);
  scroll_ = 0;
  followed_ = 0;
  extent_ = -1;
  table_ = nullptr;
  source_.clear();
  watching_.End();
  if (!cursor) return;
  watching_ = cursor->shown.Connect([this] {
    stale_ = true;
    viewport()->update();
  });
}

void DeskGrid::Sync() {
  if (element_.Source() != watched_) Watch(element_.Source());
  columns_ = element_.Columns();
  placing_ = stale_ = true;
  viewport()->update();
}

void DeskGrid::FetchIfStale() {
  if (stale_ && watched_) {
    stale_ = false;
    const int count = FullRows() + 2 + kMargin;
    const GridRow current = watched_->CurrentRow();
    const bool sourceChanged = watched_->SourceTable() != table_ || watched_->RecordSource() != source_;
    if (sourceChanged) {
      placing_ = true;
      table_ = watched_->SourceTable();
      source_ = watched_->RecordSource();
      followed_ = 0;
      scroll_ = 0;
      extent_ = -1;
      rows_.Clear();
      scale_.reset();
    }
    if (!watched_->HasRows()) {
      rows_.Clear();
      scroll_ = 0;
    } else if (rows_.Count() == 0) {
      rows_.LoadStart(count);
      scroll_ = 0;
    } else {
      const int top = std::clamp(scroll_ / RowHeight(), 0, rows_.Count() - 1);
      const int offset = scroll_ - top * RowHeight();
      // A list at its top shows what comes in above; under a hand it stands still.
      const bool staysAtTop = scroll_ == 0 && rows_.AtStart() && !TouchedLately();
      const GridRow anchor = rows_.Rows()[static_cast<std::size_t>(top)];
      const int index = rows_.LoadAround(anchor, kMargin, count);
      scroll_ = staysAtTop && rows_.AtStart() ? 0 : index * RowHeight() + offset;
    }
    if (!placedWithRows_ && rows_.Count() > 0) placing_ = true;  // the widths of an empty list were its headings'
    if (current.key != 0 && current.key != followed_) BringIntoView(current);
    followed_ = current.key;
    ClampScroll();
    if (rows_.AtStart() && rows_.AtEnd()) {
      measure_.stop();  // all of it is held
    } else {
      measure_.start();
    }
  }
  if (placing_) PlaceAnew();
}

void DeskGrid::FetchForPaint() {
  if (IsPressed()) return;  // the row under the finger is the one that it takes
  lack_ = Lack::None;
  if (!watched_) return FetchIfStale();
  const Glance glance(*watched_);
  // Looked at before anything that is held is let go.
  if (stale_) (void)watched_->RowsFromStart(1);
  if (glance.Complete()) {
    FetchIfStale();
    currentKey_ = watched_->CurrentKey();
  }
  if (glance.NothingIsOpen()) lack_ = Lack::Shut;
  if (!glance.Complete()) lack_ = glance.ServerIsAway() ? Lack::Unreachable : Lack::Kept;
  if (glance.Complete()) return;
  if (watched_->SourceTable() != table_) rows_.Clear();  // they fit no column of the list that comes
  stale_ = true;
  if (lack_ == Lack::Kept) again_.start();  // whoever finds the server again tells
}

// A finger lies on a row and hasn't been lifted yet.
bool DeskGrid::IsPressed() const {
  return hold_.isActive() && watched_ && watched_->SourceTable() == table_ && watched_->RecordSource() == source_;
}

bool DeskGrid::TouchedLately() const {
  return touched_.isValid() && touched_.elapsed() < kTouchMilliseconds;
}

void DeskGrid::BringIntoView(const GridRow& row) {
  const int height = RowHeight();
  // Those that come after what was searched for are seen too.
  const auto placeAt = [&](int y) { scroll_ = y - cover_.above - (OpenBottom() - cover_.above) / height / 3 * height; };
  int index = rows_.IndexOf(row.key);
  if (index < 0) {
    index = rows_.LoadAround(row, kMargin, FullRows() + 2 + kMargin);
    placeAt(index * height);
  }
  const int y = index * height;
  const bool inSight = y >= scroll_ + cover_.above && y + height <= scroll_ + OpenBottom();
  if (!inSight && cover_ != Cover{}) placeAt(y);
  ScrollToShow(y);
}

void DeskGrid::ScrollToShow(int y) {
  const int height = RowHeight();
  if (y + height > scroll_ + OpenBottom()) scroll_ = y + height - OpenBottom();
  if (y < scroll_ + cover_.above) scroll_ = y - cover_.above;
  if (BodyHeight() < height) scroll_ = y;
  ClampScroll();
}

void DeskGrid::ClampScroll() {
  const int height = RowHeight();
  while (scroll_ < 0) {
    const int came = rows_.GrowUp(kMargin + FullRows());
    if (came == 0) break;
    scroll_ += came * height;
  }
  while (scroll_ + BodyHeight() > rows_.Count() * height && rows_.GrowDown(kMargin + FullRows()) > 0) {
  }
  scroll_ = std::clamp(scroll_, 0, std::max(0, rows_.Count() * height - OpenBottom()));
  ShowScrollBar();
}

void DeskGrid::ScrollBy(int pixels) {
  scroll_ += pixels;
  ClampScroll();
  TrimRows();
  viewport()->update();
}

void DeskGrid::TrimRows() {
  if (rows_.Count() <= kMostHeld) return;
  const int height = RowHeight();
  const int above = scroll_ / height;
  const int below = rows_.Count() - above - FullRows() - 1;
  if (above > kMostHeld / 2) {
    const int away = above - kMargin;
    rows_.DropTop(away);
    scroll_ -= away * height;
  }
  if (below > kMostHeld / 2) rows_.DropBottom(below - kMargin);
}

void DeskGrid::ScrollToPosition(std::int64_t position) {
  const auto held = rows_.Position();
  const int height = RowHeight();
  if (held && position >= *held && position < *held + rows_.Count())
    scroll_ = static_cast<int>(position - *held) * height;
  else
    scroll_ = rows_.LoadAt(position, kMargin, FullRows() + 2 + kMargin) * height;
  ClampScroll();
  viewport()->update();
}

// Near the first row whose sorted value is at this place of the scale.
void DeskGrid::ScrollToPlace(double place) {
  const int count = FullRows() + 2 + kMargin, height = RowHeight();
  if (place <= 0) {
    rows_.LoadStart(count);
    scroll_ = 0;
  } else if (place >= 1) {
    rows_.LoadEnd(count);
    scroll_ = rows_.Count() * height;
  } else {
    auto beside = watched_->RowsFromStart(1);
    if (beside.empty()) return;
    beside.front().key = 0;
    beside.front().values[static_cast<std::size_t>(scaleField_)] = scale_->At(place);
    scroll_ = rows_.LoadAround(beside.front(), kMargin, count) * height;
  }
  ClampScroll();
}

// Runs when the grid has been left alone for a moment. A source of modest size is counted, and the bar is exact; in a longer one the bar
// goes by the sorted values.
void DeskGrid::MeasureExtent() {
  if (!watched_ || stale_) return;
  extent_ = watched_->HasRows() ? (watched_->RowsAt(kModest, 1).empty() ? watched_->RecordCount() : -1) : 0;
  if (extent_ >= 0 && !rows_.Position() && rows_.Count() > 0) rows_.SetPosition(watched_->PositionOf(rows_.Rows().front()));
  scale_.reset();
  scaleField_ = SortedField();
  if (extent_ < 0 && scaleField_ >= 0) {
    const auto first = watched_->RowsFromStart(1), last = watched_->RowsFromEnd(1);
    const auto field = static_cast<std::size_t>(scaleField_);
    if (!first.empty() && !last.empty()) scale_ = ValueScale::Between(first.front().values[field], last.front().values[field]);
  }
  ShowScrollBar();
}

void DeskGrid::ShowScrollBar() {
  QScrollBar* const bar = verticalScrollBar();
  showingBar_ = true;
  const int height = RowHeight();
  if (rows_.AtStart() && rows_.AtEnd()) {
    bar->setRange(0, std::max(0, rows_.Count() * height - OpenBottom()));
    bar->setPageStep(BodyHeight());
    bar->setValue(scroll_);
  } else if (extent_ >= 0 && rows_.Position()) {
    const auto total = static_cast<int>(std::min<std::int64_t>(extent_ * height, 1'000'000'000));
    bar->setRange(0, std::max(0, total - OpenBottom()));
    bar->setPageStep(BodyHeight());
    bar->setValue(static_cast<int>(*rows_.Position()) * height + scroll_);
  } else {
    bar->setRange(0, kWideSpan);
    bar->setPageStep(kWideSpan / 40);
    const bool atTop = rows_.AtStart() && scroll_ == 0;
    const bool atBottom = rows_.AtEnd() && scroll_ >= rows_.Count() * height - BodyHeight();
    if (atTop || atBottom)
      bar->setValue(atTop ? 0 : kWideSpan);
    else if (scale_ && rows_.Count() > 0)
      bar->setValue(std::clamp(static_cast<int>(scale_->PlaceOf(TopValue()) * kWideSpan), 1, kWideSpan - 1));
    else if (bar->value() == 0 || bar->value() == kWideSpan)
      bar->setValue(kWideSpan / 50);  // not measured yet: all that is known is that this is neither end
  }
  bar->setSingleStep(height);
  showingBar_ = false;
}

const Value& DeskGrid::TopValue() const {
  const int top = std::clamp(scroll_ / RowHeight(), 0, rows_.Count() - 1);
  return rows_.Rows()[static_cast<std::size_t>(top)].values[static_cast<std::size_t>(scaleField_)];
}

void DeskGrid::scrollContentsBy(int, int) {
  if (showingBar_) return;
  const QScrollBar* const bar = verticalScrollBar();
  const int height = RowHeight();
  if (rows_.AtStart() && rows_.AtEnd()) {
    scroll_ = bar->value();
  } else if (extent_ >= 0) {
    const int wanted = bar->value();
    ScrollToPosition(wanted / height);
    scroll_ += wanted % height;
    ClampScroll();
  } else if (scale_) {
    ScrollToPlace(static_cast<double>(bar->value()) / kWideSpan);
  } else if (watched_) {
    const auto position =
        static_cast<std::int64_t>(static_cast<double>(bar->value()) / kWideSpan * static_cast<double>(watched_->RecordCount()));
    ScrollToPosition(position);
  }
  viewport()->update();
}

void DeskGrid::PlaceAnew() {
  placing_ = false;
  placedWithRows_ = rows_.Count() > 0;
  const QFontMetrics head(ui_.theme.Font(FontRole::GridHead));
  const QFont font = TextFont();
  std::vector<ColumnNeed> needs(columns_.size());
  const int measured = std::min(rows_.Count(), kMeasured);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!columns_[i].visible) continue;
    needs[i].heading = head.horizontalAdvance(ToQt(Trim(columns_[i].caption))) + 2 * CellPad() + 4;
    const int position = table_ ? table_->Position(columns_[i].field) : -1;
    for (int row = 0; row < measured; ++row) {
      const QString text = ToQt(CellText(columns_[i], rows_.Rows()[static_cast<std::size_t>(row)].values, position, table_));
      needs[i].content = std::max(needs[i].content, static_cast<int>(FiguresWidth(font, text)) + 2 * CellPad() + 2);
    }
  }
  shown_ = PlaceColumns(columns_, needs, table_, viewport()->width(), ui_.theme.Scale());
}

int DeskGrid::RowAt(int y) const {
  if (y < HeadHeight()) return -1;
  const int index = (y - HeadHeight() + scroll_) / RowHeight();
  return index < rows_.Count() ? index : -1;
}

int DeskGrid::ColumnAt(int x) const {
  for (std::size_t i = 0; i < shown_.size(); ++i)
    if (x >= shown_[i].x && x < shown_[i].x + shown_[i].width) return static_cast<int>(i);
  return -1;
}

QRect DeskGrid::HeadRect(int visibleColumn) {
  FetchIfStale();
  if (visibleColumn < 0 || visibleColumn >= static_cast<int>(shown_.size())) return {};
  const ShownColumn& column = shown_[static_cast<std::size_t>(visibleColumn)];
  return {column.x, 0, column.width, HeadHeight()};
}

QRect DeskGrid::CellRect(int row, int column) {
  FetchIfStale();
  if (column < 0 || column >= static_cast<int>(shown_.size()) || row < 0 || !watched_) return {};
  const int height = RowHeight();
  const auto inWindow = [&]() -> int {
    const auto held = rows_.Position();
    return held && row >= *held && row < *held + rows_.Count() ? row - static_cast<int>(*held) : -1;
  };
  int index = inWindow();
  if (index < 0) {
    ScrollToPosition(row);
    index = inWindow();
    if (index < 0) return {};
  }
  const int y = index * height;
  ScrollToShow(y);
  TrimRows();
  viewport()->update();
  index = inWindow();
  const ShownColumn& cell = shown_[static_cast<std::size_t>(column)];
  return {cell.x, HeadHeight() + index * height - scroll_, cell.width, height};
}

std::optional<QPoint> DeskGrid::RowInFront() {
  FetchIfStale();
  const int index = watched_ ? rows_.IndexOf(watched_->CurrentKey()) : -1;
  if (index < 0) return std::nullopt;
  const int y = index * RowHeight() - scroll_ + RowHeight() / 2;
  if (y < cover_.above || y >= OpenBottom()) return std::nullopt;
  return viewport()->mapTo(this, QPoint(viewport()->width() / 2, HeadHeight() + y));
}

QStringList DeskGrid::VisibleHeadings() {
  FetchIfStale();
  QStringList headings;
  for (const ShownColumn& column : shown_) headings += ToQt(Trim(columns_[static_cast<std::size_t>(column.number)].caption));
  return headings;
}

QList<QStringList> DeskGrid::ShownRows(int max) {
  // The answer has the rows of other terminals too, and a tap on one of them must find it on the window.
  stale_ = true;
  FetchIfStale();
  viewport()->update();
  QList<QStringList> texts;
  if (!watched_ || max <= 0) return texts;
  for (const GridRow& row : watched_->RowsFromStart(max)) {
    QStringList line;
    for (const ShownColumn& column : shown_)
      line += ToQt(CellText(columns_[static_cast<std::size_t>(column.number)], row.values, column.position, table_));
    texts += line;
  }
  return texts;
}

int DeskGrid::CurrentRowNumber() const {
  if (!watched_) return -1;
  const GridRow current = watched_->CurrentRow();
  return current.key == 0 ? -1 : static_cast<int>(watched_->PositionOf(current));
}

void DeskGrid::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  placing_ = stale_ = true;
  followed_ = 0;  // the row in front stays in view
  cover_ = CoverNow();
}

int DeskGrid::SortedColumn(bool& descending) const {
  const int field = SortedField();
  descending = source_.size() > 5 && EqualText(source_.substr(source_.size() - 5), " Desc");
  for (std::size_t i = 0; field >= 0 && i < shown_.size(); ++i)
    if (shown_[i].position == field) return static_cast<int>(i);
  return -1;
}

int DeskGrid::SortedField() const {
  return table_ ? SortedPosition(*table_, source_) : -1;
}

}  // namespace karvel
