// How the desk closes: what is kept is saved, and the window goes.
#pragma once

#include "desk/parts.h"
#include "desk/window_rule.h"
#include "platform/signal.h"

namespace karvel {

class ShutDown {
 public:
  ShutDown(const DeskParts& parts, WindowRule& windowRule);
  // The window's close request. True: the window may go.
  bool CloseRequested(bool byProgram);

 private:
  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  WindowRule& windowRule_;
  Connections connections_;
};

}  // namespace karvel
