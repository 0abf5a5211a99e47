#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "store/dialect/dialect.h"
#include "store/dialect/operators.h"
#include "text/turkish.h"

namespace karvel::dialect {
namespace {

// Conditions that need no row, understood by every engine.
constexpr std::string_view kAlways = "1 = 1";
constexpr std::string_view kNever = "1 = 0";

// Chains are printed in groups, for engines limit the depth of a condition and a flat chain is one level a term.
constexpr std::size_t kGroupSize = 32;

// Texts compare and fit patterns ignoring case, so LCase changes nothing in a condition.
const Expr& WithoutLCase(const Expr& text) {
  const Expr* inner = &text;
  while (const auto* lcase = std::get_if<LCase>(&inner->node)) inner = lcase->text.get();
  return *inner;
}

// The content of a text that hangs on no field.
std::optional<std::string> ConstantText(const Expr& text) {
  const Expr& inner = WithoutLCase(text);
  if (const auto* literal = std::get_if<Literal>(&inner.node)) return std::get<std::string>(literal->value);
  if (const auto* left = std::get_if<Left>(&inner.node)) {
    if (auto content = ConstantText(*left->text)) return LeftLetters(*content, static_cast<std::size_t>(left->count));
  }
  return {};
}

class SqlPrinter {
 public:
  SqlPrinter(const Table& table, const SqlTarget& target, std::vector<Value>& parameters)
      : table_(table), target_(target), parameters_(parameters) {}

  void Put(const Expr& expr) {
    if (std::holds_alternative<And>(expr.node)) return PutBracketedChain<And>(expr, " AND ");
    if (std::holds_alternative<Or>(expr.node)) return PutBracketedChain<Or>(expr, " OR ");
    if (std::holds_alternative<Not>(expr.node)) return PutNot(expr);
    if (const auto* compare = std::get_if<Compare>(&expr.node)) return PutCompare(*compare);
    if (const auto* like = std::get_if<Like>(&expr.node)) return PutLike(*like);
    if (const auto* literal = std::get_if<Literal>(&expr.node)) return PutConstant(std::get<bool>(literal->value));
    out_ += target_.Holds(Column(std::get<Field>(expr.node)), true);
  }

  std::string Print(const Expr& expr) {
    Put(expr);
    return std::move(out_);
  }

 private:
  template <typename Chain>
  void PutBracketedChain(const Expr& expr, std::string_view word) {
    // Left to right, whichever way the chain leans.
    std::vector<const Expr*> terms, waiting{&expr};
    while (!waiting.empty()) {
      const Expr* next = waiting.back();
      waiting.pop_back();
      if (const auto* chain = std::get_if<Chain>(&next->node)) {
        waiting.push_back(chain->right.get());
        waiting.push_back(chain->left.get());
      } else {
        terms.push_back(next);
      }
    }
    // Where rows are looked at one by one, a name that doesn't fit should cost nothing more.
    if constexpr (std::is_same_v<Chain, And>)
      std::ranges::stable_partition(terms, [](const Expr* term) { return std::holds_alternative<Like>(term->node); });
    PutGroup(terms.data(), terms.size(), word);
  }

  void PutGroup(const Expr* const* terms, std::size_t count, std::string_view word) {
    if (count == 1) return Put(**terms);
    const std::size_t step = (count + kGroupSize - 1) / kGroupSize;
    out_ += '(';
    for (std::size_t i = 0; i < count; i += step) {
      if (i > 0) out_ += word;
      PutGroup(terms + i, std::min(step, count - i), word);
    }
    out_ += ')';
  }

  void PutNot(const Expr& expr) {
    const Expr* inner = &expr;
    bool negated = false;
    while (const auto* node = std::get_if<Not>(&inner->node)) {
      negated = !negated;
      inner = node->condition.get();
    }
    if (!negated) return Put(*inner);
    out_ += "NOT (";
    Put(*inner);
    out_ += ')';
  }

