#include <fmt/format.h>

#include <array>
#include <charconv>

#include "store/dialect/dialect.h"
#include "store/dialect/lexer.h"
#include "store/dialect/operators.h"
#include "text/turkish.h"

namespace karvel::dialect {
namespace {

std::string NameText(std::string_view name) {
  return IsPlainName(name) ? std::string(name) : fmt::format("[{}]", name);
}

std::string QuotedText(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += c;
    quoted += c;
  }
  return quoted += '\'';
}

std::string NumberText(double number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

std::string DateText(const DateTime& d) {
  std::string text = fmt::format("#{:02}/{:02}/{:04}", d.month, d.day, d.year);
  if (d != d.Date()) text += fmt::format(" {:02}:{:02}:{:02}", d.hour, d.minute, d.second);
  return text += '#';
}

std::string LiteralText(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return QuotedText(*text);
  if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
  if (const auto* date = std::get_if<DateTime>(&value)) return DateText(*date);
  return std::get<bool>(value) ? "True" : "False";
}

enum class Binding { Or, And, Not, Value };

Binding BindingOf(const Expr& expr) {
  if (std::holds_alternative<Or>(expr.node)) return Binding::Or;
  if (std::holds_alternative<And>(expr.node)) return Binding::And;
  if (std::holds_alternative<Not>(expr.node)) return Binding::Not;
  return Binding::Value;
}

// Brackets stand only where the tree needs them: the text then nests no deeper than the one that it was read from.
class Printer {
 public:
  explicit Printer(const Table& table) : table_(table) {}

  void Put(const Expr& expr) {
    if (const auto* chain = std::get_if<Or>(&expr.node)) return PutChain<Or>(*chain, " Or ", Binding::Or);
    if (const auto* chain = std::get_if<And>(&expr.node)) return PutChain<And>(*chain, " And ", Binding::And);
    if (const auto* node = std::get_if<Not>(&expr.node)) {
      out_ += "Not ";
      return PutInside(*node->condition, Binding::Not);
    }
    if (const auto* node = std::get_if<Compare>(&expr.node)) {
      Put(*node->left);
      out_ += fmt::format(" {} ", OperatorText(node->op));
      return Put(*node->right);
    }
    if (const auto* node = std::get_if<Like>(&expr.node)) {
      Put(*node->text);
      out_ += " Like " + QuotedText(node->pattern);
      return;
    }
    if (const auto* node = std::get_if<Left>(&expr.node)) {
      out_ += "Left(";
      Put(*node->text);
      out_ += fmt::format(", {})", node->count);
      return;
    }
    if (const auto* node = std::get_if<LCase>(&expr.node)) {
      out_ += "LCase(";
      Put(*node->text);
      out_ += ')';
      return;
    }
    if (const auto* field = std::get_if<Field>(&expr.node)) {
      out_ += NameText(table_.columns[static_cast<std::size_t>(field->position)].name);
      return;
    }
    out_ += LiteralText(std::get<Literal>(expr.node).value);
  }

  std::string Result() { return std::move(out_); }

 private:
  // The left side of a chain is the chain before it: walked, not recursed, for it may be thousands long.
  template <typename Chain>
  void PutChain(const Chain& last, std::string_view word, Binding binding) {
    std::vector<const Expr*> terms{last.right.get()};
    const Expr* left = last.left.get();
    while (const auto* chain = std::get_if<Chain>(&left->node)) {
      terms.push_back(chain->right.get());
      left = chain->left.get();
    }
    PutInside(*left, binding);
    for (auto term = terms.rbegin(); term != terms.rend(); ++term) {
      out_ += word;
      // On the right even the same word needs brackets to stay one term.
      PutInside(**term, binding == Binding::Or ? Binding::And : Binding::Not);
    }
  }

  void PutInside(const Expr& expr, Binding loosest) {
    const bool brackets = BindingOf(expr) < loosest;
    if (brackets) out_ += '(';
    Put(expr);
    if (brackets) out_ += ')';
  }

  const Table& table_;
  std::string out_;
};

}  // namespace

std::string Print(const Expr& expression, const Table& table) {
  Printer printer(table);
  printer.Put(expression);
  return printer.Result();
}

std::string Print(const Statement& statement) {
  const auto columnName = [&](int position) { return NameText(statement.table->columns[static_cast<std::size_t>(position)].name); };
  std::string text = statement.kind == StatementKind::Delete ? "Delete"
                     : statement.kind == StatementKind::Sum  ? fmt::format("Select Sum({})", columnName(statement.sumPosition))
                                                             : "Select *";
  text += fmt::format(" From {}", NameText(statement.table->name));
  if (statement.where) text += " Where " + Print(*statement.where, *statement.table);
  for (std::size_t i = 0; i < statement.order.size(); ++i) {
    const OrderTerm& term = statement.order[i];
    text += i == 0 ? " Order By " : ", ";
    text += columnName(term.position) + (term.descending ? " Desc" : " Asc");
  }
  return text;
}

}  // namespace karvel::dialect
