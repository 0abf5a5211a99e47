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

  // Notes a failure with the cursor's name and hands it on.
  Status Told(std::string_view step, Status status) const {
    if (!status.Ok()) Log(fmt::format("{}: {}: {}", name, step, status.Message()));
    return status;
  }

  void Report(Cursor& cursor) {
    if (position.Source() != nullptr) shownCount = position.WriteCount();
    cursor.repositioned();
    cursor.shown();
  }

  // Drops the open copy, and ends the action that was begun for it. Nothing was written in that action by this cursor.
  void DropCopy() {
    copy.reset();
    if (std::exchange(ownAction, false)) stores.Commit().Ignore();
  }

  Status BeginOwn() {
    if (stores.InAction()) return {};
    Status begun = stores.Begin(name);
    ownAction = begun.Ok();
    return begun;
  }

  // The outcome of a write and of the action that was begun for it.
  Status EndOwn(Status written) {
    if (!std::exchange(ownAction, false)) return written;
    Status ended = stores.Commit();
    return written.Ok() ? ended : written;
  }

  // A move that worked ends an open add or edit; the copy is lost, as when a form is left without saving.
  Status Moved(Cursor& cursor, std::string_view step, const Status& status) {
    if (!status.Ok()) return Told(step, status);
    DropCopy();
    Report(cursor);
    return {};
  }

  Status Compile(RowQuery& query) const {
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
    if (source == nullptr) return Told(step, {ErrorKind::NotOpen, "no source"});
    dialect::ExprPtr criterion;
    if (Status understood = dialect::ParseCriteria(criteria, *source->file, *source->table, criterion); !understood.Ok()) {
      return Told(step, understood);
    }
    Status found = position.Find(criterion, next);
    if (found.Kind() == ErrorKind::NoRecord) return found;
    noMatch = !found.Ok();
    return Moved(cursor, step, found);
  }

  Status UpdateNew() {
    if (Status begun = BeginOwn(); !begun.Ok()) return begun;
    // The current record is read before the new one can come before it.
    position.Settle();
    const std::uint64_t before = position.WriteCount();
    const RowQuery& source = *position.Source();
    RowKey key = 0;
    Status written =
        stores.Write(*source.table, [&](Engine& engine) { return engine.Insert(*source.file, *source.table, copy->Values(), key); });
    if (written.Ok()) {
      position.Added(before);
      shownCount = position.WriteCount();
    }
    return EndOwn(written);
  }

  Status UpdateEdited() {
    if (!LockHeld()) {
      // The action in which the edit began is over, so another terminal may have come between.
      if (Status begun = BeginOwn(); !begun.Ok()) return begun;
      Status fits = position.ReadForEdit();
      if (fits.Ok() && !copy->StillFits(position.Current().values)) fits = {ErrorKind::Busy, "changed meanwhile by another terminal"};
      if (!fits.Ok()) return EndOwn(fits);
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
      position.Written(values, before);
      shownCount = position.WriteCount();
    } else if (written.Kind() == ErrorKind::NoRecord) {
      position.Deleted();
    }
    return EndOwn(written);
  }

  [[nodiscard]] bool LockHeld() const { return stores.InAction() && stores.ActionNumber() == editAction; }

  [[nodiscard]] int PositionOf(std::string_view field) const {
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
  std::uint64_t shownCount = 0;
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
  const Status compiled = impl_->Compile(query);
  if (compiled.Ok()) {
    impl_->position.Take(std::move(query));
  } else {
    impl_->position.Drop();
  }
  impl_->Report(*this);
  return impl_->Told("refresh", compiled);
}

Status Cursor::Open(const std::string& source) {
  SetRecordSource(source);
  return Refresh();
}

void Cursor::Close() {
  impl_->DropCopy();
  impl_->noMatch = false;
  impl_->position.Drop();
  impl_->Report(*this);
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
  impl_->Told("count", impl_->position.Count(count)).Ignore();
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
  if (SourceTable() == nullptr) return impl_->Told("move first", {ErrorKind::NotOpen, "no source"});
  impl_->position.ToFirst();
  return impl_->Moved(*this, "move first", {});
}

Status Cursor::MoveLast() {
  if (SourceTable() == nullptr) return impl_->Told("move last", {ErrorKind::NotOpen, "no source"});
  impl_->position.ToLast();
  return impl_->Moved(*this, "move last", {});
}

