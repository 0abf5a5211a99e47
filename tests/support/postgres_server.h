// A PostgreSQL 15 of the tests' own: a cluster in a folder of its own, with its socket in that folder and, where asked for, a port of this
// machine alone. It answers when the constructor returns, and is stopped and swept when the object ends or the test program does, however
// that comes. Whoever connects is let in as `User()`, a superuser. It refuses to run as root, so a test that root runs starts it as the
// user that the package made.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace karvel {

class PostgresServer;

struct PostgresWay {
  // What is answered has reached the disk, as in a shop. Without it the cluster lies in memory, which is what most tests want.
  bool durable = false;
  // Also listens on 127.0.0.1, at Port().
  bool onLoopback = false;
  // Further settings of the server, as "name=value".
  std::vector<std::string> settings = {};
  // The server whose standby it is, from a copy of its data on: it follows it, and takes no writes until it is promoted.
  const PostgresServer* standbyOf = nullptr;
};

class PostgresServer {
 public:
  explicit PostgresServer(const PostgresWay& way = {});
  ~PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  // The one of the whole test run, on loopback too: that which KARVEL_TEST_SERVER tells of (see WritePlace), or where it tells of none one
  // of this program's, started when it is first asked for. Others use it too: what is stopped or killed is a server of the test's own.
  static PostgresServer& Shared();
  // Tells in a file where this one is.
  bool WritePlace(const std::string& file) const;

  // Whether it answers; why not, in words for the test's failure.
  [[nodiscard]] bool Runs() const { return problem_.empty(); }
  [[nodiscard]] const std::string& Problem() const { return problem_; }

  // Where its socket lies: the host for libpq.
  [[nodiscard]] const std::string& SocketFolder() const { return folder_; }
  // The same for socket and loopback, over restarts too.
  [[nodiscard]] int Port() const { return port_; }
  [[nodiscard]] static std::string User() { return "karvel"; }
  // The words that libpq connects by, over the socket.
  [[nodiscard]] std::string Connection(std::string_view database = "postgres") const;
  // The server's own process; 0 while it is stopped.
  [[nodiscard]] pid_t Pid() const;

  // "smart", "fast" or "immediate", the last as after a power cut. Both return when it is done, and say whether it is.
  bool Stop(const std::string& mode);
  bool Start();
  // A standby takes writes from here on.
  bool Promote();
  // kill -9 of the processes that serve connections; how many. The server then cuts all others too and recovers by itself.
  [[nodiscard]] int KillBackends() const;

  // Statements of a superuser in a database; whether they went well.
  [[nodiscard]] bool Run(const std::string& database, const std::string& statements) const;
  [[nodiscard]] bool HasDatabase(const std::string& name) const;
  [[nodiscard]] bool MakeDatabase(const std::string& name) const;

 private:
  // One that runs already, and goes on when this object ends.
  PostgresServer(std::string folder, int port);
  [[nodiscard]] std::string Data() const { return folder_ + "/data"; }
  // The one is this program's user's, the other the server's.
  [[nodiscard]] std::string ProgramLog() const { return folder_ + "/programs.log"; }
  [[nodiscard]] std::string ServerLog() const { return folder_ + "/server.log"; }
  void Make(const PostgresServer* standbyOf);
  bool StartOnAFreePort(bool onLoopback);
  void SweepAtTheEnd();

  std::string folder_;
  std::string problem_;
  std::string settings_;
  int port_ = 5432;
  // Closed by the end of this program too: whoever waits at the other end sweeps.
  int alive_ = -1;
  int swept_ = -1;
};

}  // namespace karvel
