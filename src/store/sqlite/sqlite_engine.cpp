#include "store/sqlite/sqlite_engine.h"

#include <fmt/format.h>

#include <map>
#include <utility>

#include "platform/log.h"
#include "store/key_spans.h"
#include "store/row_reads.h"
#include "store/sqlite/commit_syncs.h"
#include "store/sqlite/connection.h"
#include "store/sqlite/data_folder.h"
#include "store/sqlite/errors.h"
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

  void ReadRows(const Table& table, const SqlText& sql, std::vector<GridRow>& rows) override {
    Running running = connection_.Prepared(sql.text, sql.parameters);
    while (running.Step()) {
      GridRow& row = rows.emplace_back();
      row.key = running.Integer(0);
      row.values.reserve(table.columns.size());
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        row.values.push_back(running.Read(static_cast<int>(i) + 1, table.columns[i].type));
      }
    }
  }

  std::int64_t ReadNumber(const SqlText& sql) override {
    Running running = connection_.Prepared(sql.text, sql.parameters);
    return running.Step() ? running.Integer(0) : 0;
  }

 private:
  Connection& connection_;
};

class SqliteEngine final : public Engine {
 public:
  explicit SqliteEngine(SqliteOptions options) : options_(std::move(options)) {
    CommitSyncs::Install();
    for (const DatabaseFile& file : Catalogue::Files()) {
      const std::string schema = InDataFolder(file) ? SchemaOf(file) : "main";
      for (const Table& table : file.tables) tables_.try_emplace(&table, table, words_, NamesOf(table, schema));
    }
  }
  ~SqliteEngine() override { Close(); }

  Status Open(const std::string& folder) override {
    Close();
    return OpenDataFolder(folder, options_, gate_, data_);
  }

  void Close() override {
    Rollback();
    data_.reset();
    scratch_.reset();
    gate_.Close();
  }

