#include "scenario.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <strings.h>
#include <sys/file.h>
#include <unistd.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>
#include <QString>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <tuple>

#include "tests/support/postgres_server.h"
#include "text/turkish.h"

namespace karvel::test {
namespace fs = std::filesystem;
using Json = nlohmann::json;
namespace {

constexpr auto kPatience = std::chrono::seconds(60);  // the sanitizers' builds are slow

[[noreturn]] void Fail(const std::string& text) {
  throw std::runtime_error(text);
}

// A file of a folder, whatever the case of its name.
fs::path NamedIn(const fs::path& folder, const std::string& name) {
  if (fs::is_directory(folder))
    for (const auto& entry : fs::directory_iterator(folder))
      if (strcasecmp(entry.path().filename().c_str(), name.c_str()) == 0) return entry.path();
  return folder / name;
}

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

Database Open(const fs::path& file) {
  sqlite3* raw = nullptr;
  const int code = sqlite3_open_v2(file.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  Database database(raw, &sqlite3_close);
  if (code != SQLITE_OK) Fail(fmt::format("can't open {}", file.string()));
  sqlite3_busy_timeout(raw, 5000);
  return database;
}

// Runs one statement; the rows with their fields between bars.
std::vector<std::string> Run(const fs::path& file, const std::string& sql) {
  const Database database = Open(file);
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &raw, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(database.get()));
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(raw, &sqlite3_finalize);
  std::vector<std::string> rows;
  int code;
  while ((code = sqlite3_step(raw)) == SQLITE_ROW) {
    std::string row;
    for (int i = 0; i < sqlite3_column_count(raw); ++i) {
      const auto* const field = reinterpret_cast<const char*>(sqlite3_column_text(raw, i));
      row += (i ? "|" : "") + std::string(field ? field : "NULL");
    }
    rows.push_back(std::move(row));
  }
  if (code != SQLITE_DONE) Fail(sqlite3_errmsg(database.get()));
  return rows;
}

bool Holds(const Json& whole, const Json& part) {
  if (part.is_object()) {
    if (!whole.is_object()) return false;
    for (const auto& [key, value] : part.items())
      if (!whole.contains(key) || !Holds(whole[key], value)) return false;
    return true;
  }
  if (part.is_array()) {
    if (!whole.is_array() || whole.size() != part.size()) return false;
    for (std::size_t i = 0; i < part.size(); ++i)
      if (!Holds(whole[i], part[i])) return false;
    return true;
  }
  if (part.is_number() && whole.is_number()) return std::fabs(part.get<double>() - whole.get<double>()) < 1e-9;
  return whole == part;
}

// "FILE: REST"
std::pair<std::string, std::string> SplitAt(const std::string& text, const std::string& mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string::npos) Fail(fmt::format("\"{}\" is missing", mark));
  return {text.substr(0, at), Trim(text.substr(at + mark.size()))};
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "\n    " + line;
  return text.empty() ? " nothing" : text;
}

void Compare(const std::vector<std::string>& is, const std::vector<std::string>& expected) {
  if (is != expected) Fail(fmt::format("\n  expected:{}\n  is:{}", Joined(expected), Joined(is)));
}

fs::path FreshFolder() {
  std::string pattern = (fs::temp_directory_path() / "karvel-scenario-XXXXXX").string();
  if (!mkdtemp(pattern.data())) Fail("no temporary folder");
  return pattern;
}

// The texts of a printed job as one reads them, whatever the order in which they were drawn.
std::vector<std::string> LinesOfJob(const Json& job) {
  std::map<std::tuple<int, double>, std::map<double, std::string>> heights;  // by page and height, then from left to right
  for (const Json& item : job["items"]) {
    const int page = item["page"].get<int>();
    if (item.contains("text"))
      heights[{page, std::round(item["y"].get<double>())}].emplace(item["x"].get<double>(), Trim(item["text"].get<std::string>()));
    if (item.contains("picture"))
      heights[{page, std::round(item["picture"][1].get<double>())}].emplace(item["picture"][0].get<double>(), "(picture)");
  }
  std::vector<std::string> lines;
  for (const auto& [height, texts] : heights) {
    std::string line;
    for (const auto& [x, text] : texts)
      if (!text.empty()) line += (line.empty() ? "" : "|") + text;
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

}  // namespace

Scenario::Scenario(std::string robot, const fs::path& templates, const fs::path& pictures)
    : robotProgram_(std::move(robot)),
      templates_(templates),
      folder_(FreshFolder()),
      pictures_(pictures.empty() ? folder_ / "pictures" : pictures) {
  fs::create_directories(pictures_);
  LayTemplates();
  fs::create_directories(folder_ / "home");
  environment_ = {{"KARVEL_HOME", (folder_ / "home").string()},
                  {"KARVEL_PROGRAM", (folder_ / "program").string()},
                  {"KARVEL_TITLE", "Velmora Karvel1"},
                  {"KARVEL_CLOCK", "2026-03-01T10:15:00"},
                  {"QT_QPA_PLATFORM", "offscreen"},
                  {"XDG_RUNTIME_DIR", folder_.string()},
                  {"TZ", "Europe/Istanbul"},
                  {"LC_ALL", "C.UTF-8"}};
  const char* const engine = std::getenv("KARVEL_TEST_ENGINE");
  if (engine && std::string_view(engine) == "postgres") {
    server_ = std::make_unique<ServerShop>(folder_ / "laid", folder_ / "program");
    JoinMainMachine();
  }
}

void Scenario::Server(const std::string& what) {
  if (!server_) Fail("there is no network work");
  if (what == "own") {
    server_ = std::make_unique<ServerShop>(folder_ / "laid", folder_ / "program",
                                           std::make_unique<PostgresServer>(PostgresWay{.onLoopback = true}));
    JoinMainMachine();
  } else if (what == "stop") {
    server_->StopServer();
  } else if (what == "start") {
    server_->StartServer();
  } else {
    Fail("what shall the server do?");
  }
}

void Scenario::JoinMainMachine() {
  WriteSetting("Size/Online=" + server_->Address());
  WriteSetting("Size/Firma=" + server_->Firm());
}

Scenario::~Scenario() {
  robot_.reset();
  std::error_code error;
  fs::remove_all(folder_, error);
}

void Scenario::Play(const fs::path& script) {
  scripts_ = script.parent_path();
  PlayLines(script);
  if (robot_) Close();
}

void Scenario::PlayLines(const fs::path& script) {
  std::ifstream file(script);
  if (!file) Fail(fmt::format("can't read {}", script.string()));
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  int steps = 0;
  for (std::size_t i = 0; i < lines.size();) {
    const std::size_t at = i++;
    if (Trim(lines[at]).empty() || lines[at].starts_with('#')) continue;
    std::vector<std::string> expected;
    std::string answer;
    for (; i < lines.size() && (lines[i].starts_with('=') || lines[i].starts_with('<')); ++i) {
      const std::string rest = lines[i].size() > 2 ? lines[i].substr(2) : "";
      if (lines[i].starts_with('<')) {
        answer = rest;
      } else {
        expected.push_back(rest);
      }
    }
    try {
      Step(lines[at], expected, answer);
    } catch (const std::exception& error) {
      Fail(fmt::format("{}:{}: {}\n{}", script.filename().string(), at + 1, lines[at], error.what()));
    }
    ++steps;
  }
  if (steps == 0) Fail(fmt::format("{} is empty", script.string()));
}

void Scenario::Step(const std::string& line, const std::vector<std::string>& expected, const std::string& answer) {
  if (line.starts_with('{')) return Request(line, answer);
  const std::size_t blank = std::min(line.find(' '), line.size());
  const std::string word = line.substr(0, blank), rest = Trim(line.substr(blank));
  if (word == "raw") return Request(rest, answer);
  if (word == "begin") {
    if (!Robot().Send(rest)) Fail("the robot has gone");
    ++begun_;
  } else if (word == "play") {
    PlayLines(scripts_ / rest);
  } else if (word == "env") {
    const auto [name, value] = SplitAt(rest, "=");
    environment_[name] = value;
    if (name == "KARVEL_TITLE" && server_) JoinMainMachine();
  } else if (word == "setting") {
    WriteSetting(rest);
  } else if (word == "setting?") {
    const QSettings settings(QString::fromStdString((folder_ / "home/settings.ini").string()), QSettings::IniFormat);
    const bool apart = rest.find(':') != std::string::npos;
    const std::string address = apart ? ReplaceAll(rest, ":", "/") : environment_["KARVEL_TITLE"] + "/" + rest;
    Compare({settings.value(QString::fromStdString(address)).toString().toStdString()}, expected);
  } else if (word == "put") {
    const auto [file, text] = SplitAt(rest, ":");
    AddLine(Place(file), text);
  } else if (word == "serial") {
    if (!Serial().Write(ReplaceAll(ReplaceAll(rest, "\\r", "\r"), "\\n", "\n"))) Fail("the serial line took nothing");
  } else if (word == "write") {
    const auto [file, statement] = SplitAt(rest, ":");
    Run(Store(file, true), statement);
    if (server_) server_->TakeBack();
  } else if (word == "sql") {
    const auto [file, statement] = SplitAt(rest, ":");
    Compare(Run(Store(file, false), statement), expected);
  } else if (word == "text") {
    Compare(TextLines(Place(rest)), expected);
  } else if (word == "printed") {
    Compare(Printed(), expected);
  } else if (word == "files") {
    const std::size_t mark = rest.rfind(" *.");
    const std::string ending = mark == std::string::npos ? "" : rest.substr(mark + 2);
    std::vector<std::string> names;
    // A folder in the data folder is this machine's, under network work too.
    for (const auto& entry : fs::directory_iterator(Place(rest.substr(0, mark) + "/")))
      if (ending.empty() || entry.path().extension() == ending) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    Compare(names, expected);
  } else if (word == "soon") {
    Soon(rest, expected, answer);
  } else if (word == "keep") {
    const std::shared_ptr<sqlite3> database = Open(Store(rest, false));
    if (sqlite3_exec(database.get(), "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(database.get()));
    kept_.push_back(database);
  } else if (word == "lock") {
    Lock(Place(rest));
  } else if (word == "leave") {
    kept_.clear();
  } else if (word == "server") {
    Server(rest);
  } else if (word == "alone") {
    if (server_) Fail("it is not for network work");
  } else if (word == "again") {
    StartAgain();
  } else if (word == "broken") {
    std::ofstream file(Place(rest), std::ios::binary | std::ios::trunc);
    file << std::string(700, '\x02');
    if (!file.flush()) Fail(fmt::format("can't write {}", rest));
  } else if (word == "restart") {
    Close();
  } else if (word == "move") {
    Move(rest);
  } else if (word == "ended") {
    AwaitEnd();
  } else if (word == "end") {
    Robot().EndInput();
    AwaitEnd();
  } else if (word == "kill") {
    Robot().Kill();
    robot_.reset();
  } else {
    Fail("what does this line mean?");
  }
}

void Scenario::LayTemplates() const {
  fs::create_directories(folder_ / "program");
  for (const auto& entry : fs::directory_iterator(templates_))
    if (strcasecmp(entry.path().extension().c_str(), ".mdb") == 0)
      fs::copy_file(entry.path(), folder_ / "program" / entry.path().filename());
}

void Scenario::Move(const std::string& archive) {
  if (robot_) Close();
  const fs::path carried = folder_ / "carried.zip";
  fs::rename(Place(archive), carried);
  for (const char* const left : {"home", "program"}) fs::remove_all(folder_ / left);
  LayTemplates();
  QProcess restore;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const auto& [name, value] : environment_) environment.insert(QString::fromStdString(name), QString::fromStdString(value));
  restore.setProcessEnvironment(environment);
  restore.setProcessChannelMode(QProcess::MergedChannels);
  restore.start(QString::fromStdString((fs::path(robotProgram_).parent_path() / "karvel-restore").string()),
                {QString::fromStdString(carried.string())});
  if (!restore.waitForFinished(-1) || restore.exitCode() != 0) Fail("karvel-restore: " + restore.readAll().toStdString());
}

void Scenario::Soon(const std::string& line, const std::vector<std::string>& expected, const std::string& answer) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (true) {
    try {
      return Step(line, expected, answer);
    } catch (const std::exception&) {
      if (std::chrono::steady_clock::now() > end) throw;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

RobotProcess& Scenario::Robot() {
  if (!robot_) robot_ = std::make_unique<RobotProcess>(robotProgram_, pictures_.string(), environment_);
  return *robot_;
}

testing::PythonFtp& Scenario::FtpServer() {
  if (!ftp_) ftp_ = std::make_unique<testing::PythonFtp>("plain", Place("served").string());
  return *ftp_;
}

PseudoTerminal& Scenario::Serial() {
  if (!serial_) serial_ = std::make_unique<PseudoTerminal>();
  return *serial_;
}

void Scenario::Request(const std::string& line, const std::string& expectedAnswer) {
  const std::string answer = Ask(line);
  const Json expected = expectedAnswer.empty() ? Json{{"ok", true}} : Json::parse(expectedAnswer);
  if (!Holds(Json::parse(answer), expected)) Fail(fmt::format("  expected: {}\n  answered: {}", expected.dump(), answer));
}

std::string Scenario::Ask(const std::string& line) {
  if (!Robot().Send(line)) Fail("the robot has gone");
  for (; begun_ > 0; --begun_)
    if (!Holds(Json::parse(Robot().Receive(kPatience).value_or("{}")), Json{{"ok", true}})) Fail("what was begun was not done");
  const std::optional<std::string> answer = Robot().Receive(kPatience);
  if (!answer) Fail("no answer");
  return *answer;
}

std::vector<std::string> Scenario::Printed() {
  std::vector<std::string> lines;
  const Json answer = Json::parse(Ask(R"({"do":"printed"})"));
  for (const Json& job : answer["jobs"]) {
    lines.push_back(job["printer"].get<std::string>() + ", " + job["end"].get<std::string>());
    for (std::string& text : LinesOfJob(job)) lines.push_back(std::move(text));
  }
  return lines;
}

void Scenario::WriteSetting(const std::string& rest) {
  auto [address, value] = SplitAt(rest, "=");
  address = address.find(':') != std::string::npos ? ReplaceAll(address, ":", "/") : environment_["KARVEL_TITLE"] + "/" + address;
  if (value == "{serial}") value = Serial().Path();
  if (value == "{ftp}") value = FtpServer().Address();
  QSettings settings(QString::fromStdString((folder_ / "home/settings.ini").string()), QSettings::IniFormat);
  settings.setValue(QString::fromStdString(address), QString::fromStdString(value));
}

void Scenario::Close() {
  Request(R"({"do":"close"})", "");
  AwaitEnd();
}

void Scenario::Lock(const fs::path& file) {
  const int handle = open(file.c_str(), O_RDWR | O_CLOEXEC);
  if (handle < 0 || flock(handle, LOCK_EX | LOCK_NB) != 0) Fail(fmt::format("can't lock {}", file.string()));
  kept_.push_back(std::shared_ptr<void>(nullptr, [handle](void*) { close(handle); }));
}

void Scenario::StartAgain() {
  RobotProcess second(robotProgram_, pictures_.string(), environment_);
  if (second.WaitForEnd(kPatience) != 0) Fail("the second copy did not end well");
}

void Scenario::AwaitEnd() {
  const std::optional<int> code = Robot().WaitForEnd(kPatience);
  if (!code) Fail("the robot did not end");
  robot_.reset();
  if (*code != 0) Fail(fmt::format("the robot ended with {}", *code));
}

void Scenario::AddLine(const fs::path& path, const std::string& line) const {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file << ToCp1254(line + "\r\n");
  if (!file.flush()) Fail(fmt::format("can't write {}", path.string()));
}

fs::path Scenario::Place(const std::string& path) const {
  constexpr std::string_view kData = "C/KarvelData";
  const bool shared = server_ && path.starts_with(kData) && path.find('/', kData.size() + 1) == std::string::npos;
  if (shared) return folder_ / "home" / server_->ShareFolder() / path.substr(std::min(kData.size() + 1, path.size()));
  return path.starts_with("program") ? folder_ / path : folder_ / "home" / path;
}

fs::path Scenario::Store(const std::string& name, bool make) const {
  if (server_) return server_->LayOut(name);
  const fs::path data = folder_ / "home/C/KarvelData";
  fs::path file = NamedIn(data, name);
  if (make && !fs::exists(file)) {
    fs::create_directories(data);
    const fs::path model = NamedIn(folder_ / "program", name);
    file = data / model.filename();
    fs::copy_file(model, file);
  }
  return file;
}

std::vector<std::string> Scenario::TextLines(const fs::path& path) const {
  std::ifstream file(path, std::ios::binary);
  if (!file) Fail(fmt::format("can't read {}", path.string()));
  std::ostringstream bytes;
  bytes << file.rdbuf();
  std::istringstream text(FromCp1254(bytes.str()));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

}  // namespace karvel::test
