// An FTP server of a test's own: a process with a folder of its own, listening on a port of this machine alone.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace karvel::testing {

class ServerProcess {
 public:
  // Serves this folder; one of its own where none is told.
  explicit ServerProcess(const std::string& root = "") : root_(root.empty() ? In("root") : root) {
    std::filesystem::create_directories(root_ + "/inetpub/01");
  }
  ~ServerProcess() { Stop(); }
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;

  [[nodiscard]] std::string Address() const { return "127.0.0.1:" + std::to_string(port_); }
  [[nodiscard]] const std::string& Root() const { return root_; }
  // What lies there; "none" for nothing.
  [[nodiscard]] std::string Bytes(const std::string& path) const {
    std::ifstream file(Root() + "/" + path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return file ? bytes.str() : "none";
  }
  void Stop() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 protected:
  [[nodiscard]] std::string In(const std::string& name) const { return folder_.Path() + "/" + name; }
  // Runs a program, whose first line of output is given back where it is asked for.
  std::string Start(std::vector<std::string> words, bool asksForLine) {
    int line[2];
    if (pipe(line) != 0) return "";
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    process_ = fork();
    if (process_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);  // a test that crashes leaves nothing behind
      const int nowhere = open("/dev/null", O_RDWR);
      dup2(nowhere, STDIN_FILENO);
      dup2(asksForLine ? line[1] : nowhere, STDOUT_FILENO);
      dup2(nowhere, STDERR_FILENO);
      execvp(arguments[0], arguments.data());
      _exit(127);
    }
    close(line[1]);
    std::string first;
    for (char letter = 0; asksForLine && read(line[0], &letter, 1) == 1 && letter != '\n';) first += letter;
    close(line[0]);
    return first;
  }
  int port_ = 0;

 private:
  TempFolder folder_;
  const std::string root_;
  pid_t process_ = 0;
};

// Debian's python3-pyftpdlib, in one of the ways of ftp_server.py.
class PythonFtp : public ServerProcess {
 public:
  explicit PythonFtp(const std::string& how, const std::string& root = "") : ServerProcess(root) {
    const std::string script = std::filesystem::path(__FILE__).parent_path() / "ftp_server.py";
    port_ = std::atoi(Start({"/usr/bin/python3", script, how, Root()}, true).c_str());
  }
};

}  // namespace karvel::testing
