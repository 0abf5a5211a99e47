#include "desk/held_off.h"

#include <utility>

namespace karvel {

void HeldOff::Hold(std::initializer_list<Element*> elements) {
  if (!held_.empty()) return;
  for (Element* const element : elements) {
    held_.push_back({element, element->Enabled()});
    element->SetEnabled(false);
  }
  for (Held& held : held_) {
    holding_ += held.element->altered.Connect([&held] {
      if (!held.element->Enabled()) return;
      held.wanted = true;
      held.element->SetEnabled(false);
    });
  }
}

void HeldOff::Release() {
  holding_ = {};
  for (const Held& held : std::exchange(held_, {})) held.element->SetEnabled(held.wanted);
}

}  // namespace karvel
