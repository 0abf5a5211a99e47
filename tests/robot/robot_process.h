// A robot as a child process, fed by lines and read by lines.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>

namespace karvel::test {

class RobotProcess {
 public:
  // Starts the program in this folder, with these variables on top of the runner's own.
  RobotProcess(const std::string& program, const std::string& folder, const std::map<std::string, std::string>& environment);
  // Kills it if it still runs.
  ~RobotProcess();
  RobotProcess(const RobotProcess&) = delete;
  RobotProcess& operator=(const RobotProcess&) = delete;

  // False when the robot has gone.
  bool Send(const std::string& line);
  // The next line; nothing when none comes in time or the robot has gone.
  std::optional<std::string> Receive(std::chrono::milliseconds patience);
  // Ends its input.
  void EndInput();
  // Waits for its end: the exit code, 128 and the signal's number for a killed one, nothing when it doesn't end in time.
  std::optional<int> WaitForEnd(std::chrono::milliseconds patience);
  void Kill();

 private:
  pid_t process_ = -1;
  int input_ = -1, output_ = -1;
  std::string received_;
  std::optional<int> ended_;
};

}  // namespace karvel::test
