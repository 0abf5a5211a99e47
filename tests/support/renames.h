// Work in a process of its own that is killed at one of its renames, or whose disk can't exchange two names.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>

namespace karvel::testing {

// Whether a process that has stopped is about to rename something.
inline bool IsAtRename(pid_t process) {
  __ptrace_syscall_info at{};
  if (ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof at, &at) < 0) return false;
  if (at.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
#ifdef SYS_rename
  if (at.entry.nr == SYS_rename) return true;
#endif
  return at.entry.nr == SYS_renameat || at.entry.nr == SYS_renameat2;
}

// Kills the work just before its rename of this number, from 1. False where it has no so many and ended well; whatever else became of it
// is a failure.
template <typename Work>
bool KilledAtRename(int number, const Work& work) {
  const pid_t child = fork();
  if (child == 0) {
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    raise(SIGSTOP);
    _exit(work() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
  ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
  for (int seen = 0; waitpid(child, &status, 0) == child && WIFSTOPPED(status);) {
    if (IsAtRename(child) && ++seen == number) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      break;
    }
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
  }
  EXPECT_TRUE(WIFSIGNALED(status) || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
  return WIFSIGNALED(status);
}

// Whether the work ends well where two names can't be exchanged.
template <typename Work>
bool WithoutExchange(const Work& work) {
  std::array<sock_filter, 6> filter{{
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 3),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[4])),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, RENAME_EXCHANGE, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  }};
  const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  const pid_t child = fork();
  if (child == 0) {
    const bool forbidden = prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0 &&
                           renameat2(AT_FDCWD, "/nowhere", AT_FDCWD, "/nowhere-else", RENAME_EXCHANGE) != 0 && errno == EINVAL;
    _exit(forbidden && work() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace karvel::testing
