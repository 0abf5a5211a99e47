#include "store/postgres/connection.h"

#include <fmt/format.h>
#include <libpq-fe.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <random>
#include <thread>
#include <utility>

#include "platform/log.h"
#include "store/postgres/errors.h"
#include "store/postgres/postgres_sql.h"
#include "text/letters.h"
#include "text/turkish.h"

namespace karvel::postgres {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A machine that is on answers at once; one that is off answers nothing at all.
constexpr auto kOneMachine = 3s;
constexpr auto kBetweenRounds = 500ms;
constexpr int kBlockedShare = 10;
// What one who has no patience gives an attempt.
constexpr auto kMoment = 10ms;
// An answer within this time is no wait.
constexpr auto kUsual = 30ms;
// The texts of the desk's statements are few; a list that is typed together anew each time would fill the server's memory.
constexpr std::size_t kMostPrepared = 500;
constexpr auto kCancelled = 5s;

// How the session reads and writes, whatever the server's own settings: a terminal that vanished lets go of the firm within seconds.
constexpr const char* kSettings =
    "-c datestyle=ISO -c extra_float_digits=1 -c standard_conforming_strings=on -c bytea_output=hex "
    "-c tcp_keepalives_idle=5 -c tcp_keepalives_interval=2 -c tcp_keepalives_count=3 -c client_connection_check_interval=2s "
    "-c client_min_messages=warning -c idle_in_transaction_session_timeout=60s -c jit=off";

std::string RandomName() {
  std::random_device random;
  return fmt::format("karvel {:08x}{:08x}", random(), random());
}

// The server's words are in its own language, its five letters are not: "FATAL:  3D000: …".
Status WhyRefused(std::string_view why) {
  constexpr std::size_t kState = 5;
  std::string state;
  for (std::size_t at = why.find(": "); at != std::string_view::npos && state.empty(); at = why.find(": ", at + 1)) {
    if (at < kState) continue;
    const std::string_view letters = why.substr(at - kState, kState);
    const bool known = letters.starts_with("28") || letters == "3D000" || letters == "42501";
    if (known && why[at - kState - 1] == ' ') state = letters;
  }
  return StatusOf(why.find("fe_sendauth: ") != std::string_view::npos ? "28000" : state, why, "main machine");
}

class WaitEnds {
 public:
  explicit WaitEnds(bool& waiting) : waiting_(waiting) {}
  ~WaitEnds() { waiting_ = false; }
  WaitEnds(const WaitEnds&) = delete;
  WaitEnds& operator=(const WaitEnds&) = delete;

 private:
  bool& waiting_;
};

template <typename Number>
bool ReadWhole(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

Value ReadNumber(std::string_view text) {
  double number = 0;
  if (ReadWhole(text, number)) return number;
  if (text == "Infinity") return HUGE_VAL;
  if (text == "-Infinity") return -HUGE_VAL;
  if (text == "NaN") return std::nan("");
  return std::string(text);
}

Value ReadDate(std::string_view text) {
  if (text == kNoDate) return DateTime();
  constexpr std::size_t kSeconds = 19;
  const DateTime date = DateTime::FromIso(text.size() > kSeconds && text[kSeconds] == '.' ? text.substr(0, kSeconds) : text);
  if (date.IsEmpty()) return std::string(text);
  return date;
}

std::string NumberText(double number) {
  if (std::isnan(number)) return "NaN";
  if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
  std::array<char, 64> text{};
  // Row keys and limits go as numbers too, and must be whole ones there.
  constexpr double kWhole = 9007199254740992.0;
  const bool whole = number == std::floor(number) && std::abs(number) < kWhole && !(number == 0 && std::signbit(number));
  const auto end = whole ? std::to_chars(text.data(), text.data() + text.size(), static_cast<std::int64_t>(number))
                         : std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end.ptr};
}

}  // namespace

bool IsStorable(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Letter letter = LetterAt(text, at);
    const bool surrogate = letter.code >= 0xD800 && letter.code <= 0xDFFF;
    if (letter.code == 0 || letter.code >= kDamagedLetter || surrogate) return false;
    at += letter.size;
  }
  return true;
}