Status Cursor::MoveNext() {
  return impl_->Moved(*this, "move next", impl_->position.Next());
}
Status Cursor::MovePrevious() {
  return impl_->Moved(*this, "move previous", impl_->position.Previous());
}
Status Cursor::MoveTo(RowKey key) {
  return impl_->Moved(*this, "move to a row", impl_->position.To(key));
}

RowKey Cursor::CurrentKey() const {
  return HasCurrent() ? impl_->position.Current().key : 0;
}

Status Cursor::AddNew() {
  if (SourceTable() == nullptr) return impl_->Told("add", {ErrorKind::NotOpen, "no source"});
  impl_->DropCopy();
  impl_->copy.emplace(*SourceTable());
  return {};
}

Status Cursor::Edit() {
  if (SourceTable() == nullptr) return impl_->Told("edit", {ErrorKind::NotOpen, "no source"});
  impl_->DropCopy();
  if (Status begun = impl_->BeginOwn(); !begun.Ok()) return impl_->Told("edit", begun);
  Status read = impl_->position.ReadForEdit();
  if (!read.Ok()) return impl_->Told("edit", impl_->EndOwn(read));
  impl_->copy.emplace(*SourceTable(), impl_->position.Current());
  impl_->editAction = impl_->stores.ActionNumber();
  return {};
}

Status Cursor::Update() {
  if (!impl_->copy) return impl_->Told("update", {ErrorKind::NotOpen, "no add or edit is open"});
  const Status written = impl_->copy->IsNew() ? impl_->UpdateNew() : impl_->UpdateEdited();
  if (!written.Ok()) return impl_->Told("update", written);
  impl_->copy.reset();
  impl_->Report(*this);
  return {};
}

void Cursor::CancelUpdate() {
  impl_->DropCopy();
}

Status Cursor::Delete() {
  if (SourceTable() == nullptr) return impl_->Told("delete", {ErrorKind::NotOpen, "no source"});
  impl_->DropCopy();
  if (!HasCurrent()) return impl_->Told("delete", {ErrorKind::NoRecord, "no current record"});
  if (Status begun = impl_->BeginOwn(); !begun.Ok()) return impl_->Told("delete", begun);
  const RowQuery& source = *impl_->position.Source();
  const RowKey key = impl_->position.Current().key;
  Status written = impl_->stores.Write(*source.table, [&](Engine& engine) { return engine.Delete(*source.file, *source.table, key); });
  const bool gone = written.Ok() || written.Kind() == ErrorKind::NoRecord;
  if (gone) impl_->position.Deleted();
  if (written.Ok()) impl_->shownCount = impl_->position.WriteCount();
  written = impl_->EndOwn(written);
  if (!written.Ok()) return impl_->Told("delete", written);
  impl_->Report(*this);
  return {};
}

bool Cursor::IsEditing() const {
  return impl_->copy.has_value();
}

Value Cursor::Get(std::string_view field) const {
  const int at = impl_->PositionOf(field);
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
  const int at = impl_->PositionOf(field);
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

std::vector<GridRow> Cursor::RowsFromEnd(int count) const {
  std::vector<GridRow> rows;
  impl_->Told("rows", impl_->position.Rows({RowRange::From::End, nullptr, count, 0}, rows)).Ignore();
  return rows;
}

std::vector<GridRow> Cursor::RowsAfter(const GridRow& row, int count) const {
  std::vector<GridRow> rows;
  impl_->Told("rows", impl_->position.Rows({RowRange::From::Behind, &row, count, 0}, rows)).Ignore();
  return rows;
}

std::vector<GridRow> Cursor::RowsBefore(const GridRow& row, int count) const {
  std::vector<GridRow> rows;
  impl_->Told("rows", impl_->position.Rows({RowRange::From::Before, &row, count, 0}, rows)).Ignore();
  return rows;
}

std::vector<GridRow> Cursor::RowsAt(std::int64_t position, int count) const {
  std::vector<GridRow> rows;
  impl_->Told("rows", impl_->position.Rows({RowRange::From::Start, nullptr, count, position}, rows)).Ignore();
  return rows;
}

std::int64_t Cursor::PositionOf(const GridRow& row) const {
  std::int64_t count = 0;
  impl_->Told("position", impl_->position.CountBefore(row, count)).Ignore();
  return count;
}

GridRow Cursor::CurrentRow() const {
  return HasCurrent() ? impl_->position.Current() : GridRow{};
}

void Cursor::ShowIfStale() {
  const RowQuery* source = impl_->position.Source();
  if (source == nullptr || impl_->shownCount == impl_->position.WriteCount()) return;
  impl_->shownCount = impl_->position.WriteCount();
  shown();
}

}  // namespace karvel
