// With "30 Gün Öncesini Sil" checked, a start on every thirtieth day of the year drops the old movements.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class PurgeAtStart {
 public:
  PurgeAtStart(const DeskParts& parts, Signal<>& upkeep);

 private:
  void Run();

  Shop shop_;
  Screen& screen_;
  Cursors& cursors_;
  Connections connections_;
};

}  // namespace karvel
