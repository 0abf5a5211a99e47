#include "store/sqlite/sqlite_engine.h"

#include <fmt/format.h>

#include <map>
#include <optional>
#include <utility>

#include "platform/log.h"
#include "store/key_spans.h"
#include "store/open_copy.h"
#include "store/row_reads.h"
#include "store/sqlite/commit_rounds.h"
#include "store/sqlite/commit_trace.h"
#include "store/sqlite/connection.h"
#include "store/sqlite/data_folder.h"
#include "store/sqlite/errors.h"
#include "store/sqlite/folder_copy.h"
#include "store/sqlite/gate.h"
#include "store/sqlite/sqlite_sql.h"
#include "store/table_sql.h"

namespace karvel {
namespace sqlite {
namespace {

// Runs the statements of a read on the connection of its file.
class ConnectionRunner final : public StatementRunner {
 public:
  explicit ConnectionRunner(Connection& connection) : connection_(connection) {}

  void ReadRows(const Table& table, std::span<const SqlText> statements, std::vector<GridRow>& rows) override {
    for (const SqlText& sql : statements) {
      RunningStatement running = connection_.Prepare(sql.text, sql.parameters);
      while (running.Step()) {
        GridRow& row = rows.emplace_back();
        row.key = running.Integer(0);
        row.values = running.ReadRow(table);
      }
    }
  }

  std::int64_t ReadNumbers(std::span<const SqlText> counts) override {
    std::int64_t sum = 0;
    for (const SqlText& sql : counts) {
      RunningStatement running = connection_.Prepare(sql.text, sql.parameters);
      if (running.Step()) sum += running.Integer(0);
    }
    return sum;
  }

 private:
  Connection& connection_;
};

// The indexes of a table that are built anew behind its rows: one by one each row would be sorted into all of them.
class IndexesLaidAside {
 public:
  IndexesLaidAside(Connection& connection, const Table& table, const std::string& schema)
      : connection_(connection), table_(table), schema_(schema) {
    for (const Index& index : table_.indexes)
      connection_.Database().exec(fmt::format("DROP INDEX IF EXISTS {}.{}", schema_, IndexName(table_, index)));
  }
  void Build() {
    for (const Index& index : table_.indexes) connection_.Database().exec(CreateIndexSql(table_, index, schema_));
  }

 private:
  Connection& connection_;
  const Table& table_;
  const std::string& schema_;
};

// Gives the key of the last row.
RowKey AddRows(Connection& connection, const Table& table, const std::string& insert, const std::string& schema, std::int64_t count,
               const std::function<void(std::int64_t, Row&)>& fill) {
  constexpr std::int64_t kWorthIt = 1000;
  // The rows that are there are no more than the greatest key tells.
  const std::string greatest = connection.AskText("SELECT max(_rowid_) FROM " + NamesOf(table, schema).table);
  const bool most = count >= kWorthIt && (greatest.empty() || count >= std::stoll(greatest));
  std::optional<IndexesLaidAside> indexes;
  if (most) indexes.emplace(connection, table, schema);
  Row defaults;
  for (const Column& column : table.columns) defaults.push_back(DefaultOf(column.type));
  for (std::int64_t i = 0; i < count; ++i) {
    Row row = defaults;
    fill(i, row);
    connection.Prepare(insert, row).Execute();
  }
  if (indexes) indexes->Build();
  return connection.Database().getLastInsertRowid();
}

class SqliteEngine final : public Engine {
 public:
  explicit SqliteEngine(const SqliteOptions& options)
      : rounds_(options.vfs), options_(Over(rounds_, options)), patience_(std::chrono::milliseconds(options_.patienceMs)) {
    for (const DatabaseFile& file : Catalogue::Files()) {
      const std::string schema = InDataFolder(file) ? SchemaOf(file) : "main";
      for (const Table& table : file.tables) tables_.try_emplace(&table, table, words_, NamesOf(table, schema));
    }
  }
  ~SqliteEngine() override { Close(); }

  Status Open(const std::string& folder) override {
    Close();
    patience_.Renew();
    folder_ = folder;
    alone_ = options_.scratchAlone;
    if (alone_) return {};
    return OpenDataFolder(folder, options_, patience_, gate_, data_);
  }

