#include "desk/way_out.h"

#include <array>
#include <utility>

namespace karvel {

WayOut::WayOut(const DeskParts& parts) : parts_(parts) {
  parts_.screen.Form1.keyDown.Connect([this](KeyEvent& event) {
    if (event.code == key::kEscape && Leave()) event.dropped = true;
  });
}

bool WayOut::Leave() {
  Screen& screen = parts_.screen;
  const std::array<std::pair<Element*, Element*>, 4> panels{{{&screen.TahsilatFrame, &screen.Command7(0)},
                                                             {&screen.StokAl, &screen.StokAlCmd(0)},
                                                             {&screen.CariFrm, &screen.CariNewCmd(0)},
                                                             {&screen.StokGiris, &screen.StokNewCmd(0)}}};
  for (const auto& [panel, button] : panels) {
    if (!panel->IsShown()) continue;
    button->Press();
    return true;
  }
  if (screen.Frame4.IsShown()) {
    // More serials were asked for than there are: the quantity is what is wrong, and leaving it asks anew.
    screen.Frame4.SetVisible(false);
    screen.Text2(1).SetFocus();
    return true;
  }
  if (!screen.Vadefrm.IsShown()) return false;
  screen.Vadefrm.SetVisible(false);
  return true;
}

}  // namespace karvel
