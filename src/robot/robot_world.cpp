#include "robot/robot_world.h"

namespace karvel {

bool RobotScanner::Start() { return true; }

void RobotScanner::Stop() {
  kept_.clear();
}

void RobotScanner::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Report();
}

void RobotScanner::Read(const std::string& code) {
  kept_.push_back(code);
  Report();
}

void RobotScanner::Report() {
  while (enabled_ && !kept_.empty()) {
    const std::string code = kept_.front();
    kept_.pop_front();
    codeRead(code);
  }
}

}  // namespace karvel
