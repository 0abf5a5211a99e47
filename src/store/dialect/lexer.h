// The words of a dialect text, one at a time. Never fails outright: what can't be a word comes as an Error token, and every call after it
// gives the same one. Views stay valid as long as the text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/date_time.h"

namespace karvel::dialect {

enum class TokenKind {
  End,
  Error,      // text: what is wrong
  Name,       // text: as written
  Bracketed,  // text: the name inside [ ]
  Text,       // text: the content, quotes undoubled
  Number,     // number; always positive, a sign is a symbol of its own
  Date,       // date
  Symbol,     // text: = <> < > <= >= ( ) , ; * + -
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;
  double number = 0;
  DateTime date;
  std::size_t start = 0;  // byte where it begins

  [[nodiscard]] bool Is(std::string_view symbol) const { return kind == TokenKind::Symbol && text == symbol; }
  // A bare word, ignoring the case of a to z. A bracketed name is never a key word.
  [[nodiscard]] bool IsWord(std::string_view word) const;
};

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}
  Token Next();

 private:
  Token Word();
  Token Bracketed();
  Token Quoted();
  Token DateLiteral();
  Token NumberOrName();
  Token SymbolSign();
  [[nodiscard]] Token NewToken(TokenKind kind, std::string text = {}) const;
  Token ErrorToken(std::string what);
  [[nodiscard]] std::size_t EndOfName(std::size_t from) const;

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t start_ = 0;
  std::string failure_;
};

// A name that can stand without brackets and means nothing else.
bool IsPlainName(std::string_view name);
// Equal, ignoring the case of a to z.
bool EqualWord(std::string_view a, std::string_view b);

}  // namespace karvel::dialect
