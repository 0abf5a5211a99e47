// The print choice, Frame3: Command1 opens it where no report of its own applies, at rest and in a sale, and closes it at the second press.
//
// What stays true: however it closes, it is as it was at first when it opens again, and DTPicker1 is today's. DTPicker1 is today's also
// when a new day has begun, for a sale that closes prints the day that it names.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"
#include "text/date_time.h"

namespace karvel {

class PrintChoice {
 public:
  explicit PrintChoice(const DeskParts& parts);

 private:
  void Toggle();
  void Closed();
  void FollowDay();

  Screen& screen_;
  const World& world_;
  DateTime day_;  // the one that DTPicker1 was set to last
  bool open_ = false;
  Connections connections_;
};

}  // namespace karvel
