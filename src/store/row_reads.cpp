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
  RowsPart part{.reversed = IsReversed(range), .beside = range.beside};
  if (range.beside == nullptr) {
    SelectPart(range, part, rows);
  } else {
    for (const Stretch& stretch : TableSql::Stretches(query_, *range.beside, part.reversed)) {
      if (StillWanted(range, rows) <= 0) break;
      part.stretch = &stretch;
      SelectPart(range, part, rows);
    }
  }
  if (part.reversed) std::ranges::reverse(rows);
}

void RowReads::SelectPart(const RowRange& range, const RowsPart& part, std::vector<GridRow>& rows) {
  // Only a stretch that runs over many first terms lies in more than one span.
  const Stretch* const stretch = part.stretch;
  const bool manyFirstTerms = stretch == nullptr || (stretch->term == 0 && stretch->kind == Stretch::Kind::TermBeyond);
  if (!spans_.empty() && manyFirstTerms) return SelectSpans(range, part, rows);
  runner_.ReadRows(*query_.table, sql_.Select(query_, part, StillWanted(range, rows), range.offset), rows);
}

// The rows of the spans in the order of the query, one span after another until the limit.
void RowReads::SelectSpans(const RowRange& range, RowsPart part, std::vector<GridRow>& rows) {
  const bool falling = query_.order.front().descending != part.reversed;
  std::int64_t passed = range.offset;
  part.span = &spans_.front();
  SqlText select = sql_.Select(query_, part, range.limit);
  for (std::size_t i = 0; i < spans_.size() && StillWanted(range, rows) > 0; ++i) {
    const KeySpan& span = spans_[falling ? spans_.size() - 1 - i : i];
    if (passed > 0) {
      const std::int64_t there = runner_.ReadNumber(sql_.Count(query_, {.span = &span}, passed + 1));
      if (there > passed) {
        part.span = &span;
        runner_.ReadRows(*query_.table, sql_.Select(query_, part, range.limit, passed), rows);
        passed = 0;
      } else {
        passed -= there;
      }
      continue;
    }
    TableSql::SetSpan(select, span);
    select.parameters.back() = static_cast<double>(StillWanted(range, rows));
    runner_.ReadRows(*query_.table, select, rows);
  }
}

std::int64_t RowReads::Count() {
  if (spans_.empty()) return runner_.ReadNumber(sql_.Count(query_));
  SqlText counting = sql_.Count(query_, {.span = &spans_.front()});
  std::int64_t count = 0;
  for (const KeySpan& span : spans_) {
    TableSql::SetSpan(counting, span);
    count += runner_.ReadNumber(counting);
  }
  return count;
}

std::int64_t RowReads::CountBefore(const GridRow& row) {
  std::int64_t count = 0;
  for (const Stretch& stretch : TableSql::Stretches(query_, row, true)) {
    count += runner_.ReadNumber(sql_.Count(query_, {.reversed = true, .stretch = &stretch, .beside = &row}));
  }
  return count;
}

}  // namespace karvel
