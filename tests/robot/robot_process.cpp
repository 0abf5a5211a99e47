#include "robot_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>
#include <utility>

namespace karvel::test {
namespace {
using Clock = std::chrono::steady_clock;
}  // namespace

RobotProcess::RobotProcess(const std::string& program, const std::string& folder, const std::map<std::string, std::string>& environment) {
  int toChild[2], fromChild[2];
  if (pipe2(toChild, O_CLOEXEC) != 0 || pipe2(fromChild, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ == 0) {
    dup2(toChild[0], STDIN_FILENO);
    dup2(fromChild[1], STDOUT_FILENO);
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    if (chdir(folder.c_str()) != 0) _exit(126);
    execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  close(toChild[0]);
  close(fromChild[1]);
  input_ = toChild[1];
  output_ = fromChild[0];
}

RobotProcess::~RobotProcess() {
  Kill();
  EndInput();
  close(output_);
}

bool RobotProcess::Send(const std::string& line) {
  const std::string whole = line + "\n";
  for (std::size_t sent = 0; sent < whole.size();) {
    const ssize_t count = write(input_, whole.data() + sent, whole.size() - sent);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    sent += static_cast<std::size_t>(count);
  }
  return true;
}

std::optional<std::string> RobotProcess::Receive(std::chrono::milliseconds patience) {
  const Clock::time_point end = Clock::now() + patience;
  for (;;) {
    if (const std::size_t mark = received_.find('\n'); mark != std::string::npos) {
      std::string line = received_.substr(0, mark);
      received_.erase(0, mark + 1);
      return line;
    }
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd waiting{.fd = output_, .events = POLLIN, .revents = 0};
    if (left <= 0 || poll(&waiting, 1, static_cast<int>(left)) == 0) return std::nullopt;
    std::array<char, 4096> piece;
    const ssize_t count = read(output_, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    received_.append(piece.data(), static_cast<std::size_t>(count));
  }
}

void RobotProcess::EndInput() {
  if (input_ >= 0) close(std::exchange(input_, -1));
}

std::optional<int> RobotProcess::WaitForEnd(std::chrono::milliseconds patience) {
  const Clock::time_point end = Clock::now() + patience;
  while (!ended_) {
    int status = 0;
    if (waitpid(process_, &status, WNOHANG) == process_) {
      ended_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    } else if (Clock::now() > end) {
      return std::nullopt;
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }
  return ended_;
}

void RobotProcess::Kill() {
  if (ended_) return;
  kill(process_, SIGKILL);
  WaitForEnd(std::chrono::seconds(10));
}

}  // namespace karvel::test
