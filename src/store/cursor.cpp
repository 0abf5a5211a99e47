#include "store/cursor.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "platform/log.h"
#include "store/dialect/dialect.h"
#include "store/open_copy.h"
#include "store/position.h"
#include "store/stores.h"

namespace karvel {

class Cursor::Impl {
 public:
  Impl(Stores& owner, std::string called) : stores(owner), name(std::move(called)), position(owner) {}

  // Logs a failure under the cursor's name. The outcome is handed on as it is.
  Status LogFailure(std::string_view step, Status status) const {
    if (!status.Ok() && !stores.Glances(status)) Log(fmt::format("{}: {}: {}", name, step, status.Message()));
    return status;
  }

  void RaiseRepositioned(Cursor& cursor) {
    if (position.Source() != nullptr) shownWriteCount = position.WriteCount();
    cursor.repositioned();
    cursor.shown();
  }

  // Drops the open copy, and ends the action that was begun for it. The cursor itself wrote nothing in that action; what others wrote in
  // it stays.
  void DropCopy() {
    copy.reset();
    if (std::exchange(ownAction, false)) stores.Commit().Ignore();
  }

  // Begins an action for a write of this cursor, unless one is open.
  Status BeginOwnAction() {
    if (stores.InAction()) return {};
    Status begun = stores.Begin(name);
    ownAction = begun.Ok();
    return begun;
  }

  // Ends the action that was begun for a write, and gives the outcome of both.
  Status EndOwnAction(Status written) {
    if (!std::exchange(ownAction, false)) return written;
    Status ended = stores.Commit();
    return written.Ok() ? ended : written;
  }

  // A move that went well ends an open add or edit: the copy is lost, as when a form is left without saving.
  Status EndMove(Cursor& cursor, std::string_view step, const Status& status) {
    if (!status.Ok()) return LogFailure(step, status);
    DropCopy();
    RaiseRepositioned(cursor);
    return {};
  }

  Status CompileSource(RowQuery& query) const {
    const DatabaseFile* file = Catalogue::File(databaseName);
    if (file == nullptr) return {ErrorKind::Missing, fmt::format("no such database file: {}", databaseName)};
    dialect::Statement statement;
    if (Status understood = dialect::ParseStatement(recordSource, *file, statement); !understood.Ok()) return understood;
    if (statement.kind != dialect::StatementKind::Rows) return {ErrorKind::BadText, "a record source must give rows"};
    query.file = file;
    query.table = statement.table;
    if (statement.where) query.where.push_back(statement.where);
    query.order = std::move(statement.order);
    return {};
  }

  Status Find(Cursor& cursor, std::string_view step, const std::string& criteria, bool next) {
    noMatch = true;
    const RowQuery* source = position.Source();
    if (source == nullptr) return LogFailure(step, {ErrorKind::NotOpen, "no source"});
    dialect::ExprPtr criterion;
    if (Status understood = dialect::ParseCriteria(criteria, *source->file, *source->table, criterion); !understood.Ok()) {
      return LogFailure(step, understood);
    }
    Status found = position.Find(criterion, next);
    if (found.Kind() == ErrorKind::NoRecord) return found;
    noMatch = !found.Ok();
    return EndMove(cursor, step, found);
  }

  Status UpdateNew() {
    if (Status begun = BeginOwnAction(); !begun.Ok()) return begun;
    // Read now: later the new row might stand first, and be taken for the current one.
    position.ReadIfNeeded();
    const std::uint64_t before = position.WriteCount();
    const RowQuery& source = *position.Source();
    Status written =
        stores.Write(*source.table, [&](Engine& engine) { return engine.Insert(*source.file, *source.table, copy->Values()); });
    if (written.Ok()) {
      position.NoteAdded(before);
      shownWriteCount = position.WriteCount();
    }
    return EndOwnAction(written);
  }

