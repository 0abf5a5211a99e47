#include "desk/shut_down.h"

#include "desk/captions.h"
#include "desk/screen_keyboard.h"
#include "desk/screen_pad.h"
#include "platform/event_loop.h"
#include "platform/window.h"

namespace karvel {
namespace {
constexpr const char* kFitting = "VelmoraKrv";
}

ShutDown::ShutDown(const DeskParts& parts, LongPress& longPress)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world), longPress_(longPress) {
  connections_ += screen_.Command3.click.Connect([this] {
    if (screen_.Command3.Caption() != caption::kExit) return;
    world_.window.SaveFitting(kFitting);
    world_.window.Close();
  });
}

bool ShutDown::CloseRequested(bool byProgram) {
  if (form_.BackupRuns) {
    form_.CloseWaits = true;
    return false;
  }
  form_.Closing = true;
  screen_.SetBusy(true);
  if (!byProgram) world_.window.SaveFitting(kFitting);
  settings_.SaveBoolean(Setting::WindowFixed, form_.Sabit);
  longPress_.End();
  screen_.Frame5.SetVisible(true);
  screen_.Frame5.BringToFront();
  CloseKeyboard(form_, screen_);
  ClosePad(form_, screen_);
  screen_.Label16.SetCaption("Yedekleniyor.");
  world_.loop.RunPendingButInput();
  closing();
  screen_.SetBusy(false);
  return true;
}

}  // namespace karvel
