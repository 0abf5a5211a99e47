#include "bench/desk_start.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace karvel::bench {

namespace {

struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  ~Pipe() {
    for (const int end : ends)
      if (end >= 0) close(end);
  }
  void Close(int which) { close(std::exchange(ends[static_cast<std::size_t>(which)], -1)); }
  std::array<int, 2> ends{};
};

// One line of an answer; "" when the robot has gone.
std::string ReadLine(int from) {
  std::string line;
  char letter = 0;
  while (read(from, &letter, 1) == 1) {
    if (letter == '\n') return line;
    line += letter;
  }
  return {};
}

void Say(int to, const std::string& line) {
  const std::string text = line + "\n";
  if (write(to, text.data(), text.size()) != static_cast<ssize_t>(text.size())) throw std::runtime_error("the robot doesn't listen");
}

// Ticks of the processor so far, the process's own threads together.
double WorkOf(pid_t process) {
  std::ifstream file(fmt::format("/proc/{}/stat", process));
  std::string text;
  std::getline(file, text);
  text.erase(0, text.rfind(')') + 2);
  std::size_t at = 0;
  double ticks = 0;
  for (int field = 3; field <= 15; ++field) {
    const std::size_t end = text.find(' ', at);
    if (field >= 14) ticks += std::stod(text.substr(at, end - at));
    at = end + 1;
  }
  return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

double PeakMegabytesOf(pid_t process) {
  std::ifstream file(fmt::format("/proc/{}/status", process));
  for (std::string line; std::getline(file, line);)
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
  return -1;
}

}  // namespace

DeskStart StartDesk(const std::string& robot, const std::string& home) {
  DeskStart start;
  if (access(robot.c_str(), X_OK) != 0) return start;
  std::signal(SIGPIPE, SIG_IGN);
  Pipe in, out;
  const auto begin = std::chrono::steady_clock::now();
  const pid_t process = fork();
  if (process < 0) throw std::runtime_error("no process");
  if (process == 0) {
    dup2(in.ends[0], STDIN_FILENO);
    dup2(out.ends[1], STDOUT_FILENO);
    if (const int nowhere = open("/dev/null", O_WRONLY); nowhere >= 0) dup2(nowhere, STDERR_FILENO);
    setenv("KARVEL_HOME", home.c_str(), 1);
    setenv("KARVEL_CLOCK", "2026-03-01T10:15:00", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    execl(robot.c_str(), robot.c_str(), nullptr);
    _exit(127);
  }
  in.Close(0);
  out.Close(1);
  Say(in.ends[1], R"({"do":"grid","at":"CariGrid"})");
  const std::string answer = ReadLine(out.ends[0]);
  if (answer.find("\"ok\":true") != std::string::npos) {
    start.clockSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    start.workSeconds = WorkOf(process);
    start.peakMegabytes = PeakMegabytesOf(process);
  }
  Say(in.ends[1], R"({"do":"close"})");
  while (!ReadLine(out.ends[0]).empty()) {
  }
  waitpid(process, nullptr, 0);
  return start;
}

}  // namespace karvel::bench
