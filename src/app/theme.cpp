#include "app/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QStyleFactory>
#include <algorithm>
#include <cmath>

#include "desk/element.h"

namespace karvel {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr double kDeskPoints = 11;
constexpr double kDayBookSmaller = 4;  // points
constexpr double kSteps[] = {1.0, 1.06, 1.12, 1.2, 1.3};
// The smallest window in which everything has its own size.
constexpr double kLeastWidth = 960, kLeastHeight = 640;
// And in which nothing has to give way.
constexpr double kRoomyWidth = 1024, kRoomyHeight = 720;
constexpr double kSmallerStep = 0.02, kSmallest = 0.4;
constexpr int kLeastFont = 9;  // pixels, at its own size

// How much smaller than its own size the desk is drawn in a room of this size; 1 where it has all it needs.
double Shrink(double width, double height) {
  const double room = std::min(width / kLeastWidth, height / kLeastHeight);
  if (room >= 1) return 1;
  return std::max(kSmallest, std::floor(room / kSmallerStep) * kSmallerStep);
}

double BoxScale() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (!screen) return 1;
  const QSize room = screen->availableSize();
  return Shrink(room.width(), room.height());
}

QString Css(const QColor& colour) {
  return colour.name(QColor::HexRgb);
}

QString Family(const QString& wanted) {
  if (!wanted.isEmpty() && QFontDatabase::hasFamily(wanted)) return wanted;
  return FontFamily();
}

int BasePixels(FontRole role) {
  switch (role) {
    case FontRole::Small:
      return 13;
    case FontRole::Title:
      return 16;
    case FontRole::Field:
      return 20;
    case FontRole::Button:
      return 17;
    case FontRole::MainButton:
      return 24;
    case FontRole::Amount:
      return 26;
    case FontRole::BigAmount:
      return 48;
    case FontRole::Grid:
    case FontRole::DayBook:
      return 16;
    case FontRole::GridHead:
      return 13;
    case FontRole::Body:
      break;
  }
  return 15;
}

QFont::Weight WeightOf(FontRole role) {
  switch (role) {
    case FontRole::Button:
    case FontRole::GridHead:
    case FontRole::Title:
      return QFont::Medium;
    case FontRole::MainButton:
    case FontRole::Amount:
    case FontRole::BigAmount:
      return QFont::DemiBold;
    default:
      return QFont::Normal;
  }
}

