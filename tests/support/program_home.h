// The programs beside the desk as a shopkeeper runs them: as programs, on a home of their own.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/temp_folder.h"

namespace karvel::testing {

class ProgramHome : public ::testing::Test {
 protected:
  struct Ended {
    int code = -1;  // of a program that was killed, none
    std::string said;
  };
  // Runs one of the programs; `words` as a shell reads them.
  [[nodiscard]] Ended Run(const std::string& words) const { return RunLine(Command(words)); }
  // The same as a line for a shell.
  [[nodiscard]] std::string Command(const std::string& words) const {
    return "KARVEL_HOME='" + Path("home") + "' '" KARVEL_PROGRAMS "/'" + words;
  }
  [[nodiscard]] static Ended RunLine(const std::string& line) {
    Ended ended;
    FILE* const pipe = popen((line + " 2>&1").c_str(), "r");
    for (char piece[4096]; fgets(piece, sizeof piece, pipe) != nullptr;) ended.said += piece;
    const int status = pclose(pipe);
    if (WIFEXITED(status)) ended.code = WEXITSTATUS(status);
    return ended;
  }
  [[nodiscard]] std::string Path(const std::string& name) const { return folder.Path() + "/" + name; }
  std::string Lay(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }
  [[nodiscard]] std::string BytesOf(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TempFolder folder;
};

}  // namespace karvel::testing
