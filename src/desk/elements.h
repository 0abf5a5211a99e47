// The registry of the screen's elements by name, and the one focus. No behaviour of its own.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desk/element.h"

namespace karvel {

// An array of elements under one name: Label1(0), Label1(1), …
class ElementArray {
 public:
  explicit ElementArray(std::vector<Element*> entries) : entries_(std::move(entries)) {}
  Element& operator()(int index) const { return *entries_.at(static_cast<std::size_t>(index)); }
  [[nodiscard]] int Count() const { return static_cast<int>(entries_.size()); }

 private:
  std::vector<Element*> entries_;
};

class Elements {
 public:
  Element& Add(const std::string& name, ElementKind kind, const std::string& text, Element* panel);
  GridElement& AddGrid(const std::string& name, Element* panel);
  // Null when there is no element of that exact name ("Text2(1)").
  [[nodiscard]] Element* Find(std::string_view name) const;
  // In the order in which they were added, which is also the order of Tab.
  [[nodiscard]] const std::vector<Element*>& All() const { return order_; }

  [[nodiscard]] Element* Focused() const { return focused_; }
  // Moves the focus: lostFocus on the old one, then gotFocus on the new one. The same element again fires nothing.
  void MoveFocus(Element* to);
  // To the next element that can take it, as Tab does.
  void FocusNext();
  [[nodiscard]] std::int64_t NextDepth() { return ++depth_; }

  // The focus went to this element (or nowhere: null). The window follows.
  Signal<Element*> focusMoved;

 private:
  std::vector<std::unique_ptr<Element>> owned_;
  std::vector<Element*> order_;
  std::map<std::string, Element*, std::less<>> byName_;
  Element* focused_ = nullptr;
  std::int64_t depth_ = 0;
};

}  // namespace karvel
