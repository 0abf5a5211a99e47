// How a grid looks.
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "app/desk_grid.h"
#include "app/qt_text.h"
#include "store/cursor.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr qreal kRadius = 8;
constexpr int kSmallestFigures = 10;  // pixels

// Letters never become smaller than this, at the window's scale.
int Smallest(const Theme& theme, int base) {
  return std::min(base, theme.Px(base));
}

int SmallerName(const Theme& theme, int pixelSize) {
  return std::min(pixelSize, std::max(Smallest(theme, 12), pixelSize * 4 / 5));
}

QFont SmallerHeading(QFont font) {
  font.setPixelSize(std::max(1, font.pixelSize() * 4 / 5));
  return font;
}

// A number that its column has no room for shows that it goes on, and is never cut to another number.
QString ShownFigures(const QFont& font, const QString& text, qreal room) {
  QString shown = text;
  while (shown.size() > 1 && FiguresWidth(font, shown) > room) shown = shown.left(shown.size() - (shown == text ? 1 : 2)) + u'…';
  return shown;
}

}  // namespace

void DeskGrid::paintEvent(QPaintEvent*) {
  FetchForPaint();
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  const QRect whole = viewport()->rect();
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::kField);
  painter.drawRoundedRect(whole, kRadius, kRadius);
  QPainterPath edge;
  edge.addRoundedRect(whole, kRadius, kRadius);
  painter.setClipPath(edge);

  const int height = RowHeight();
  const RowKey current = watched_ ? currentKey_ : 0;
  painter.setFont(TextFont());
  painter.save();
  painter.setClipRect(whole.adjusted(0, HeadHeight(), 0, 0), Qt::IntersectClip);
  FitColumns(painter);
  for (int index = scroll_ / height; index < rows_.Count(); ++index) {
    const int y = HeadHeight() + index * height - scroll_;
    if (y >= whole.bottom()) break;
    PaintRow(painter, index, y, current != 0 && rows_.Rows()[static_cast<std::size_t>(index)].key == current);
  }
  painter.restore();
  PaintHead(painter);
  if (rows_.Count() == 0) {
    painter.setFont(ui_.theme.Font(FontRole::Title));
    painter.setPen(palette::kFaint);
    painter.drawText(whole.adjusted(0, HeadHeight(), 0, 0), Qt::AlignCenter | Qt::TextWordWrap, EmptyText());
  }
  painter.setClipping(false);
  if (hasFocus()) {
    DrawFocusRing(painter, whole, kRadius);
  } else {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::kLine, 1));
    painter.drawRoundedRect(QRectF(whole).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  }
}

QString DeskGrid::EmptyText() const {
  switch (lack_) {
    case Lack::Kept:
      return QStringLiteral("Bekleniyor…");
    case Lack::Unreachable:
      return QStringLiteral("Ana makineye ulaşılamıyor");
    case Lack::Shut:
      return QStringLiteral("Veri açılamadı");
    case Lack::None:
      break;
  }
  return QStringLiteral("Kayıt yok");
}

