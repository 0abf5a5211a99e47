// A pattern of the dialect's Like, read once and matched against many texts: "*" any run, "?" one letter, "#" one digit,
// "[abc]", "[a-z]", "[!a-z]" sets, everything else itself, by the desk's compare rule. "[]" is nothing at all, "[!]" a "!".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);
  // Allocates nothing. At worst (letters of the text) × (pieces of the pattern).
  [[nodiscard]] bool Matches(std::string_view text) const;
  // The same pattern as an advanced POSIX regular expression over the text as it stands, for an engine that matches by those.
  [[nodiscard]] std::string ToRegex() const;
  // False for an unclosed "[": such a pattern matches nothing.
  [[nodiscard]] bool Valid() const { return valid_; }

 private:
  enum class Kind : std::uint8_t { Letter, AnyRun, AnyLetter, Digit, Set, OutsideSet };
  struct Range {
    std::uint32_t low;
    std::uint32_t high;
  };
  struct Piece {
    Kind kind;
    std::uint32_t code = 0;  // of a letter, as CompareCode gives it
    std::uint32_t from = 0;  // a set's ranges in ranges_
    std::uint32_t count = 0;
  };
  void ReadSet(std::string_view inside);
  [[nodiscard]] std::string SetRegex(const Piece& piece) const;
  [[nodiscard]] bool Takes(const Piece& piece, char32_t letter) const;

  std::vector<Piece> pieces_;
  std::vector<Range> ranges_;
  bool valid_ = true;
};

}  // namespace karvel
