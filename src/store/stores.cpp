#include "store/stores.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "platform/share.h"
#include "store/cursor.h"
#include "store/dialect/dialect.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::size_t kMostDamageNamed = 1000;

// A fault of the store itself. Something mistyped is none, nor is a row that another terminal deleted.
bool IsStoreFault(const Status& status) {
  switch (status.Kind()) {
    case ErrorKind::Busy:
    case ErrorKind::DiskFull:
    case ErrorKind::NoRights:
    case ErrorKind::Damaged:
    case ErrorKind::DiskFailed:
    case ErrorKind::Missing:
    case ErrorKind::Unknown:
    case ErrorKind::Unreachable:
    case ErrorKind::Other:
      return true;
    case ErrorKind::None:
    case ErrorKind::BadText:
    case ErrorKind::NoRecord:
    case ErrorKind::NotOpen:
      break;
  }
  return false;
}

// What the clerk or whoever helps him must look at the folder for.
bool IsOfFolder(const Status& status) {
  return !status.Ok() && IsStoreFault(status) && status.Kind() != ErrorKind::Busy && status.Kind() != ErrorKind::Unknown &&
         status.Kind() != ErrorKind::Unreachable;
}

Status FindFile(const std::string& databaseName, const DatabaseFile*& file) {
  file = Catalogue::File(databaseName);
  if (file == nullptr) return {ErrorKind::Missing, fmt::format("{}: no such database file", databaseName)};
  return {};
}

}  // namespace

Stores::Stores(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}

Stores::~Stores() {
  Close();
}

Status Stores::Open(const std::string& folder) {
  Close();
  folder_ = folder;
  Status opened = engine_->Open(folder);
  away_ = opened.Kind() == ErrorKind::Unreachable;
  if (!opened.Ok()) Log(fmt::format("stores: {}: {}", folder, opened.Message()));
  return opened;
}

void Stores::Close() {
  if (InAction()) {
    engine_->Rollback();
    Fail({ErrorKind::NotOpen, "the stores were closed inside the action"});
  }
  engine_->Close();
  away_ = false;
  unknownAction_.clear();
  ++undoings_;
  ++openings_;
}

Status Stores::Begin(const std::string& name) {
  if (!InAction()) {
    if (away_) return Away();
    if (!engine_->IsOpen()) return {ErrorKind::NotOpen, fmt::format("{}: no stores are open", name)};
    if (Status begun = LoseIfAway(engine_->Begin()); !begun.Ok()) {
      Log(fmt::format("{}: {}", name, begun.Message()));
      return IsOfFolder(begun) ? begun.At(folder_) : begun;
    }
    ++actions_;
  }
  openActions_.push_back(name);
  return {};
}

Status Stores::Commit() {
  if (!InAction()) return {ErrorKind::NotOpen, "a commit without an action"};
  const std::string name = LeaveAction();
  if (InAction()) return {};
  Status outcome = std::exchange(failure_, {});
  if (outcome.Ok()) {
    outcome = LoseIfAway(engine_->Commit());
  } else {
    engine_->Rollback();
  }
  if (!outcome.Ok()) ++undoings_;
  ShowWrittenTables();
  return Ended(name, outcome);
}

Status Stores::AskOutcome() {
  if (!IsOutcomeUnknown()) return {ErrorKind::NotOpen, "no outcome is unknown"};
  Status outcome = engine_->LookAgain();
  if (outcome.Kind() == ErrorKind::Unknown) return outcome;
  const std::string name = std::exchange(unknownAction_, {});
  // Who knows it has answered.
  if (away_) {
    Found();
  } else {
    ReadAllAnew();
  }
  return Ended(name, outcome);
}

void Stores::ReadAllAnew() {
  ++undoings_;
  ShowStale([](const Cursor&) { return true; });
}

void Stores::Found() {
  away_ = false;
  ReadAllAnew();
  serverFound();
}

