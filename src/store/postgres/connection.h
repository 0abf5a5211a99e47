// One session on the server, without ever blocking for long: whoever waits for an answer hears of it (Patience), and a server that went
// away is looked for again at each use, one named machine after another.
//
// Statements go out one behind another without a wait for each answer (the protocol's pipeline): Defer sends, Run and Settle wait for all
// that was sent. So a round trip is paid only where an answer is needed. A deferred statement that fails shows at the next Run or Settle.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/patience.h"
#include "platform/status.h"
#include "store/catalogue.h"
#include "store/postgres/address.h"
#include "store/row.h"
#include "store/table_sql.h"

struct pg_conn;
struct pg_result;

namespace karvel::postgres {

// The rows of one answer.
class Result {
 public:
  Result() = default;
  explicit Result(pg_result* result) : result_(result) {}

  [[nodiscard]] bool IsThere() const { return result_ != nullptr; }
  [[nodiscard]] int Rows() const;
  // As the server wrote it; "" for a null.
  [[nodiscard]] std::string_view Text(int row, int column) const;
  // 0 where it is no whole number.
  [[nodiscard]] std::int64_t Integer(int row, int column) const;
  [[nodiscard]] Value Read(int row, int column, ColumnType type) const;
  // The key and all columns of a table.
  [[nodiscard]] GridRow ReadRow(int row, const Table& table) const;
  // How many rows a write touched.
  [[nodiscard]] std::int64_t Touched() const;
  // "COMMIT", "ROLLBACK", …
  [[nodiscard]] std::string_view Command() const;
  [[nodiscard]] const pg_result* Raw() const { return result_.get(); }

 private:
  struct Clear {
    void operator()(pg_result* result) const;
  };
  std::unique_ptr<pg_result, Clear> result_;
};

class Connection {
 public:
  // `channel` is listened on for other sessions' news; "" for none.
  Connection(Address address, std::string channel);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  [[nodiscard]] bool IsUp() const { return up_; }
  // Whether an answer is being waited for: whoever is run meanwhile can't use this session.
  [[nodiscard]] bool IsWaiting() const { return waiting_; }
  // Makes the session where there is none, trying each machine once, as long as the patience lasts; one that has no patience goes on for a
  // moment only, and the next call goes on from there. Unreachable while no machine answers that takes writes; NoRights where one doesn't
  // let in, Missing where it has no such database.
  Status Connect(Patience& patience);
  // Whether what came furthest at the last Connect was a machine that takes no writes.
  [[nodiscard]] bool FoundOnlyStandby() const { return !up_ && furthest_ == Reached::AStandby; }
  // Grows with each session that was made.
  [[nodiscard]] std::uint64_t Sessions() const { return sessions_; }
  // Ends the session, and forgets what it was doing.
  void Drop();

  // Sends a statement whose answer nobody waits for now.
  void Defer(std::string_view text, std::span<const Value> parameters = {});
  // The same for a statement that isn't sent a second time, and so is not kept prepared.
  void DeferOnce(std::string_view text, std::span<const Value> parameters = {});
  // Sends what is deferred on its way at once, with no wait for the answers.
  void Flush();
  // Sends a statement, and waits for its answer and for all that was deferred. The first failure of any of them is the outcome.
  Status Run(std::string_view text, std::span<const Value> parameters, Result& result, Patience& patience);
  // The same for several statements, one result each; there is one wait for all of them.
  Status RunAll(std::span<const SqlText> statements, std::span<Result> results, Patience& patience);
  // The same for what was deferred alone.
  Status Settle(Patience& patience);
  // A statement that waits for another session: given up when the patience ends, and then Busy.
  Status RunWaiting(std::string_view text, std::span<const Value> parameters, Result& result, Patience& patience);
  // Adds rows by the server's copy protocol, as lines in its text format, `next` giving one after another until an empty one.
  Status CopyIn(const std::string& statement, const std::function<bool(std::string&)>& next, Patience& patience);

  // The channels' news since the last call, of other sessions only. Waits for nothing.
  std::vector<std::string> TakeNews();

  // What names this session's transactions at a server that was promoted meanwhile.
  [[nodiscard]] int ProcessId() const { return processId_; }
  [[nodiscard]] const std::string& SessionName() const { return sessionName_; }
  [[nodiscard]] const std::string& Timeline() const { return timeline_; }
  [[nodiscard]] const Address& At() const { return address_; }

  // How often an answer was waited for.
  [[nodiscard]] std::int64_t RoundTrips() const { return roundTrips_; }

 private:
  enum class Awaited { Preparation, Statement, Sync };
  struct Pending {
    Awaited what;
    std::string text = {};     // of a preparation
    Result* result = nullptr;  // where a statement's answer goes, if anybody wants it
  };
  enum class Waited { Answer, GaveUp, Lost };

  // How far the attempts of a round came.
  enum class Reached { Nobody, AStandby, ItsDoor };

  void BeginAttempt();
  enum class Attempt { Made, UnderWay, Failed };
  Attempt GoOnWithAttempt();
  void EndAttempt(std::string_view why);
  Status SetUp();
  [[nodiscard]] Status NotReached() const;
  void Send(std::string_view text, std::span<const Value> parameters, bool once = false, Result* result = nullptr);
  void SendSync();
  Status Drain(Patience& patience, bool waitsForOthers = false);
  Status Take(const Result& answer, const Pending& pending);
  static Status WaitsAlready();
  Waited AwaitAnswer(Patience& patience);
  // Waits until the session can be read, or written where something is left to send.
  void AwaitSocket(std::chrono::milliseconds longest) const;
  void Cancel() const;
  Status Lost();
  // Takes the answers that have come, waiting for none.
  void TakeWhatIsThere();
  void NoteNews();

  const Address address_;
  const std::string channel_;
  pg_conn* session_ = nullptr;
  bool up_ = false;
  bool waiting_ = false;
  bool broken_ = false;             // a statement could not be sent
  std::size_t machine_ = 0;         // the one that is tried, or was reached
  std::size_t machinesFailed_ = 0;  // in this round
  Reached furthest_ = Reached::Nobody;
  std::chrono::steady_clock::time_point attemptEnds_, nextRound_;
  bool attemptWrites_ = false;  // an attempt waits to write, not to read
  Status whyNot_{ErrorKind::Unreachable, "the main machine doesn't answer yet"};
  std::string sessionName_, timeline_;
  int processId_ = 0;
  std::uint64_t sessions_ = 0;
  std::int64_t roundTrips_ = 0;
  std::deque<Pending> pending_;
  std::unordered_map<std::string, std::string> prepared_;  // names by texts
  std::uint64_t names_ = 0;
  std::vector<std::string> news_;
};

// Whether the server takes a text: it holds no damaged letters and no letter 0.
bool IsStorable(std::string_view text);
// A value as a parameter or as a field of the copy protocol before its escapes; nothing for a null.
std::optional<std::string> TextOf(const Value& value);

}  // namespace karvel::postgres