std::optional<std::string> TextOf(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* yes = std::get_if<bool>(&value)) return *yes ? "t" : "f";
  if (const auto* date = std::get_if<DateTime>(&value)) return date->IsEmpty() ? std::string(kNoDate) : date->ToIso();
  return {};
}

void Result::Clear::operator()(pg_result* result) const {
  PQclear(result);
}

int Result::Rows() const {
  return result_ ? PQntuples(result_.get()) : 0;
}

std::string_view Result::Text(int row, int column) const {
  return {PQgetvalue(result_.get(), row, column), static_cast<std::size_t>(PQgetlength(result_.get(), row, column))};
}

std::int64_t Result::Integer(int row, int column) const {
  std::int64_t number = 0;
  return ReadWhole(Text(row, column), number) ? number : 0;
}

Value Result::Read(int row, int column, ColumnType type) const {
  if (PQgetisnull(result_.get(), row, column) != 0) return {};
  const std::string_view text = Text(row, column);
  switch (type) {
    case ColumnType::Number:
      return ReadNumber(text);
    case ColumnType::Boolean:
      return text == "t";
    case ColumnType::Date:
      return ReadDate(text);
    case ColumnType::Text:
      break;
  }
  return std::string(text);
}

GridRow Result::ReadRow(int row, const Table& table) const {
  GridRow read{Integer(row, 0), {}};
  read.values.reserve(table.columns.size());
  for (const Column& column : table.columns) read.values.push_back(Read(row, static_cast<int>(read.values.size()) + 1, column.type));
  return read;
}

std::int64_t Result::Touched() const {
  std::int64_t rows = 0;
  ReadWhole(std::string_view(result_ ? PQcmdTuples(result_.get()) : ""), rows);
  return rows;
}

std::string_view Result::Command() const {
  return result_ ? PQcmdStatus(result_.get()) : "";
}

Connection::Connection(Address address, std::string channel)
    : address_(std::move(address)), channel_(std::move(channel)), sessionName_(RandomName()) {}

Connection::~Connection() {
  Drop();
}

void Connection::Drop() {
  if (session_ != nullptr) PQfinish(session_);
  session_ = nullptr;
  up_ = broken_ = false;
  pending_.clear();
  prepared_.clear();
}

Status Connection::NotReached() const {
  return whyNot_;
}

Status Connection::Connect(Patience& patience) {
  if (up_) return {};
  if (waiting_) return NotReached();
  if (session_ == nullptr && Clock::now() < nextRound_) return NotReached();
  waiting_ = true;
  Wait wait(patience);
  machinesFailed_ = 0;
  const auto start = Clock::now();
  Status connected = NotReached();
  while (machinesFailed_ < address_.machines.size()) {
    if (session_ == nullptr) BeginAttempt();
    const Attempt attempt = GoOnWithAttempt();
    if (attempt == Attempt::Made) {
      waiting_ = false;
      connected = SetUp();
      waiting_ = true;
      if (connected.Ok()) break;
      EndAttempt(connected.Message());
      continue;
    }
    if (attempt == Attempt::Failed) continue;
    std::chrono::milliseconds nap = kMoment;
    if (Clock::now() - start >= kMoment) nap = wait.Nap();
    if (nap <= 0ms) break;  // goes on at the next call
    AwaitSocket(nap);
  }
  waiting_ = false;
  if (machinesFailed_ >= address_.machines.size()) nextRound_ = std::max(nextRound_, Clock::now() + kBetweenRounds);
  return connected.Ok() ? connected : NotReached();
}

void Connection::BeginAttempt() {
  const ServerPlace& machine = address_.machines[machine_];
  const std::string port = std::to_string(machine.port);
  const std::array keys{"host",
                        "port",
                        "dbname",
                        "application_name",
                        "client_encoding",
                        "target_session_attrs",
                        "options",
                        "keepalives_idle",
                        "keepalives_interval",
                        "keepalives_count",
                        "tcp_user_timeout",
                        static_cast<const char*>(nullptr)};
  const std::array values{machine.host.c_str(),
                          port.c_str(),
                          address_.database.c_str(),
                          sessionName_.c_str(),
                          "UTF8",
                          "read-write",
                          kSettings,
                          "5",
                          "2",
                          "3",
                          "10000",
                          static_cast<const char*>(nullptr)};
  attemptEnds_ = Clock::now() + kOneMachine;
  attemptWrites_ = true;
  const auto begin = Clock::now();
  session_ = PQconnectStartParams(keys.data(), values.data(), 0);
  // A name that nobody knows is looked up while everything stands still: not at every glance.
  nextRound_ = Clock::now() + (Clock::now() - begin) * kBlockedShare;
  if (session_ != nullptr) PQsetErrorVerbosity(session_, PQERRORS_VERBOSE);
}

