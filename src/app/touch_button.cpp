#include "app/touch_button.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr qreal kRadius = 9;

QColor Mixed(const QColor& a, const QColor& b, double part) {
  return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - part) + b.redF() * part),
                          static_cast<float>(a.greenF() * (1 - part) + b.greenF() * part),
                          static_cast<float>(a.blueF() * (1 - part) + b.blueF() * part));
}

}  // namespace

TouchButton::TouchButton(const DeskUi& ui, const Element& element, QWidget* parent) : QAbstractButton(parent), ui_(ui), element_(element) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TouchButton::SetLook(ButtonLook look) {
  look_ = look;
  updateGeometry();
  update();
}

void TouchButton::Sync() {
  const QString caption = ToQt(element_.Caption()).trimmed();
  if (caption != text()) {
    setText(caption);
    setAccessibleName(caption);
  }
  if (element_.Color() != state_) {
    state_ = element_.Color();
    update();
  }
}

QFont TouchButton::TextFont() const {
  return ui_.theme.Font(look_ == ButtonLook::Main ? FontRole::MainButton : FontRole::Button, ToQt(element_.FontName()));
}

QSize TouchButton::sizeHint() const {
  const int wide = QFontMetrics(TextFont()).horizontalAdvance(text()) + ui_.theme.Px(32);
  return {std::max(wide, ui_.theme.Px(96)), look_ == ButtonLook::Main ? ui_.theme.Tall(76, 64) : ui_.theme.Tall(52, 48)};
}

QSize TouchButton::minimumSizeHint() const {
  return {ui_.theme.Px(72), sizeHint().height()};
}

void TouchButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const bool green = look_ != ButtonLook::Usual;
  QColor ground = green ? palette::kMain : palette::kRaised;
  QColor line = green ? Mixed(palette::kMain, palette::kText, 0.25) : palette::kLine;
  QColor ink = green ? QColor(Qt::white) : palette::kText;
  if (!deletingCaption_.isEmpty() && text() == deletingCaption_) {
    ground = StateFill(color::kRed);
    line = StateInk(color::kRed);
  }
  if (IsSpecialState(state_)) {
    ground = StateFill(state_);
    ink = StateInk(state_);
    if (state_ == color::kGreen) line = ink;
  }
  if (!isEnabled()) {
    ground = palette::kSurface;
    line = palette::kRaised;
    ink = palette::kFaint;
  } else if (isDown()) {
    ground = Mixed(ground, palette::kText, 0.22);
  } else if (underMouse()) {
    ground = Mixed(ground, palette::kText, 0.05);
  }
  painter.setPen(QPen(line, 1));
  painter.setBrush(ground);
  painter.drawRoundedRect(box, kRadius, kRadius);
  // The chosen one of several says so with a bar too, not by its colour alone.
  if (isEnabled() && state_ == color::kGreen) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(QRectF(box.left() + 12, box.bottom() - 6, box.width() - 24, 3), 1.5, 1.5);
  }
  QFont font = TextFont();
  const QRectF room = box.adjusted(10, 0, -10, isDown() ? 2 : 0);
  while (font.pixelSize() > 12 && QFontMetricsF(font).horizontalAdvance(text()) > room.width()) font.setPixelSize(font.pixelSize() - 1);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(room, Qt::AlignCenter, QFontMetricsF(font).elidedText(text(), Qt::ElideRight, room.width()));
  if (hasFocus()) DrawFocusRing(painter, QRectF(rect()), kRadius);
}

TouchCheck::TouchCheck(const DeskUi& ui, const Element& element, QWidget* parent) : QAbstractButton(parent), ui_(ui), element_(element) {
  setFocusPolicy(Qt::StrongFocus);
  setCheckable(true);
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void TouchCheck::Sync() {
  const QString caption = ToQt(element_.Caption()).trimmed();
  if (caption != text()) {
    setText(caption);
    setAccessibleName(caption);
    updateGeometry();
  }
  if (element_.Checked() != isChecked()) setChecked(element_.Checked());
}

QSize TouchCheck::sizeHint() const {
  const Theme& theme = ui_.theme;
  return {QFontMetrics(theme.Font(FontRole::Body)).horizontalAdvance(text()) + theme.Px(24 + 10 + 16), theme.Px(48)};
}

void TouchCheck::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal side = ui_.theme.Px(22);
  const QRectF box(6, (height() - side) / 2, side, side);
  const qreal unit = side / 22;
  const bool on = isChecked();
  painter.setPen(QPen(!isEnabled() ? palette::kLine : on ? palette::kAccent : palette::kFaint, std::max(1.0, 2 * unit)));
  painter.setBrush(on && isEnabled() ? palette::kAccent : isDown() ? palette::kChosen : palette::kField);
  painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), 4 * unit, 4 * unit);
  if (on) {
    painter.setPen(QPen(isEnabled() ? palette::kBackground : palette::kFaint, 2.6 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{box.topLeft() + QPointF(6, 11.5) * unit, box.topLeft() + QPointF(9.8, 15.4) * unit,
                                   box.topLeft() + QPointF(16.4, 7.2) * unit});
  }
  painter.setFont(ui_.theme.Font(FontRole::Body));
  painter.setPen(isEnabled() ? palette::kText : palette::kFaint);
  painter.drawText(QRectF(box.right() + 8, 0, width() - box.right() - 8, height()), Qt::AlignLeft | Qt::AlignVCenter, text());
  if (hasFocus()) DrawFocusRing(painter, QRectF(rect()), kRadius);
}

}  // namespace karvel
