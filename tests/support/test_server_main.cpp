// test_server start FILE: runs a PostgreSQL for the tests of one run, and tells in the file where it is. It ends when the file is gone, or
// whoever ran this program.
// test_server stop FILE: ends it.
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <tuple>

#include "tests/support/postgres_server.h"

namespace {

using karvel::PostgresServer;

constexpr const char* kShops = "MuhasebeData";
constexpr int kLookMicroseconds = 200'000;

// What stands under a name now: another run's file under the same name is another one.
std::tuple<ino_t, time_t, long> Identity(const std::string& file) {
  struct stat info{};
  if (stat(file.c_str(), &info) != 0) return {};
  return {info.st_ino, info.st_ctim.tv_sec, info.st_ctim.tv_nsec};
}

// Behind the back of whoever waits for this program's end and output.
void Detach() {
  setsid();
  const int nowhere = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, stream);
}

[[noreturn]] void Keep(const std::string& file, pid_t run, int ready) {
  Detach();
  std::tuple<ino_t, time_t, long> ours;
  {
    const PostgresServer server({.onLoopback = true});
    const bool stands = server.Runs() && server.MakeDatabase(kShops) && server.WritePlace(file);
    ours = Identity(file);
    const std::string told = stands ? "" : server.Runs() ? "no database for the shops" : server.Problem();
    if (write(ready, told.data(), told.size()) < 0) _exit(1);
    close(ready);
    while (stands && Identity(file) == ours && kill(run, 0) == 0) usleep(kLookMicroseconds);
  }
  std::error_code gone;
  if (Identity(file) == ours) std::filesystem::remove(file, gone);
  _exit(0);
}

int Start(const std::string& file) {
  std::filesystem::remove(file);
  int ready[2];
  if (pipe2(ready, O_CLOEXEC) != 0) return 1;
  const pid_t run = getppid();
  if (fork() == 0) Keep(file, run, ready[1]);
  close(ready[1]);
  std::string problem;
  for (char letter = 0; read(ready[0], &letter, 1) == 1;) problem += letter;
  if (!problem.empty()) std::fprintf(stderr, "%s\n", problem.c_str());
  return problem.empty() && std::filesystem::exists(file) ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string what = count == 3 ? arguments[1] : "";
  if (what == "start") return Start(arguments[2]);
  if (what == "stop") return std::filesystem::remove(arguments[2]) ? 0 : 1;
  std::fprintf(stderr, "usage: %s start|stop FILE\n", arguments[0]);
  return 2;
}
