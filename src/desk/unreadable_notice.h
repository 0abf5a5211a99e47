// Rows that can't be read, wherever they are met: a list that lacks some looks as any other, so the clerk is told at once, and once for
// each file and cause. What another program kept too long, and what no server
// answered, is told in the quiet line alone: the tap was for nothing, and the next may do.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "desk/parts.h"
#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

class UnreadableNotice {
 public:
  explicit UnreadableNotice(const DeskParts& parts);

 private:
  void Heard(const Status& fault);
  void HeardInVain(const Status& fault);
  void Show();

  Screen& screen_;
  const World& world_;
  std::set<std::string> told_;
  bool inVainWaits_ = false;
  std::optional<Status> waiting_;                              // to be told as soon as what met it is done
  std::shared_ptr<bool> here_ = std::make_shared<bool>(true);  // what waits may come up when this is gone
  Connections connections_;
};

}  // namespace karvel
