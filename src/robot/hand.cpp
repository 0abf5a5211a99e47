#include "robot/hand.h"

#include <QApplication>
#include <QDateTime>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QWidget>

namespace karvel {
namespace {

// Events of a person are marked as coming from outside; that is what moves the focus with a tap.
void SendAsPerson(QWidget& widget, QEvent& event) {
  QSpontaneKeyEvent::setSpontaneous(&event);
  QCoreApplication::instance()->notify(&widget, &event);
}

void SendMouse(const QPointer<QWidget>& widget, QEvent::Type type, const QPointF& point, Qt::MouseButton button) {
  if (!widget) return;
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
  QMouseEvent event(type, point, widget->mapTo(widget->window(), point), widget->mapToGlobal(point), button, held, Qt::NoModifier);
  SendAsPerson(*widget, event);
}

}  // namespace

void TapAt(QWidget& widget, const QPoint& point, Tap tap) {
  QWidget* const inner = widget.childAt(point);
  const QPointer<QWidget> target = inner ? inner : &widget;
  const QPointF at = target->mapFrom(&widget, QPointF(point));
  const Qt::MouseButton button = tap == Tap::Right ? Qt::RightButton : Qt::LeftButton;
  if (tap != Tap::Release) SendMouse(target, QEvent::MouseButtonPress, at, button);
  if (tap != Tap::Press) SendMouse(target, QEvent::MouseButtonRelease, at, button);
  if (tap != Tap::Double) return;
  SendMouse(target, QEvent::MouseButtonDblClick, at, button);
  SendMouse(target, QEvent::MouseButtonRelease, at, button);
}

void TapCenter(QWidget& widget, Tap tap) {
  TapAt(widget, widget.rect().center(), tap);
}

QPoint GripOf(const QWidget& widget) {
  constexpr int kEdge = 24;
  const QPoint middle = widget.rect().center();
  const QPoint left(kEdge, kEdge);
  return widget.childAt(middle) && !widget.childAt(left) ? left : middle;
}

void DragBy(QWidget& widget, const QPoint& point, const QPoint& way) {
  constexpr int kSteps = 4;
  const QPointer<QWidget> target = &widget;
  const QPoint from = widget.mapToGlobal(point);
  SendMouse(target, QEvent::MouseButtonPress, point, Qt::LeftButton);
  for (int step = 1; step <= kSteps; ++step)
    if (target) SendMouse(target, QEvent::MouseMove, target->mapFromGlobal(from + way * step / kSteps), Qt::LeftButton);
  if (target) SendMouse(target, QEvent::MouseButtonRelease, target->mapFromGlobal(from + way), Qt::LeftButton);
}

void Strike(const KeyStroke& stroke, QWidget& otherwise, quint64 stamp) {
  const auto send = [&](bool press) {
    // An open menu, list or calendar has the keys before the window below it.
    QWidget* const open = QApplication::activePopupWidget();
    QWidget* const focused = open ? (open->focusWidget() ? open->focusWidget() : open) : QApplication::focusWidget();
    QWidget& target = focused ? *focused : otherwise;
    QKeyEvent event(press ? QEvent::KeyPress : QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
    event.setTimestamp(stamp);
    // A shortcut takes the key before the widget does.
    if (press && qt_sendShortcutOverrideEvent(&target, event.timestamp(), stroke.key, stroke.modifiers, stroke.text)) return;
    SendAsPerson(target, event);
  };
  const QPointer<QWidget> alive(&otherwise);
  send(true);
  if (alive) send(false);
}

void TypeFast(const std::vector<KeyStroke>& strokes, QWidget& otherwise) {
  const QPointer<QWidget> alive(&otherwise);
  auto stamp = static_cast<quint64>(QDateTime::currentMSecsSinceEpoch());
  for (const KeyStroke& stroke : strokes)
    if (alive) Strike(stroke, otherwise, stamp++);
}

void Settle() {
  // What runs in a first round may queue something more: a sent key moves the focus, the focus selects a text.
  for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
}

void ClosePopUps() {
  for (int guard = 0; guard < 8; ++guard) {
    QWidget* const open = QApplication::activePopupWidget();
    if (!open) return;
    open->close();
  }
}

}  // namespace karvel
