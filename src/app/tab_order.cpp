#include "app/tab_order.h"

#include <QWidget>
#include <algorithm>
#include <string>
#include <vector>

#include "app/touch_label.h"
#include "desk/booking_panels.h"

namespace karvel {
namespace {

bool IsWayOut(const Element& element) {
  return element.Kind() == ElementKind::Button && (element.Caption() == "Vazgeç" || element.Caption() == "Kapat");
}

std::string ArrayOf(const Element& element) {
  return element.Name().substr(0, element.Name().find('('));
}

std::vector<Element*> InOrder(const std::vector<Element*>& declared) {
  std::vector<Element*> order = declared;
  std::ranges::stable_partition(order, [](const Element* element) { return element->Kind() == ElementKind::Label; });
  for (std::size_t i = 0; i + 1 < order.size(); ++i) {
    if (!IsWayOut(*order[i])) continue;
    std::size_t last = i;
    while (last + 1 < order.size() && ArrayOf(*order[last + 1]) == ArrayOf(*order[i])) ++last;
    const auto at = [&order](std::size_t index) { return order.begin() + static_cast<std::ptrdiff_t>(index); };
    std::rotate(at(i), at(i + 1), at(last + 1));
    i = last;
  }
  return order;
}

bool KeepsTab(Screen& screen, const Element* panel) {
  return std::ranges::any_of(BookingPanels(screen), [panel](const BookingPanel& one) { return one.panel == panel && one.filledIn; });
}

bool TakesTab(const QWidget* widget) {
  if (const auto* const label = qobject_cast<const TouchLabel*>(widget); label && !label->AnswersTaps()) return false;
  return widget && widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

}  // namespace

QWidget* NextInTabOrder(const DeskUi& ui, const Element& from, bool forward) {
  const std::vector<Element*> all = InOrder(ui.screen.elements.All());
  const Element* const inside = KeepsTab(ui.screen, from.Panel()) ? from.Panel() : nullptr;
  const std::size_t count = all.size();
  const auto at = static_cast<std::size_t>(std::ranges::find(all, &from) - all.begin());
  for (std::size_t step = 1; step < count; ++step) {
    const Element* const next = all[(at + (forward ? step : count - step)) % count];
    if (inside && next->Panel() != inside) continue;
    if (QWidget* const widget = ui.widgets.value(next); TakesTab(widget)) return widget;
  }
  return nullptr;
}

}  // namespace karvel
