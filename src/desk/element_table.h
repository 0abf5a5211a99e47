// What a table of elements is written with: one entry a line, by name, kind, caption at the start and panel.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "desk/elements.h"

namespace karvel {

class ElementTable {
 public:
  Elements elements;

 protected:
  using Kind = ElementKind;
  Element& One(const std::string& name, Kind kind, const std::string& text, Element* panel) {
    return elements.Add(name, kind, text, panel);
  }
  Element& Hidden(const std::string& name, Kind kind, const std::string& text, Element* panel);
  ElementArray Many(const std::string& name, Kind kind, std::initializer_list<const char*> texts, Element* panel);
  // Entries of an array that lie on different panels, by index.
  ElementArray Placed(const std::string& name, Kind kind, std::initializer_list<std::pair<const char*, Element*>> entries);
};

}  // namespace karvel
