#include "store/position.h"

#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "store/stores.h"

namespace karvel {
namespace {

// The first read ahead is short, for most walks end soon; a walk that goes on reads further.
constexpr int kFirstAhead = 8;
constexpr int kMostAhead = 64;

Status NoCurrent() {
  return {ErrorKind::NoRecord, "no current record"};
}

}  // namespace

void Position::SetSource(RowQuery source) {
  ClearSource();
  source_ = std::move(source);
  opening_ = stores_.Openings();
  place_ = Place::First;
}

void Position::ClearSource() {
  source_.reset();
  place_ = Place::None;
  current_ = {};
  asReached_.reset();
  ahead_.clear();
  rowCount_ = -1;
  emptyWrites_.reset();
}

bool Position::OnRow() {
  ReadIfNeeded();
  return place_ == Place::OnRow;
}

bool Position::Bof() {
  ReadIfNeeded();
  return place_ == Place::Bof || place_ == Place::None;
}

bool Position::Eof() {
  ReadIfNeeded();
  return place_ == Place::Eof || place_ == Place::None;
}

void Position::LogFailure(const Status& read) const {
  if (!stores_.Glances(read)) Log(read.Message());
}

bool Position::HasRows() {
  ReadIfNeeded();
  if (place_ == Place::OnRow) return true;
  if (!IsLive() || emptyWrites_ == WriteCount()) return false;
  std::vector<GridRow> rows;
  const std::uint64_t count = WriteCount();
  if (Status read = Select({}, rows); !read.Ok()) {
    LogFailure(read);
  } else if (rows.empty()) {
    emptyWrites_ = count;
  }
  return !rows.empty();
}

void Position::ToFirst() {
  if (source_) place_ = Place::First;
}

void Position::ToEnd() {
  if (source_) place_ = Place::Eof;
}

void Position::ToLast() {
  if (source_) place_ = Place::Last;
}

Status Position::Next() {
  return Step(true);
}
Status Position::Previous() {
  return Step(false);
}

Status Position::Step(bool forward) {
  ReadIfNeeded();
  // From before the first row the step is to the first one, and the same at the other end.
  if (place_ == (forward ? Place::Bof : Place::Eof)) {
    place_ = forward ? Place::First : Place::Last;
    return {};
  }
  if (place_ != Place::OnRow && place_ != Place::Gone) return NoCurrent();

  // What was read ahead serves as long as nothing was written since and the walk keeps its direction.
  const bool kept = !ahead_.empty() && aheadForward_ == forward && aheadWrites_ == WriteCount();
  if (!kept || aheadAt_ == ahead_.size()) {
    aheadSize_ = kept ? std::min(aheadSize_ * 4, kMostAhead) : kFirstAhead;
    // A reading that gave fewer rows than were asked for has come to the end.
    const bool wasShort = kept && ahead_.size() % kFirstAhead != 0;
    std::vector<GridRow> rows;
    const RowRange range{forward ? RowRange::From::Behind : RowRange::From::Before, &ReachedRow(), aheadSize_, 0};
    if (!wasShort) {
      const std::uint64_t count = WriteCount();
      if (Status read = Select(range, rows); !read.Ok()) return read;
      if (!forward) std::reverse(rows.begin(), rows.end());
      aheadWrites_ = count;
      aheadAction_ = HoldingAction();
    }
    ahead_ = std::move(rows);
    aheadAt_ = 0;
    aheadForward_ = forward;
  }
  if (ahead_.empty()) {
    place_ = forward ? Place::Eof : Place::Bof;
    return {};
  }
  current_ = std::move(ahead_[aheadAt_++]);
  asReached_.reset();
  currentWrites_ = aheadWrites_;
  currentAction_ = aheadAction_;
  place_ = Place::OnRow;
  return {};
}

Status Position::Find(const dialect::ExprPtr& criterion, bool behindCurrent) {
  RowRange range;
  if (behindCurrent) {
    ReadIfNeeded();
    if (place_ == Place::Eof || place_ == Place::None) return NoCurrent();
    if (place_ == Place::OnRow || place_ == Place::Gone) {
      range.from = RowRange::From::Behind;
      range.beside = &ReachedRow();
    }
  }
  std::vector<GridRow> rows;
  if (Status read = Select(range, rows, criterion); !read.Ok()) return read;
  if (rows.empty()) return {ErrorKind::NoRecord, "no row matches"};
  StandOn(std::move(rows.front()));
  return {};
}

Status Position::ToKey(RowKey key) {
  if (!IsLive()) return NoCurrent();
  GridRow row;
  Status read = stores_.Read([&](Engine& engine) { return engine.Read(*source_->file, *source_->table, key, row); });
  if (read.Ok()) StandOn(std::move(row));
  return read;
}

Status Position::ReadForEdit() {
  if (!OnRow()) return NoCurrent();
  if (currentAction_ == stores_.ActionNumber()) return {};
  GridRow row;
  Status read = stores_.Read([&](Engine& engine) { return engine.Read(*source_->file, *source_->table, current_.key, row); });
  if (read.Ok()) {
    SetCurrentValues(std::move(row.values));
    currentWrites_ = WriteCount();
    currentAction_ = stores_.ActionNumber();
  } else if (read.Kind() == ErrorKind::NoRecord) {
    place_ = Place::Gone;
  }
  return read;
}

void Position::NoteWritten(const Row& values, std::uint64_t before) {
  SetCurrentValues(values);
  if (currentWrites_ == before) currentWrites_ = WriteCount();
}

void Position::NoteAdded(std::uint64_t before) {
  // A source that had no row now begins with the added one, if it belongs there.
  if (place_ == Place::None && source_) place_ = Place::First;
  if (currentWrites_ == before) currentWrites_ = WriteCount();
}

void Position::NoteDeleted() {
  place_ = Place::Gone;
}

Status Position::Rows(const RowRange& range, std::vector<GridRow>& rows) {
  rows.clear();
  if (!IsLive() || range.limit <= 0) return {};
  if (range.beside != nullptr && range.beside->values.size() != source_->table->columns.size()) return NoCurrent();
  return Select(range, rows);
}

Status Position::Count(std::int64_t& count) {
  count = 0;
  if (!IsLive()) return {};
  const std::uint64_t writes = WriteCount();
  if (rowCount_ >= 0 && rowCountWrites_ == writes) {
    count = rowCount_;
    return {};
  }
  Status counted = stores_.Read([&](Engine& engine) { return engine.Count(*source_, count); });
  if (!counted.Ok()) return counted;
  rowCount_ = count;
  rowCountWrites_ = writes;
  return {};
}

Status Position::CountBefore(const GridRow& row, std::int64_t& count) {
  count = 0;
  if (!IsLive() || row.values.size() != source_->table->columns.size()) return NoCurrent();
  return stores_.Read([&](Engine& engine) { return engine.CountBefore(*source_, row, count); });
}

bool Position::IsLive() const {
  return source_ && opening_ == stores_.Openings();
}

std::uint64_t Position::HoldingAction() const {
  return stores_.InAction() && stores_.Driver().ReadsHold() ? stores_.ActionNumber() : 0;
}

std::uint64_t Position::ActionThatHolds(RowKey key) const {
  return stores_.InAction() && stores_.Driver().HoldsRow(*source_->table, key) ? stores_.ActionNumber() : 0;
}

std::uint64_t Position::WriteCount() const {
  return source_ ? stores_.WriteCount(*source_->table) : 0;
}

void Position::ReadIfNeeded() {
  if (!IsLive()) {
    place_ = Place::None;
    return;
  }
  if (place_ == Place::OnRow) {
    if (currentWrites_ != WriteCount()) ReadCurrentAgain();
    return;
  }
  if (place_ != Place::First && place_ != Place::Last) return;
  RowRange range;
  range.from = place_ == Place::First ? RowRange::From::Start : RowRange::From::End;
  std::vector<GridRow> rows;
  const std::uint64_t count = WriteCount();
  if (Status read = Select(range, rows); !read.Ok()) {
    LogFailure(read);
    return;
  }
  if (rows.empty()) {
    place_ = Place::None;
    emptyWrites_ = count;
  } else {
    StandOn(std::move(rows.front()));
  }
}

void Position::ReadCurrentAgain() {
  const std::uint64_t count = WriteCount();
  GridRow row;
  const Status read = stores_.Read([&](Engine& engine) { return engine.Read(*source_->file, *source_->table, current_.key, row); });
  if (read.Ok()) {
    SetCurrentValues(std::move(row.values));
    currentWrites_ = count;
    currentAction_ = ActionThatHolds(current_.key);
  } else if (read.Kind() == ErrorKind::NoRecord) {
    place_ = Place::Gone;
  } else {
    LogFailure(read);
  }
}

void Position::SetCurrentValues(Row values) {
  const auto moved = [&](const dialect::OrderTerm& term) {
    const auto at = static_cast<std::size_t>(term.position);
    return current_.values[at] != values[at];
  };
  if (!asReached_ && std::any_of(source_->order.begin(), source_->order.end(), moved)) asReached_ = current_;
  current_.values = std::move(values);
}

void Position::StandOn(GridRow row) {
  current_ = std::move(row);
  asReached_.reset();
  currentWrites_ = WriteCount();
  currentAction_ = ActionThatHolds(current_.key);
  place_ = Place::OnRow;
  ahead_.clear();
}

Status Position::Select(const RowRange& range, std::vector<GridRow>& rows, const dialect::ExprPtr& also) {
  if (!IsLive()) return NoCurrent();
  if (also) source_->where.push_back(also);
  Status read = stores_.Read([&](Engine& engine) { return engine.Select(*source_, range, rows); });
  if (also) source_->where.pop_back();
  if (read.Ok()) stores_.NoteDamage(*source_->table, rows);
  return read;
}

}  // namespace karvel
