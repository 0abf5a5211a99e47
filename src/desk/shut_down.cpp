#include "desk/shut_down.h"

#include "desk/captions.h"
#include "desk/screen_keyboard.h"
#include "platform/event_loop.h"
#include "platform/window.h"

namespace karvel {

ShutDown::ShutDown(const DeskParts& parts, LongPress& longPress)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world), longPress_(longPress) {
  connections_ += screen_.Command3.click.Connect([this] {
    if (screen_.Command3.Caption() == caption::kExit) world_.window.Close();
  });
}

bool ShutDown::CloseRequested(bool byProgram) {
  form_.Closing = true;
  screen_.SetBusy(true);
  if (!byProgram) world_.window.SaveFitting("VelmoraKrv");
  settings_.SaveBoolean(Setting::WindowFixed, form_.Sabit);
  longPress_.End();
  screen_.Frame5.SetVisible(true);
  screen_.Frame5.BringToFront();
  CloseKeyboard(form_, screen_);
  form_.PadOpen = false;
  screen_.Label16.SetCaption("Yedekleniyor.");
  world_.loop.RunPendingButInput();
  screen_.SetBusy(false);
  return true;
}

}  // namespace karvel
