// A customer's loyalty card, read by the scanner: at the resting list it chooses the customer of that number (KartNo), whatever list is in
// front; while a new card is filled in it is that card's number.
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class LoyaltyCard {
 public:
  LoyaltyCard(const DeskParts& parts, CustomerInFront& customer);

 private:
  void Read(const std::string& number);
  // Whether the customer list is in front with nothing over it.
  [[nodiscard]] bool ListIsFree() const;

  Screen& screen_;
  FormState& form_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
