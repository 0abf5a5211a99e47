#include "desk/refusal.h"

#include "desk/quiet_line.h"
#include "platform/clerk_message.h"
#include "platform/messages.h"

namespace karvel {

void ShowRefusal(Screen& screen, const World& world, const Status& outcome) {
  if (outcome.Ok()) return;
  Tell(screen, ClerkMessage(outcome));
  const char* const title = outcome.Kind() == ErrorKind::Unknown ? "Kayıt Bilinmiyor" : "Kayıt Yapılamadı";
  world.messages.MessageBox(WithPlace(ClerkMessage(outcome), outcome), title, MessageIcon::Stop, MessageButtons::Ok);
}

}  // namespace karvel