  void Close() override {
    Rollback();
    unknown_ = {};
    data_.reset();
    scratch_.reset();
    alone_ = false;
    gate_.Close();
  }

  [[nodiscard]] bool IsOpen() const override { return data_ != nullptr || alone_; }
  void SetWaitListener(WaitListener* listener) override { patience_.SetListener(listener); }
  void SetPatient(bool patient) override { patient_ = patient; }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    return WithConnection(*query.file, query.table->name, [&](Connection& connection) {
      rows.clear();
      ConnectionRunner runner(connection);
      RowReads(tables_.at(query.table), query, SpansOf(query), runner).Select(range, rows);
    });
  }

  Status Count(const RowQuery& query, std::int64_t& count) override {
    count = 0;
    return WithConnection(*query.file, query.table->name, [&](Connection& connection) {
      ConnectionRunner runner(connection);
      count = RowReads(tables_.at(query.table), query, SpansOf(query), runner).Count();
    });
  }

  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    count = 0;
    return WithConnection(*query.file, query.table->name, [&](Connection& connection) {
      ConnectionRunner runner(connection);
      count = RowReads(tables_.at(query.table), query, {}, runner).CountBefore(row);
    });
  }

  Status Sum(const RowQuery& query, int position, Value& sum) override {
    sum = {};
    return WithConnection(*query.file, query.table->name, [&](Connection& connection) {
      const SqlText sql = tables_.at(query.table).Sum(query, position);
      RunningStatement running = connection.Prepare(sql.text, sql.parameters);
      if (running.Step()) sum = running.Read(0, ColumnType::Number);
    });
  }

  Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) override {
    return WithConnection(*query.file, query.table->name, [&](Connection& connection) {
      sums.clear();
      const SqlText sql = tables_.at(query.table).SumBy(query, position, by);
      RunningStatement running = connection.Prepare(sql.text, sql.parameters);
      while (running.Step()) sums.push_back({AsText(running.Read(0, ColumnType::Text)), AsNumber(running.Read(1, ColumnType::Number))});
    });
  }

