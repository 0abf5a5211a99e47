#include "tests/support/postgres_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>

namespace karvel {

namespace {

constexpr const char* kPrograms = "/usr/lib/postgresql/15/bin/";
constexpr const char* kMissing = "PostgreSQL 15 is missing: apt-get install postgresql-15";
constexpr const char* kServerUser = "postgres";

// Stops what runs in the folder and deletes it, when its input ends.
constexpr const char* kSweeper = R"(
read -r nothing
server=$(head -n 1 "$0/data/postmaster.pid" 2>/dev/null)
if [ -n "$server" ] && grep -q "$0" "/proc/$server/cmdline" 2>/dev/null; then
  kill -QUIT "$server"
  for turn in $(seq 500); do
    kill -0 "$server" 2>/dev/null || break
    sleep 0.02
  done
fi
rm -rf "$0"
)";

[[noreturn]] void Become(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  close_range(STDERR_FILENO + 1, ~0U, 0);  // the server must not hold this program's locks
  execvp(arguments[0], arguments.data());
  _exit(127);
}

// Runs one of the server's programs as the user that may; whether it ended well.
bool RunProgram(const std::string& name, const std::vector<std::string>& arguments, const std::string& log) {
  std::vector<std::string> words;
  if (geteuid() == 0) {
    words = {"setpriv", "--reuid=" + std::string(kServerUser), "--regid=" + std::string(kServerUser), "--clear-groups", "--"};
  }
  words.push_back(kPrograms + name);
  words.insert(words.end(), arguments.begin(), arguments.end());
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    const int file = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    dup2(file, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    Become(std::move(words));
  }
  int outcome = 0;
  return waitpid(child, &outcome, 0) == child && WIFEXITED(outcome) && WEXITSTATUS(outcome) == 0;
}

int FreePort() {
  const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  const bool bound = bind(probe, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                     getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) == 0;
  close(probe);
  return bound ? ntohs(address.sin_port) : 0;
}

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

PostgresServer::PostgresServer(const PostgresWay& way) {
  if (!std::filesystem::exists(std::string(kPrograms) + "postgres")) {
    problem_ = kMissing;
    return;
  }
  const bool inMemory = !way.durable && std::filesystem::exists("/dev/shm");
  std::string pattern = std::string(inMemory ? "/dev/shm" : "/tmp") + "/karvel-pg-XXXXXX";
  if (!mkdtemp(pattern.data())) {
    problem_ = "no folder for PostgreSQL: " + pattern;
    return;
  }
  folder_ = pattern;
  SweepAtTheEnd();
  settings_ = "-c unix_socket_directories=" + folder_;
  if (!way.durable) settings_ += " -c fsync=off -c full_page_writes=off -c synchronous_commit=off";
  for (const std::string& setting : way.settings) settings_ += " -c " + setting;
  Make(way.standbyOf);
  if (Runs() && !StartOnAFreePort(way.onLoopback)) problem_ = "PostgreSQL does not start: " + Bytes(ProgramLog()) + Bytes(ServerLog());
}

PostgresServer::~PostgresServer() {
  if (alive_ < 0) return;
  close(alive_);
  char nothing = 0;
  while (read(swept_, &nothing, 1) > 0) continue;
  close(swept_);
}

PostgresServer::PostgresServer(std::string folder, int port) : folder_(std::move(folder)), port_(port) {
  if (Pid() == 0) problem_ = "the test run's PostgreSQL has gone: " + folder_;
}

PostgresServer& PostgresServer::Shared() {
  static const std::unique_ptr<PostgresServer> server = [] {
    const char* const told = std::getenv("KARVEL_TEST_SERVER");
    std::ifstream place(told ? told : "");
    int port = 0;
    std::string folder;
    if (place >> port >> folder) return std::unique_ptr<PostgresServer>(new PostgresServer(folder, port));
    return std::make_unique<PostgresServer>(PostgresWay{.onLoopback = true});
  }();
  return *server;
}

bool PostgresServer::WritePlace(const std::string& file) const {
  std::ofstream place(file);
  place << port_ << ' ' << folder_ << '\n';
  return static_cast<bool>(place.flush());
}

bool PostgresServer::Run(const std::string& database, const std::string& statements) const {
  return RunProgram("psql", {"-X", "-q", "-v", "ON_ERROR_STOP=1", "-d", Connection(database), "-c", statements}, "/dev/null");
}

bool PostgresServer::HasDatabase(const std::string& name) const {
  return Run(name, "SELECT 1");
}

bool PostgresServer::MakeDatabase(const std::string& name) const {
  return Run("postgres", "CREATE DATABASE \"" + name + "\"");
}

std::string PostgresServer::Connection(std::string_view database) const {
  std::ostringstream words;
  words << "host=" << folder_ << " port=" << port_ << " user=" << User() << " dbname='" << database << "'";
  return words.str();
}

pid_t PostgresServer::Pid() const {
  std::ifstream file(Data() + "/postmaster.pid");
  pid_t pid = 0;
  return file >> pid && kill(pid, 0) == 0 ? pid : 0;
}

bool PostgresServer::Stop(const std::string& mode) {
  return RunProgram("pg_ctl", {"stop", "-w", "-D", Data(), "-m", mode}, ProgramLog());
}

bool PostgresServer::Start() {
  return RunProgram("pg_ctl", {"start", "-w", "-D", Data(), "-l", ServerLog(), "-o", settings_ + " -p " + std::to_string(port_)},
                    ProgramLog());
}

bool PostgresServer::Promote() {
  return RunProgram("pg_ctl", {"promote", "-w", "-D", Data()}, ProgramLog());
}

int PostgresServer::KillBackends() const {
  const std::string server = std::to_string(Pid());
  std::istringstream children(Bytes("/proc/" + server + "/task/" + server + "/children"));
  int killed = 0;
  for (pid_t child = 0; children >> child;) {
    const bool serves = Bytes("/proc/" + std::to_string(child) + "/cmdline").starts_with("postgres: " + User() + " ");
    if (serves && kill(child, SIGKILL) == 0) ++killed;
  }
  return killed;
}

void PostgresServer::Make(const PostgresServer* standbyOf) {
  if (geteuid() == 0) {
    const passwd* const user = getpwnam(kServerUser);
    if (!user || chown(folder_.c_str(), user->pw_uid, user->pw_gid) != 0) {
      problem_ = kMissing;
      return;
    }
  }
  // Others reach the socket; the data is the server's.
  std::filesystem::permissions(folder_, std::filesystem::perms(0755));
  if (standbyOf) {
    if (!RunProgram("pg_basebackup",
                    {"-D", Data(), "-R", "-X", "stream", "-c", "fast", "--no-sync", "-U", User(), "-h", standbyOf->SocketFolder(), "-p",
                     std::to_string(standbyOf->Port())},
                    ProgramLog())) {
      problem_ = "pg_basebackup failed: " + Bytes(ProgramLog());
    }
    return;
  }
  if (!RunProgram("initdb", {"-D", Data(), "-U", User(), "-A", "trust", "-E", "UTF8", "--locale=C.UTF-8", "--no-sync"}, ProgramLog())) {
    problem_ = "initdb failed: " + Bytes(ProgramLog());
  }
}

bool PostgresServer::StartOnAFreePort(bool onLoopback) {
  if (!onLoopback) {
    settings_ += " -c listen_addresses=''";
    return Start();
  }
  settings_ += " -c listen_addresses=127.0.0.1";
  constexpr int kTries = 5;  // another program may take the port meanwhile
  for (int turn = 0; turn < kTries; ++turn) {
    port_ = FreePort();
    if (port_ > 0 && Start()) return true;
  }
  return false;
}

// By a process that nobody's end takes along: not this program's, nor that of whoever runs the tests and clears up behind them.
void PostgresServer::SweepAtTheEnd() {
  int alive[2];
  int swept[2];
  if (pipe2(alive, O_CLOEXEC) != 0 || pipe2(swept, O_CLOEXEC) != 0) {
    problem_ = "no pipes for PostgreSQL's sweeper";
    return;
  }
  const pid_t between = fork();
  if (between == 0) {
    setsid();
    if (fork() != 0) _exit(0);
    dup2(alive[0], STDIN_FILENO);
    dup2(swept[1], STDOUT_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    Become({"/bin/sh", "-c", kSweeper, folder_});
  }
  waitpid(between, nullptr, 0);
  close(alive[0]);
  close(swept[1]);
  alive_ = alive[1];
  swept_ = swept[0];
}

}  // namespace karvel
