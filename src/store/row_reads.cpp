#include "store/row_reads.h"

#include <algorithm>
#include <utility>

namespace karvel {
namespace {

// Rows from the end, and those before a row, are read backwards.
bool IsReversed(const RowRange& range) {
  return range.from == RowRange::From::End || range.from == RowRange::From::Before;
}

int StillWanted(const RowRange& range, const std::vector<GridRow>& rows) {
  return range.limit - static_cast<int>(rows.size());
}

}  // namespace

RowReads::RowReads(const TableSql& sql, const RowQuery& query, std::vector<KeySpan> spans, StatementRunner& runner)
    : sql_(sql), query_(query), spans_(std::move(spans)), runner_(runner) {}

void RowReads::Select(const RowRange& range, std::vector<GridRow>& rows) {
  if (range.offset > 0 && !spans_.empty()) {
    SelectBehindOffset(range, rows);
  } else {
    std::vector<Stretch> stretches;
    if (range.beside != nullptr) stretches = TableSql::Stretches(query_, *range.beside, IsReversed(range));
    SelectParts(range, PartsOf(range, stretches), rows);
  }
  if (IsReversed(range)) std::ranges::reverse(rows);
}

const KeySpan& RowReads::SpanAt(std::size_t i, bool reversed) const {
  const bool falling = query_.order.front().descending != reversed;
  return spans_[falling ? spans_.size() - 1 - i : i];
}

std::vector<RowsPart> RowReads::PartsOf(const RowRange& range, std::span<const Stretch> stretches) const {
  std::vector<RowsPart> parts;
  RowsPart part{.reversed = IsReversed(range), .beside = range.beside};
  const auto add = [&](bool manyFirstTerms) {
    if (spans_.empty() || !manyFirstTerms) {
      part.span = nullptr;
      parts.push_back(part);
      return;
    }
    for (std::size_t i = 0; i < spans_.size(); ++i) {
      part.span = &SpanAt(i, part.reversed);
      parts.push_back(part);
    }
  };
  if (range.beside == nullptr) add(true);
  for (const Stretch& stretch : stretches) {
    part.stretch = &stretch;
    // Only a stretch that runs over many first terms lies in more than one span.
    add(stretch.term == 0 && stretch.kind == Stretch::Kind::TermBeyond);
  }
  return parts;
}

void RowReads::SelectParts(const RowRange& range, std::span<const RowsPart> parts, std::vector<GridRow>& rows) {
  std::vector<SqlText> statements(std::min(runner_.AtOnce(), parts.size()));
  for (std::size_t at = 0; at < parts.size() && StillWanted(range, rows) > 0;) {
    const std::size_t count = std::min(statements.size(), parts.size() - at);
    for (std::size_t i = 0; i < count; ++i) {
      const RowsPart& part = parts[at + i];
      // From span to span the text stays.
      if (part.span != nullptr && at > 0 && parts[at + i - statements.size()].span != nullptr) {
        TableSql::SetSpan(statements[i], *part.span);
        statements[i].parameters.back() = static_cast<double>(StillWanted(range, rows));
      } else {
        statements[i] = sql_.Select(query_, part, StillWanted(range, rows), range.offset);
      }
    }
    runner_.ReadRows(*query_.table, std::span(statements).first(count), rows);
    at += count;
  }
  if (StillWanted(range, rows) < 0) rows.resize(static_cast<std::size_t>(range.limit));
}

void RowReads::SelectBehindOffset(const RowRange& range, std::vector<GridRow>& rows) {
  RowsPart part{.reversed = IsReversed(range)};
  std::int64_t passed = range.offset;
  for (std::size_t i = 0; i < spans_.size() && StillWanted(range, rows) > 0; ++i) {
    part.span = &SpanAt(i, part.reversed);
    const SqlText counting = sql_.Count(query_, {.span = part.span}, passed + 1);
    const std::int64_t there = passed > 0 ? runner_.ReadNumbers({&counting, 1}) : 1;
    if (there > passed) {
      const SqlText select = sql_.Select(query_, part, StillWanted(range, rows), passed);
      runner_.ReadRows(*query_.table, {&select, 1}, rows);
    }
    passed = std::max<std::int64_t>(0, passed - there);
  }
}

std::int64_t RowReads::Count() {
  std::vector<SqlText> counts(1, sql_.Count(query_, {.span = spans_.empty() ? nullptr : &spans_.front()}));
  if (!spans_.empty()) counts.resize(spans_.size(), counts.front());
  for (std::size_t i = 0; i < spans_.size(); ++i) TableSql::SetSpan(counts[i], spans_[i]);
  return runner_.ReadNumbers(counts);
}

std::int64_t RowReads::CountBefore(const GridRow& row) {
  std::vector<SqlText> counts;
  for (const Stretch& stretch : TableSql::Stretches(query_, row, true))
    counts.push_back(sql_.Count(query_, {.reversed = true, .stretch = &stretch, .beside = &row}));
  return runner_.ReadNumbers(counts);
}

}  // namespace karvel
