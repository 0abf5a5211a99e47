#include "app/panel_card.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr int kShadow = 8;  // pixels of soft edge around the card
constexpr qreal kRadius = 10;

}  // namespace

PanelCard::PanelCard(DeskUi& ui, Element& element, CardPlace place, QWidget* parent)
    : QFrame(parent), ui_(ui), element_(element), place_(place), content_(new QVBoxLayout), title_(new QLabel(this)) {
  auto* outer = new QVBoxLayout(this);
  outer->setSpacing(0);
  outer->addWidget(title_);
  outer->addLayout(content_);
  title_->setAttribute(Qt::WA_TransparentForMouseEvents);
  ApplyTheme();
  connections_ += ui.theme.changed.Connect([this] { ApplyTheme(); });
}

void PanelCard::ApplyTheme() {
  const Theme& theme = ui_.theme;
  const int side = kShadow + theme.Px(16);
  layout()->setContentsMargins(side, kShadow + theme.Px(12), side, side);
  content_->setSpacing(theme.Px(8));
  QFont font = theme.Font(FontRole::Title);
  font.setPixelSize(theme.Px(18));
  font.setWeight(QFont::DemiBold);
  title_->setFont(font);
  title_->setContentsMargins(0, 0, 0, theme.Px(10));
}

void PanelCard::SetMovable() {
  connections_ += element_.mouseDown.Connect([this](const MouseEvent& at) { pressedAt_ = QPoint(at.x, at.y); });
  connections_ += element_.mouseMove.Connect([this](const MouseEvent& at) {
    if (at.button != 1) return;
    const QRect room = parentWidget()->rect();
    const QPoint wanted = pos() + QPoint(at.x, at.y) - pressedAt_;
    moved_ = moved_ || (wanted - pos()).manhattanLength() > 12;
    if (!moved_) return;
    move(std::clamp(wanted.x(), 0, std::max(0, room.width() - width())), std::clamp(wanted.y(), 0, std::max(0, room.height() - height())));
  });
}

void PanelCard::SetFrame(FloatingFrame& frame) {
  frame_ = &frame;
  connections_ += frame.changed.Connect([this] {
    const WindowBox& box = frame_->Box();
    setGeometry(box.left, box.top, box.width, box.height);
  });
}

void PanelCard::Sync() {
  const QString caption = ToQt(element_.Caption()).trimmed();
  title_->setText(caption.isEmpty() ? ownTitle_ : caption);
  title_->setVisible(!title_->text().isEmpty());
  setAccessibleName(title_->text());
  if (element_.Depth() != depth_) {
    depth_ = element_.Depth();
    raise();
  }
}

void PanelCard::Lay(const QRect& list, const QRect& desk) {
  if (frame_) {
    frame_->LayAmong({.room = {parentWidget()->width(), parentWidget()->height()}, .scale = ui_.theme.Scale()});
    const WindowBox& box = frame_->Box();
    setGeometry(box.left, box.top, box.width, box.height);
    return;
  }
  layout()->activate();
  QRect area = place_ == CardPlace::OverDesk ? desk : list;
  // In a low window a card lies over the filters of the list as well: nothing in it may lie over something else.
  if (minimumSizeHint().height() > area.height() + 2 * kShadow) area.setTop(desk.top());
  if (place_ == CardPlace::FillList) {
    setGeometry(area.adjusted(-kShadow, -kShadow, kShadow, kShadow) & parentWidget()->rect());
    return;
  }
  QSize size = sizeHint().expandedTo(QSize(ui_.theme.Px(leastWidth_), 0)).expandedTo(minimumSizeHint());
  size = size.boundedTo(area.size() + QSize(2 * kShadow, 2 * kShadow)).boundedTo(parentWidget()->size());
  if (moved_) {
    const QPoint kept(std::clamp(x(), 0, std::max(0, desk.right() - size.width())),
                      std::clamp(y(), 0, std::max(0, desk.bottom() - size.height())));
    setGeometry(QRect(kept, size));
    return;
  }
  QRect box(QPoint(), size);
  box.moveCenter(area.center());
  if (place_ == CardPlace::Corner) box.moveBottomRight(area.bottomRight() - QPoint(ui_.theme.Px(12), ui_.theme.Px(12)));
  // The shadow may reach over the area, but not over the window's edge.
  box.moveLeft(std::clamp(box.left(), 0, parentWidget()->width() - box.width()));
  box.moveTop(std::clamp(box.top(), 0, parentWidget()->height() - box.height()));
  setGeometry(box);
}

void PanelCard::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  raise();
  Q_EMIT appeared();
}

bool PanelCard::event(QEvent* event) {
  // A label or a field that came or went changes the card's size.
  if (event->type() == QEvent::LayoutRequest && isVisible()) Q_EMIT appeared();
  return QFrame::event(event);
}

void PanelCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const QRectF whole(rect());
  for (int ring = 0; ring < kShadow; ++ring) {
    painter.setBrush(QColor(0, 0, 0, 14 + 3 * ring));
    const qreal inset = ring;
    painter.drawRoundedRect(whole.adjusted(inset, inset, -inset, -inset), kRadius + kShadow - ring, kRadius + kShadow - ring);
  }
  const QRectF card = whole.adjusted(kShadow, kShadow, -kShadow, -kShadow);
  painter.setBrush(palette::kSurface);
  painter.setPen(QPen(palette::kLine, 1));
  painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

}  // namespace karvel
