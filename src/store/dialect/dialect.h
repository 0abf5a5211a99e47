// The desk's query dialect: record sources, criteria and delete statements as the handlers write them, taken apart.
//
//   Select * From T [Where c] [Order By f [Asc|Desc], …]      Select Sum(f) FROM T [Where c]      DELETE FROM T [Where c] [;]
//   c: = <> < > <= >=  And Or Not  ( )  Like 'pattern'  True False  numbers  'text' "text"  #mm/dd/yyyy[ hh:nn:ss]#  Left(x,n)  LCase(x)
//
// Key words and names ignore case; a bare table name is a source too. A text is closed by the quote that opened it; a doubled quote inside
// stands for one. Every name is checked against the catalogue and every comparison against its types; what doesn't fit is BadText with a
// message that says where. No text of a literal ever becomes part of an engine's SQL: literals stay values.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/status.h"
#include "store/catalogue.h"
#include "store/value.h"

namespace karvel::dialect {

enum class CompareOp { Equal, NotEqual, Less, Greater, LessEqual, GreaterEqual };

struct Expr;
using ExprPtr = std::shared_ptr<const Expr>;

struct Literal {
  Value value;  // never Null
};
struct Field {
  int position;  // in the table's columns
};
struct Left {
  ExprPtr text;
  int count;  // letters
};
struct LCase {
  ExprPtr text;
};
struct Compare {
  CompareOp op;
  ExprPtr left, right;  // both of one type
};
struct Like {
  ExprPtr text;
  std::string pattern;
};
struct Not {
  ExprPtr condition;
};
struct And {
  ExprPtr left, right;
};
struct Or {
  ExprPtr left, right;
};

struct Expr {
  std::variant<Literal, Field, Left, LCase, Compare, Like, Not, And, Or> node;
};

struct OrderTerm {
  int position;
  bool descending = false;
};

enum class StatementKind { Rows, Sum, Delete };

struct Statement {
  StatementKind kind = StatementKind::Rows;
  const DatabaseFile* file = nullptr;
  const Table* table = nullptr;
  int sumPosition = -1;          // of a Sum
  ExprPtr where;                 // null: every row
  std::vector<OrderTerm> order;  // of Rows
};

// Parses a whole statement, or a bare table name, against one database file. Nesting deeper than 200, more than 5,000 parts and texts over
// 64 KiB are BadText. A failure leaves the result as it was.
Status ParseStatement(std::string_view text, const DatabaseFile& file, Statement& result);
// Parses a find's criterion against one table.
Status ParseCriteria(std::string_view text, const DatabaseFile& file, const Table& table, ExprPtr& result);

// Prints back into the dialect, with the brackets that the tree needs and no others; parsing the result gives the same tree.
std::string Print(const Expr& expression, const Table& table);
std::string Print(const Statement& statement);

// What an engine's SQL calls the pieces. One object an engine.
class SqlTarget {
 public:
  virtual ~SqlTarget() = default;
  // A column of the table, quoted: "CariKod".
  [[nodiscard]] virtual std::string ColumnName(std::string_view column) const = 0;
  // The place of the n-th parameter, from 0: "?1", "$1".
  [[nodiscard]] virtual std::string Parameter(std::size_t n) const = 0;
  // The compare key of a text column that leads an index: exactly the expression of the index, so that the engine uses it.
  [[nodiscard]] virtual std::string IndexedKey(std::string_view columnSql) const = 0;
  // The compare key of any other text expression, by the quickest way that the engine has.
  [[nodiscard]] virtual std::string ComputedKey(std::string_view textSql) const = 0;
  // What a text expression is compared by with a key that it shall not be: ComputedKey, unless there is something quicker that is this key
  // exactly where the compare key is.
  [[nodiscard]] virtual std::string KeyUnlike(std::string_view textSql, std::string_view key) const;
  // A condition that is true when the text fits the Like pattern (both as typed, not keys).
  [[nodiscard]] virtual std::string Fits(std::string_view textSql, std::string_view patternSql) const = 0;
  // The first n letters of a text.
  [[nodiscard]] virtual std::string LeftOf(std::string_view textSql, int count) const = 0;
  // A condition that is true where the boolean column holds this: a comparison with 0, unless told otherwise.
  [[nodiscard]] virtual std::string Holds(std::string_view columnSql, bool value) const;
  // The parameter that Fits is given for a Like pattern: the pattern itself, unless the engine reads patterns of another kind.
  [[nodiscard]] virtual std::string Pattern(std::string_view pattern) const;
  // What stands behind a rising or falling order term so that nulls stand before all values, falling behind them: "" and " DESC".
  [[nodiscard]] virtual std::string_view Direction(bool descending) const;
  // The value that IndexedKey and ComputedKey give for this text: FoldKey, unless the engine makes its keys in a way of its own.
  [[nodiscard]] virtual std::string Key(std::string_view text) const;
  // The first key behind the keys of all texts that start with this prefix: FoldKeyPrefixEnd, unless told otherwise as for Key.
  [[nodiscard]] virtual std::string KeyPrefixEnd(std::string_view prefix) const;
};

// Prints a condition as SQL with every literal as a parameter, appended to `parameters` (texts already as compare keys where they are
// compared). Equality on texts compares keys; Like with a literal head becomes a range over the key, with Fits for what the range can't
// say.
std::string PrintSql(const Expr& expression, const Table& table, const SqlTarget& target, std::vector<Value>& parameters);
// Prints the order's terms: "key asc, date desc", texts by key; empty for none.
std::string PrintSqlOrder(const std::vector<OrderTerm>& order, const Table& table, const SqlTarget& target);

}  // namespace karvel::dialect
