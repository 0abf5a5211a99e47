// Elements that are off for a while, whatever else switches them: who turns one on or off meanwhile is heard when it is released.
#pragma once

#include <initializer_list>
#include <vector>

#include "desk/element.h"
#include "platform/signal.h"

namespace karvel {

class HeldOff {
 public:
  // Does nothing while some are held.
  void Hold(std::initializer_list<Element*> elements);
  void Release();

 private:
  // An element, and whether it would be on.
  struct Held {
    Element* element;
    bool wanted;
  };
  std::vector<Held> held_;
  Connections holding_;
};

}  // namespace karvel
