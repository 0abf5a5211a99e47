#include "desk/new_cards.h"

#include "desk/screen_keyboard.h"

namespace karvel {

void OpenCustomerCard(const DeskParts& parts, const std::string& name) {
  Screen& screen = parts.screen;
  screen.CariFrm.SetVisible(true);
  screen.CariFrm.BringToFront();
  screen.CariNew(0).SetText(name);
  screen.CariNew(1).SetText(name);
  screen.CariNew(0).SetFocus();
}

void OpenStockCard(const DeskParts& parts, const std::string& name) {
  Screen& screen = parts.screen;
  screen.StokGiris.SetVisible(true);
  screen.StokGiris.BringToFront();
  screen.StokNew(1).SetText(name);
  screen.StokNew(0).SetFocus();
  OpenKeyboard(parts, screen.StokNew(0));
}

}  // namespace karvel
