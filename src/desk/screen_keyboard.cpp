#include "desk/screen_keyboard.h"

namespace karvel {

void OpenKeyboard(FormState& form, Screen& screen, Element& field) {
  KeyboardWish wish{field};
  screen.keyboardWanted(wish);
  form.KeyboardOpen = wish.shown;
}

void CloseKeyboard(FormState& form, Screen& screen) {
  if (!form.KeyboardOpen) return;
  form.KeyboardOpen = false;
  screen.keyboardDone();
}

}  // namespace karvel
