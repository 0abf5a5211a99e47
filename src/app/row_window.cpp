#include "app/row_window.h"

#include <algorithm>
#include <iterator>

namespace karvel {

void RowWindow::SetSource(const Cursor* cursor) {
  cursor_ = cursor;
  Clear();
}

void RowWindow::Clear() {
  rows_.clear();
  position_ = 0;
  atStart_ = atEnd_ = true;
}

int RowWindow::IndexOf(RowKey key) const {
  for (std::size_t i = 0; i < rows_.size(); ++i)
    if (rows_[i].key == key) return static_cast<int>(i);
  return -1;
}

void RowWindow::LoadStart(int count) {
  Clear();
  if (!cursor_) return;
  rows_ = cursor_->RowsFromStart(count);
  atEnd_ = Count() < count;
}

void RowWindow::LoadEnd(int count) {
  Clear();
  if (!cursor_) return;
  rows_ = cursor_->RowsFromEnd(count);
  atStart_ = Count() < count;
  if (!atStart_) position_.reset();
}

int RowWindow::LoadAround(const GridRow& row, int margin, int count) {
  // A copy: the row may be one of those let go below.
  const GridRow anchor = row;  // NOLINT(performance-unnecessary-copy-initialization)
  const auto index = IndexOf(anchor.key);
  const std::optional<std::int64_t> held = position_ && index >= 0 ? std::optional(*position_ + index) : std::nullopt;
  Clear();
  if (!cursor_) return 0;
  rows_ = cursor_->RowsBefore(anchor, margin);
  const int before = Count();
  atStart_ = before < margin;
  if (atStart_)
    position_ = 0;
  else
    position_ = held ? std::optional(*held - before) : std::nullopt;
  auto rest = before == 0 ? cursor_->RowsFromStart(count) : cursor_->RowsAfter(rows_.back(), count);
  atEnd_ = static_cast<int>(rest.size()) < count;
  rows_.insert(rows_.end(), std::make_move_iterator(rest.begin()), std::make_move_iterator(rest.end()));
  return std::min(before, std::max(0, Count() - 1));
}

int RowWindow::LoadAt(std::int64_t position, int margin, int count) {
  Clear();
  if (!cursor_) return 0;
  const std::int64_t first = std::max<std::int64_t>(0, position - margin);
  const int wanted = static_cast<int>(position - first) + count;
  rows_ = cursor_->RowsAt(first, wanted);
  if (rows_.empty() && position > 0) {  // past the last row: the end is loaded
    LoadEnd(margin + count);
    return std::max(0, Count() - 1);
  }
  atStart_ = first == 0;
  atEnd_ = Count() < wanted;
  position_ = first;
  return std::min(static_cast<int>(position - first), std::max(0, Count() - 1));
}

int RowWindow::GrowUp(int count) {
  if (!cursor_ || atStart_ || rows_.empty()) return 0;
  auto more = cursor_->RowsBefore(rows_.front(), count);
  const int came = static_cast<int>(more.size());
  atStart_ = came < count;
  rows_.insert(rows_.begin(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
  if (atStart_)
    position_ = 0;
  else if (position_)
    *position_ -= came;
  return came;
}

int RowWindow::GrowDown(int count) {
  if (!cursor_ || atEnd_ || rows_.empty()) return 0;
  auto more = cursor_->RowsAfter(rows_.back(), count);
  const int came = static_cast<int>(more.size());
  atEnd_ = came < count;
  rows_.insert(rows_.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
  return came;
}

void RowWindow::DropTop(int count) {
  count = std::min(count, Count());
  if (count <= 0) return;
  rows_.erase(rows_.begin(), rows_.begin() + count);
  atStart_ = false;
  if (position_) *position_ += count;
}

void RowWindow::DropBottom(int count) {
  count = std::min(count, Count());
  if (count <= 0) return;
  rows_.resize(rows_.size() - static_cast<std::size_t>(count));
  atEnd_ = false;
}

}  // namespace karvel