  Status UpdateEdited() {
    if (!HoldsRowLock()) {
      // The action in which the edit began is over, so another terminal may have changed the row since.
      if (Status begun = BeginOwnAction(); !begun.Ok()) return begun;
      Status fits = position.ReadForEdit();
      if (fits.Ok() && !copy->StillFits(position.Current().values)) fits = {ErrorKind::Busy, "changed meanwhile by another terminal"};
      if (!fits.Ok()) return EndOwnAction(fits);
    }
    const std::uint64_t before = position.WriteCount();
    const RowQuery& source = *position.Source();
    const std::vector<FieldValue> fields = copy->SetFields();
    Status written;
    if (!fields.empty()) {
      written =
          stores.Write(*source.table, [&](Engine& engine) { return engine.Change(*source.file, *source.table, copy->Key(), fields); });
    }
    if (written.Ok()) {
      Row values = position.Current().values;
      for (const FieldValue& field : fields) values[static_cast<std::size_t>(field.position)] = field.value;
      position.NoteWritten(values, before);
      shownWriteCount = position.WriteCount();
    } else if (written.Kind() == ErrorKind::NoRecord) {
      position.NoteDeleted();
    }
    return EndOwnAction(written);
  }

  // Whether no other terminal can have written since the open copy was read.
  [[nodiscard]] bool HoldsRowLock() const { return stores.InAction() && stores.ActionNumber() == editAction; }

  // -1, which is logged, when the source has no such field.
  [[nodiscard]] int FieldPosition(std::string_view field) const {
    const RowQuery* source = position.Source();
    const int at = source == nullptr ? -1 : source->table->Position(field);
    if (at < 0) Log(fmt::format("{}: no field {}", name, field));
    return at;
  }

