#include "desk/new_cards.h"

#include "desk/screen_keyboard.h"

namespace karvel {

void OpenCustomerCard(Screen& screen, const std::string& name) {
  screen.CariFrm.SetVisible(true);
  screen.CariFrm.BringToFront();
  screen.CariNew(0).SetText(name);
  screen.CariNew(1).SetText(name);
  screen.CariNew(0).SetFocus();
}

void OpenStockCard(FormState& form, Screen& screen, const std::string& name) {
  screen.StokGiris.SetVisible(true);
  screen.StokGiris.BringToFront();
  screen.StokNew(1).SetText(name);
  screen.StokNew(0).SetFocus();
  OpenKeyboard(form, screen, screen.StokNew(0));
}

}  // namespace karvel
