// The rival's posting: the rows and sums of one sale line, as bare prepared statements in one transaction.
#pragma once

#include <string>
#include <vector>

#include "bench/bare_engine.h"

namespace karvel::bench {

class BarePosting {
 public:
  explicit BarePosting(BareShop& shop);
  // Sells pieces of an item to a customer at the card's price.
  void Post(const std::string& customerCode, const std::string& stockCode, int quantity);

 private:
  BareShop& shop_;
  BareStatement readNumber_, moveNumber_, findSpecial_, findDue_, addDue_, moveDue_, readCard_, moveCard_, readCustomer_, moveCustomer_,
      addMovement_, addDay_, addLedger_;
};

}  // namespace karvel::bench
