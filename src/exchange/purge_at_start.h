// With "30 Gün Öncesini Sil" checked, a start on every thirtieth day of the year drops the old movements: a backup is made first, and where
// it fails nothing is dropped. Some days before, and when the clerk checks it, the quiet line tells what will go and when.
#pragma once

#include "desk/parts.h"
#include "exchange/backup.h"
#include "platform/signal.h"

namespace karvel {

class PurgeAtStart {
 public:
  PurgeAtStart(const DeskParts& parts, Signal<>& upkeep, Signal<>& opening, Backup& backup);

 private:
  void Run();
  void Announce();

  Shop shop_;
  Screen& screen_;
  Cursors& cursors_;
  const World& world_;
  Backup& backup_;
  Connections connections_;
};

}  // namespace karvel
