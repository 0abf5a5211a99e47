#include "store/postgres/postgres_engine.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "platform/log.h"
#include "store/key_spans.h"
#include "store/open_copy.h"
#include "store/postgres/address.h"
#include "store/postgres/commit_witness.h"
#include "store/postgres/connection.h"
#include "store/postgres/postgres_sql.h"
#include "store/postgres/schema.h"
#include "store/postgres/server_copy.h"
#include "store/row_reads.h"
#include "store/table_sql.h"

namespace karvel {
namespace postgres {
namespace {

// A read's statement that failed, on its way out of the reads that are the same for all engines.
struct ReadFailed {
  Status status;
};

// One session's reads. Inside a transaction a statement that can fail by what it reads is undone by itself, else the server would undo all
// that was written before it.
class SessionRunner final : public StatementRunner {
 public:
  SessionRunner(Connection& connection, Patience& patience, bool inTransaction)
      : connection_(connection), patience_(patience), inTransaction_(inTransaction) {}

  // From here on, rows that are read are held against all others until the transaction's end.
  void HoldRows(bool holds) { holds_ = holds; }

  // A wait costs more than what the later ones read in vain. A row that isn't wanted shall not be held.
  [[nodiscard]] std::size_t AtOnce() const override { return holds_ ? 1 : kAtOnce; }

  void ReadRows(const Table& table, std::span<const SqlText> statements, std::vector<GridRow>& rows) override {
    for (const Result& result : holds_ ? AskHolding(statements) : Ask(statements)) {
      rows.reserve(rows.size() + static_cast<std::size_t>(result.Rows()));
      for (int row = 0; row < result.Rows(); ++row) rows.push_back(result.ReadRow(row, table));
    }
  }

  std::int64_t ReadNumbers(std::span<const SqlText> counts) override {
    std::int64_t sum = 0;
    for (const Result& result : Ask(counts)) sum += result.Rows() > 0 ? result.Integer(0, 0) : 0;
    return sum;
  }

  std::vector<Result> Ask(std::span<const SqlText> statements) {
    std::vector<Result> results(statements.size());
    const Status read = connection_.RunAll(statements, results, patience_);
    if (!read.Ok()) throw ReadFailed{read};
    return results;
  }

  // A sum may be greater than any number.
  Result AskSum(const SqlText& sql) {
    if (!inTransaction_) return std::move(Ask({&sql, 1}).front());
    connection_.Defer("SAVEPOINT karvel_sum");
    Result result;
    Status read = connection_.Run(sql.text, sql.parameters, result, patience_);
    if (!read.Ok() && connection_.IsUp()) connection_.Defer("ROLLBACK TO karvel_sum");
    if (!read.Ok()) throw ReadFailed{read};
    connection_.Defer("RELEASE karvel_sum");
    return result;
  }

 private:
  // No more, or rows would be sent for nothing that a slow line takes long for.
  static constexpr std::size_t kAtOnce = 8;

  std::vector<Result> AskHolding(std::span<const SqlText> statements) {
    std::vector<SqlText> holding(statements.begin(), statements.end());
    for (SqlText& sql : holding) sql.text += " FOR UPDATE";
    return Ask(holding);
  }

  Connection& connection_;
  Patience& patience_;
  const bool inTransaction_;
  bool holds_ = false;
};

class ServerEngine final : public PostgresEngine {
 public:
  explicit ServerEngine(const PostgresOptions& options)
      : options_(options),
        patience_(std::chrono::milliseconds(options.patienceMs)),
        answers_(std::chrono::milliseconds(options.answerMs)) {}
  ~ServerEngine() override { Close(); }

  [[nodiscard]] PostgresCosts Costs() const override { return {session_ ? session_->RoundTrips() : 0}; }

