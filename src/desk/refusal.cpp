#include "desk/refusal.h"

#include "platform/clerk_message.h"
#include "platform/messages.h"

namespace karvel {

void ShowRefusal(const World& world, const Status& outcome) {
  if (outcome.Ok()) return;
  world.messages.MessageBox(WithPlace(ClerkMessage(outcome), outcome), "Kayıt Yapılamadı", MessageIcon::Stop, MessageButtons::Ok);
}

}  // namespace karvel