Connection::Attempt Connection::GoOnWithAttempt() {
  if (session_ == nullptr || PQstatus(session_) == CONNECTION_BAD) {
    EndAttempt(session_ == nullptr ? "no memory" : PQerrorMessage(session_));
    return Attempt::Failed;
  }
  pollfd socket{PQsocket(session_), static_cast<short>(attemptWrites_ ? POLLOUT : POLLIN), 0};
  if (poll(&socket, 1, 0) > 0) {
    switch (PQconnectPoll(session_)) {
      case PGRES_POLLING_OK:
        return Attempt::Made;
      case PGRES_POLLING_FAILED:
        EndAttempt(PQerrorMessage(session_));
        return Attempt::Failed;
      case PGRES_POLLING_WRITING:
        attemptWrites_ = true;
        break;
      default:
        attemptWrites_ = false;
        break;
    }
  }
  if (Clock::now() >= attemptEnds_) {
    EndAttempt(address_.machines[machine_].host + ": no answer");
    return Attempt::Failed;
  }
  return Attempt::UnderWay;
}

void Connection::EndAttempt(std::string_view why) {
  // Of several machines the one that came furthest tells most: one that lets nobody in, then one that takes no writes.
  const Status refused = WhyRefused(why);
  const bool reads = why.find("read-only") != std::string_view::npos;
  const Reached reached = refused.Kind() != ErrorKind::Unreachable ? Reached::ItsDoor : reads ? Reached::AStandby : Reached::Nobody;
  if (machinesFailed_ == 0 || reached >= furthest_) {
    furthest_ = reached;
    whyNot_ = refused;
  }
  Drop();
  machine_ = (machine_ + 1) % address_.machines.size();
  ++machinesFailed_;
}

// The first round trip: from which line of the server's history its numbers come, and that it shall tell of others' commits.
Status Connection::SetUp() {
  // A wait of its own: one who has no patience for a connection still takes the answer of one that is made.
  Patience patience(kOneMachine);
  PQsetErrorVerbosity(session_, PQERRORS_DEFAULT);
  PQsetnonblocking(session_, 1);
  if (PQenterPipelineMode(session_) != 1) return Lost();
  up_ = true;
  attemptWrites_ = false;
  PQsetNoticeProcessor(
      session_, [](void*, const char* text) { Log(fmt::format("main machine: {}", Trim(ReplaceAll(text, "\n", " ")))); }, nullptr);
  if (!channel_.empty()) Defer("LISTEN " + QuotedName(channel_));
  Result timeline;
  Status read = Run("SELECT substr(pg_walfile_name(pg_current_wal_lsn()), 1, 8)", {}, timeline, patience);
  if (!read.Ok()) {
    up_ = false;
    return read;
  }
  timeline_ = timeline.Text(0, 0);
  processId_ = PQbackendPID(session_);
  ++sessions_;
  return {};
}

void Connection::Send(std::string_view text, std::span<const Value> parameters, bool once, Result* result) {
  if (!up_ || broken_) return;
  std::vector<std::optional<std::string>> texts;
  texts.reserve(parameters.size());
  std::vector<const char*> values;
  values.reserve(parameters.size());
  for (const Value& parameter : parameters) {
    const auto& value = texts.emplace_back(TextOf(parameter));
    values.push_back(value ? value->c_str() : nullptr);
  }
  const int count = static_cast<int>(values.size());
  const std::string statement(text);
  auto known = prepared_.find(statement);
  int sent = 1;
  if (known == prepared_.end() && !once && prepared_.size() < kMostPrepared) {
    known = prepared_.emplace(statement, fmt::format("k{}", ++names_)).first;
    sent = PQsendPrepare(session_, known->second.c_str(), statement.c_str(), 0, nullptr);
    pending_.push_back({.what = Awaited::Preparation, .text = statement});
  }
  if (sent == 1) {
    sent = known != prepared_.end() ? PQsendQueryPrepared(session_, known->second.c_str(), count, values.data(), nullptr, nullptr, 0)
                                    : PQsendQueryParams(session_, statement.c_str(), count, nullptr, values.data(), nullptr, nullptr, 0);
    pending_.push_back({.what = Awaited::Statement, .result = result});
  }
  broken_ = sent != 1;
}

