// The SQL of one table: the texts of all statements on its rows, for any engine. The engine says how names, parameters and compare keys
// are written (dialect::SqlTarget) and how it calls the table and the key of a row (TableNames); everything else is the same for all.
// Only catalogue names and parameters go into a text, never what was typed.
//
// Nulls, which only other programs write, have to stand before all values in the engine's order.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "store/engine.h"
#include "store/key_spans.h"

namespace karvel {

// A text with the values of its parameters, in their order. Row keys and limits go as numbers too: they stay far below 2^53.
struct SqlText {
  std::string text;
  std::vector<Value> parameters;
  std::size_t spanAt = 0;  // where the bounds of the span stand among the parameters, if it has one
};

// One stretch of the rows beside a row. Rows behind (a, b, key) in the order a, b are, the nearest first: those with the same a and b
// and a greater key; those with the same a and a greater b; those with a greater a. Each is one seek on an index.
struct Stretch {
  enum class Kind { SameTermsKeyBeyond, TermBeyond, TermNull, TermNotNull };
  Kind kind;
  std::size_t term;  // the terms before it are equal
};

// Which of a query's rows a statement is about, and from which end they are read. As it stands here: all of them, in the query's order.
struct RowsPart {
  bool reversed = false;             // against the query's order, and so on the other side of `beside`
  const Stretch* stretch = nullptr;  // only the rows in it
  const GridRow* beside = nullptr;   // the row that the stretch lies beside; needed with a stretch only
  const KeySpan* span = nullptr;     // only the rows whose first order term, a text, lies in it
};

// How an engine's SQL writes the table and the column of its rows' keys: "main"."Datam" and _rowid_.
struct TableNames {
  std::string table;
  std::string rowKey;
};

class TableSql : private dialect::SqlTarget {
 public:
  // The table and the engine's words must outlive this object.
  TableSql(const Table& table, const dialect::SqlTarget& words, TableNames names);

  // The stretches beside a row in the order or against it, the nearest first.
  [[nodiscard]] static std::vector<Stretch> Stretches(const RowQuery& query, const GridRow& beside, bool reversed);

  // The key and all columns of the rows, at most `limit` of them, behind the first `offset`. The limit is the last parameter, or the one
  // before an offset above 0.
  [[nodiscard]] SqlText Select(const RowQuery& query, const RowsPart& part, int limit, std::int64_t offset = 0) const;
  // How many rows there are; with `most` above 0 no more than that are counted.
  [[nodiscard]] SqlText Count(const RowQuery& query, const RowsPart& part = {}, std::int64_t most = 0) const;
  // Puts other bounds into a text that was made with a span.
  static void SetSpan(SqlText& sql, const KeySpan& span);
  // The sum of the number column at this position; Null without rows.
  [[nodiscard]] SqlText Sum(const RowQuery& query, int position) const;
  // The texts of the column `by`, each with its sum.
  [[nodiscard]] SqlText SumBy(const RowQuery& query, int position, int by) const;
  [[nodiscard]] SqlText DeleteWhere(const RowQuery& query) const;
  // Writes these fields of one row; at least one.
  [[nodiscard]] SqlText Change(RowKey key, std::span<const FieldValue> fields) const;
  // The key and all columns of one row. Its parameter is the key.
  [[nodiscard]] const std::string& Read() const { return read_; }
  // A whole row. Its parameters are the columns' values in catalogue order.
  [[nodiscard]] const std::string& Insert() const { return insert_; }
  // Its parameter is the key.
  [[nodiscard]] const std::string& Delete() const { return delete_; }

 private:
  // The engine's words for the dialect's conditions, with the keys of the table's own columns kept.
  [[nodiscard]] std::string ColumnName(std::string_view column) const override { return words_.ColumnName(column); }
  [[nodiscard]] std::string Parameter(std::size_t n) const override { return words_.Parameter(n); }
  [[nodiscard]] std::string IndexedKey(std::string_view columnSql) const override;
  [[nodiscard]] std::string ComputedKey(std::string_view textSql) const override { return words_.ComputedKey(textSql); }
  [[nodiscard]] std::string KeyUnlike(std::string_view textSql, std::string_view key) const override {
    return words_.KeyUnlike(textSql, key);
  }
  [[nodiscard]] std::string Fits(std::string_view textSql, std::string_view patternSql) const override {
    return words_.Fits(textSql, patternSql);
  }
  [[nodiscard]] std::string LeftOf(std::string_view textSql, int count) const override { return words_.LeftOf(textSql, count); }
  [[nodiscard]] std::string Holds(std::string_view columnSql, bool value) const override { return words_.Holds(columnSql, value); }
  [[nodiscard]] std::string Pattern(std::string_view pattern) const override { return words_.Pattern(pattern); }
  [[nodiscard]] std::string_view Direction(bool descending) const override { return words_.Direction(descending); }
  [[nodiscard]] std::string Key(std::string_view text) const override { return words_.Key(text); }
  [[nodiscard]] std::string KeyPrefixEnd(std::string_view prefix) const override { return words_.KeyPrefixEnd(prefix); }

  [[nodiscard]] const Column& ColumnAt(int position) const { return table_.columns[static_cast<std::size_t>(position)]; }
  [[nodiscard]] std::string NameOf(int position) const { return ColumnName(ColumnAt(position).name); }
  // What a column is compared and ordered by.
  [[nodiscard]] std::string KeyOf(int position) const;
  // Takes a value in, and gives its place in the text.
  [[nodiscard]] std::string Put(Value value, SqlText& sql) const;
  void AddWhere(const RowQuery& query, const RowsPart& part, SqlText& sql) const;
  void AddStretch(const RowQuery& query, const RowsPart& part, std::string_view glue, SqlText& sql) const;
  void AddOrder(const RowQuery& query, bool reversed, std::size_t from, SqlText& sql) const;

  const Table& table_;
  const dialect::SqlTarget& words_;
  const TableNames names_;
  std::string select_;  // SELECT … FROM …
  std::string read_;
  std::string insert_;
  std::string delete_;
  std::unordered_map<std::string, std::string> keys_;  // of the text columns, by their names in SQL
};

// A name of the catalogue as SQL writes it, in quotes.
std::string QuotedName(std::string_view name);

}  // namespace karvel
