#include "desk/screen.h"

#include <fmt/format.h>

namespace karvel {

Element& Screen::Hidden(const std::string& name, Kind kind, const std::string& text, Element* panel) {
  Element& element = One(name, kind, text, panel);
  element.SetVisible(false);
  return element;
}

ElementArray Screen::Many(const std::string& name, Kind kind, std::initializer_list<const char*> texts, Element* panel) {
  std::vector<Element*> entries;
  for (const char* text : texts) entries.push_back(&One(fmt::format("{}({})", name, entries.size()), kind, text, panel));
  return ElementArray(std::move(entries));
}

ElementArray Screen::Placed(const std::string& name, Kind kind, std::initializer_list<std::pair<const char*, Element*>> placed) {
  std::vector<Element*> entries;
  for (const auto& [text, panel] : placed) entries.push_back(&One(fmt::format("{}({})", name, entries.size()), kind, text, panel));
  return ElementArray(std::move(entries));
}

void Screen::SetPointer(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  pointerChanged(busy);
}

}  // namespace karvel
