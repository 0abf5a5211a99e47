#include "exchange/purge_at_start.h"

#include "books/purge.h"
#include "books/steps.h"

namespace karvel {
namespace {
const Steps step("PurgeAtStart");
}

PurgeAtStart::PurgeAtStart(const DeskParts& parts, Signal<>& upkeep) : shop_(parts.shop), screen_(parts.screen), cursors_(parts.cursors) {
  connections_ += upkeep.Connect([this] {
    if (screen_.AySil.Checked() && IsPurgeDue(shop_.clock.Now())) Run();
  });
}

void PurgeAtStart::Run() {
  step("purge", PurgeOldRows(shop_));
  for (Cursor* const cursor : {&cursors_.CariHarData, &cursors_.StokHarData, &cursors_.HareketData})
    step(cursor->Name(), cursor->Refresh());
}

}  // namespace karvel
