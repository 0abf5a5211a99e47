#include "store/dialect/checker.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "text/turkish.h"

namespace karvel::dialect {
namespace {

void TakeChildren(Expr& expr, std::vector<ExprPtr>& children) {
  const auto take = [&](ExprPtr& child) {
    if (child) children.push_back(std::move(child));
  };
  std::visit(
      [&](auto& node) {
        if constexpr (requires { node.left; }) {
          take(node.left);
          take(node.right);
        } else if constexpr (requires { node.text; }) {
          take(node.text);
        } else if constexpr (requires { node.condition; }) {
          take(node.condition);
        }
      },
      expr.node);
}

// A chain of thousands of And leans to the left; it is taken down node by node, not by recursion.
void Release(Expr* root) {
  std::vector<ExprPtr> waiting;
  TakeChildren(*root, waiting);
  delete root;
  while (!waiting.empty()) {
    const ExprPtr expr = std::move(waiting.back());
    waiting.pop_back();
    // All nodes are made below, as plain Expr; the last owner may empty one.
    if (expr.use_count() == 1) TakeChildren(const_cast<Expr&>(*expr), waiting);
  }
}

ResultKind KindOf(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
      return ResultKind::Text;
    case ColumnType::Number:
      return ResultKind::Number;
    case ColumnType::Date:
      return ResultKind::Date;
    case ColumnType::Boolean:
      break;
  }
  return ResultKind::Boolean;
}

std::string_view NameOf(ResultKind kind) {
  switch (kind) {
    case ResultKind::Text:
      return "a text";
    case ResultKind::Number:
      return "a number";
    case ResultKind::Date:
      return "a date";
    case ResultKind::Boolean:
      return "a boolean";
    case ResultKind::Condition:
      break;
  }
  return "a condition";
}

const Literal* AsLiteral(const Checked& part) {
  return std::get_if<Literal>(&part.expr->node);
}

// 0 is False, every other number True.
bool IsTrue(const Literal& number) {
  return std::get<double>(number.value) != 0;
}

}  // namespace

std::string ForLog(std::string_view text) {
  constexpr std::size_t kMost = 60;
  std::string shown = LeftLetters(text.substr(0, kMost * 4), kMost);
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = '?';
  }
  return shown.size() < text.size() ? shown + "…" : shown;
}

Checked Checker::NewNode(Expr&& expr, ResultKind kind) {
  if (++nodes_ > kNodeLimit) return Refuse(fmt::format("more than {} parts", kNodeLimit));
  return {ExprPtr(new Expr(std::move(expr)), Release), kind};
}

Checked Checker::Refuse(std::string problem) {
  problem_ = std::move(problem);
  return {};
}

Checked Checker::MakeLiteral(Value value) {
  const ResultKind kind = std::holds_alternative<std::string>(value) ? ResultKind::Text
                          : std::holds_alternative<double>(value)    ? ResultKind::Number
                          : std::holds_alternative<DateTime>(value)  ? ResultKind::Date
                                                                     : ResultKind::Boolean;
  return NewNode({Literal{std::move(value)}}, kind);
}

int Checker::ColumnPosition(std::string_view name) {
  const int position = table_.Position(name);
  if (position < 0) problem_ = fmt::format("{} has no field \"{}\"", table_.name, ForLog(name));
  return position;
}

Checked Checker::MakeField(std::string_view name) {
  const int position = ColumnPosition(name);
  if (position < 0) return {};
  return NewNode({Field{position}}, KindOf(table_.columns[static_cast<std::size_t>(position)].type));
}

Checked Checker::MakeLeft(Checked text, double count) {
  if (text.kind != ResultKind::Text) return Refuse(fmt::format("Left of {}", NameOf(text.kind)));
  if (!(count >= 0 && count <= 1'000'000'000) || count != std::floor(count)) return Refuse("Left with a count that can't be");
  return NewNode({Left{std::move(text.expr), static_cast<int>(count)}}, ResultKind::Text);
}

Checked Checker::MakeLCase(Checked text) {
  if (text.kind != ResultKind::Text) return Refuse(fmt::format("LCase of {}", NameOf(text.kind)));
  return NewNode({LCase{std::move(text.expr)}}, ResultKind::Text);
}

Checked Checker::MakeCompare(CompareOp op, Checked left, Checked right) {
  // The lists ask StokGizle=False, old layouts of other programs StokGizle=0.
  const auto numberAsBoolean = [this](const Checked& boolean, Checked& number) {
    if (boolean.kind != ResultKind::Boolean || number.kind != ResultKind::Number) return;
    if (const Literal* literal = AsLiteral(number)) number = MakeLiteral(IsTrue(*literal));
  };
  numberAsBoolean(left, right);
  numberAsBoolean(right, left);
  if (!left.expr || !right.expr) return {};
  if (left.kind != right.kind) return Refuse(fmt::format("{} compared with {}", NameOf(left.kind), NameOf(right.kind)));
  if (left.kind == ResultKind::Condition) return Refuse("a condition compared with a condition");
  if (left.kind == ResultKind::Boolean && op != CompareOp::Equal && op != CompareOp::NotEqual) return Refuse("booleans have no order");
  const ResultKind kind = ResultKind::Condition;
  return NewNode({Compare{op, std::move(left.expr), std::move(right.expr)}}, kind);
}

Checked Checker::MakeLike(Checked text, std::string pattern) {
  if (text.kind != ResultKind::Text) return Refuse(fmt::format("{} compared with a pattern", NameOf(text.kind)));
  return NewNode({Like{std::move(text.expr), std::move(pattern)}}, ResultKind::Condition);
}

ExprPtr Checker::Condition(Checked part) {
  if (part.kind == ResultKind::Condition || part.kind == ResultKind::Boolean) return std::move(part.expr);
  problem_ = fmt::format("{} where a condition belongs", NameOf(part.kind));
  return nullptr;
}

Checked Checker::MakeNot(Checked condition) {
  ExprPtr inner = Condition(std::move(condition));
  if (!inner) return {};
  return NewNode({Not{std::move(inner)}}, ResultKind::Condition);
}

Checked Checker::MakeAnd(Checked left, Checked right) {
  ExprPtr first = Condition(std::move(left)), second = Condition(std::move(right));
  if (!first || !second) return {};
  return NewNode({And{std::move(first), std::move(second)}}, ResultKind::Condition);
}

Checked Checker::MakeOr(Checked left, Checked right) {
  ExprPtr first = Condition(std::move(left)), second = Condition(std::move(right));
  if (!first || !second) return {};
  return NewNode({Or{std::move(first), std::move(second)}}, ResultKind::Condition);
}

}  // namespace karvel::dialect
