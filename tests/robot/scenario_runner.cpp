// scenario_runner ROBOT TEMPLATES SCRIPT: plays one scenario, and tells the first line that isn't as the script has it.
// With KARVEL_SHOTS=FOLDER its pictures stay, in a folder of the script's name there.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "scenario.h"

int main(int count, char** arguments) {
  if (count != 4) {
    std::fprintf(stderr, "usage: %s ROBOT TEMPLATES SCRIPT\n", arguments[0]);
    return 2;
  }
  std::signal(SIGPIPE, SIG_IGN);
  try {
    namespace fs = std::filesystem;
    const fs::path script = arguments[3];
    const char* const shots = std::getenv("KARVEL_SHOTS");
    const fs::path pictures = shots && *shots ? fs::absolute(shots) / script.stem() : fs::path();
    karvel::test::Scenario(fs::absolute(arguments[1]).string(), arguments[2], pictures).Play(script);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
