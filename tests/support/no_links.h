// A disk that knows no second names for a file (FAT), for a process of its own: link answers EPERM from here on.
#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace karvel::testing {

// For a child alone: it can't be taken back, and goes on in programs that it runs.
inline bool ForbidLinks() {
  std::array<sock_filter, 6> filter{{
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
#ifdef SYS_link
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_link, 2, 0),
#else
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_linkat, 2, 0),
#endif
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_linkat, 1, 0),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  }};
  const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

// What a piece of work answers where there are no links; -1 where that could not be had.
template <typename Work>
int WithoutLinks(const Work& work) {
  const pid_t child = fork();
  if (child == 0) _exit(ForbidLinks() && link("/nowhere", "/nowhere-else") != 0 && errno == EPERM ? work() : 99);
  int status = 0;
  waitpid(child, &status, 0);
  const int answer = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return answer == 99 ? -1 : answer;
}

}  // namespace karvel::testing