  void PutCompare(const Compare& compare) {
    switch (TypeOf(*compare.left)) {
      case ColumnType::Text:
        return PutTextCompare(compare);
      case ColumnType::Boolean:
        return PutBooleanCompare(compare);
      case ColumnType::Number:
      case ColumnType::Date:
        break;
    }
    const auto* left = std::get_if<Literal>(&compare.left->node);
    const auto* right = std::get_if<Literal>(&compare.right->node);
    if (left && right) return PutConstant(Holds(compare.op, left->value, right->value));
    // A row without a date lies on no side of any: an empty text would stand before all of them.
    const Field* const dated = EarlierSide(compare);
    if (dated) out_ += '(';
    PutPlain(*compare.left);
    PutOperator(compare.op);
    PutPlain(*compare.right);
    if (dated) out_ += " AND " + Column(*dated) + " <> " + Parameter(DateTime()) + ")";
  }

  // The date field that the comparison wants to be the earlier one; null when there is none.
  [[nodiscard]] const Field* EarlierSide(const Compare& compare) const {
    if (TypeOf(*compare.left) != ColumnType::Date) return nullptr;
    switch (compare.op) {
      case CompareOp::Less:
      case CompareOp::LessEqual:
        return std::get_if<Field>(&compare.left->node);
      case CompareOp::Greater:
      case CompareOp::GreaterEqual:
        return std::get_if<Field>(&compare.right->node);
      default:
        return nullptr;
    }
  }

  // A number or date.
  void PutPlain(const Expr& expr) {
    if (const auto* field = std::get_if<Field>(&expr.node)) {
      out_ += Column(*field);
      return;
    }
    out_ += Parameter(std::get<Literal>(expr.node).value);
  }

  void PutTextCompare(const Compare& compare) {
    const auto left = ConstantText(*compare.left), right = ConstantText(*compare.right);
    if (left && right) return PutConstant(Holds(compare.op, FoldKey(*left), FoldKey(*right)));
    // An index can serve a field against a value, and nothing finds what differs.
    if (compare.op == CompareOp::NotEqual && (left || right))
      return PutUnlike(left ? *compare.right : *compare.left, left ? *left : *right);
    const bool mayUseIndex = left || right;
    PutKey(*compare.left, left, mayUseIndex);
    PutOperator(compare.op);
    PutKey(*compare.right, right, mayUseIndex);
  }

  void PutUnlike(const Expr& text, const std::string& constant) {
    const std::string key = target_.Key(constant);
    out_ += target_.KeyUnlike(TextSql(text), key);
    PutOperator(CompareOp::NotEqual);
    out_ += Parameter(key);
  }

  void PutKey(const Expr& text, const std::optional<std::string>& constant, bool mayUseIndex) {
    out_ += constant ? Parameter(target_.Key(*constant)) : Key(text, mayUseIndex);
  }

  std::string Key(const Expr& text, bool mayUseIndex) {
    const Expr& inner = WithoutLCase(text);
    const bool bare = std::holds_alternative<Field>(inner.node);
    return bare && mayUseIndex ? target_.IndexedKey(TextSql(inner)) : target_.ComputedKey(TextSql(inner));
  }

  void PutBooleanCompare(const Compare& compare) {
    const bool wanted = compare.op == CompareOp::Equal;
    const auto* left = std::get_if<Literal>(&compare.left->node);
    const auto* right = std::get_if<Literal>(&compare.right->node);
    if (left && right) return PutConstant((left->value == right->value) == wanted);
    if (left || right) {
      const bool value = std::get<bool>((left ? left : right)->value);
      const Expr& field = left ? *compare.right : *compare.left;
      out_ += target_.Holds(Column(std::get<Field>(field.node)), value == wanted);
      return;
    }
    out_ += fmt::format("({}){}({})", target_.Holds(Column(std::get<Field>(compare.left->node)), true), wanted ? " = " : " <> ",
                        target_.Holds(Column(std::get<Field>(compare.right->node)), true));
  }

