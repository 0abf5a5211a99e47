#include "desk/waiting_notice.h"

#include "platform/event_loop.h"
#include "platform/settings_store.h"
#include "store/stores.h"

namespace karvel {
namespace {
constexpr std::chrono::milliseconds kUntold{500};
constexpr const char* kReason = "Başka bir terminal kayıt yapıyor, bekleniyor…";
}  // namespace

WaitingNotice::WaitingNotice(const DeskParts& parts) : screen_(parts.screen), world_(parts.world) {
  world_.stores.SetWaitListener(this);
  world_.settings.SetWaitListener(this);
}

WaitingNotice::~WaitingNotice() {
  world_.stores.SetWaitListener(nullptr);
  world_.settings.SetWaitListener(nullptr);
}

void WaitingNotice::Waiting(std::chrono::milliseconds soFar) {
  if (soFar < kUntold) return;
  if (!shown_) Show(true);
  world_.loop.RunPendingButInput();
}

void WaitingNotice::WaitOver() {
  if (shown_) Show(false);
}

void WaitingNotice::Show(bool shown) {
  shown_ = shown;
  if (shown) {
    wasVisible_ = screen_.Frame5.Visible();
    caption_ = screen_.Label16.Caption();
  }
  screen_.Label16.SetCaption(shown ? kReason : caption_);
  screen_.Frame5.SetVisible(shown || wasVisible_);
  if (shown) screen_.Frame5.BringToFront();
}

}  // namespace karvel
