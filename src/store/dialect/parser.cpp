#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "store/dialect/checker.h"
#include "store/dialect/dialect.h"
#include "store/dialect/lexer.h"
#include "text/turkish.h"

namespace karvel::dialect {
namespace {

constexpr std::size_t kTextLimit = std::size_t{64} * 1024;
constexpr int kNestingLimit = 200;

std::optional<CompareOp> CompareOpOf(const Token& token) {
  if (token.Is("=")) return CompareOp::Equal;
  if (token.Is("<>")) return CompareOp::NotEqual;
  if (token.Is("<")) return CompareOp::Less;
  if (token.Is(">")) return CompareOp::Greater;
  if (token.Is("<=")) return CompareOp::LessEqual;
  if (token.Is(">=")) return CompareOp::GreaterEqual;
  return {};
}

// One text, read once from left to right with one word of look-ahead. The first thing that doesn't fit ends it; every step after
// that gives nothing, so callers only pass the emptiness on.
class Parser {
 public:
  Parser(std::string_view text, const DatabaseFile& file) : text_(text), file_(file), lexer_(text) {}

  Status ReadStatement(Statement& result) {
    Statement statement;
    statement.file = &file_;
    if (Begin() && StatementBody(statement) && AtEnd()) result = std::move(statement);
    return failure_;
  }

  Status ReadCriteria(const Table& table, ExprPtr& result) {
    checker_.emplace(table);
    ExprPtr condition;
    if (Begin() && WholeCondition(condition) && AtEnd()) result = std::move(condition);
    return failure_;
  }

 private:
  // Steps of a statement; false once something failed.

  bool Begin() {
    if (text_.size() > kTextLimit) return Fail("a text over 64 KiB", 0);
    // No store holds a zero byte, and one engine can't even take it.
    if (text_.find('\0') != std::string_view::npos) return Fail("a zero byte", text_.find('\0'));
    Advance();
    return true;
  }

  bool StatementBody(Statement& statement) {
    if (TakeWord("select")) return SelectBody(statement);
    if (TakeWord("delete")) {
      statement.kind = StatementKind::Delete;
      if (token_.Is("*")) Advance();
      return ExpectWord("from") && TableName(statement) && WherePart(statement);
    }
    return TableName(statement);
  }

  bool SelectBody(Statement& statement) {
    if (TakeSign("*")) return ExpectWord("from") && TableName(statement) && WherePart(statement) && OrderPart(statement);
    statement.kind = StatementKind::Sum;
    if (!ExpectWord("sum") || !ExpectSign("(")) return false;
    // The field is named before its table: kept until the table is known.
    const Token field = token_;
    if (!ExpectName() || !ExpectSign(")") || !ExpectWord("from") || !TableName(statement)) return false;
    statement.sumPosition = checker_->ColumnPosition(field.text);
    if (statement.sumPosition < 0) return Fail(checker_->Problem(), field.start);
    if (statement.table->columns[static_cast<std::size_t>(statement.sumPosition)].type != ColumnType::Number) {
      return Fail("a sum of what is no number", field.start);
    }
    return WherePart(statement);
  }

  bool TableName(Statement& statement) {
    const Token name = token_;
    if (!ExpectName()) return false;
    statement.table = file_.Find(name.text);
    if (statement.table == nullptr) return Fail(fmt::format("{} has no table \"{}\"", file_.name, ForLog(name.text)), name.start);
    checker_.emplace(*statement.table);
    return true;
  }

  bool WherePart(Statement& statement) { return !TakeWord("where") || WholeCondition(statement.where); }

  bool OrderPart(Statement& statement) {
    if (!TakeWord("order")) return true;
    if (!ExpectWord("by")) return false;
    do {
      const Token field = token_;
      if (!ExpectName()) return false;
      const int position = checker_->ColumnPosition(field.text);
      if (position < 0) return Fail(checker_->Problem(), field.start);
      const bool descending = TakeWord("desc");
      if (!descending) TakeWord("asc");
      // A field that has ordered once has nothing left to order.
      const bool known = std::ranges::any_of(statement.order, [&](const OrderTerm& term) { return term.position == position; });
      if (!known) statement.order.push_back({position, descending});
    } while (TakeSign(","));
    return true;
  }

  bool AtEnd() {
    TakeSign(";");
    return token_.kind == TokenKind::End || FailExpecting("the end");
  }

  // Steps of a condition, from the loosest binding to the tightest; empty once something failed.

  bool WholeCondition(ExprPtr& condition) {
    const std::size_t start = token_.start;
    Checked whole = OrChain();
    if (!whole.expr) return false;
    condition = checker_->Condition(std::move(whole));
    return condition || Fail(checker_->Problem(), start);
  }

  Checked OrChain() {
    Checked left = AndChain();
    while (left.expr && token_.IsWord("or")) {
      const std::size_t start = token_.start;
      Advance();
      Checked right = AndChain();
      if (!right.expr) return {};
      left = FailIfRefused(checker_->MakeOr(std::move(left), std::move(right)), start);
    }
    return left;
  }

  Checked AndChain() {
    Checked left = Negation();
    while (left.expr && token_.IsWord("and")) {
      const std::size_t start = token_.start;
      Advance();
      Checked right = Negation();
      if (!right.expr) return {};
      left = FailIfRefused(checker_->MakeAnd(std::move(left), std::move(right)), start);
    }
    return left;
  }

