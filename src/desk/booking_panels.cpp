#include "desk/booking_panels.h"

namespace karvel {

void CloseBookingPanels(Screen& screen) {
  for (Element* const panel : {&screen.StokAl, &screen.TahsilatFrame, &screen.CariFrm, &screen.StokGiris}) panel->SetVisible(false);
}

}  // namespace karvel
