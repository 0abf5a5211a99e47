// The SQL of one table: how its columns and compare keys are called, and the texts of all statements on it. Only catalogue names and
// parameters go into a text, never what was typed.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "store/engine.h"
#include "store/key_spans.h"

namespace karvel::sqlite {

// A text with the values of its parameters. Row keys and limits go as numbers too: they stay far below 2^53.
struct Sql {
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

class TableSql : public dialect::SqlTarget {
 public:
  TableSql(const Table& table, const std::string& schema);

  [[nodiscard]] std::string ColumnName(std::string_view column) const override;
  [[nodiscard]] std::string Parameter(std::size_t n) const override;
  [[nodiscard]] std::string IndexedKey(std::string_view columnSql) const override;
  [[nodiscard]] std::string ComputedKey(std::string_view textSql) const override;
  [[nodiscard]] std::string Fits(std::string_view textSql, std::string_view patternSql) const override;
  [[nodiscard]] std::string LeftOf(std::string_view textSql, int count) const override;

  // The stretches beside a row in the order or against it, the nearest first.
  [[nodiscard]] static std::vector<Stretch> Stretches(const RowQuery& query, const GridRow& beside, bool reversed);

  // The key and all columns of the rows; with a stretch or a span only of those in it. The limit and the offset are the last parameters.
  [[nodiscard]] Sql Select(const RowQuery& query, bool reversed, const Stretch* stretch, const GridRow* beside, int limit,
                           std::int64_t offset, const KeySpan* span = nullptr) const;
  // How many there are; with `most` above 0 no more than that are counted.
  [[nodiscard]] Sql Count(const RowQuery& query, const Stretch* stretch, const GridRow* beside, const KeySpan* span = nullptr,
                          std::int64_t most = 0) const;
  // Puts other bounds into a text that was made with a span.
  static void SetSpan(Sql& sql, const KeySpan& span);
  [[nodiscard]] Sql Sum(const RowQuery& query, int position) const;
  [[nodiscard]] Sql DeleteWhere(const RowQuery& query) const;
  [[nodiscard]] Sql Change(RowKey key, std::span<const FieldValue> fields) const;
  [[nodiscard]] const std::string& Read() const { return read_; }      // ?1 the key
  [[nodiscard]] const std::string& Insert() const { return insert_; }  // ?1 … the columns
  [[nodiscard]] const std::string& Delete() const { return delete_; }  // ?1 the key

 private:
  [[nodiscard]] std::string KeyOf(int position) const;
  void AddWhere(const RowQuery& query, const Stretch* stretch, const GridRow* beside, bool reversed, const KeySpan* span, Sql& sql) const;
  void AddStretch(const RowQuery& query, const Stretch& stretch, const GridRow& beside, bool reversed, std::string_view glue,
                  Sql& sql) const;
  void AddOrder(const RowQuery& query, bool reversed, std::size_t from, Sql& sql) const;

  const Table& table_;
  std::string name_;    // with its schema, quoted
  std::string select_;  // SELECT … FROM …
  std::string read_;
  std::string insert_;
  std::string delete_;
  std::unordered_map<std::string, std::string> keys_;  // of the text columns
};

// An index of the catalogue as the files hold it, in built-in functions only.
std::string CreateIndexSql(const Table& table, const Index& index);
std::string CreateTableSql(const Table& table);

}  // namespace karvel::sqlite
