#include "desk/loyalty_card.h"

#include <algorithm>

#include "desk/booking_panels.h"
#include "desk/captions.h"
#include "desk/list_in_front.h"
#include "desk/quiet_line.h"
#include "desk/screen_keyboard.h"
#include "platform/scanner.h"
#include "text/turkish.h"

namespace karvel {
namespace {
constexpr int kCardNumber = 9;  // of CariNew
}

LoyaltyCard::LoyaltyCard(const DeskParts& parts, CustomerInFront& customer)
    : screen_(parts.screen), form_(parts.form), customer_(customer) {
  connections_ += parts.world.scanner.codeRead.Connect([this](const std::string& code) { Read(Trim(code)); });
}

void LoyaltyCard::Read(const std::string& number) {
  if (screen_.CariFrm.IsShown()) {
    screen_.CariNew(kCardNumber).SetText(number);
  } else if (ListIsFree() && customer_.BringCardNumber(number) == Brought::InFront) {
    CloseKeyboard(form_, screen_);
    customer_.Follow();
    Tell(screen_, customer_.Name());
    screen_.CariGrid.SetFocus();
  }
}

bool LoyaltyCard::ListIsFree() const {
  if (!AtRest(screen_) || !ListsCustomers(screen_)) return false;
  return std::ranges::none_of(BookingPanels(screen_), [](const BookingPanel& over) { return over.panel->IsShown(); });
}

}  // namespace karvel