  // The write lock of the folder, held since Begin, is the row's lock too.
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) override {
    return WithConnection(file, table.name, [&](Connection& connection) -> Status {
      std::vector<GridRow> rows;
      const SqlText sql{tables_.at(&table).Read(), {static_cast<double>(key)}};
      ConnectionRunner(connection).ReadRows(table, {&sql, 1}, rows);
      if (rows.empty()) return RowGone(table);
      row = std::move(rows.front());
      return {};
    });
  }

  Status Insert(const DatabaseFile& file, const Table& table, const Row& values) override {
    return WithWriting(file, table.name, [&](Connection& connection) -> Status {
      RunningStatement running = connection.Prepare(tables_.at(&table).Insert(), values);
      running.Execute();
      if (open_ && &connection == data_.get()) trace_.Added(table, connection.Database().getLastInsertRowid());
      return {};
    });
  }

  Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                    const std::function<void(std::int64_t, Row&)>& fill) override {
    if (!open_) return {ErrorKind::NotOpen, "many rows are added within a transaction only"};
    Status added = WithWriting(file, table.name, [&](Connection& connection) -> Status {
      const std::string schema = InDataFolder(file) ? SchemaOf(file) : "main";
      RowKey last = AddRows(connection, table, tables_.at(&table).Insert(), schema, count, fill);
      if (count > 0 && &connection == data_.get()) trace_.Added(table, last);
      return {};
    });
    // An index may be missing.
    if (!added.Ok()) UndoRest();
    return added;
  }

  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    const SqlText sql = tables_.at(&table).Change(key, fields);
    return WithWriting(file, table.name, [&](Connection& connection) -> Status {
      if (open_ && &connection == data_.get()) trace_.Changing(connection, table, key, fields);
      RunningStatement running = connection.Prepare(sql.text, sql.parameters);
      return running.Execute() == 0 ? RowGone(table) : Status();
    });
  }

  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    return WithWriting(file, table.name, [&](Connection& connection) -> Status {
      if (open_ && &connection == data_.get()) trace_.Deleting(connection, table, key);
      const std::vector<Value> parameters{static_cast<double>(key)};
      RunningStatement running = connection.Prepare(tables_.at(&table).Delete(), parameters);
      return running.Execute() == 0 ? RowGone(table) : Status();
    });
  }

  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    const SqlText sql = tables_.at(query.table).DeleteWhere(query);
    return WithWriting(*query.file, query.table->name, [&](Connection& connection) -> Status {
      RunningStatement running = connection.Prepare(sql.text, sql.parameters);
      count = running.Execute();
      if (open_ && count > 0 && &connection == data_.get()) trace_.Emptied(query);
      return {};
    });
  }

  Status Begin() override {
    if (alone_ && !open_) {
      open_ = true;
      return {};
    }
    if (!data_) return {ErrorKind::NotOpen, "no data folder is open"};
    if (open_) return {ErrorKind::Other, "a transaction is open already"};
    if (!unknown_.Ok()) return {ErrorKind::Other, "of the commit before it isn't known whether it stands: " + unknown_.Message()};
    patience_.Renew();
    if (Status taken = gate_.Take(patience_); !taken.Ok()) return taken;
    ReopenWritable();
    Status begun = Patiently(patience_, [&] { return Run(&data_->Database(), "begin", [&] { data_->Execute("BEGIN IMMEDIATE"); }); });
    if (!begun.Ok()) {
      gate_.Leave();
      return begun;
    }
    patience_.Granted();
    open_ = true;
    trace_.Clear();
    changesBefore_ = data_->Database().getTotalChanges();
    return {};
  }

  Status Commit() override {
    if (!open_) return {ErrorKind::NotOpen, "no transaction"};
    // The scratch file is committed by itself; where that fails, nobody is hindered.
    EndScratch("COMMIT");
    if (alone_) {
      open_ = false;
      return {};
    }
    Status committed;
    bool doubtful = false;
    if (!data_->InTransaction()) {
      committed = {ErrorKind::Other, "the transaction has been undone"};
    } else if (data_->Database().getTotalChanges() == changesBefore_) {
      // Nothing was written, so there is nothing to sync.
      committed = Run(&data_->Database(), "commit", [&] { data_->Execute("ROLLBACK"); });
    } else {
      committed = Run(&data_->Database(), "commit", [&] { trace_.Fix(*data_); });
      if (committed.Ok()) {
        committed = CommitFiles();
        // One that other programs kept busy has not begun.
        doubtful = !committed.Ok() && committed.Kind() != ErrorKind::Busy;
      }
    }
    // A commit that fails leaves the transaction open or not, depending on why it failed; here it is over in any case.
    UndoRest();
    // Before another terminal writes.
    if (doubtful) committed = LookAfter(committed, patience_);
    open_ = false;
    gate_.Leave();
    return committed;
  }

  Status LookAgain() override {
    if (unknown_.Ok()) return {ErrorKind::NotOpen, "no commit is in doubt"};
    // Whoever waits does so on the connection that the look would replace.
    if (patience_.IsWaiting()) return {ErrorKind::Unknown, unknown_.Message()};
    Patience none(std::chrono::milliseconds(0));  // whoever is in the way will be gone at the next look
    return LookAfter(std::exchange(unknown_, {}), none);
  }

  void Rollback() override {
    if (!open_) return;
    EndScratch("ROLLBACK");
    UndoRest();
    open_ = false;
    gate_.Leave();
  }

  [[nodiscard]] bool InTransaction() const override { return open_ && (alone_ || data_->InTransaction()); }
  [[nodiscard]] bool ReadsHold() const override { return true; }

  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) override {
    if (!data_) return {ErrorKind::NotOpen, "no data folder is open"};
    return BeginFolderCopy(*this, *data_, patience_, folder, copy);
  }

 private:
  // The right to write may have been given back since the files were opened: nobody has to start the desk anew for that.
  void ReopenWritable() {
    // Whoever waits does so on the connection that would be replaced.
    if (patience_.IsWaiting() || !MayBeWrittenByNow(*data_)) return;
    std::unique_ptr<Connection> fresh;
    const Status opened = OpenAnew(folder_, options_, patience_, fresh);
    if (opened.Ok()) {
      data_ = std::move(fresh);
    } else {
      Log(opened.Message());
    }
  }
  static SqliteOptions Over(const CommitRounds& rounds, SqliteOptions options) {
    options.vfs = rounds.Name();
    return options;
  }
  // Whether somebody has to look after the file itself.
  static bool IsFileFault(const Status& status) {
    return status.Kind() == ErrorKind::Damaged || status.Kind() == ErrorKind::DiskFailed || status.Kind() == ErrorKind::NoRights ||
           status.Kind() == ErrorKind::Other;
  }
  static Status RowGone(const Table& table) { return {ErrorKind::NoRecord, fmt::format("{}: the row is gone", table.name)}; }

  // Runs work on the connection of a file.
  template <typename Work>
  Status WithConnection(const DatabaseFile& file, std::string_view what, Work work) {
    Connection* connection = data_.get();
    if (connection == nullptr && (!alone_ || InDataFolder(file))) return {ErrorKind::NotOpen, "no data folder is open"};
    if (!open_) patience_.Renew();
    if (!InDataFolder(file)) {
      if (!scratch_) {
        if (Status opened = OpenScratch(file, options_, patience_, scratch_); !opened.Ok()) return opened;
      }
      connection = scratch_.get();
    }
    const auto run = [&] { return Run(&connection->Database(), what, [&] { return work(*connection); }); };
    // Inside a transaction the locks are held already; a statement that meets one all the same can't be told from one half done.
    Status done = connection->InTransaction() || !patient_ ? run() : Patiently(patience_, run);
    return IsFileFault(done) ? done.At(connection->PathOf(InDataFolder(file) ? SchemaOf(file) : "main")) : done;
  }

  template <typename Work>
  Status WithWriting(const DatabaseFile& file, std::string_view what, Work work) {
    return WithConnection(file, what, [&](Connection& connection) -> Status {
      if (&connection == data_.get()) {
        if (open_ && !connection.InTransaction()) return {ErrorKind::Other, "the transaction has been undone"};
      } else if (open_ && !connection.InTransaction()) {
        connection.Execute("BEGIN IMMEDIATE");
      }
      return work(connection);
    });
  }

  void EndScratch(const std::string& how) {
    if (!scratch_ || !scratch_->InTransaction()) return;
    Status ended = Run(&scratch_->Database(), how, [&] { scratch_->Execute(how); });
    if (!ended.Ok()) {
      Log(ended.Message());
      scratch_.reset();
    }
  }

  Status CommitFiles() {
    return Patiently(patience_, [&] { return Run(&data_->Database(), "commit", [&] { data_->Execute("COMMIT"); }); });
  }

  // What a commit that failed has left: its last sync comes when everything is in the files already. They are read through a fresh
  // connection, which recovers what is half done; what this one keeps in memory may be neither the one nor the other.
  Status LookAfter(const Status& failure, Patience& patience) {
    std::unique_ptr<Connection> fresh;
    bool stands = false;
    Status looked = OpenAnew(folder_, options_, patience, fresh);
    if (looked.Ok()) looked = Run(&fresh->Database(), "look", [&] { stands = trace_.Stands(*fresh); });
    if (!looked.Ok()) {
      unknown_ = failure;
      return Status(ErrorKind::Unknown, failure.Message() + "; " + looked.Message()).At(looked.Place());
    }
    data_ = std::move(fresh);
    return stands ? Status(ErrorKind::None, failure.Message() + "; yet all of it is in the files") : failure;
  }

  void UndoRest() {
    if (!data_ || !data_->InTransaction()) return;
    const Status undone = Run(&data_->Database(), "rollback", [&] { data_->Execute("ROLLBACK"); });
    if (!undone.Ok()) Log(undone.Message());
  }

  CommitRounds rounds_;
  const SqliteOptions options_;
  const SqliteWords words_;
  std::map<const Table*, TableSql> tables_;
  Patience patience_;
  Gate gate_;
  std::unique_ptr<Connection> data_;
  std::unique_ptr<Connection> scratch_;  // DataTemp.Mdb
  std::string folder_;
  CommitTrace trace_{tables_};
  Status unknown_;  // why a commit failed of which it is not known whether it stands
  bool open_ = false;
  bool alone_ = false;  // open, but with DataTemp.Mdb alone
  bool patient_ = true;
  int changesBefore_ = 0;
};

}  // namespace
}  // namespace sqlite

std::unique_ptr<Engine> MakeSqliteEngine(const SqliteOptions& options) {
  return std::make_unique<sqlite::SqliteEngine>(options);
}

}  // namespace karvel
