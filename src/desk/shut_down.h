// How the desk closes: what is kept is saved, and the window goes.
#pragma once

#include "desk/parts.h"
#include "desk/window_rule.h"

namespace karvel {

class ShutDown {
 public:
  ShutDown(const DeskParts& parts, WindowRule& windowRule);
  // The window's close request. True: the window may go.
  bool CloseRequested(bool byProgram);

 private:
  DeskParts parts_;
  WindowRule& windowRule_;
};

}  // namespace karvel
