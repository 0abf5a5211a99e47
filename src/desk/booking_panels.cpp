#include "desk/booking_panels.h"

namespace karvel {

void CloseBookingPanels(Screen& screen) {
  for (const BookingPanel& panel : BookingPanels(screen)) panel.panel->SetVisible(false);
}

CustomerPanels::CustomerPanels(const DeskParts& parts, const CustomerInFront& customer)
    : screen_(parts.screen), form_(parts.form), customer_(customer) {
  for (Element* const panel : {&screen_.StokAl, &screen_.TahsilatFrame})
    connections_ += panel->altered.Connect([this, panel] { Opened(*panel); });
  connections_ += parts.cursors.CariData.repositioned.Connect([this] { CustomerMoved(); });
}

void CustomerPanels::Opened(Element& panel) {
  if (!panel.Visible()) {
    if (!screen_.StokAl.Visible() && !screen_.TahsilatFrame.Visible()) openedFor_.clear();
  } else if (openedFor_.empty() && customer_.IsThere()) {
    openedFor_ = customer_.Code();
  }
}

void CustomerPanels::CustomerMoved() {
  // While the list is only looked through he is not gone from it.
  if (openedFor_.empty() || form_.RepositionGuard.CustomersStill()) return;
  if (customer_.IsThere() && customer_.Code() == openedFor_) return;
  for (Element* const panel : {&screen_.StokAl, &screen_.TahsilatFrame}) panel->SetVisible(false);
}

}  // namespace karvel
