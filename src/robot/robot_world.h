// The robot's own pieces of the world outside: requests decide what a person or the machine would.
#pragma once

#include <utility>

#include "platform/connection.h"
#include "robot/json.h"
#include "robot/scripted_messages.h"
#include "robot/settable_clock.h"

namespace karvel {

class RobotConnection : public Connection {
 public:
  [[nodiscard]] bool Up() const override { return up_; }
  void Set(bool up) { up_ = up; }

 private:
  bool up_ = true;
};

// The jobs that the desk printed, in the form of the protocol, until they are asked for.
class PrintedJobs {
 public:
  void Add(Json job) { jobs_.push_back(std::move(job)); }
  [[nodiscard]] Json Take() { return std::exchange(jobs_, Json::array()); }

 private:
  Json jobs_ = Json::array();
};

struct RobotWorld {
  SettableClock clock;
  ScriptedMessages messages;
  RobotConnection connection;
  PrintedJobs printed;
};

}  // namespace karvel
