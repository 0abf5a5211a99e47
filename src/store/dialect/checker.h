// Builds the nodes of one criterion, each only when its names are in the catalogue and its types fit. So every tree that exists is sound,
// and the printers need no checks of their own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "store/dialect/dialect.h"

namespace karvel::dialect {

enum class ResultKind { Text, Number, Date, Boolean, Condition };

struct Checked {
  ExprPtr expr;  // null: it did not fit, Checker::Problem says why
  ResultKind kind = ResultKind::Condition;
};

class Checker {
 public:
  static constexpr std::size_t kNodeLimit = 5000;

  explicit Checker(const Table& table) : table_(table) {}

  Checked MakeLiteral(Value value);
  Checked MakeField(std::string_view name);
  Checked MakeLeft(Checked text, double count);
  Checked MakeLCase(Checked text);
  Checked MakeCompare(CompareOp op, Checked left, Checked right);
  Checked MakeLike(Checked text, std::string pattern);
  Checked MakeNot(Checked condition);
  Checked MakeAnd(Checked left, Checked right);
  Checked MakeOr(Checked left, Checked right);
  // The tree, when it is a condition: a comparison or something boolean. Null otherwise.
  ExprPtr Condition(Checked part);

  // The position of a column; -1 with a problem when there is none.
  int ColumnPosition(std::string_view name);

  [[nodiscard]] const std::string& Problem() const { return problem_; }

 private:
  Checked NewNode(Expr&& expr, ResultKind kind);
  Checked Refuse(std::string problem);

  const Table& table_;
  std::size_t nodes_ = 0;
  std::string problem_;
};

// A name or text as a log line may show it: short, and without control characters.
std::string ForLog(std::string_view text);

}  // namespace karvel::dialect