void Connection::SendSync() {
  if (!up_ || broken_) return;
  broken_ = PQpipelineSync(session_) != 1;
  pending_.push_back({.what = Awaited::Sync});
}

void Connection::Defer(std::string_view text, std::span<const Value> parameters) {
  Send(text, parameters);
}

void Connection::DeferOnce(std::string_view text, std::span<const Value> parameters) {
  Send(text, parameters, true);
}

void Connection::Flush() {
  SendSync();
  if (up_) PQflush(session_);
}

Status Connection::WaitsAlready() {
  return {ErrorKind::Busy, "an answer is being waited for"};
}

Status Connection::Run(std::string_view text, std::span<const Value> parameters, Result& result, Patience& patience) {
  if (waiting_) return WaitsAlready();
  Send(text, parameters, false, &result);
  SendSync();
  return Drain(patience);
}

Status Connection::RunAll(std::span<const SqlText> statements, std::span<Result> results, Patience& patience) {
  if (waiting_) return WaitsAlready();
  for (std::size_t i = 0; i < statements.size(); ++i) Send(statements[i].text, statements[i].parameters, false, &results[i]);
  SendSync();
  return Drain(patience);
}

Status Connection::RunWaiting(std::string_view text, std::span<const Value> parameters, Result& result, Patience& patience) {
  if (waiting_) return WaitsAlready();
  Send(text, parameters, false, &result);
  SendSync();
  return Drain(patience, true);
}

Status Connection::Settle(Patience& patience) {
  if (pending_.empty() && !broken_) return {};
  if (waiting_) return WaitsAlready();
  SendSync();
  return Drain(patience);
}

Status Connection::Drain(Patience& patience, bool waitsForOthers) {
  if (!up_ || broken_) return Lost();
  ++roundTrips_;
  waiting_ = true;
  const WaitEnds ends(waiting_);
  Status first;
  while (!pending_.empty()) {
    const Pending pending = std::move(pending_.front());
    pending_.pop_front();
    for (;;) {
      Waited waited = AwaitAnswer(patience);
      if (waited == Waited::GaveUp && waitsForOthers) {
        Cancel();
        Patience rest(kCancelled);
        waited = AwaitAnswer(rest);
      }
      if (waited != Waited::Answer) return Lost();
      Result answer(PQgetResult(session_));
      if (!answer.IsThere()) break;
      const Status taken = Take(answer, pending);
      if (PQstatus(session_) == CONNECTION_BAD) return Lost();
      if (first.Ok()) first = taken;
      if (pending.what == Awaited::Sync) break;
      if (pending.result != nullptr && taken.Ok()) *pending.result = std::move(answer);
    }
  }
  NoteNews();
  if (first.Kind() == ErrorKind::Unreachable) Drop();
  return first;
}

Status Connection::Take(const Result& answer, const Pending& pending) {
  switch (PQresultStatus(answer.Raw())) {
    case PGRES_COMMAND_OK:
    case PGRES_TUPLES_OK:
    case PGRES_PIPELINE_SYNC:
    case PGRES_COPY_IN:
      return {};
    case PGRES_PIPELINE_ABORTED:
      if (pending.what == Awaited::Preparation) prepared_.erase(pending.text);
      return {};
    default:
      break;
  }
  if (pending.what == Awaited::Preparation) prepared_.erase(pending.text);
  const char* const state = PQresultErrorField(answer.Raw(), PG_DIAG_SQLSTATE);
  return StatusOf(state == nullptr ? "" : state, PQresultErrorMessage(answer.Raw()), "main machine");
}