// What boxes, menus and the window's fields share.
QString CommonSheet(double scale) {
  const auto px = [scale](int base) { return QString::number(static_cast<int>(base * scale + 0.5)); };
  QString sheet = QStringLiteral(R"(
QMenu { background: @raised; border: 1px solid @line; padding: $6px; }
QMenu::item { padding: $12px $28px $12px $40px; border-radius: $6px; min-height: $24px; }
QMenu::item:selected { background: @chosen; }
QMenu::item:disabled { color: @faint; }
QMenu::separator { height: 1px; background: @line; margin: $6px; }
QMenu::indicator { width: $18px; height: $18px; left: $12px; border: 2px solid @faint; border-radius: $5px; background: @field; }
QMenu::indicator:checked { background: @accent; border-color: @accent; image: url(:/qt-project.org/styles/commonstyle/images/standardbutton-apply-16.png); }
QLineEdit, QDateEdit, QComboBox { background: @field; color: @text; border: 1px solid @faint; border-radius: $8px; padding: 0 $10px;
  min-height: $46px; selection-background-color: @accent; selection-color: @background; }
QLineEdit:focus, QDateEdit:focus, QComboBox:focus { border: 2px solid @accent; }
QLineEdit:disabled, QDateEdit:disabled, QComboBox:disabled { color: @muted; background: @surface; border-color: @raised; }
QLineEdit:read-only { background: @surface; }
QComboBox::drop-down, QDateEdit::drop-down { subcontrol-origin: padding; subcontrol-position: center right; width: $32px; border: none; }
QComboBox::down-arrow, QDateEdit::down-arrow { width: 0; height: 0; border-left: $6px solid @raised; border-right: $6px solid @raised;
  border-top: $7px solid @muted; margin-right: $8px; }
QComboBox QAbstractItemView { background: @raised; border: 1px solid @line; outline: none; selection-background-color: @chosen; selection-color: @text; }
QComboBox QAbstractItemView::item { min-height: $48px; padding: 0 $10px; }
QListWidget { background: @field; border: 1px solid @line; border-radius: $8px; outline: none; }
QListWidget:focus { border: 2px solid @accent; }
QListWidget::item { min-height: $42px; padding: 0 $10px; border-radius: $6px; }
QListWidget::item:selected { background: @chosen; color: @text; border-left: $4px solid @accent; }
QScrollBar:vertical { background: transparent; width: $16px; margin: 0; }
QScrollBar::handle:vertical { background: @line; border-radius: $5px; min-height: $48px; margin: $3px; }
QScrollBar::handle:vertical:pressed { background: @faint; }
QScrollBar:horizontal { background: transparent; height: $16px; margin: 0; }
QScrollBar::handle:horizontal { background: @line; border-radius: $5px; min-width: $48px; margin: $3px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QFrame[column="true"], QFrame[strip="true"] { background: @surface; border: 1px solid @raised; border-radius: $10px; }
QToolButton#MenuButton { background: @raised; color: @text; border: 1px solid @line; border-radius: $9px; }
QToolButton#MenuButton:pressed { background: @chosen; }
QProgressBar { background: @field; border: none; border-radius: $5px; max-height: $10px; min-height: $10px; }
QProgressBar::chunk { background: @accent; border-radius: $5px; }
QToolTip { background: @raised; color: @text; border: 1px solid @line; padding: $6px; }
QCalendarWidget QToolButton { min-height: $44px; min-width: $44px; color: @text; background: @raised; border-radius: $6px; margin: 2px; padding: 0 $10px; }
QCalendarWidget QToolButton:pressed { background: @chosen; }
QCalendarWidget QWidget#qt_calendar_navigationbar { background: @surface; }
QCalendarWidget QAbstractItemView { background: @field; selection-background-color: @accent; selection-color: @background; outline: none; }
)");
  sheet.replace("@background", Css(palette::kBackground))
      .replace("@surface", Css(palette::kSurface))
      .replace("@raised", Css(palette::kRaised));
  sheet.replace("@field", Css(palette::kField)).replace("@line", Css(palette::kLine)).replace("@text", Css(palette::kText));
  sheet.replace("@muted", Css(palette::kMuted)).replace("@faint", Css(palette::kFaint)).replace("@accent", Css(palette::kAccent));
  sheet.replace("@chosen", Css(palette::kChosen));
  QString scaled;
  for (qsizetype i = 0; i < sheet.size(); ++i) {
    if (sheet[i] != '$') {
      scaled += sheet[i];
      continue;
    }
    int number = 0;
    while (i + 1 < sheet.size() && sheet[i + 1].isDigit()) number = number * 10 + sheet[++i].digitValue();
    scaled += px(number);
  }
  return scaled;
}

}  // namespace

void Theme::FitTo(int width, int height) {
  const double room = std::min(width / 1024.0, height / 768.0);
  double scale = Shrink(width, height);
  for (const double step : kSteps)
    if (room >= step) scale = step;
  const bool low = height < kRoomyHeight * scale, narrow = width < kRoomyWidth * scale;
  if (scale == scale_ && low == low_ && narrow == narrow_) return;
  scale_ = scale;
  low_ = low;
  narrow_ = narrow;
  changed();
}

void Theme::SetDeskFont(const QString& name, double size, bool bold) {
  desk_ = {name, size, bold};
  changed();
}

void Theme::SetGridFont(const QString& name, double size, bool bold) {
  grid_ = {name, size, bold};
  changed();
}

QFont Theme::Font(FontRole role, const QString& family) const {
  const bool rows = role == FontRole::Grid || role == FontRole::DayBook;
  const bool grid = rows || role == FontRole::GridHead;
  const Choice& choice = grid ? grid_ : desk_;
  double pixels = BasePixels(role) * scale_;
  // A chosen size moves all sizes alike, within what the panels have room for.
  if (choice.size > 0 && rows) {
    const double points = choice.size - (role == FontRole::DayBook ? kDayBookSmaller : 0);
    pixels = std::clamp(points * kPixelsPerPoint, 11.0, 40.0) * scale_;
  }
  if (choice.size > 0 && !grid) pixels *= std::clamp(choice.size / kDeskPoints, 0.85, 1.25);
  QFont font(Family(family.isEmpty() ? choice.name : family));
  font.setPixelSize(std::max(static_cast<int>(kLeastFont * std::min(1.0, scale_)), static_cast<int>(pixels + 0.5)));
  font.setWeight(choice.bold ? QFont::Bold : WeightOf(role));
  return font;
}