  Status Open(const std::string& folder) override {
    Close();
    Address address;
    if (Status read = ReadAddress(folder, address); !read.Ok()) return read;
    auto session = std::make_unique<Connection>(address, ChannelOf(address.firm));
    patience_.Renew();
    answers_.Renew();
    Status opened = session->Connect(answers_);
    if (opened.Ok()) opened = PrepareFirm(*session, address.firm, options_.makesFirms, patience_, answers_, begunAnew_);
    if (!opened.Ok()) return opened;
    tables_.clear();
    for (const DatabaseFile& file : Catalogue::Files()) {
      for (const Table& table : file.tables) {
        tables_.try_emplace(&table, table, words_, NamesOf(file, table, address.firm));
      }
    }
    lock_ = {std::to_string(LockOf(address.firm, "actions"))};
    channel_ = ChannelOf(address.firm);
    session_ = std::move(session);
    heardSession_ = session_->Sessions();
    return {};
  }

  void Close() override {
    Rollback();
    if (session_ && session_->IsUp()) session_->Flush();
    session_.reset();
    aside_.reset();
    unknown_ = {};
  }

  [[nodiscard]] bool IsOpen() const override { return session_ != nullptr; }
  [[nodiscard]] bool BegunAnew() const override { return session_ != nullptr && begunAnew_; }
  void SetWaitListener(WaitListener* listener) override {
    patience_.SetListener(listener);
    answers_.SetListener(listener);
  }
  void SetPatient(bool patient) override { patient_ = patient; }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    // What an action looks for row by row it will mostly change: taken at once, the row needs no second reading.
    const bool holds = range.limit == 1 && Holds(*query.file);
    Status read = WithReading(*query.file, *query.table, [&](SessionRunner& runner) {
      rows.clear();
      runner.HoldRows(holds);
      RowReads(tables_.at(query.table), query, SpansOf(query), runner).Select(range, rows);
    });
    if (read.Ok() && holds && !rows.empty()) held_.insert({query.table, rows.front().key});
    return read;
  }

  Status Count(const RowQuery& query, std::int64_t& count) override {
    count = 0;
    return WithReading(*query.file, *query.table,
                       [&](SessionRunner& runner) { count = RowReads(tables_.at(query.table), query, SpansOf(query), runner).Count(); });
  }

  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    count = 0;
    return WithReading(*query.file, *query.table,
                       [&](SessionRunner& runner) { count = RowReads(tables_.at(query.table), query, {}, runner).CountBefore(row); });
  }

