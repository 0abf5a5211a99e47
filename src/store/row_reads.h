// Reads of a query's rows that may take several statements, for any engine: rows beside a row come stretch by stretch, and a list whose
// pattern begins with any letter comes span by span. Each statement is a seek on an index, where an index fits. An engine that waits long
// for each answer is handed several of them at once, though the first may give all that is wanted.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "store/engine.h"
#include "store/key_spans.h"
#include "store/table_sql.h"

namespace karvel {

// An engine's connection, as these reads use it. What it throws comes out of them.
class StatementRunner {
 public:
  virtual ~StatementRunner() = default;
  // How many statements it takes at once.
  [[nodiscard]] virtual std::size_t AtOnce() const { return 1; }
  // Appends the rows of statements that give the key and all columns of the table, one statement's behind the other's.
  virtual void ReadRows(const Table& table, std::span<const SqlText> statements, std::vector<GridRow>& rows) = 0;
  // The sum of the whole numbers that counts give.
  virtual std::int64_t ReadNumbers(std::span<const SqlText> counts) = 0;
};

class RowReads {
 public:
  // `spans` are those of the query (SpansOf), or none: for a query that has none, and for an engine whose compare keys are not FoldKey's.
  // All but the spans must outlive this object.
  RowReads(const TableSql& sql, const RowQuery& query, std::vector<KeySpan> spans, StatementRunner& runner);

  // The rows of the range in the query's order. `rows` must be empty.
  void Select(const RowRange& range, std::vector<GridRow>& rows);
  [[nodiscard]] std::int64_t Count();
  // How many rows of the query stand before a row.
  [[nodiscard]] std::int64_t CountBefore(const GridRow& row);

 private:
  [[nodiscard]] const KeySpan& SpanAt(std::size_t i, bool reversed) const;
  // The parts that hold the rows beside a row, or all rows without one, the nearest first.
  [[nodiscard]] std::vector<RowsPart> PartsOf(const RowRange& range, std::span<const Stretch> stretches) const;
  void SelectParts(const RowRange& range, std::span<const RowsPart> parts, std::vector<GridRow>& rows);
  // Span by span, for a read that passes rows over.
  void SelectBehindOffset(const RowRange& range, std::vector<GridRow>& rows);

  const TableSql& sql_;
  const RowQuery& query_;
  const std::vector<KeySpan> spans_;
  StatementRunner& runner_;
};

}  // namespace karvel
