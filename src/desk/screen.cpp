#include "desk/screen.h"

namespace karvel {

void Screen::SetPointer(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  pointerChanged(busy);
}

}  // namespace karvel
