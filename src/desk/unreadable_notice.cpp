#include "desk/unreadable_notice.h"

#include <utility>

#include "desk/quiet_line.h"
#include "platform/clerk_message.h"
#include "platform/event_loop.h"
#include "platform/messages.h"
#include "text/turkish.h"

namespace karvel {

UnreadableNotice::UnreadableNotice(const DeskParts& parts) : screen_(parts.screen), world_(parts.world) {
  connections_ += world_.stores.readFailed.Connect([this](const Status& fault) { Heard(fault); });
}

// It may be met in the middle of a painting.
void UnreadableNotice::Heard(const Status& fault) {
  if (fault.Kind() == ErrorKind::Busy || fault.Kind() == ErrorKind::Unreachable) {
    HeardInVain(fault);
    return;
  }
  if (waiting_ || told_.contains(ReadingMessage(fault) + fault.Place())) return;
  waiting_ = fault;
  world_.loop.Later([this, here = std::weak_ptr(here_)] {
    if (!here.expired()) Show();
  });
}

// Whoever met it may have told more by then.
void UnreadableNotice::HeardInVain(const Status& fault) {
  if (std::exchange(inVainWaits_, true)) return;
  world_.loop.Later([this, text = ReadingMessage(fault), before = screen_.Durum.Caption(), here = std::weak_ptr(here_)] {
    if (here.expired()) return;
    inVainWaits_ = false;
    if (screen_.Durum.Caption() == before) Tell(screen_, text);
  });
}

void UnreadableNotice::Show() {
  const Status fault = *std::exchange(waiting_, std::nullopt);
  told_.insert(ReadingMessage(fault) + fault.Place());
  // A posting that met it has told already.
  const std::string said = screen_.Durum.Caption();
  if (said == ClerkMessage(fault)) return;
  // What was done all the same stays told.
  if (!ContainsText(said, ReadingMessage(fault))) Tell(screen_, said.empty() ? ReadingMessage(fault) : said + "; " + ReadingMessage(fault));
  world_.messages.MessageBox(WithPlace(ReadingMessage(fault), fault), "Veri Okunamadı", MessageIcon::Exclamation, MessageButtons::Ok);
}

}  // namespace karvel
