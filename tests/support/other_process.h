// Other processes beside a test: one that holds a lock, one that runs work without the superuser's rights; and a stopwatch.
#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <string>

namespace karvel {

class Stopwatch {
 public:
  [[nodiscard]] double Seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Another process that does something and then lives on, for so long or as long as this: `take` has run when the constructor returns.
class OtherProcess {
 public:
  explicit OtherProcess(const std::function<bool()>& take, std::chrono::milliseconds lives = std::chrono::minutes(5)) {
    int ready[2];
    if (pipe(ready) != 0) return;
    process_ = fork();
    if (process_ == 0) {
      const char sign = take() ? '1' : '0';
      if (write(ready[1], &sign, 1) != 1) _exit(1);
      usleep(static_cast<useconds_t>(lives.count() * 1000));
      _exit(0);
    }
    char sign = '0';
    taken_ = read(ready[0], &sign, 1) == 1 && sign == '1';
    close(ready[0]);
    close(ready[1]);
  }
  ~OtherProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;
  [[nodiscard]] bool Taken() const { return taken_; }

 private:
  pid_t process_ = -1;
  bool taken_ = false;
};

// Holds the lock that terminals take on a file of this machine.
class LockHolder : public OtherProcess {
 public:
  explicit LockHolder(const std::string& path, std::chrono::milliseconds lives = std::chrono::minutes(5))
      : OtherProcess([&] { return flock(open(path.c_str(), O_RDWR | O_CREAT, 0600), LOCK_EX) == 0; }, lives) {}
};

// Runs work in a process that has no rights but those of everybody; true when it ended with true.
inline bool AsNobody(const std::function<bool()>& work) {
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(2);
    _exit(work() ? 0 : 1);
  }
  int outcome = 0;
  return waitpid(child, &outcome, 0) == child && WIFEXITED(outcome) && WEXITSTATUS(outcome) == 0;
}

}  // namespace karvel
