#include "app/floating_key.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr qreal kRadius = 8;
constexpr int kLeastPixels = 11;

}  // namespace

FloatingKey::FloatingKey(const DeskUi& ui, const Element& element, KeyLook look, QWidget* parent)
    : QWidget(parent), ui_(ui), element_(element), look_(look) {
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FloatingKey::Sync() {
  const QString caption = ToQt(element_.Caption()).trimmed();
  if (caption == text_ && element_.Color() == state_) return;
  text_ = caption;
  state_ = element_.Color();
  setAccessibleName(caption);
  update();
}

QSize FloatingKey::sizeHint() const {
  return {ui_.theme.Px(48), ui_.theme.Px(56)};
}

QSize FloatingKey::minimumSizeHint() const {
  return {ui_.theme.Px(24), ui_.theme.Px(40)};
}

QFont FloatingKey::TextFont() const {
  QFont font = ui_.theme.Font(look_ == KeyLook::Main ? FontRole::MainButton : FontRole::Button);
  if (look_ == KeyLook::Letter) font.setPixelSize(ui_.theme.Px(21));
  if (look_ == KeyLook::Digit) font.setPixelSize(ui_.theme.Px(24));
  return font;
}

void FloatingKey::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  QColor ground = look_ == KeyLook::Main ? palette::kMain : look_ == KeyLook::Word ? palette::kSurface : palette::kRaised;
  QColor line = palette::kLine, ink = look_ == KeyLook::Main ? QColor(Qt::white) : palette::kText;
  if (state_ == color::kYellow) {  // the key under the finger, or the last that was
    ground = palette::kAmber;
    line = palette::kAmber;
    ink = palette::kBackground;
  }
  if (!isEnabled()) ink = palette::kFaint;
  painter.setPen(QPen(line, 1));
  painter.setBrush(ground);
  painter.drawRoundedRect(box, kRadius, kRadius);
  QFont font = TextFont();
  const QRectF room = box.adjusted(ui_.theme.Px(4), 0, -ui_.theme.Px(4), 0);
  while (font.pixelSize() > ui_.theme.Px(kLeastPixels) && QFontMetricsF(font).horizontalAdvance(text_) > room.width())
    font.setPixelSize(font.pixelSize() - 1);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(room, Qt::AlignCenter, text_);
}

}  // namespace karvel
