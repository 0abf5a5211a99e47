// Reads of a query's rows that may take several statements, for any engine: rows beside a row come stretch by stretch, and a list whose
// pattern begins with any letter comes span by span. Each statement is a seek on an index, where an index fits.
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
  // Appends the rows of a statement that gives the key and all columns of the table.
  virtual void ReadRows(const Table& table, const SqlText& sql, std::vector<GridRow>& rows) = 0;
  // The one whole number that a count gives.
  virtual std::int64_t ReadNumber(const SqlText& sql) = 0;
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
  void SelectPart(const RowRange& range, const RowsPart& part, std::vector<GridRow>& rows);
  void SelectSpans(const RowRange& range, RowsPart part, std::vector<GridRow>& rows);

  const TableSql& sql_;
  const RowQuery& query_;
  const std::vector<KeySpan> spans_;
  StatementRunner& runner_;
};

}  // namespace karvel