  Checked Negation() {
    const std::size_t start = token_.start;
    int count = 0;
    while (TakeWord("not")) {
      ++count;
      if (!Deeper()) return {};
    }
    Checked part = Comparison();
    depth_ -= count;
    for (; part.expr && count > 0; --count) part = FailIfRefused(checker_->MakeNot(std::move(part)), start);
    return part;
  }

  Checked Comparison() {
    Checked left = Operand();
    if (!left.expr) return {};
    const std::size_t start = token_.start;
    if (const auto op = CompareOpOf(token_)) {
      Advance();
      Checked right = Operand();
      if (!right.expr) return {};
      return FailIfRefused(checker_->MakeCompare(*op, std::move(left), std::move(right)), start);
    }
    if (TakeWord("like")) {
      if (token_.kind != TokenKind::Text) return NoPart("a pattern");
      std::string pattern = std::move(token_.text);
      Advance();
      return FailIfRefused(checker_->MakeLike(std::move(left), std::move(pattern)), start);
    }
    return left;
  }

  Checked Operand() {
    Token token = token_;
    if (token.Is("(")) return Bracketed();
    if (token.Is("+") || token.Is("-")) {
      Advance();
      if (token_.kind != TokenKind::Number) return NoPart("a number");
      const double number = token.Is("-") ? -token_.number : token_.number;
      return Constant(number, token.start);
    }
    if (token.kind == TokenKind::Text) return Constant(std::move(token.text), token.start);
    if (token.kind == TokenKind::Number) return Constant(token.number, token.start);
    if (token.kind == TokenKind::Date) return Constant(token.date, token.start);
    if (token.IsWord("true") || token.IsWord("false")) return Constant(token.IsWord("true"), token.start);
    if (!ExpectName()) return {};
    if (token_.Is("(") && (token.IsWord("left") || token.IsWord("lcase"))) return Function(token);
    return FailIfRefused(checker_->MakeField(token.text), token.start);
  }

  Checked Bracketed() {
    if (!Deeper()) return {};
    Advance();
    Checked inner = OrChain();
    --depth_;
    if (!inner.expr || !ExpectSign(")")) return {};
    return inner;
  }

  Checked Function(const Token& name) {
    if (!Deeper()) return {};
    Advance();
    Checked text = Operand();
    --depth_;
    if (!text.expr) return {};
    if (name.IsWord("lcase")) {
      if (!ExpectSign(")")) return {};
      return FailIfRefused(checker_->MakeLCase(std::move(text)), name.start);
    }
    if (!ExpectSign(",")) return {};
    if (token_.kind != TokenKind::Number) return NoPart("a count");
    const double count = token_.number;
    Advance();
    if (!ExpectSign(")")) return {};
    return FailIfRefused(checker_->MakeLeft(std::move(text), count), name.start);
  }

  Checked Constant(Value value, std::size_t start) {
    Advance();
    return FailIfRefused(checker_->MakeLiteral(std::move(value)), start);
  }

  // Words.

  void Advance() { token_ = lexer_.Next(); }

  bool TakeWord(std::string_view word) {
    if (!token_.IsWord(word)) return false;
    Advance();
    return true;
  }

  bool TakeSign(std::string_view sign) {
    if (!token_.Is(sign)) return false;
    Advance();
    return true;
  }

  bool ExpectWord(std::string_view word) { return TakeWord(word) || FailExpecting(word); }
  bool ExpectSign(std::string_view sign) { return TakeSign(sign) || FailExpecting(sign); }

  bool ExpectName() {
    if (token_.kind != TokenKind::Name && token_.kind != TokenKind::Bracketed) return FailExpecting("a name");
    Advance();
    return true;
  }

  // Failures.

  bool Deeper() { return ++depth_ <= kNestingLimit || Fail(fmt::format("nested deeper than {}", kNestingLimit), token_.start); }

  // Hands a part on; one that the checker refused fails the text with its reason.
  Checked FailIfRefused(Checked part, std::size_t start) {
    if (!part.expr) Fail(checker_->Problem(), start);
    return part;
  }

  // Fails for want of something, where a part is due.
  Checked NoPart(std::string_view what) {
    FailExpecting(what);
    return {};
  }

  // Always false.
  bool FailExpecting(std::string_view wanted) {
    if (token_.kind == TokenKind::Error) return Fail(token_.text, token_.start);
    return Fail(fmt::format("{} expected", wanted), token_.start);
  }

  // Always false. The first failure is the one that counts.
  bool Fail(std::string_view what, std::size_t start) {
    if (!failure_.Ok()) return false;
    const std::size_t letter = LetterCount(text_.substr(0, start)) + 1;
    failure_ = Status(ErrorKind::BadText, fmt::format("{} at letter {} of: {}", what, letter, ForLog(text_)));
    return false;
  }

  std::string_view text_;
  const DatabaseFile& file_;
  Lexer lexer_;
  std::optional<Checker> checker_;  // from the moment the table is known
  Token token_;
  int depth_ = 0;
  Status failure_;
};

}  // namespace

Status ParseStatement(std::string_view text, const DatabaseFile& file, Statement& result) {
  return Parser(text, file).ReadStatement(result);
}

Status ParseCriteria(std::string_view text, const DatabaseFile& file, const Table& table, ExprPtr& result) {
  return Parser(text, file).ReadCriteria(table, result);
}

}  // namespace karvel::dialect
