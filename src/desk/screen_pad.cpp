#include "desk/screen_pad.h"

#include "desk/screen_keyboard.h"

namespace karvel {

void OpenPad(FormState& form, Screen& screen, Element& field, const std::string& name) {
  CloseKeyboard(form, screen);
  PadScreen& pad = screen.Form3;
  form.PadOpen = true;
  form.PadField = &field;
  pad.Text1.SetText("");
  pad.Form3.SetCaption(name);
  pad.Label2.SetCaption(name);
  pad.frame.Serve(&field);
  pad.Form3.SetVisible(true);
}

void ClosePad(FormState& form, Screen& screen) {
  if (!form.PadOpen) return;
  PadScreen& pad = screen.Form3;
  form.PadOpen = false;
  form.PadField = nullptr;
  pad.Form3.SetVisible(false);
  pad.frame.Serve(nullptr);
  pad.Text1.SetText("");
}

}  // namespace karvel
