#include "store/dialect/lexer.h"

#include <array>
#include <charconv>
#include <optional>

namespace karvel::dialect {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Every letter beyond ASCII may stand in a name; whether the name exists is the catalogue's word.
bool IsNameByte(char c) {
  const char lower = Lower(c);
  return IsDigit(c) || (lower >= 'a' && lower <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Reads the pieces of a date literal.
class DateReader {
 public:
  explicit DateReader(std::string_view text) : text_(text) {}

  std::optional<DateTime> Read() {
    DateTime date;
    Blanks();
    const int month = Piece(1, 2), day = Sign('/') ? Piece(1, 2) : -1, year = Sign('/') ? Piece(4, 4) : -1;
    int hour = 0, minute = 0, second = 0;
    if (Blanks() && at_ < text_.size()) {
      hour = Piece(1, 2);
      minute = Sign(':') ? Piece(2, 2) : -1;
      second = Sign(':') ? Piece(2, 2) : -1;
      Blanks();
    }
    if (at_ != text_.size() || month < 1 || month > 12 || day < 1 || day > DaysIn(month, year) || year < 100) return {};
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return {};
    date.year = static_cast<std::int16_t>(year);
    date.month = static_cast<std::int8_t>(month);
    date.day = static_cast<std::int8_t>(day);
    date.hour = static_cast<std::int8_t>(hour);
    date.minute = static_cast<std::int8_t>(minute);
    date.second = static_cast<std::int8_t>(second);
    return date;
  }

 private:
  static int DaysIn(int month, int year) {
    constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
  }
  // A whole number of so many digits; -1 when it isn't one.
  int Piece(std::size_t fewest, std::size_t most) {
    int value = 0;
    std::size_t digits = 0;
    for (; at_ < text_.size() && IsDigit(text_[at_]) && digits < most; ++digits) value = value * 10 + (text_[at_++] - '0');
    return digits >= fewest ? value : -1;
  }
  bool Sign(char sign) {
    if (at_ >= text_.size() || text_[at_] != sign) return false;
    ++at_;
    return true;
  }
  bool Blanks() {
    const std::size_t from = at_;
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
    return at_ > from;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

bool EqualWord(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Lower(a[i]) != Lower(b[i])) return false;
  }
  return true;
}

bool IsPlainName(std::string_view name) {
  constexpr std::array<std::string_view, 16> kKeyWords{"select", "from", "where", "order", "by",   "asc",   "desc", "delete",
                                                       "and",    "or",   "not",   "like",  "true", "false", "left", "lcase"};
  if (name.empty() || IsDigit(name.front())) return false;
  for (const char c : name) {
    if (!IsNameByte(c)) return false;
  }
  for (const auto word : kKeyWords) {
    if (EqualWord(name, word)) return false;
  }
  return true;
}

bool Token::IsWord(std::string_view word) const {
  return kind == TokenKind::Name && EqualWord(text, word);
}

Token Lexer::Next() {
  if (!failure_.empty()) return ErrorToken(failure_);
  while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
  start_ = at_;
  if (at_ == text_.size()) return NewToken(TokenKind::End);
  const char c = text_[at_];
  if (c == '\'' || c == '"') return Quoted();
  if (c == '[') return Bracketed();
  if (c == '#') return DateLiteral();
  if (IsDigit(c) || c == '.') return NumberOrName();
  if (IsNameByte(c)) return Word();
  return SymbolSign();
}

std::size_t Lexer::EndOfName(std::size_t from) const {
  while (from < text_.size() && IsNameByte(text_[from])) ++from;
  return from;
}

Token Lexer::Word() {
  at_ = EndOfName(at_);
  return NewToken(TokenKind::Name, std::string(text_.substr(start_, at_ - start_)));
}

Token Lexer::Bracketed() {
  const std::size_t close = text_.find(']', at_);
  if (close == std::string_view::npos) return ErrorToken("a [ is not closed");
  at_ = close + 1;
  return NewToken(TokenKind::Bracketed, std::string(text_.substr(start_ + 1, close - start_ - 1)));
}

Token Lexer::Quoted() {
  const char quote = text_[at_++];
  std::string content;
  for (;;) {
    const std::size_t close = text_.find(quote, at_);
    if (close == std::string_view::npos) return ErrorToken("a text is not closed");
    content += text_.substr(at_, close - at_);
    at_ = close + 1;
    if (at_ == text_.size() || text_[at_] != quote) break;
    content += quote;
    ++at_;
  }
  return NewToken(TokenKind::Text, std::move(content));
}

Token Lexer::DateLiteral() {
  const std::size_t close = text_.find('#', at_ + 1);
  if (close == std::string_view::npos) return ErrorToken("a date is not closed");
  const auto date = DateReader(text_.substr(at_ + 1, close - at_ - 1)).Read();
  if (!date) return ErrorToken("no such date");
  at_ = close + 1;
  Token token = NewToken(TokenKind::Date);
  token.date = *date;
  return token;
}

// "12.50" is a number, "0Fiyat" a name: a run of digits that goes on with letters is no number.
Token Lexer::NumberOrName() {
  double number = 0;
  const char* const first = text_.data() + at_;
  const auto [end, error] = std::from_chars(first, text_.data() + text_.size(), number);
  if (error == std::errc::invalid_argument) return ErrorToken("a number is not complete");
  const std::size_t length = static_cast<std::size_t>(end - first);
  const bool goesOn = EndOfName(at_ + length) != at_ + length;
  if (goesOn && text_.substr(at_, length).find_first_of(".+-") == std::string_view::npos) return Word();
  if (goesOn) return ErrorToken("a number runs into a word");
  if (error != std::errc()) return ErrorToken("a number is out of range");
  at_ += length;
  Token token = NewToken(TokenKind::Number);
  token.number = number;
  return token;
}

Token Lexer::SymbolSign() {
  constexpr std::string_view kSingle = "=<>(),;*+-";
  const std::string_view two = text_.substr(at_, 2);
  std::string_view sign = text_.substr(at_, 1);
  if (two == "<>" || two == "<=" || two == ">=") sign = two;
  if (kSingle.find(sign.front()) == std::string_view::npos) return ErrorToken("a sign that means nothing here");
  at_ += sign.size();
  return NewToken(TokenKind::Symbol, std::string(sign));
}

Token Lexer::NewToken(TokenKind kind, std::string text) const {
  Token token;
  token.kind = kind;
  token.text = std::move(text);
  token.start = start_;
  return token;
}

Token Lexer::ErrorToken(std::string what) {
  failure_ = what;
  return NewToken(TokenKind::Error, std::move(what));
}

}  // namespace karvel::dialect