Status Stores::Ended(const std::string& name, const Status& outcome) {
  if (!outcome.Message().empty()) Log(fmt::format("{}: {}", name, outcome.Message()));
  if (outcome.Kind() == ErrorKind::Unknown) {
    unknownAction_ = name;
    outcomeUnknown();
  } else if (outcome.Ok() && !outcome.Message().empty()) {
    savedOnFailingDisk();
  }
  const Status told = IsShare(folder_) ? outcome.About(Subject::Server) : outcome;
  return IsOfFolder(told) ? told.At(folder_) : told;
}

void Stores::Abandon() {
  if (!InAction()) return;
  const std::string name = LeaveAction();
  if (InAction()) {
    Fail({ErrorKind::Other, fmt::format("{} was left unfinished", name)});
    return;
  }
  engine_->Rollback();
  failure_ = {};
  // A posting that was refused before its first write leaves everything that was read as good as before.
  if (writtenTables_.empty()) return;
  ++undoings_;
  Log(fmt::format("{}: left unfinished, and undone", name));
  ShowWrittenTables();
}

std::string Stores::LeaveAction() {
  std::string name = std::move(openActions_.back());
  openActions_.pop_back();
  return name;
}

void Stores::Fail(const Status& failure) {
  if (failure_.Ok()) failure_ = failure;
}

Status Stores::Execute(const std::string& databaseName, const std::string& statement) {
  const DatabaseFile* file = nullptr;
  if (Status found = FindFile(databaseName, file); !found.Ok()) return found;
  dialect::Statement parsed;
  if (Status understood = dialect::ParseStatement(statement, *file, parsed); !understood.Ok()) return understood;
  if (parsed.kind != dialect::StatementKind::Delete) return {ErrorKind::BadText, "only a DELETE can be executed"};
  Action action(*this, statement);
  if (!action.Begun().Ok()) return action.Begun();
  const RowQuery query{file, parsed.table, {parsed.where}, {}};
  Status written = Write(*parsed.table, [&](Engine& engine) {
    std::int64_t count = 0;
    return engine.DeleteWhere(query, count);
  });
  Status finished = action.Finish();
  return written.Ok() ? finished : written;
}

Status Stores::QueryValue(const std::string& databaseName, const std::string& query, Value& result) {
  result = {};
  const DatabaseFile* file = nullptr;
  if (Status found = FindFile(databaseName, file); !found.Ok()) return found;
  dialect::Statement parsed;
  if (Status understood = dialect::ParseStatement(query, *file, parsed); !understood.Ok()) return understood;
  if (parsed.kind != dialect::StatementKind::Sum) return {ErrorKind::BadText, "not a sum query"};
  const RowQuery rows{file, parsed.table, {parsed.where}, {}};
  return Read([&](Engine& engine) { return engine.Sum(rows, parsed.sumPosition, result); });
}

Status Stores::QuerySumsBy(const std::string& databaseName, const std::string& query, const std::string& by, std::vector<TextSum>& sums) {
  sums.clear();
  const DatabaseFile* file = nullptr;
  if (Status found = FindFile(databaseName, file); !found.Ok()) return found;
  dialect::Statement parsed;
  if (Status understood = dialect::ParseStatement(query, *file, parsed); !understood.Ok()) return understood;
  if (parsed.kind != dialect::StatementKind::Sum) return {ErrorKind::BadText, "not a sum query"};
  const int column = parsed.table->Position(by);
  if (column < 0) return {ErrorKind::BadText, "no column " + by};
  const RowQuery rows{file, parsed.table, {parsed.where}, {}};
  return Read([&](Engine& engine) { return engine.SumBy(rows, parsed.sumPosition, column, sums); });
}

Status Stores::Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) {
  if (InAction()) return {ErrorKind::Other, "no copy is begun inside an action"};
  return engine_->Copy(folder, copy);
}

std::uint64_t Stores::WriteCount(const Table& table) const {
  const auto found = writes_.find(&table);
  return undoings_ + (found == writes_.end() ? 0 : found->second);
}