void DeskGrid::PaintHead(QPainter& painter) const {
  const QRect head(0, 0, viewport()->width(), HeadHeight());
  painter.fillRect(head, palette::kRaised);
  const QFont usual = ui_.theme.Font(FontRole::GridHead);
  bool descending = false;
  const int sorted = SortedColumn(descending);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const ShownColumn& column = shown_[i];
    painter.setFont(usual);
    const bool isSorted = static_cast<int>(i) == sorted;
    QRect room(column.x + CellPad(), 0, column.width - 2 * CellPad(), HeadHeight());
    painter.setPen(isSorted ? palette::kText : palette::kMuted);
    const QString caption = ToQt(Trim(columns_[static_cast<std::size_t>(column.number)].caption));
    // The sorted column has an arrow, or a line under its name where the name needs the room.
    const bool arrow = painter.fontMetrics().horizontalAdvance(caption) + 14 <= room.width();
    if (isSorted && !arrow) painter.fillRect(QRect(room.left(), HeadHeight() - 4, room.width(), 3), palette::kAccent);
    if (isSorted && arrow) {
      const qreal x = column.figures ? room.left() + 4 : room.right() - 4;
      const qreal y = HeadHeight() / 2.0;
      const qreal tip = descending ? 3.5 : -3.5;
      painter.save();
      painter.setPen(Qt::NoPen);
      painter.setBrush(palette::kAccent);
      painter.drawPolygon(QPolygonF{QPointF(x - 5, y - tip), QPointF(x + 5, y - tip), QPointF(x, y + tip)});
      painter.restore();
      room.adjust(column.figures ? 12 : 0, 0, column.figures ? 0 : -12, 0);
    }
    const Qt::Alignment side = (column.figures ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    const QRect lines = painter.fontMetrics().boundingRect(room, static_cast<int>(side) | Qt::TextWordWrap, caption);
    const bool onTwoLines = lines.width() <= room.width() && lines.height() <= room.height();
    if (!onTwoLines) painter.setFont(SmallerHeading(usual));
    painter.drawText(room, static_cast<int>(side) | (onTwoLines ? Qt::TextWordWrap : 0),
                     onTwoLines ? caption : painter.fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
    if (i + 1 < shown_.size()) painter.fillRect(QRect(column.x + column.width - 1, 12, 1, HeadHeight() - 24), palette::kLine);
  }
  painter.fillRect(QRect(0, HeadHeight() - 1, viewport()->width(), 1), palette::kLine);
}

void DeskGrid::FitColumns(const QPainter& painter) {
  const int first = scroll_ / RowHeight();
  const int behind = std::min(rows_.Count(), first + viewport()->height() / RowHeight() + 2);
  const int names = StretchColumn(columns_), smallest = Smallest(ui_.theme, kSmallestFigures);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    ShownColumn& column = shown_[i];
    QFont font = painter.font();
    column.pixelSize = font.pixelSize();
    if (static_cast<int>(i) == names) {
      if (MostlyLong(column, first, behind, QFontMetrics(font))) column.pixelSize = SmallerName(ui_.theme, font.pixelSize());
      continue;
    }
    const int room = column.width - 2 * CellPad();
    for (int index = first; index < behind; ++index) {
      const QString text = TextAt(index, column);
      if (column.figures) {
        while (font.pixelSize() > smallest && FiguresWidth(font, text) > room) font.setPixelSize(font.pixelSize() - 1);
      } else if (font.pixelSize() == painter.font().pixelSize() && QFontMetrics(font).horizontalAdvance(text) > room) {
        font.setPixelSize(std::min(font.pixelSize(), std::max(smallest, font.pixelSize() * 4 / 5)));
      }
    }
    column.pixelSize = font.pixelSize();
  }
  // One size for all but the names, which may stand on two lines: an amount must not look larger than its neighbour for having fewer
  // digits.
  int size = painter.font().pixelSize();
  for (std::size_t i = 0; i < shown_.size(); ++i)
    if (static_cast<int>(i) != names) size = std::min(size, shown_[i].pixelSize);
  for (std::size_t i = 0; i < shown_.size(); ++i)
    if (static_cast<int>(i) != names) shown_[i].pixelSize = size;
}

// Whether long names are the rule: then all names are equally small. Where they are the exception, each shrinks by itself.
bool DeskGrid::MostlyLong(const ShownColumn& column, int first, int behind, const QFontMetrics& metrics) const {
  int longer = 0;
  for (int index = first; index < behind; ++index)
    if (metrics.horizontalAdvance(TextAt(index, column)) > column.width - 2 * CellPad()) ++longer;
  return longer * 3 > behind - first;
}

QString DeskGrid::TextAt(int index, const ShownColumn& column) const {
  return ToQt(CellText(columns_[static_cast<std::size_t>(column.number)], rows_.Rows()[static_cast<std::size_t>(index)].values,
                       column.position, table_));
}

void DeskGrid::PaintRow(QPainter& painter, int index, int y, bool current) const {
  const int height = RowHeight();
  const QRect row(0, y, viewport()->width(), height);
  if (current && element_.Marker()) {
    painter.fillRect(row, palette::kChosen);
    painter.fillRect(QRect(0, y, 4, height), palette::kAccent);
  }
  painter.fillRect(QRect(0, y + height - 1, row.width(), 1), palette::kSurface);
  painter.setPen(isEnabled() ? palette::kText : palette::kFaint);
  for (const ShownColumn& column : shown_) PaintCell(painter, column, TextAt(index, column), y);
}

void DeskGrid::PaintCell(QPainter& painter, const ShownColumn& column, const QString& text, int y) const {
  if (text.isEmpty()) return;
  const QRectF room(column.x + CellPad(), y, column.width - 2 * CellPad(), RowHeight());
  const QFont usual = painter.font();
  QFont fitted = usual;
  fitted.setPixelSize(column.pixelSize);
  painter.setFont(fitted);
  if (column.figures) {
    DrawFigures(painter, room, Qt::AlignRight, ShownFigures(fitted, text, room.width()));
  } else if (columns_[static_cast<std::size_t>(column.number)].align == Align::Center) {
    painter.drawText(room, Qt::AlignCenter, painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(room.width())));
  } else {
    // A long name goes on two smaller lines rather than losing its end, which tells one article from the next.
    if (fitted.pixelSize() == usual.pixelSize() && painter.fontMetrics().horizontalAdvance(text) > room.width()) {
      fitted.setPixelSize(SmallerName(ui_.theme, usual.pixelSize()));
      painter.setFont(fitted);
    }
    const QRect lines = painter.fontMetrics().boundingRect(room.toRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text);
    const bool fits = lines.height() <= room.height() && lines.width() <= room.width() + 1;
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | (fits ? Qt::TextWordWrap : 0),
                     fits ? text : painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(room.width())));
  }
  painter.setFont(usual);
}

}  // namespace karvel
