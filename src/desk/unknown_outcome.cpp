#include "desk/unknown_outcome.h"

#include <utility>

#include "desk/quiet_line.h"
#include "platform/clerk_message.h"
#include "platform/event_loop.h"
#include "platform/share.h"

namespace karvel {
namespace {
constexpr int kLookMilliseconds = 1000;
constexpr const char* kDiskWarning = "Kayıt yapıldı ama disk hata verdi: diski denetletin";
constexpr const char* kServerWarning = "Kayıt yapıldı, ama ana makineyle bağlantı kopmuştu";
}  // namespace

UnknownOutcome::UnknownOutcome(const DeskParts& parts, MainButton& button)
    : screen_(parts.screen), form_(parts.form), world_(parts.world), button_(button) {
  connections_ += world_.stores.outcomeUnknown.Connect([this] { Hold(); });
  connections_ += world_.stores.savedOnFailingDisk.Connect([this] { Warn(); });
  connections_ += screen_.Durum.changed.Connect([this] { WarnBeside(); });
}

void UnknownOutcome::Hold() {
  form_.WhenBooked = nullptr;
  timer_ = world_.loop.Every(kLookMilliseconds, [this] { Look(); });
  held_.Hold({&screen_.Command2, &screen_.Command7(1), &screen_.StokAlCmd(1), &screen_.CariNewCmd(1), &screen_.CarSil, &screen_.FatCmd(1)});
}

void UnknownOutcome::Release() {
  timer_ = nullptr;
  held_.Release();
}

void UnknownOutcome::Look() {
  if (world_.stores.InAction()) return;
  const Status outcome = world_.stores.AskOutcome();
  if (outcome.Kind() == ErrorKind::Unknown) return;
  const auto keep = timer_;  // runs this
  Release();
  const auto show = std::exchange(form_.WhenBooked, nullptr);
  if (!outcome.Ok()) {
    Tell(screen_, ClerkMessage(outcome));
  } else if (show) {
    show();
    screen_.TahsilatFrame.SetVisible(false);  // where money was taken in it, it is taken
  }
  form_.ToldOutcome = screen_.Durum.Caption();
  button_.FollowAmounts();
}

const char* UnknownOutcome::Warning() const {
  return IsShare(form_.DataDir) ? kServerWarning : kDiskWarning;
}

void UnknownOutcome::Warn() {
  Tell(screen_, Warning());
  warns_ = true;
}

void UnknownOutcome::WarnBeside() {
  if (!std::exchange(warns_, false)) return;
  Tell(screen_, screen_.Durum.Caption() + "; " + Warning());
}

}  // namespace karvel