  // 1. A pattern without signs is a text to equal. 2. Stars alone take everything. 3. A literal head is a range over the key, which is
  // all there is to say when only stars follow. 4. Anything else is asked of the engine row by row.
  void PutLike(const Like& like) {
    const std::string_view pattern = like.pattern;
    const std::size_t headEnd = std::min(pattern.find_first_of("*?#["), pattern.size());
    const std::string_view head = pattern.substr(0, headEnd);
    const bool onlyStars = pattern.find_first_not_of('*', headEnd) == std::string_view::npos;
    if (onlyStars && head.empty() && !pattern.empty()) return PutConstant(true);
    if (const auto constant = ConstantText(*like.text)) return PutConstant(karvel::Like(*constant, pattern));
    if (headEnd == pattern.size()) {
      out_ += fmt::format("{} = {}", Key(*like.text, true), Parameter(target_.Key(pattern)));
      return;
    }
    const Expr& text = WithoutLCase(*like.text);
    const bool ranged = !head.empty() && std::holds_alternative<Field>(text.node);
    if (!ranged) {
      PutFits(text, pattern);
      return;
    }
    const std::string key = Key(text, true);
    out_ += fmt::format("({} >= {} AND ", key, Parameter(target_.Key(head)));
    out_ += fmt::format("{} < {}", key, Parameter(target_.KeyPrefixEnd(head)));
    if (!onlyStars) {
      out_ += " AND ";
      PutFits(text, pattern);
    }
    out_ += ')';
  }

  void PutFits(const Expr& text, std::string_view pattern) { out_ += target_.Fits(TextSql(text), Parameter(target_.Pattern(pattern))); }

  // A text as it stands in the row. Only for texts that hang on a field.
  std::string TextSql(const Expr& text) {
    const Expr& inner = WithoutLCase(text);
    if (const auto* field = std::get_if<Field>(&inner.node)) return Column(*field);
    const Left& left = std::get<Left>(inner.node);
    return target_.LeftOf(TextSql(*left.text), left.count);
  }

  [[nodiscard]] ColumnType TypeOf(const Expr& value) const {
    if (const auto* field = std::get_if<Field>(&value.node)) return table_.columns[static_cast<std::size_t>(field->position)].type;
    const auto* literal = std::get_if<Literal>(&value.node);
    if (literal == nullptr || std::holds_alternative<std::string>(literal->value)) return ColumnType::Text;
    if (std::holds_alternative<double>(literal->value)) return ColumnType::Number;
    return std::holds_alternative<bool>(literal->value) ? ColumnType::Boolean : ColumnType::Date;
  }

  [[nodiscard]] std::string Column(const Field& field) const {
    return target_.ColumnName(table_.columns[static_cast<std::size_t>(field.position)].name);
  }

  std::string Parameter(Value value) {
    parameters_.push_back(std::move(value));
    return target_.Parameter(parameters_.size() - 1);
  }

  void PutOperator(CompareOp op) { out_ += fmt::format(" {} ", OperatorText(op)); }
  void PutConstant(bool value) { out_ += value ? kAlways : kNever; }

  const Table& table_;
  const SqlTarget& target_;
  std::vector<Value>& parameters_;
  std::string out_;
};

}  // namespace

std::string SqlTarget::KeyUnlike(std::string_view textSql, std::string_view /*key*/) const {
  return ComputedKey(textSql);
}

std::string SqlTarget::Holds(std::string_view columnSql, bool value) const {
  return fmt::format("{} {} 0", columnSql, value ? "<>" : "=");
}

std::string SqlTarget::Pattern(std::string_view pattern) const {
  return std::string(pattern);
}

std::string_view SqlTarget::Direction(bool descending) const {
  return descending ? " DESC" : "";
}

std::string SqlTarget::Key(std::string_view text) const {
  return FoldKey(text);
}

std::string SqlTarget::KeyPrefixEnd(std::string_view prefix) const {
  return FoldKeyPrefixEnd(prefix);
}

std::string PrintSql(const Expr& expression, const Table& table, const SqlTarget& target, std::vector<Value>& parameters) {
  return SqlPrinter(table, target, parameters).Print(expression);
}

std::string PrintSqlOrder(const std::vector<OrderTerm>& order, const Table& table, const SqlTarget& target) {
  std::string sql;
  for (const OrderTerm& term : order) {
    const Column& column = table.columns[static_cast<std::size_t>(term.position)];
    const std::string name = target.ColumnName(column.name);
    if (!sql.empty()) sql += ", ";
    sql += column.type == ColumnType::Text ? target.IndexedKey(name) : name;
    sql += term.descending ? " DESC" : " ASC";
  }
  return sql;
}

}  // namespace karvel::dialect