Connection::Waited Connection::AwaitAnswer(Patience& patience) {
  const auto start = Clock::now();
  Wait wait(patience);
  for (;;) {
    if (PQflush(session_) < 0) return Waited::Lost;
    if (PQisBusy(session_) == 0) return Waited::Answer;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(start + kUsual - Clock::now());
    const std::chrono::milliseconds nap = left > 0ms ? left : wait.Nap();
    if (nap <= 0ms) return Waited::GaveUp;
    AwaitSocket(nap);
    // Whoever was run meanwhile may have ended the session.
    if (session_ == nullptr || PQconsumeInput(session_) == 0) return Waited::Lost;
  }
}

void Connection::AwaitSocket(std::chrono::milliseconds longest) const {
  if (session_ == nullptr) {
    std::this_thread::sleep_for(longest);
    return;
  }
  const bool writes = up_ ? PQflush(session_) == 1 : attemptWrites_;
  const auto events = static_cast<short>(up_ ? POLLIN | (writes ? POLLOUT : 0) : (writes ? POLLOUT : POLLIN));
  pollfd socket{PQsocket(session_), events, 0};
  poll(&socket, 1, static_cast<int>(longest.count()));
}

void Connection::Cancel() const {
  PGcancel* const cancel = PQgetCancel(session_);
  std::array<char, 256> why{};
  if (cancel != nullptr && PQcancel(cancel, why.data(), static_cast<int>(why.size())) == 0)
    Log(fmt::format("main machine: {}", why.data()));
  PQfreeCancel(cancel);
}

Status Connection::Lost() {
  const std::string words = session_ == nullptr ? "" : Trim(ReplaceAll(PQerrorMessage(session_), "\n", " "));
  whyNot_ = {ErrorKind::Unreachable, words.empty() ? "the main machine doesn't answer any more" : words};
  Drop();
  return NotReached();
}

void Connection::NoteNews() {
  while (PGnotify* const news = PQnotifies(session_)) {
    if (news->be_pid != processId_) news_.emplace_back(news->extra);
    PQfreemem(news);
  }
}

void Connection::TakeWhatIsThere() {
  if (PQflush(session_) < 0 || PQconsumeInput(session_) == 0) {
    Lost().Ignore();
    return;
  }
  while (!pending_.empty() && PQisBusy(session_) == 0) {
    const Result answer(PQgetResult(session_));
    if (answer.IsThere()) {
      const Status taken = Take(answer, pending_.front());
      if (!taken.Ok()) Log(taken.Message());
    }
    if (!answer.IsThere() || pending_.front().what == Awaited::Sync) pending_.pop_front();
  }
  NoteNews();
}

std::vector<std::string> Connection::TakeNews() {
  if (up_ && !waiting_) TakeWhatIsThere();
  return std::exchange(news_, {});
}

Status Connection::CopyIn(const std::string& statement, const std::function<bool(std::string&)>& next, Patience& patience) {
  if (Status settled = Settle(patience); !settled.Ok()) return settled;
  if (waiting_) return WaitsAlready();
  waiting_ = true;
  const WaitEnds ends(waiting_);
  if (PQexitPipelineMode(session_) != 1 || PQsendQuery(session_, statement.c_str()) != 1) return Lost();
  ++roundTrips_;
  if (AwaitAnswer(patience) != Waited::Answer) return Lost();
  Status outcome = Take(Result(PQgetResult(session_)), {.what = Awaited::Statement});
  std::string line;
  while (outcome.Ok() && next(line)) {
    int put = 0;
    while ((put = PQputCopyData(session_, line.data(), static_cast<int>(line.size()))) == 0) AwaitSocket(kUsual);
    if (put < 0) return Lost();
    line.clear();
  }
  if (outcome.Ok()) {
    int ended = 0;
    while ((ended = PQputCopyEnd(session_, nullptr)) == 0) AwaitSocket(kUsual);
    if (ended < 0) return Lost();
  }
  for (;;) {
    if (AwaitAnswer(patience) != Waited::Answer) return Lost();
    const Result answer(PQgetResult(session_));
    if (!answer.IsThere()) break;
    const Status taken = Take(answer, {.what = Awaited::Statement});
    if (PQstatus(session_) == CONNECTION_BAD) return Lost();
    if (outcome.Ok()) outcome = taken;
  }
  if (PQenterPipelineMode(session_) != 1) return Lost();
  return outcome;
}

}  // namespace karvel::postgres
