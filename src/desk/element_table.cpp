#include "desk/element_table.h"

#include <fmt/format.h>

#include <vector>

namespace karvel {

Element& ElementTable::Hidden(const std::string& name, Kind kind, const std::string& text, Element* panel) {
  Element& element = One(name, kind, text, panel);
  element.SetVisible(false);
  return element;
}

ElementArray ElementTable::Many(const std::string& name, Kind kind, std::initializer_list<const char*> texts, Element* panel) {
  std::vector<Element*> entries;
  for (const char* text : texts) entries.push_back(&One(fmt::format("{}({})", name, entries.size()), kind, text, panel));
  return ElementArray(std::move(entries));
}

ElementArray ElementTable::Placed(const std::string& name, Kind kind, std::initializer_list<std::pair<const char*, Element*>> placed) {
  std::vector<Element*> entries;
  for (const auto& [text, panel] : placed) entries.push_back(&One(fmt::format("{}({})", name, entries.size()), kind, text, panel));
  return ElementArray(std::move(entries));
}

}  // namespace karvel
