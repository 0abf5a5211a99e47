#include "desk/screen_keyboard.h"

namespace karvel {

void OpenKeyboard(const DeskParts& parts, Element& field) {
  parts.form.KeyboardOpen = true;
  parts.screen.keyboardWanted(field);
}

void CloseKeyboard(const DeskParts& parts) {
  if (!parts.form.KeyboardOpen) return;
  parts.form.KeyboardOpen = false;
  parts.screen.keyboardDone();
}

}  // namespace karvel
