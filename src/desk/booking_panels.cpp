#include "desk/booking_panels.h"

namespace karvel {

void CloseBookingPanels(Screen& screen) {
  for (Element* const panel : {&screen.StokAl, &screen.TahsilatFrame, &screen.CariFrm, &screen.StokGiris, &screen.Frame4}) panel->SetVisible(false);
}

}  // namespace karvel
