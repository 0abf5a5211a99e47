// The robot's own pieces of the world outside: what a person or the machine would do, told by requests.
#pragma once

#include <deque>
#include <string>

#include "platform/connection.h"
#include "platform/scanner.h"
#include "robot/json.h"
#include "robot/scripted_messages.h"
#include "robot/settable_clock.h"

namespace karvel {

// A scanner that is always plugged in. A code that comes while it is switched off waits, as the device's own memory does.
class RobotScanner : public Scanner {
 public:
  bool Start() override;
  void Stop() override;
  void SetEnabled(bool enabled) override;
  // The device read a code, whether or not the desk asked for one.
  void Read(const std::string& code);

 private:
  void Report();
  std::deque<std::string> kept_;
  bool enabled_ = true;
};

class RobotConnection : public Connection {
 public:
  [[nodiscard]] bool Up() const override { return up_; }
  void Set(bool up) { up_ = up; }

 private:
  bool up_ = true;
};

// The jobs that the desk printed, as the protocol tells them, until they are asked for.
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
  RobotScanner scanner;
  RobotConnection connection;
  PrintedJobs printed;
};

}  // namespace karvel
