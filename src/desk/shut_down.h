// How the desk closes: what is kept is saved, and the window goes.
#pragma once

#include "desk/long_press.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class ShutDown {
 public:
  ShutDown(const DeskParts& parts, LongPress& longPress);
  // The window's close request. True: the window may go.
  bool CloseRequested(bool byProgram);
  // Raised before the window goes, when all else is kept: the time for a backup, while the clerk is asked to wait.
  Signal<> closing;

 private:
  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  LongPress& longPress_;
  Connections connections_;
};

}  // namespace karvel
