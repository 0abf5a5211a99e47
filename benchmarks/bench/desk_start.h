// How long the robot, and so the desk with its window, takes from its start to the first answer.
#pragma once

#include <string>

namespace karvel::bench {

struct DeskStart {
  double workSeconds = -1;   // of the processor, for the desk's own code and the system's; below 0: there is no robot to start
  double clockSeconds = -1;  // on the wall
  double peakMegabytes = -1;
};

// Starts it in a home folder with a fixed clock, asks for its state, and closes it.
DeskStart StartDesk(const std::string& robot, const std::string& home);

}  // namespace karvel::bench
