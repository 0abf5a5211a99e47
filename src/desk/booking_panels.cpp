#include "desk/booking_panels.h"

namespace karvel {

void CloseBookingPanels(Screen& screen) {
  for (const BookingPanel& panel : BookingPanels(screen)) panel.panel->SetVisible(false);
}

}  // namespace karvel
