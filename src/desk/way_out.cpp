#include "desk/way_out.h"

#include "desk/booking_panels.h"

namespace karvel {

WayOut::WayOut(const DeskParts& parts) : screen_(parts.screen) {
  connections_ += screen_.Form1.keyDown.Connect([this](KeyEvent& event) {
    if (event.code == key::kEscape && !event.dropped && Leave()) event.dropped = true;
  });
}

bool WayOut::Leave() {
  Screen& screen = screen_;
  if (screen.Form2.Form2.Visible()) {
    screen.Form2.Command1.Press();
    return true;
  }
  for (const BookingPanel& panel : BookingPanels(screen)) {
    if (!panel.panel->IsShown()) continue;
    if (panel.wayOut) {
      panel.wayOut->Press();
    } else {
      // More serials were asked for than there are: the quantity is wrong, and leaving its field asks again.
      panel.panel->SetVisible(false);
      screen.Text2(1).SetFocus();
    }
    return true;
  }
  if (screen.CariFrame.IsShown()) {
    screen.CariKapat.Press();
    return true;
  }
  if (screen.Frame3.IsOpen() && screen.Frame3.IsShown()) {
    screen.VzgCmd.Press();
    return true;
  }
  if (!screen.Vadefrm.IsShown()) return false;
  screen.Vadefrm.SetVisible(false);
  return true;
}

}  // namespace karvel
