#include "app/element_binding.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <cstdlib>
#include <utility>

#include "app/key_codes.h"
#include "app/qt_text.h"
#include "app/tab_order.h"

namespace karvel {
namespace {

constexpr int kHoldMilliseconds = 700;
constexpr int kHoldSlack = 12;  // pixels that a still finger may wander

}  // namespace

bool OpenBelowForm(const Element& element) {
  for (const Element* up = &element; up && up->Kind() != ElementKind::Form; up = up->Panel())
    if (!up->Enabled()) return false;
  return true;
}

ElementBinding::ElementBinding(DeskUi& ui, Element& element, QWidget& widget, Parts parts)
    : QObject(&widget), ui_(ui), element_(element), widget_(widget), parts_(std::move(parts)) {
  widget.setObjectName(ToQt(element.Name()));
  widget.setContextMenuPolicy(Qt::PreventContextMenu);
  widget.installEventFilter(this);
  if (parts_.surface) {
    parts_.surface->installEventFilter(this);
    parts_.surface->setContextMenuPolicy(Qt::PreventContextMenu);
  }
  ui.widgets.insert(&element, &widget);
  hold_.setSingleShot(true);
  hold_.setInterval(kHoldMilliseconds);
  connect(&hold_, &QTimer::timeout, this, &ElementBinding::OnHeld);
  connections_ += element.altered.Connect([this] { Refresh(); });
}

ElementBinding* ElementBinding::Of(const QWidget* widget) {
  return widget ? widget->findChild<ElementBinding*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void ElementBinding::Refresh() {
  if (parts_.sync) parts_.sync();
  RefreshShown();
}

void ElementBinding::RefreshShown() {
  if (element_.Kind() == ElementKind::Form) return;
  const bool shown = element_.IsShown() && (!parts_.placed || parts_.placed());
  const bool open = OpenBelowForm(element_);
  if (shown == !widget_.isHidden() && open == widget_.isEnabledTo(widget_.parentWidget())) return;
  QWidget* const window = widget_.window();
  QWidget* const holder = window->focusWidget();
  if ((!shown || !open) && holder && (holder == &widget_ || widget_.isAncestorOf(holder))) window->setFocus();
  widget_.setEnabled(open);
  widget_.setVisible(shown);
  if (shown && open && element_.HasFocus() && (!window->focusWidget() || window->focusWidget() == window)) widget_.setFocus();
}

bool ElementBinding::SwallowsMouse() const {
  if (parts_.pressClicks) return true;
  switch (element_.Kind()) {
    case ElementKind::Label:
    case ElementKind::Panel:
    case ElementKind::Picture:
    case ElementKind::Form:
      return true;
    default:
      return false;
  }
}

bool ElementBinding::eventFilter(QObject* object, QEvent* event) {
  QObject* const surface = parts_.surface ? parts_.surface : &widget_;
  switch (event->type()) {
    case QEvent::KeyPress:
      return object == &widget_ && widget_.hasFocus() && OnKeyPress(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
      if (object == &widget_ && widget_.hasFocus()) OnKeyRelease(*static_cast<QKeyEvent*>(event));
      return false;
    case QEvent::FocusIn:
      entering_ = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
      if (object == &widget_ && element_.Kind() != ElementKind::Form) element_.TakeFocus();
      return false;
    case QEvent::MouseButtonPress: {
      if (object != surface) return false;
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      OnPress(mouse);
      return SwallowsMouse() || mouse.button() != Qt::LeftButton;
    }
    case QEvent::MouseButtonDblClick: {
      if (object != surface) return false;
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      const bool doubles = (parts_.tapClicks && !parts_.pressClicks) || element_.Kind() == ElementKind::List;
      OnPress(mouse);
      if (!doubles || mouse.button() != Qt::LeftButton) return parts_.pressClicks || mouse.button() != Qt::LeftButton;
      doubled_ = true;
      hold_.stop();
      if (Reached()) element_.dblClick();
      return SwallowsMouse();
    }
    case QEvent::MouseMove: {
      if (object != surface || !pressed_) return false;
      const MouseEvent mouse = ToMouseEvent(*static_cast<QMouseEvent*>(event));
      if (std::abs(mouse.x - pressedAt_.x) > kHoldSlack || std::abs(mouse.y - pressedAt_.y) > kHoldSlack) {
        hold_.stop();
        wandered_ = element_.Kind() == ElementKind::Panel;  // a panel that was dragged was not tapped
      }
      if (parts_.mouseEvents && Reached()) element_.mouseMove(mouse);
      return SwallowsMouse();
    }
    case QEvent::MouseButtonRelease:
      if (object != surface) return false;
      return OnRelease(*static_cast<QMouseEvent*>(event)) || SwallowsMouse();
    default:
      return false;
  }
}

bool ElementBinding::OnKeyPress(const QKeyEvent& event) {
  if (IsModifier(event.key())) return false;
  if (!ui_.TakesInput()) return true;
  const QPointer<ElementBinding> self(this);
  KeyEvent down = ToKeyEvent(event);
  // The form sees every key before the element that has the focus.
  ui_.screen.Form1.keyDown(down);
  if (!self || down.dropped) return true;
  if (element_.Kind() == ElementKind::Form) {
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
      MoveTab(event.key() == Qt::Key_Tab && !event.modifiers().testFlag(Qt::ShiftModifier));
    } else if (ui_.spareKey) {
      ui_.spareKey(down.code);
    }
    return true;
  }
  element_.keyDown(down);
  if (!self || down.dropped) return true;
  if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
    MoveTab(event.key() == Qt::Key_Tab && !event.modifiers().testFlag(Qt::ShiftModifier));
    return true;
  }
  if (down.code == key::kEnter && element_.Kind() == ElementKind::CheckBox) {
    MoveTab(true);  // Enter walks a card from field to field; Space sets the tick
    return true;
  }
  if (event.key() == Qt::Key_Menu) {
    MouseEvent right;
    right.button = 2;
    right.shift = down.shift;
    right.ctrl = down.ctrl;
    right.alt = down.alt;
    right.x = widget_.width() / 2;
    right.y = widget_.height() / 2;
    ui_.lastPress = widget_.mapToGlobal(QPoint(right.x, right.y));
    element_.mouseDown(right);
    element_.mouseUp(right);
    return true;
  }
  if (ui_.spareKey && ui_.spareKey(down.code)) return true;
  CharacterEvent character{CharacterOf(event)};
  if (character.character == 0) return false;
  element_.character(character);
  if (!self || character.character == 0) return true;
  if (!parts_.type) return false;
  parts_.type(character.character);
  return true;
}

void ElementBinding::OnKeyRelease(const QKeyEvent& event) {
  if (IsModifier(event.key()) || event.isAutoRepeat() || !ui_.TakesInput()) return;
  KeyEvent up = ToKeyEvent(event);
  element_.keyUp(up);
}

void ElementBinding::OnPress(const QMouseEvent& event) {
  if (!Reached()) return;
  pressedAt_ = ToMouseEvent(event);
  pressedAt_.entering = std::exchange(entering_, false);
  pressed_ = true;
  doubled_ = held_ = wandered_ = false;
  const bool holds = SwallowsMouse() && element_.Kind() != ElementKind::Form;
  if (holds && pressedAt_.button == 1) hold_.start();
  const QPointer<ElementBinding> self(this);
  if (parts_.mouseEvents) element_.mouseDown(pressedAt_);
  if (self && parts_.pressClicks && pressedAt_.button == 1 && Reached()) element_.click();
}

bool ElementBinding::OnRelease(const QMouseEvent& event) {
  if (!pressed_) return false;
  const QPointer<ElementBinding> self(this);
  pressed_ = false;
  hold_.stop();
  const QWidget* const surface = parts_.surface ? parts_.surface : &widget_;
  const bool inside = surface->rect().contains(event.position().toPoint());
  // The release always arrives where the press did: what a press starts (a long press) must end.
  if (parts_.mouseEvents) element_.mouseUp(ToMouseEvent(event));
  if (!self) return true;
  if (parts_.tapClicks && !parts_.pressClicks && inside && !doubled_ && !held_ && !wandered_ && event.button() == Qt::LeftButton &&
      Reached())
    element_.click();
  return !self;
}

void ElementBinding::OnHeld() {
  if (!pressed_ || !Reached()) return;
  held_ = true;
  MouseEvent right = pressedAt_;
  right.button = 2;
  element_.mouseDown(right);
  element_.mouseUp(right);
}

void ElementBinding::MoveTab(bool forward) {
  if (QWidget* const next = NextInTabOrder(ui_, element_, forward)) next->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

}  // namespace karvel