  Stores& stores;
  const std::string name;
  std::string databaseName;
  std::string recordSource;
  Position position;
  std::optional<OpenCopy> copy;
  bool ownAction = false;        // begun for the open copy
  std::uint64_t editAction = 0;  // the action under whose lock the copy was read
  bool noMatch = false;
  std::uint64_t shownWriteCount = 0;  // the table's write count when the grids were last told
};

Cursor::Cursor(Stores& stores, std::string name) : impl_(std::make_unique<Impl>(stores, std::move(name))) {
  stores.Register(*this);
}

Cursor::~Cursor() {
  impl_->stores.Unregister(*this);
  impl_->DropCopy();
}

const std::string& Cursor::Name() const {
  return impl_->name;
}
void Cursor::SetDatabaseName(const std::string& path) {
  impl_->databaseName = path;
}
const std::string& Cursor::DatabaseName() const {
  return impl_->databaseName;
}
void Cursor::SetRecordSource(const std::string& source) {
  impl_->recordSource = source;
}
const std::string& Cursor::RecordSource() const {
  return impl_->recordSource;
}

Status Cursor::Refresh() {
  impl_->DropCopy();
  impl_->noMatch = false;
  RowQuery query;
  const Status compiled = impl_->CompileSource(query);
  if (compiled.Ok()) {
    impl_->position.SetSource(std::move(query));
  } else {
    impl_->position.ClearSource();
  }
  impl_->RaiseRepositioned(*this);
  return impl_->LogFailure("refresh", compiled);
}

Status Cursor::Open(const std::string& source) {
  SetRecordSource(source);
  return Refresh();
}

void Cursor::Close() {
  impl_->DropCopy();
  impl_->noMatch = false;
  impl_->position.ClearSource();
  impl_->RaiseRepositioned(*this);
}

const Table* Cursor::SourceTable() const {
  const RowQuery* source = impl_->position.Source();
  return source == nullptr ? nullptr : source->table;
}

bool Cursor::HasRows() const {
  return impl_->position.HasRows();
}

std::int64_t Cursor::RecordCount() const {
  std::int64_t count = 0;
  impl_->LogFailure("count", impl_->position.Count(count)).Ignore();
  return count;
}

bool Cursor::Bof() const {
  return impl_->position.Bof();
}
bool Cursor::Eof() const {
  return impl_->position.Eof();
}
bool Cursor::NoMatch() const {
  return impl_->noMatch;
}
bool Cursor::HasCurrent() const {
  return impl_->position.OnRow();
}

Status Cursor::FindFirst(const std::string& criteria) {
  return impl_->Find(*this, "find", criteria, false);
}
Status Cursor::FindNext(const std::string& criteria) {
  return impl_->Find(*this, "find next", criteria, true);
}

Status Cursor::MoveFirst() {
  if (SourceTable() == nullptr) return impl_->LogFailure("move first", {ErrorKind::NotOpen, "no source"});
  impl_->position.ToFirst();
  return impl_->EndMove(*this, "move first", {});
}

Status Cursor::MoveLast() {
  if (SourceTable() == nullptr) return impl_->LogFailure("move last", {ErrorKind::NotOpen, "no source"});
  impl_->position.ToLast();
  return impl_->EndMove(*this, "move last", {});
}

Status Cursor::MoveBehindLast() {
  if (SourceTable() == nullptr) return impl_->LogFailure("move behind the last row", {ErrorKind::NotOpen, "no source"});
  impl_->position.ToEnd();
  return impl_->EndMove(*this, "move behind the last row", {});
}

Status Cursor::MoveNext() {
  return impl_->EndMove(*this, "move next", impl_->position.Next());
}
Status Cursor::MovePrevious() {
  return impl_->EndMove(*this, "move previous", impl_->position.Previous());
}
Status Cursor::MoveTo(RowKey key) {
  return impl_->EndMove(*this, "move to a row", impl_->position.ToKey(key));
}

RowKey Cursor::CurrentKey() const {
  return HasCurrent() ? impl_->position.Current().key : 0;
}

Status Cursor::AddNew() {
  if (SourceTable() == nullptr) return impl_->LogFailure("add", {ErrorKind::NotOpen, "no source"});
  impl_->DropCopy();
  impl_->copy.emplace(*SourceTable());
  return {};
}

Status Cursor::Edit() {
  if (SourceTable() == nullptr) return impl_->LogFailure("edit", {ErrorKind::NotOpen, "no source"});
  impl_->DropCopy();
  if (Status begun = impl_->BeginOwnAction(); !begun.Ok()) return impl_->LogFailure("edit", begun);
  Status read = impl_->position.ReadForEdit();
  if (!read.Ok()) return impl_->LogFailure("edit", impl_->EndOwnAction(read));
  impl_->copy.emplace(*SourceTable(), impl_->position.Current());
  impl_->editAction = impl_->stores.ActionNumber();
  return {};
}

Status Cursor::Update() {
  if (!impl_->copy) return impl_->LogFailure("update", {ErrorKind::NotOpen, "no add or edit is open"});
  const Status written = impl_->copy->IsNew() ? impl_->UpdateNew() : impl_->UpdateEdited();
  if (!written.Ok()) return impl_->LogFailure("update", written);
  impl_->copy.reset();
  impl_->RaiseRepositioned(*this);
  return {};
}

void Cursor::CancelUpdate() {
  impl_->DropCopy();
}

Status Cursor::Delete() {
  if (SourceTable() == nullptr) return impl_->LogFailure("delete", {ErrorKind::NotOpen, "no source"});
  impl_->DropCopy();
  if (!HasCurrent()) return impl_->LogFailure("delete", {ErrorKind::NoRecord, "no current record"});
  if (Status begun = impl_->BeginOwnAction(); !begun.Ok()) return impl_->LogFailure("delete", begun);
  const RowQuery& source = *impl_->position.Source();
  const RowKey key = impl_->position.Current().key;
  Status written = impl_->stores.Write(*source.table, [&](Engine& engine) { return engine.Delete(*source.file, *source.table, key); });
  const bool gone = written.Ok() || written.Kind() == ErrorKind::NoRecord;
  if (gone) impl_->position.NoteDeleted();
  if (written.Ok()) impl_->shownWriteCount = impl_->position.WriteCount();
  written = impl_->EndOwnAction(written);
  if (!written.Ok()) return impl_->LogFailure("delete", written);
  impl_->RaiseRepositioned(*this);
  return {};
}

bool Cursor::IsEditing() const {
  return impl_->copy.has_value();
}

Value Cursor::Get(std::string_view field) const {
  const int at = impl_->FieldPosition(field);
  return at < 0 ? Value() : Get(at);
}

Value Cursor::Get(int position) const {
  const Row* values = nullptr;
  if (impl_->copy) {
    values = &impl_->copy->Values();
  } else if (HasCurrent()) {
    values = &impl_->position.Current().values;
  }
  if (values == nullptr || position < 0 || static_cast<std::size_t>(position) >= values->size()) return {};
  return (*values)[static_cast<std::size_t>(position)];
}

void Cursor::Set(std::string_view field, const Value& value) {
  const int at = impl_->FieldPosition(field);
  if (at >= 0) Set(at, value);
}

void Cursor::Set(int position, const Value& value) {
  if (!impl_->copy) {
    Log(fmt::format("{}: set without an add or edit", impl_->name));
  } else if (position < 0 || static_cast<std::size_t>(position) >= impl_->copy->Values().size()) {
    Log(fmt::format("{}: no field {}", impl_->name, position));
  } else if (!impl_->copy->Set(position, value)) {
    const std::string_view field = SourceTable()->columns[static_cast<std::size_t>(position)].name;
    Log(fmt::format("{}: {} can't hold \"{}\"", impl_->name, field, AsText(value)));
  }
}

std::vector<GridRow> Cursor::RowsFromStart(int count) const {
  return RowsAt(0, count);
}

Status Cursor::RowsFromStart(int count, std::vector<GridRow>& rows) const {
  return impl_->LogFailure("rows", impl_->position.Rows({RowRange::From::Start, nullptr, count, 0}, rows));
}

std::vector<GridRow> Cursor::RowsFromEnd(int count) const {
  std::vector<GridRow> rows;
  RowsFromEnd(count, rows).Ignore();
  return rows;
}

Status Cursor::RowsFromEnd(int count, std::vector<GridRow>& rows) const {
  return impl_->LogFailure("rows", impl_->position.Rows({RowRange::From::End, nullptr, count, 0}, rows));
}

std::vector<GridRow> Cursor::RowsAfter(const GridRow& row, int count) const {
  std::vector<GridRow> rows;
  RowsAfter(row, count, rows).Ignore();
  return rows;
}

Status Cursor::RowsAfter(const GridRow& row, int count, std::vector<GridRow>& rows) const {
  return impl_->LogFailure("rows", impl_->position.Rows({RowRange::From::Behind, &row, count, 0}, rows));
}

std::vector<GridRow> Cursor::RowsBefore(const GridRow& row, int count) const {
  std::vector<GridRow> rows;
  impl_->LogFailure("rows", impl_->position.Rows({RowRange::From::Before, &row, count, 0}, rows)).Ignore();
  return rows;
}

std::vector<GridRow> Cursor::RowsAt(std::int64_t position, int count) const {
  std::vector<GridRow> rows;
  impl_->LogFailure("rows", impl_->position.Rows({RowRange::From::Start, nullptr, count, position}, rows)).Ignore();
  return rows;
}

std::int64_t Cursor::PositionOf(const GridRow& row) const {
  std::int64_t count = 0;
  impl_->LogFailure("position", impl_->position.CountBefore(row, count)).Ignore();
  return count;
}

GridRow Cursor::CurrentRow() const {
  return HasCurrent() ? impl_->position.Current() : GridRow{};
}

void Cursor::ShowIfStale() {
  const RowQuery* source = impl_->position.Source();
  if (source == nullptr || impl_->shownWriteCount == impl_->position.WriteCount()) return;
  impl_->shownWriteCount = impl_->position.WriteCount();
  shown();
}

Glance::Glance(const Cursor& cursor) : stores_(cursor.impl_->stores), busyBefore_(stores_.busyReads_) {
  stores_.engine_->SetPatient(false);
  stores_.glancing_ = true;
}

Glance::~Glance() {
  stores_.engine_->SetPatient(true);
  stores_.glancing_ = false;
}

bool Glance::Complete() const {
  return stores_.busyReads_ == busyBefore_;
}

bool Glance::ServerIsAway() const {
  return stores_.IsServerAway();
}

bool Glance::NothingIsOpen() const {
  return !stores_.IsOpen();
}

}  // namespace karvel