Status Stores::Write(const Table& table, const std::function<Status(Engine&)>& write) {
  if (!failure_.Ok()) return failure_;
  Status written = FailOnFault(LoseIfAway(write(*engine_)));
  if (written.Ok()) {
    ++writes_[&table];
    if (std::find(writtenTables_.begin(), writtenTables_.end(), &table) == writtenTables_.end()) writtenTables_.push_back(&table);
  }
  return written;
}

Status Stores::Read(const std::function<Status(Engine&)>& read) {
  if (!away_ && !engine_->IsOpen()) return {ErrorKind::NotOpen, "no stores are open"};
  Status outcome = FailOnFault(away_ ? Away() : LoseIfAway(read(*engine_)));
  if (outcome.Kind() == ErrorKind::Busy || outcome.Kind() == ErrorKind::Unreachable) {
    ++busyReads_;
    if (!InAction() && !glancing_) readFailed(outcome);
  } else if (!InAction() && IsStoreFault(outcome)) {
    readFailed(outcome);
  }
  return outcome;
}

void Stores::NoteDamage(const Table& table, const std::vector<GridRow>& rows) {
  for (const GridRow& row : rows) {
    for (std::size_t i = 0; i < row.values.size(); ++i) {
      if (table.columns[i].type != ColumnType::Number || IsNumberOrNothing(row.values[i])) continue;
      // A file full of them doesn't fill the log.
      if (damagedRows_.size() >= kMostDamageNamed || !damagedRows_.emplace(&table, row.key).second) break;
      Log(fmt::format("{}, row {}: {} is no number: {}", table.name, row.key, table.columns[i].name,
                      LeftLetters(AsText(row.values[i]), 50)));
    }
  }
}

Status Stores::Away() {
  return Status(ErrorKind::Unreachable, "the main machine doesn't answer");
}

Status Stores::LoseIfAway(Status status) {
  if (status.Kind() != ErrorKind::Unreachable || std::exchange(away_, true)) return status;
  Log(fmt::format("stores: {}: {}", folder_, status.Message()));
  serverLost();
  return status;
}

Status Stores::AskServer() {
  if (InAction() || !engine_->IsOpen()) return {};
  const DatabaseFile& file = Catalogue::Files().front();
  std::vector<GridRow> rows;
  engine_->SetPatient(false);
  Status answered = LoseIfAway(engine_->Select({&file, &file.tables.front(), {}, {}}, {}, rows));
  engine_->SetPatient(true);
  if (answered.Kind() != ErrorKind::Unreachable && away_) Found();
  return answered;
}

void Stores::ShowForeignChanges() {
  std::set<std::string> tables;
  if (InAction() || away_ || !engine_->IsOpen()) return;
  engine_->TakeForeignChanges(tables);
  if (tables.empty()) return;
  for (const DatabaseFile& file : Catalogue::Files())
    for (const Table& table : file.tables)
      if (tables.contains(fmt::format("{}/{}", file.schema, table.name))) ++writes_[&table];
  ShowStale([](const Cursor&) { return true; });
}

Status Stores::FailOnFault(Status status) {
  if (InAction() && !status.Ok() && (IsStoreFault(status) || !engine_->InTransaction())) Fail(status);
  return status;
}

void Stores::ShowWrittenTables() {
  const std::vector<const Table*> written = std::exchange(writtenTables_, {});
  if (written.empty()) return;
  ShowStale([&](const Cursor& cursor) { return std::find(written.begin(), written.end(), cursor.SourceTable()) != written.end(); });
}

void Stores::ShowStale(const std::function<bool(const Cursor&)>& concerned) {
  const std::vector<Cursor*> cursors = cursors_;
  for (Cursor* cursor : cursors) {
    // A handler may have taken a cursor away.
    if (std::find(cursors_.begin(), cursors_.end(), cursor) != cursors_.end() && concerned(*cursor)) cursor->ShowIfStale();
  }
}

void Stores::Register(Cursor& cursor) {
  cursors_.push_back(&cursor);
}

void Stores::Unregister(Cursor& cursor) {
  std::erase(cursors_, &cursor);
}

}  // namespace karvel
