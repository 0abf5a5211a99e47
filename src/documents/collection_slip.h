// TahsilatCmd: a slip of what a customer paid today, all of it together.
#pragma once

#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "documents/day_lines.h"
#include "documents/drawing.h"
#include "documents/page_preparation.h"
#include "platform/signal.h"

namespace karvel {

struct CollectionSlip {
  std::string customerName;
  DateTime now;
  double balance = 0;  // the customer's now
  LineTotals paid;
};

Drawing DrawCollectionSlip(const Measures& measures, PrintFont body, const PrintStyle& style, const CollectionSlip& slip);

class CollectionSlipPrinting {
 public:
  CollectionSlipPrinting(const DeskParts& parts, CustomerInFront& customer);

 private:
  void Print();

  const DeskParts& parts_;
  CustomerInFront& customer_;
  Connections connections_;
};

}  // namespace karvel
