#include "desk/elements.h"

namespace karvel {
namespace {

bool TakesTab(const Element& element) {
  switch (element.Kind()) {
    case ElementKind::TextBox:
    case ElementKind::Button:
    case ElementKind::CheckBox:
    case ElementKind::Combo:
    case ElementKind::DatePicker:
    case ElementKind::Grid:
    case ElementKind::List:
      return element.IsShown() && element.IsOpen();
    default:
      return false;
  }
}

}  // namespace

Element& Elements::Add(const std::string& name, ElementKind kind, const std::string& text, Element* panel) {
  owned_.push_back(std::make_unique<Element>(*this, name, kind, text, panel));
  order_.push_back(owned_.back().get());
  byName_[name] = order_.back();
  return *order_.back();
}

GridElement& Elements::AddGrid(const std::string& name, Element* panel) {
  auto grid = std::make_unique<GridElement>(*this, name, panel);
  GridElement& added = *grid;
  owned_.push_back(std::move(grid));
  order_.push_back(&added);
  byName_[name] = &added;
  return added;
}

Element* Elements::Find(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

void Elements::MoveFocus(Element* to) {
  if (to == focused_) return;
  Element* const from = focused_;
  focused_ = to;
  if (from) from->lostFocus();
  if (focused_ != to) return;  // a handler of the one that lost it sent it elsewhere
  focusMoved(to);
  if (to) to->gotFocus();
}

void Elements::FocusNext() {
  std::size_t start = 0;
  while (start < order_.size() && order_[start] != focused_) ++start;
  for (std::size_t step = 1; step <= order_.size(); ++step) {
    Element* const candidate = order_[(start + step) % order_.size()];
    if (candidate != focused_ && TakesTab(*candidate)) {
      MoveFocus(candidate);
      return;
    }
  }
}

}  // namespace karvel
