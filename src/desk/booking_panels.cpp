#include "desk/booking_panels.h"

#include <algorithm>

namespace karvel {

void CloseBookingPanels(Screen& screen) {
  for (const BookingPanel& panel : BookingPanels(screen)) panel.panel->SetVisible(false);
}

CustomerPanels::CustomerPanels(const DeskParts& parts, const CustomerInFront& customer)
    : screen_(parts.screen), form_(parts.form), customer_(customer) {
  for (Element* const panel : Panels()) connections_ += panel->altered.Connect([this, panel] { Opened(*panel); });
  connections_ += parts.cursors.CariData.repositioned.Connect([this] { CustomerMoved(); });
}

std::array<Element*, 3> CustomerPanels::Panels() const {
  return {&screen_.StokAl, &screen_.TahsilatFrame, &screen_.CariFrame};
}

void CustomerPanels::Opened(Element& panel) {
  if (!panel.Visible()) {
    if (std::ranges::none_of(Panels(), &Element::Visible)) openedFor_.clear();
  } else if (openedFor_.empty() && customer_.IsThere()) {
    openedFor_ = customer_.Code();
  }
}

void CustomerPanels::CustomerMoved() {
  // While the list is only looked through he is not gone from it.
  if (openedFor_.empty() || form_.RepositionGuard.CustomersStill()) return;
  if (customer_.IsThere() && customer_.Code() == openedFor_) return;
  for (Element* const panel : Panels()) panel->SetVisible(false);
}

}  // namespace karvel