  [[nodiscard]] bool IsOpen() const override { return data_ != nullptr; }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    rows.clear();
    return On(*query.file, query.table->name, [&](Connection& connection) {
      ConnectionRunner runner(connection);
      RowReads(tables_.at(query.table), query, SpansOf(query), runner).Select(range, rows);
    });
  }

  Status Count(const RowQuery& query, std::int64_t& count) override {
    count = 0;
    return On(*query.file, query.table->name, [&](Connection& connection) {
      ConnectionRunner runner(connection);
      count = RowReads(tables_.at(query.table), query, SpansOf(query), runner).Count();
    });
  }

  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    count = 0;
    return On(*query.file, query.table->name, [&](Connection& connection) {
      ConnectionRunner runner(connection);
      count = RowReads(tables_.at(query.table), query, {}, runner).CountBefore(row);
    });
  }

  Status Sum(const RowQuery& query, int position, Value& sum) override {
    sum = {};
    return On(*query.file, query.table->name, [&](Connection& connection) {
      const SqlText sql = tables_.at(query.table).Sum(query, position);
      Running running = connection.Prepared(sql.text, sql.parameters);
      if (running.Step()) sum = running.Read(0, ColumnType::Number);
    });
  }

  // The write lock of the folder, held since Begin, is the row's lock too.
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, bool /*forEdit*/, GridRow& row) override {
    return On(file, table.name, [&](Connection& connection) -> Status {
      std::vector<GridRow> rows;
      ConnectionRunner(connection).ReadRows(table, {tables_.at(&table).Read(), {static_cast<double>(key)}}, rows);
      if (rows.empty()) return Gone(table);
      row = std::move(rows.front());
      return {};
    });
  }

  Status Insert(const DatabaseFile& file, const Table& table, const Row& values, RowKey& key) override {
    return Write(file, table.name, [&](Connection& connection) -> Status {
      Running running = connection.Prepared(tables_.at(&table).Insert(), values);
      running.Execute();
      key = connection.Database().getLastInsertRowid();
      return {};
    });
  }

  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    const SqlText sql = tables_.at(&table).Change(key, fields);
    return Write(file, table.name, [&](Connection& connection) -> Status {
      Running running = connection.Prepared(sql.text, sql.parameters);
      return running.Execute() == 0 ? Gone(table) : Status();
    });
  }

  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    return Write(file, table.name, [&](Connection& connection) -> Status {
      const std::vector<Value> parameters{static_cast<double>(key)};
      Running running = connection.Prepared(tables_.at(&table).Delete(), parameters);
      return running.Execute() == 0 ? Gone(table) : Status();
    });
  }

  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    const SqlText sql = tables_.at(query.table).DeleteWhere(query);
    return Write(*query.file, query.table->name, [&](Connection& connection) -> Status {
      Running running = connection.Prepared(sql.text, sql.parameters);
      count = running.Execute();
      return {};
    });
  }

  Status Begin() override {
    if (!data_) return {ErrorKind::NotOpen, "no data folder is open"};
    if (open_) return {ErrorKind::Other, "a transaction is open already"};
    if (Status taken = gate_.Take(options_.gateMs); !taken.Ok()) return taken;
    Status begun = Run(&data_->Database(), "begin", [&] { data_->Execute("BEGIN IMMEDIATE"); });
    if (!begun.Ok()) {
      gate_.Leave();
      return begun;
    }
    open_ = true;
    changesBefore_ = data_->Database().getTotalChanges();
    return {};
  }

  // 1. The scratch file goes by itself, and its failure hinders nobody. 2. Where nothing was written there is nothing to sync.
  // 3. A commit that fails leaves the transaction open, or not, by its cause; here it is over in any case.
  Status Commit() override {
    if (!open_) return {ErrorKind::NotOpen, "no transaction"};
    EndScratch("COMMIT");
    Status committed;
    if (!data_->InTransaction()) {
      committed = {ErrorKind::Other, "the transaction has been undone"};
    } else if (data_->Database().getTotalChanges() == changesBefore_) {
      committed = Run(&data_->Database(), "commit", [&] { data_->Execute("ROLLBACK"); });
    } else {
      CommitSyncs::Begin();
      committed = Run(&data_->Database(), "commit", [&] { data_->Execute("COMMIT"); });
    }
    EndTransaction();
    return committed;
  }

  void Rollback() override {
    if (!open_) return;
    EndScratch("ROLLBACK");
    EndTransaction();
  }

  [[nodiscard]] bool InTransaction() const override { return open_ && data_->InTransaction(); }
  [[nodiscard]] bool ReadsHold() const override { return true; }

 private:
  static Status Gone(const Table& table) { return {ErrorKind::NoRecord, fmt::format("{}: the row is gone", table.name)}; }

  // Runs work on the connection of a file.
  template <typename Work>
  Status On(const DatabaseFile& file, std::string_view what, Work work) {
    Connection* connection = data_.get();
    if (connection == nullptr) return {ErrorKind::NotOpen, "no data folder is open"};
    if (!InDataFolder(file)) {
      if (!scratch_) {
        if (Status opened = OpenSingleFile(file, options_.programFolder, options_, scratch_); !opened.Ok()) return opened;
      }
      connection = scratch_.get();
    }
    return Run(&connection->Database(), what, [&] { return work(*connection); });
  }

  template <typename Work>
  Status Write(const DatabaseFile& file, std::string_view what, Work work) {
    return On(file, what, [&](Connection& connection) -> Status {
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

  void EndTransaction() {
    if (data_->InTransaction()) {
      const Status undone = Run(&data_->Database(), "rollback", [&] { data_->Execute("ROLLBACK"); });
      if (!undone.Ok()) Log(undone.Message());
    }
    open_ = false;
    gate_.Leave();
  }

  const SqliteOptions options_;
  const SqliteWords words_;
  std::map<const Table*, TableSql> tables_;
  Gate gate_;
  std::unique_ptr<Connection> data_;
  std::unique_ptr<Connection> scratch_;  // DataTemp.Mdb
  bool open_ = false;
  int changesBefore_ = 0;
};

}  // namespace
}  // namespace sqlite

std::unique_ptr<Engine> MakeSqliteEngine(const SqliteOptions& options) {
  return std::make_unique<sqlite::SqliteEngine>(options);
}

}  // namespace karvel
