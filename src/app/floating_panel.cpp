#include "app/floating_panel.h"

#include <algorithm>
#include <utility>

#include "app/desk_grid.h"
#include "app/element_binding.h"
#include "app/panel_card.h"
#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr int kCorner = 20;  // pixels of the lower right corner that size

WindowBox Joined(const WindowBox& a, const WindowBox& b) {
  if (a.IsEmpty()) return b;
  if (b.IsEmpty()) return a;
  const QRect both = QRect(a.left, a.top, a.width, a.height).united(QRect(b.left, b.top, b.width, b.height));
  return {both.left(), both.top(), both.width(), both.height()};
}

}  // namespace

FloatingPanel::FloatingPanel(DeskUi& ui, ElementTable& table, Element& form, FloatingFrame& frame, QWidget* window)
    : KeyCard(ui, table, window), form_(form), frame_(frame) {
  hide();
  new ElementBinding(ui, form, *this, {});
  connections_ += form.altered.Connect([this] { Sync(); });
  connections_ += frame.changed.Connect([this] { Follow(); });
  connections_ += frame.servedChanged.Connect([this] {
    if (isVisible()) Lay();
  });
  connections_ += table.elements.focusMoved.Connect([this](const Element* to) {
    if (!to) GiveBackKeyboard();
  });
  connections_ += form.mouseDown.Connect([this](const MouseEvent& event) { TakeHold(event); });
  connections_ += form.mouseMove.Connect([this](const MouseEvent& event) { Drag(event); });
}

void FloatingPanel::SetCovered(bool covered) {
  covered_ = covered;
  Sync();
}

void FloatingPanel::Sync() {
  setAccessibleName(ToQt(form_.Caption()).trimmed());
  const bool shown = form_.Visible() && !covered_;
  if (shown == !isHidden()) return;
  if (!shown) {
    GiveBackKeyboard();
    hide();
    ShowRowsInFront();
    return;
  }
  Refresh();
  Lay();
  show();
  raise();
  Follow();
}

void FloatingPanel::Follow() {
  const WindowBox& box = frame_.Box();
  setGeometry(box.left, box.top, box.width, box.height);
  ShowRowsInFront();
}

void FloatingPanel::ShowRowsInFront() {
  for (QWidget* const widget : std::as_const(ui_.widgets))
    if (auto* const grid = qobject_cast<DeskGrid*>(widget)) grid->FollowCover();
}

void FloatingPanel::Lay() {
  const QWidget* const window = parentWidget();
  Surroundings around;
  around.room = {window->width(), window->height()};
  if (frame_.Served()) around.field = PlaceOf(*frame_.Served());
  around.button = Joined(PlaceOf(ui_.screen.Command2), PlaceOf(ui_.screen.Command3));
  // A keyboard is too wide to stand beside a panel, and would only cover the next field instead.
  if (const Element* const card = frame_.Sizes().widens ? nullptr : CardInFront()) {
    around.card = PlaceOf(*card);
    for (const Element* element : ui_.screen.elements.All())
      if (element->Panel() == card && element->Kind() == ElementKind::Button) around.keys = Joined(around.keys, PlaceOf(*element));
  }
  around.scale = ui_.theme.Scale();
  frame_.LayAmong(around);
}

const Element* FloatingPanel::CardInFront() const {
  const Element* front = nullptr;
  for (const Element* button : ui_.screen.elements.All()) {
    const Element* const panel = button->Panel();
    if (button->Kind() != ElementKind::Button || !button->IsShown() || panel->Kind() != ElementKind::Panel) continue;
    if (qobject_cast<const PanelCard*>(ui_.widgets.value(panel)) && (!front || panel->Depth() > front->Depth())) front = panel;
  }
  return front;
}

WindowBox FloatingPanel::PlaceOf(const Element& element) const {
  const QWidget* const widget = ui_.widgets.value(&element);
  if (!widget || !widget->isVisible()) return {};
  const QPoint at = widget->mapTo(parentWidget(), QPoint(0, 0));
  return {at.x(), at.y(), widget->width(), widget->height()};
}

void FloatingPanel::GiveBackKeyboard() {
  const QWidget* const holder = window()->focusWidget();
  if (!holder || !isAncestorOf(holder)) return;
  const Element* const field = ui_.screen.elements.Focused();
  QWidget* const widget = field ? ui_.widgets.value(field) : nullptr;
  (widget && widget->isVisible() && widget->isEnabled() ? widget : window())->setFocus();
}

void FloatingPanel::TakeHold(const MouseEvent& event) {
  pressedAt_ = mapToParent(QPoint(event.x, event.y));
  pressedBox_ = frame_.Box();
  sizes_ = event.x >= width() - kCorner && event.y >= height() - kCorner;
}

void FloatingPanel::Drag(const MouseEvent& event) {
  if (event.button != 1) return;
  const QPoint way = mapToParent(QPoint(event.x, event.y)) - pressedAt_;
  if (way.isNull()) return;
  const auto& [left, top, width, height] = pressedBox_;
  if (sizes_) {
    const WindowSize& least = frame_.Sizes().least;  // a finger that goes too far stops there
    const double scale = frame_.Around().scale;
    frame_.Put({left, top, std::max(width + way.x(), static_cast<int>(least.width * scale + 1)),
                std::max(height + way.y(), static_cast<int>(least.height * scale + 1))});
  } else {
    frame_.Put({left + way.x(), top + way.y(), width, height});
  }
}

}  // namespace karvel
