#include "app/touch_label.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QPointer>
#include <algorithm>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr qreal kRadius = 8;

FontRole RoleOf(LabelLook look) {
  switch (look) {
    case LabelLook::FieldName:
    case LabelLook::Tile:
    case LabelLook::Action:
      return FontRole::Title;
    case LabelLook::Amount:
    case LabelLook::Figure:
      return FontRole::Amount;
    case LabelLook::BigAmount:
      return FontRole::BigAmount;
    case LabelLook::Plain:
      break;
  }
  return FontRole::Body;
}

}  // namespace

TouchLabel::TouchLabel(const DeskUi& ui, Element& element, QWidget* parent) : QWidget(parent), ui_(ui), element_(element) {
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setAttribute(Qt::WA_OpaquePaintEvent, false);
}

void TouchLabel::SetLook(LabelLook look) {
  look_ = look;
  updateGeometry();
  update();
}

void TouchLabel::SetRedNote(const QString& note) {
  redNote_ = note;
  update();
}

bool TouchLabel::AnswersTaps() const {
  return element_.click.IsHeard() || element_.dblClick.IsHeard() || element_.mouseDown.IsHeard();
}

void TouchLabel::Type(char32_t letter) {
  if ((letter != key::kEnter && letter != ' ') || !ui_.Reaches(element_)) return;
  const QPointer<TouchLabel> self(this);
  element_.click();
  if (letter == key::kEnter && self && ui_.Reaches(element_)) element_.dblClick();
}

void TouchLabel::Sync() {
  const QString text = ToQt(element_.Caption()).trimmed();
  if (text != text_) {
    text_ = text;
    setAccessibleName(text_);
    update();
  }
  if (element_.Color() != state_) {
    state_ = element_.Color();
    update();
  }
}

QFont TouchLabel::TextFont() const {
  return ui_.theme.Font(RoleOf(look_), ToQt(element_.FontName()));
}

int TouchLabel::InnerWidth() const {
  return width() - (look_ == LabelLook::Plain ? 0 : ui_.theme.Px(24));
}

QSize TouchLabel::sizeHint() const {
  const Theme& theme = ui_.theme;
  const int wide = QFontMetrics(TextFont()).horizontalAdvance(text_) + theme.Px(look_ == LabelLook::Plain ? 4 : 32);
  switch (look_) {
    case LabelLook::BigAmount:
      return {std::max(wide, theme.Px(120)), theme.Tall(84, 56)};
    case LabelLook::Amount:
      return {std::max(wide, theme.Px(96)), theme.Tall(52, 48)};
    case LabelLook::Plain:
      return {wide, theme.Px(26)};
    default:
      return {std::max(wide, theme.Px(96)), theme.Tall(52, 48)};
  }
}

QSize TouchLabel::minimumSizeHint() const {
  return {ui_.theme.Px(24), sizeHint().height()};
}

void TouchLabel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) update();
  QWidget::changeEvent(event);
}

void TouchLabel::PaintGround(QPainter& painter, const QRectF& box) const {
  painter.setPen(Qt::NoPen);
  if (look_ == LabelLook::Tile || look_ == LabelLook::Action) {
    painter.setBrush(IsSpecialState(state_) ? StateFill(state_) : look_ == LabelLook::Action ? palette::kChosen : palette::kRaised);
    painter.drawRoundedRect(box, kRadius, kRadius);
    if (IsSpecialState(state_) || look_ == LabelLook::Action) {
      painter.setPen(QPen(IsSpecialState(state_) ? StateInk(state_) : palette::kAccent, 1.5));
      painter.setBrush(Qt::NoBrush);
      painter.drawRoundedRect(box.adjusted(0.75, 0.75, -0.75, -0.75), kRadius, kRadius);
    }
    return;
  }
  if (look_ == LabelLook::Figure) {
    painter.setBrush(palette::kRaised);
    painter.drawRoundedRect(box, kRadius, kRadius);
  }
  if (look_ != LabelLook::FieldName) return;
  const bool chosen = state_ == color::kGreen;
  painter.setBrush(chosen ? StateFill(state_) : palette::kRaised);
  painter.drawRoundedRect(box, kRadius, kRadius);
  // The bar is thin beside a waiting field and thick, with an arrow towards it, beside the one that has the keyboard.
  painter.setBrush(IsSpecialState(state_) ? StateInk(state_) : palette::kFaint);
  const Theme& theme = ui_.theme;
  const qreal bar = theme.Px(chosen ? 6 : 3);
  painter.drawRoundedRect(QRectF(box.left() + theme.Px(3), box.top() + theme.Px(8), bar, box.height() - theme.Px(16)), bar / 2, bar / 2);
  if (chosen) {
    const QPointF tip(box.right() - theme.Px(6), box.center().y());
    painter.drawPolygon(QPolygonF{tip, tip + QPointF(-theme.Px(8), -theme.Px(6)), tip + QPointF(-theme.Px(8), theme.Px(6))});
  }
}

void TouchLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box(rect());
  PaintGround(painter, box);
  if (hasFocus()) DrawFocusRing(painter, box, kRadius);
  const bool named = look_ == LabelLook::FieldName;
  QColor ink = StateInk(state_);
  if (!isEnabled()) ink = palette::kFaint;
  QFont font = TextFont();
  const int side = ui_.theme.Px(named ? 16 : look_ == LabelLook::Plain ? 0 : 12), least = ui_.theme.Px(12);
  const QRectF room = box.adjusted(side, 0, -side, 0);
  painter.setPen(ink);
  if (IsAmount()) {
    if (state_ == color::kRed && !redNote_.isEmpty()) {
      painter.setFont(ui_.theme.Font(FontRole::Small));
      painter.drawText(room.adjusted(0, 4, 0, -4), Qt::AlignLeft | Qt::AlignTop, redNote_);
    }
    // An amount is never cut: it shrinks until it fits.
    while (font.pixelSize() > least && FiguresWidth(font, text_) > room.width()) font.setPixelSize(font.pixelSize() - 1);
    painter.setFont(font);
    DrawFigures(painter, room, Qt::AlignRight, text_);
    return;
  }
  while (font.pixelSize() > least && QFontMetricsF(font).horizontalAdvance(text_) > room.width()) font.setPixelSize(font.pixelSize() - 1);
  painter.setFont(font);
  const QString shown = QFontMetricsF(font).elidedText(text_, Qt::ElideRight, room.width());
  const bool centred = look_ == LabelLook::Tile || look_ == LabelLook::Action;
  painter.drawText(room, (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter, shown);
}

}  // namespace karvel