QString Theme::Sheet() const {
  return CommonSheet(scale_);
}

QColor StateInk(int state) {
  switch (state) {
    case color::kYellow:
      return palette::kAmber;
    case color::kGreen:
      return palette::kGreen;
    case color::kRed:
      return palette::kRed;
    case color::kCyan:
      return palette::kCyan;
    default:
      return palette::kText;
  }
}

QColor StateFill(int state) {
  switch (state) {
    case color::kYellow:
      return QColor(0x4a, 0x3a, 0x16);
    case color::kGreen:
      return QColor(0x17, 0x48, 0x33);
    case color::kRed:
      return QColor(0x57, 0x26, 0x24);
    case color::kCyan:
      return QColor(0x15, 0x44, 0x50);
    default:
      return palette::kRaised;
  }
}

bool IsSpecialState(int state) {
  return state == color::kYellow || state == color::kGreen || state == color::kRed || state == color::kCyan;
}

qreal FiguresWidth(const QFont& font, const QString& text) {
  const QFontMetricsF metrics(font);
  const qreal cell = metrics.horizontalAdvance(u'0');
  qreal width = 0;
  for (const QChar letter : text) width += letter.isDigit() ? cell : metrics.horizontalAdvance(letter);
  return width;
}

void DrawFigures(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QString& text) {
  const QFontMetricsF metrics(painter.font());
  const qreal cell = metrics.horizontalAdvance(u'0');
  const qreal width = FiguresWidth(painter.font(), text);
  qreal x = rect.left();
  if (alignment & Qt::AlignRight) x = rect.right() - width;
  if (alignment & Qt::AlignHCenter) x = rect.left() + (rect.width() - width) / 2;
  const qreal y = rect.top() + (rect.height() - metrics.height()) / 2 + metrics.ascent();
  for (const QChar letter : text) {
    const qreal own = metrics.horizontalAdvance(letter);
    const qreal step = letter.isDigit() ? cell : own;
    painter.drawText(QPointF(x + (step - own) / 2, y), QString(letter));
    x += step;
  }
}

void DrawFocusRing(QPainter& painter, const QRectF& rect, qreal radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette::kAccent, 2));
  painter.drawRoundedRect(rect.adjusted(1, 1, -1, -1), radius, radius);
  painter.restore();
}

QString FontFamily() {
  static const QString family = QFontDatabase::hasFamily("Inter") ? QStringLiteral("Inter") : QStringLiteral("DejaVu Sans");
  return family;
}

int BoxPx(int base) {
  return static_cast<int>(base * BoxScale() + 0.5);
}

void ApplyTheme(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QPalette look;
  look.setColor(QPalette::Window, palette::kSurface);
  look.setColor(QPalette::WindowText, palette::kText);
  look.setColor(QPalette::Base, palette::kField);
  look.setColor(QPalette::AlternateBase, palette::kSurface);
  look.setColor(QPalette::Text, palette::kText);
  look.setColor(QPalette::PlaceholderText, palette::kMuted);
  look.setColor(QPalette::Button, palette::kRaised);
  look.setColor(QPalette::ButtonText, palette::kText);
  look.setColor(QPalette::BrightText, palette::kRed);
  look.setColor(QPalette::Highlight, palette::kAccent);
  look.setColor(QPalette::HighlightedText, palette::kBackground);
  look.setColor(QPalette::ToolTipBase, palette::kRaised);
  look.setColor(QPalette::ToolTipText, palette::kText);
  look.setColor(QPalette::Link, palette::kAccent);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    look.setColor(QPalette::Disabled, role, palette::kFaint);
  QApplication::setPalette(look);
  QFont font(FontFamily());
  font.setPixelSize(BoxPx(15));
  QApplication::setFont(font);
  application.setStyleSheet(CommonSheet(BoxScale()));
}

}  // namespace karvel
