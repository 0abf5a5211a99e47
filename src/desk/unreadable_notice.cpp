#include "desk/unreadable_notice.h"

#include <utility>

#include "desk/quiet_line.h"
#include "platform/clerk_message.h"
#include "platform/event_loop.h"
#include "platform/messages.h"

namespace karvel {

UnreadableNotice::UnreadableNotice(const DeskParts& parts) : screen_(parts.screen), world_(parts.world) {
  connections_ += world_.stores.readFailed.Connect([this](const Status& fault) { Heard(fault); });
}

// It may be met in the middle of a painting.
void UnreadableNotice::Heard(const Status& fault) {
  if (waiting_ || told_.contains(ReadingMessage(fault) + fault.Place())) return;
  waiting_ = fault;
  world_.loop.Later([this, here = std::weak_ptr(here_)] {
    if (!here.expired()) Show();
  });
}

void UnreadableNotice::Show() {
  const Status fault = *std::exchange(waiting_, std::nullopt);
  told_.insert(ReadingMessage(fault) + fault.Place());
  // A posting that met it has told already.
  if (screen_.Durum.Caption() == ClerkMessage(fault)) return;
  Tell(screen_, ReadingMessage(fault));
  world_.messages.MessageBox(WithPlace(ReadingMessage(fault), fault), "Veri Okunamadı", MessageIcon::Exclamation, MessageButtons::Ok);
}

}  // namespace karvel
