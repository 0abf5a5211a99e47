#include "desk/shut_down.h"

#include "desk/screen_keyboard.h"
#include "platform/event_loop.h"
#include "platform/window.h"

namespace karvel {

ShutDown::ShutDown(const DeskParts& parts, WindowRule& windowRule) : parts_(parts), windowRule_(windowRule) {
  parts_.screen.Command3.click.Connect([this] {
    if (parts_.screen.Command3.Caption() == "Çıkış") parts_.world.window.Close();
  });
}

bool ShutDown::CloseRequested(bool byProgram) {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.Closing = true;
  screen.SetBusy(true);
  if (!byProgram) world.window.SaveFitting("VelmoraKrv");
  settings.SaveBoolean(Setting::WindowFixed, form.Sabit);
  windowRule_.StopTimer();
  screen.Frame5.SetVisible(true);
  screen.Frame5.BringToFront();
  CloseKeyboard(parts_);
  form.PadOpen = false;
  screen.Label16.SetCaption("Yedekleniyor.");
  world.loop.RunPendingButInput();
  screen.SetBusy(false);
  return true;
}

}  // namespace karvel
