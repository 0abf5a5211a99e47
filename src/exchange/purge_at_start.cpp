#include "exchange/purge_at_start.h"

#include "books/purge.h"
#include "books/steps.h"
#include "desk/quiet_line.h"
#include "platform/clerk_message.h"
#include "platform/clock.h"
#include "platform/messages.h"
#include "text/format.h"

namespace karvel {
namespace {

const Steps step("PurgeAtStart");
constexpr int kDaysBefore = 3;

std::string ShortDate(const DateTime& day) {
  return Format(day, "dd.mm.yyyy");
}

}  // namespace

PurgeAtStart::PurgeAtStart(const DeskParts& parts, Signal<>& upkeep, Signal<>& opening, Backup& backup)
    : shop_(parts.shop), screen_(parts.screen), cursors_(parts.cursors), world_(parts.world), backup_(backup) {
  connections_ += upkeep.Connect([this] {
    const bool reachable = world_.stores.IsOpen() && !world_.stores.IsServerAway();
    if (screen_.AySil.Checked() && reachable && IsPurgeDue(shop_.clock.Now())) Run();
  });
  connections_ += opening.Connect([this] {
    const DateTime today = shop_.clock.Now().Date();
    if (screen_.AySil.Checked() && !IsPurgeDue(today) && NextPurge(today).DayNumber() - today.DayNumber() <= kDaysBefore) Announce();
  });
  connections_ += screen_.AySil.click.Connect([this] {
    if (screen_.AySil.Checked()) {
      Announce();
    } else {
      Tell(screen_, "Eski hareketler silinmeyecek");
    }
  });
}

void PurgeAtStart::Run() {
  const DateTime last = LastPurgedDay(shop_.clock.Now());
  Tell(screen_, "Yedek alınıyor; sonra " + ShortDate(last) + " ve öncesinin hareketleri silinecek");
  if (const Status kept = backup_.Run("C:"); !kept.Ok()) {
    world_.messages.MessageBox(backup_.FailureText(kept, "Eski hareketler bu yüzden silinmedi."), "30 Gün Öncesini Sil",
                               MessageIcon::Exclamation, MessageButtons::Ok);
    return;
  }
  const Status purged = PurgeOldRows(shop_);
  step("purge", purged);
  for (Cursor* const cursor : {&cursors_.CariHarData, &cursors_.StokHarData, &cursors_.HareketData})
    step(cursor->Name(), cursor->Refresh());
  Tell(screen_, purged.Ok() ? "Yedek alındı, " + ShortDate(last) + " ve öncesinin hareketleri silindi" : ClerkMessage(purged));
}

void PurgeAtStart::Announce() {
  const DateTime day = NextPurge(shop_.clock.Now().Date());
  Tell(screen_, ShortDate(day) + " günü program açılırken yedek alınacak, sonra " + ShortDate(LastPurgedDay(day)) +
                    " ve öncesinin cari, stok ve gün hareketleri silinecek");
}

}  // namespace karvel
