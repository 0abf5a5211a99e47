// The date index: IndexSecondary shows the counters of the year on which IndexPrimary stands.
#pragma once

#include "desk/cursors.h"
#include "platform/signal.h"

namespace karvel {

class DateIndex {
 public:
  explicit DateIndex(Cursors& cursors);

 private:
  void FollowYear();

  Cursors& cursors_;
  Connections connections_;
};

}  // namespace karvel