  Status Sum(const RowQuery& query, int position, Value& sum) override {
    sum = {};
    return WithReading(*query.file, *query.table, [&](SessionRunner& runner) {
      const Result result = runner.AskSum(tables_.at(query.table).Sum(query, position));
      if (result.Rows() > 0) sum = result.Read(0, 0, ColumnType::Number);
    });
  }

  Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) override {
    return WithReading(*query.file, *query.table, [&](SessionRunner& runner) {
      sums.clear();
      const Result result = runner.AskSum(tables_.at(query.table).SumBy(query, position, by));
      for (int row = 0; row < result.Rows(); ++row)
        sums.push_back({std::string(result.Text(row, 0)), AsNumber(result.Read(row, 1, ColumnType::Number))});
    });
  }

  Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) override {
    const bool holds = Holds(file);
    std::vector<GridRow> rows;
    Status read = WithReading(file, table, [&](SessionRunner& runner) {
      rows.clear();
      runner.HoldRows(holds);
      const SqlText sql{tables_.at(&table).Read(), {static_cast<double>(key)}, 0};
      runner.ReadRows(table, {&sql, 1}, rows);
    });
    if (!read.Ok()) return read;
    if (rows.empty()) return RowGone(table);
    if (holds) held_.insert({&table, key});
    row = std::move(rows.front());
    return {};
  }

  Status Insert(const DatabaseFile& file, const Table& table, const Row& values) override {
    return WithWriting(file, table, values, [&]() -> Status {
      session_->Defer(tables_.at(&table).Insert(), values);
      if (IsOnServer(file)) witness_.Added(file, table, values);
      return {};
    });
  }

  Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                    const std::function<void(std::int64_t, Row&)>& fill) override {
    if (!open_) return {ErrorKind::NotOpen, "many rows are added within a transaction only"};
    return WithWriting(file, table, {}, [&]() -> Status { return AddRows(file, table, count, fill); });
  }

  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    const SqlText sql = tables_.at(&table).Change(key, fields);
    return WithWriting(file, table, sql.parameters, [&]() -> Status {
      witness_.Changed(file, table, key, fields);
      return WriteRow(table, key, sql);
    });
  }

  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    const SqlText sql{tables_.at(&table).Delete(), {static_cast<double>(key)}, 0};
    return WithWriting(file, table, sql.parameters, [&]() -> Status {
      witness_.Deleted(file, table, key);
      Status written = WriteRow(table, key, sql);
      held_.erase({&table, key});
      return written;
    });
  }

  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    const SqlText sql = tables_.at(query.table).DeleteWhere(query);
    return WithWriting(*query.file, *query.table, sql.parameters, [&]() -> Status {
      Result result;
      Status written = session_->Run(sql.text, sql.parameters, result, answers_);
      count = result.Touched();
      if (count > 0) witness_.Emptied(query);
      return written;
    });
  }

  Status Begin() override {
    if (!session_) return {ErrorKind::NotOpen, "no stores are open"};
    if (open_) return {ErrorKind::Other, "a transaction is open already"};
    if (!unknown_.Ok()) return {ErrorKind::Other, "of the commit before it isn't known whether it stands: " + unknown_.Message()};
    if (session_->IsWaiting()) return {ErrorKind::Busy, "an answer is being waited for"};
    patience_.Renew();
    answers_.Renew();
    Status begun = TryBegin();
    // The server may have gone and come back since the last use.
    if (begun.Kind() == ErrorKind::Unreachable) begun = TryBegin();
    if (!begun.Ok()) return begun;
    patience_.Granted();
    open_ = true;
    failure_ = {};
    written_.clear();
    held_.clear();
    witness_.Clear();
    return {};
  }

  Status Commit() override {
    if (!open_) return {ErrorKind::NotOpen, "no transaction"};
    if (!failure_.Ok() || written_.empty()) {
      const Status outcome = failure_;
      Rollback();
      return outcome;
    }
    open_ = false;
    answers_.Renew();
    Announce();
    Result result;
    Status committed = session_->Run("COMMIT", {}, result, answers_);
    if (committed.Kind() == ErrorKind::Unreachable) {
      patience_.Renew();
      return LookAfter(committed);
    }
    // A write that was sent ahead was refused, and the commit behind it never ran.
    if (!committed.Ok()) UndoOnServer();
    if (committed.Ok() && result.Command() != "COMMIT") committed = {ErrorKind::Other, "the transaction has been undone"};
    return committed;
  }

  Status LookAgain() override {
    if (session_->IsWaiting()) return {ErrorKind::Unknown, "an answer is being waited for"};
    if (unknown_.Ok()) return {ErrorKind::NotOpen, "no commit is in doubt"};
    return LookAfter(std::exchange(unknown_, {}));
  }

  void Rollback() override {
    if (!open_) return;
    open_ = false;
    UndoOnServer();
  }

  [[nodiscard]] bool InTransaction() const override { return open_ && failure_.Ok(); }
  // Other programs stand in no line: only a row that was read by itself is held against them.
  [[nodiscard]] bool ReadsHold() const override { return false; }
  [[nodiscard]] bool HoldsRow(const Table& table, RowKey key) const override { return open_ && held_.contains({&table, key}); }

  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) override {
    if (!session_) return {ErrorKind::NotOpen, "no stores are open"};
    // Its moment lies between two actions.
    if (Status begun = Begin(); !begun.Ok()) return begun;
    Status outcome = BeginServerCopy(session_->At(), options_.makeFile, folder, copy);
    Rollback();
    return outcome;
  }

  void TakeForeignChanges(std::set<std::string>& tables) override {
    if (!session_ || open_ || session_->IsWaiting()) return;
    Patience none{std::chrono::milliseconds(0)};
    if (!session_->Connect(none).Ok()) return;
    for (const std::string& news : session_->TakeNews()) {
      for (std::size_t at = 0; at < news.size();) {
        const std::size_t end = std::min(news.find(',', at), news.size());
        tables.insert(news.substr(at, end - at));
        at = end + 1;
      }
    }
    // What was told while there was no session, nobody heard.
    if (std::exchange(heardSession_, session_->Sessions()) == session_->Sessions()) return;
    for (const DatabaseFile& file : Catalogue::Files())
      for (const Table& table : file.tables) tables.insert(NewsOf(file, table));
  }

 private:
  static Status RowGone(const Table& table) { return {ErrorKind::NoRecord, fmt::format("{}: the row is gone", table.name)}; }
  // Whether a row that is read by itself now is held until the transaction's end.
  [[nodiscard]] bool Holds(const DatabaseFile& file) const { return open_ && IsOnServer(file) && !session_->IsWaiting(); }
  static std::string NewsOf(const DatabaseFile& file, const Table& table) {
    return std::string(file.schema) + "/" + std::string(table.name);
  }

  Status TryBegin() {
    if (Status connected = session_->Connect(answers_); !connected.Ok()) return connected;
    EndOrphan();
    session_->Defer("BEGIN");
    Result result;
    Status begun =
        session_->RunWaiting("SELECT pg_current_xact_id()::text FROM pg_advisory_xact_lock($1::bigint)", lock_, result, patience_);
    if (begun.Ok()) {
      transaction_ = result.Text(0, 0);
      timeline_ = session_->Timeline();
      process_ = session_->ProcessId();
      return {};
    }
    UndoOnServer();
    return begun;
  }

  // Nobody waits for it, but whoever stands in line does.
  void UndoOnServer() {
    if (!session_->IsUp()) return;
    session_->Defer("ROLLBACK");
    session_->Flush();
  }

  // A session of ours that was cut off in the middle of a transaction may still hold the firm's lock, until the server finds out.
  void EndOrphan() {
    if (orphan_.empty()) return;
    session_->DeferOnce(
        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE pid = $1::integer AND application_name = $2 AND "
        "state LIKE 'idle in transaction%' AND pid <> pg_backend_pid()",
        std::exchange(orphan_, {}));
  }
  void NoteOrphan() { orphan_ = {std::to_string(process_), session_->SessionName()}; }

  // The tables that were written, to the sessions of other terminals: they hear of it with the commit.
  void Announce() {
    std::string names;
    for (const std::string& name : written_) names += (names.empty() ? "" : ",") + name;
    session_->Defer("SELECT pg_notify($1, $2)", std::vector<Value>{channel_, names});
  }

  Status LookAfter(const Status& failure) {
    NoteOrphan();
    bool stands = false;
    const Status looked = Look(stands);
    if (!looked.Ok()) {
      unknown_ = failure;
      return {ErrorKind::Unknown, failure.Message() + "; " + looked.Message()};
    }
    if (stands) Log("main machine: the answer to a commit was lost, and all of it is in the stores");
    return stands ? Status() : failure;
  }

  Status Look(bool& stands) {
    stands = false;
    if (Status connected = session_->Connect(answers_); !connected.Ok()) return connected;
    if (session_->Timeline() != timeline_) return witness_.Ask(*this, stands);
    EndOrphan();
    Result result;
    const std::vector<Value> transaction{transaction_};
    Status asked = session_->Run("SELECT pg_xact_status($1::text::xid8)", transaction, result, answers_);
    // A number that the server hasn't given yet: it crashed, and nothing of the transaction had reached its disk.
    if (asked.Kind() == ErrorKind::BadText) return {};
    if (!asked.Ok()) return asked;
    const std::string_view status = result.Text(0, 0);
    if (status == "in progress") return {ErrorKind::Busy, "the commit is still under way"};
    // After a crash the number may be another's by now, so a row that was added is asked for too.
    if (status == "committed" && !witness_.IsSure()) {
      stands = true;
      return {};
    }
    return status == "aborted" ? Status() : witness_.Ask(*this, stands);
  }

  // Where reads go while the session waits for an answer.
  Connection& Aside() {
    if (!aside_) aside_ = std::make_unique<Connection>(session_->At(), "");
    return *aside_;
  }

  template <typename Work>
  Status ReadOn(Connection& connection, Patience& patience, const DatabaseFile& file, const Table& table, Work work) {
    if (!IsOnServer(file)) connection.Defer(CreateScratchSql(file, table));
    SessionRunner runner(connection, patience, open_ && &connection == session_.get());
    try {
      work(runner);
    } catch (const ReadFailed& failed) {
      return failed.status;
    }
    return {};
  }

  template <typename Work>
  Status WithReading(const DatabaseFile& file, const Table& table, Work work) {
    if (!session_) return {ErrorKind::NotOpen, "no stores are open"};
    if (session_->IsWaiting()) {
      Patience moment{std::chrono::milliseconds(kAsideMs)};
      if (Status connected = Aside().Connect(moment); !connected.Ok()) return {ErrorKind::Busy, connected.Message()};
      return ReadOn(*aside_, moment, file, table, work);
    }
    if (open_) {
      if (!failure_.Ok()) return failure_;
      return Noted(ReadOn(*session_, answers_, file, table, work));
    }
    patience_.Renew();
    answers_.Renew();
    Patience none{std::chrono::milliseconds(0)};
    Status read;
    // The server may have gone and come back since the last use.
    for (int attempt = 0; attempt < 2; ++attempt) {
      if (Status connected = session_->Connect(patient_ ? answers_ : none); !connected.Ok()) return connected;
      read = ReadOn(*session_, answers_, file, table, work);
      if (read.Kind() != ErrorKind::Unreachable) break;
    }
    return read;
  }

  // Texts that the server refuses are refused here, or the transaction would be over.
  static Status CheckTexts(std::span<const Value> values) {
    for (const Value& value : values) {
      const auto* text = std::get_if<std::string>(&value);
      if (text != nullptr && !IsStorable(*text)) return {ErrorKind::BadText, "a text holds damaged letters"};
    }
    return {};
  }

  template <typename Work>
  Status WithWriting(const DatabaseFile& file, const Table& table, std::span<const Value> values, Work work) {
    if (!session_) return {ErrorKind::NotOpen, "no stores are open"};
    if (Status fit = CheckTexts(values); !fit.Ok()) return fit;
    if (!open_) return Alone([&] { return WithWriting(file, table, values, work); });
    if (!failure_.Ok()) return failure_;
    if (session_->IsWaiting()) return {ErrorKind::Busy, "an answer is being waited for"};
    answers_.Renew();
    if (!IsOnServer(file)) session_->Defer(CreateScratchSql(file, table));
    Status written = Noted(work());
    if (written.Ok()) written_.insert(NewsOf(file, table));
    return written;
  }

  // A write that stands alone is a transaction.
  template <typename Work>
  Status Alone(Work work) {
    if (Status begun = Begin(); !begun.Ok()) return begun;
    Status written = work();
    if (!written.Ok()) {
      Rollback();
      return written;
    }
    return Commit();
  }

  // A statement that failed has ended the transaction, but for a row that is gone.
  Status Noted(Status status) {
    if (!status.Ok() && status.Kind() != ErrorKind::NoRecord && failure_.Ok() && !IsPassedOver(status)) {
      failure_ = status;
      if (!session_->IsUp()) NoteOrphan();
    }
    return status;
  }
  // A sum that is too great was undone by itself.
  static bool IsPassedOver(const Status& status) { return status.Kind() == ErrorKind::BadText; }

  // Nobody else can take away a row that was read for this edit, so nobody has to wait and see.
  Status WriteRow(const Table& table, RowKey key, const SqlText& sql) {
    if (held_.contains({&table, key})) {
      session_->Defer(sql.text, sql.parameters);
      return {};
    }
    Result result;
    Status written = session_->Run(sql.text, sql.parameters, result, answers_);
    if (!written.Ok()) return written;
    if (result.Touched() == 0) return RowGone(table);
    held_.insert({&table, key});
    return {};
  }

  Status AddRows(const DatabaseFile& file, const Table& table, std::int64_t count, const std::function<void(std::int64_t, Row&)>& fill) {
    if (count <= 0) return {};
    constexpr std::int64_t kWorthIt = 1000;
    bool first = false;
    const std::string name = NamesOf(file, table, session_->At().firm).table;
    if (count >= kWorthIt && IsOnServer(file)) {
      Result any;
      if (Status asked = session_->Run("SELECT 1 FROM " + name + " LIMIT 1", {}, any, answers_); !asked.Ok()) return asked;
      first = any.Rows() == 0;
    }
    // One by one each row would be sorted into all of them.
    if (first)
      for (const std::string& statement : DropIndexesSql(file, table, session_->At().firm)) session_->DeferOnce(statement);
    std::string columns;
    for (const Column& column : table.columns) columns += (columns.empty() ? "" : ", ") + QuotedName(column.name);
    Row defaults;
    for (const Column& column : table.columns) defaults.push_back(DefaultOf(column.type));
    std::int64_t next = 0;
    bool storable = true;
    Row row;
    const auto line = [&](std::string& to) {
      if (next == count || !storable) return false;
      row = defaults;
      fill(next++, row);
      storable = CheckTexts(row).Ok();
      AppendCopyLine(row, to);
      return true;
    };
    Status copied = session_->CopyIn(fmt::format("COPY {} ({}) FROM STDIN", name, columns), line, answers_);
    if (copied.Ok() && !storable) return {ErrorKind::Other, "a text holds damaged letters"};
    if (!copied.Ok()) return copied;
    if (IsOnServer(file)) witness_.Added(file, table, row);
    if (!first) return {};
    for (const std::string& statement : CreateIndexesSql(file, table, session_->At().firm)) session_->DeferOnce(statement);
    session_->DeferOnce("ANALYZE " + name);
    return session_->Settle(answers_);
  }

  static void AppendCopyLine(const Row& row, std::string& to) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) to += '\t';
      const std::optional<std::string> text = TextOf(row[i]);
      if (!text) {
        to += "\\N";
        continue;
      }
      for (const char letter : *text) {
        if (letter == '\\' || letter == '\t' || letter == '\n' || letter == '\r') to += '\\';
        to += letter == '\t' ? 't' : letter == '\n' ? 'n' : letter == '\r' ? 'r' : letter;
      }
    }
    to += '\n';
  }

  static constexpr int kAsideMs = 200;

  const PostgresOptions options_;
  const PostgresWords words_;
  std::map<const Table*, TableSql> tables_;
  Patience patience_, answers_;
  std::unique_ptr<Connection> session_, aside_;
  std::vector<Value> lock_, orphan_;
  std::string channel_, transaction_, timeline_;
  std::uint64_t heardSession_ = 0;
  int process_ = 0;
  std::set<std::string> written_;                   // tables of this transaction
  std::set<std::pair<const Table*, RowKey>> held_;  // rows that nobody else can change until its end
  CommitWitness witness_;
  Status failure_;  // that ended the open transaction on the server
  Status unknown_;  // why a commit failed of which it is not known whether it stands
  bool begunAnew_ = false;
  bool open_ = false;
  bool patient_ = true;
};

}  // namespace
}  // namespace postgres

std::unique_ptr<PostgresEngine> MakePostgresEngine(const PostgresOptions& options) {
  return std::make_unique<postgres::ServerEngine>(options);
}

}  // namespace karvel
