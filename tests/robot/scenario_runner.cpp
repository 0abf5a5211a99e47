// scenario_runner ROBOT TEMPLATES SCRIPT: plays one scenario, and tells the first line that isn't as the script has it.
#include <csignal>
#include <cstdio>
#include <exception>

#include "scenario.h"

int main(int count, char** arguments) {
  if (count != 4) {
    std::fprintf(stderr, "usage: %s ROBOT TEMPLATES SCRIPT\n", arguments[0]);
    return 2;
  }
  std::signal(SIGPIPE, SIG_IGN);
  try {
    karvel::test::Scenario(arguments[1], arguments[2]).Play(arguments[3]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
