// The robot's own pieces of the world outside: requests decide what a person or the machine would.
#pragma once

#include "platform/connection.h"
#include "robot/scripted_messages.h"
#include "robot/settable_clock.h"

namespace karvel {

class RobotConnection : public Connection {
 public:
  void WatchServers(const std::vector<ServerPlace>&) override {}
  [[nodiscard]] bool Up() const override { return up_; }
  // The desk finds out itself: a robot's server is on this machine, and one that is gone refuses at once.
  [[nodiscard]] bool ServerAnswers() const override { return up_; }
  void Set(bool up) { up_ = up; }

 private:
  bool up_ = true;
};

struct RobotWorld {
  SettableClock clock;
  ScriptedMessages messages;
  RobotConnection connection;
};

}  // namespace karvel
