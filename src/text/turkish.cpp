#include "text/turkish.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "text/letters.h"

namespace karvel {
namespace {

// The marks that follow a plain letter: the highest code points, which no real text holds. So "ç" orders after every "c…" and before "d",
// and the range of the prefix "c" ends before it.
constexpr std::string_view kMark = "\U0010FFFD";
constexpr std::string_view kHat = "\U0010FFFC";

struct Marked {
  std::string_view letter;
  char base;
  std::string_view mark;
};

constexpr Marked kMarked[] = {
    {"ç", 'c', kMark}, {"Ç", 'c', kMark}, {"ğ", 'g', kMark}, {"Ğ", 'g', kMark}, {"ı", 'h', kMark}, {"İ", 'i', kMark},
    {"ö", 'o', kMark}, {"Ö", 'o', kMark}, {"ş", 's', kMark}, {"Ş", 's', kMark}, {"ü", 'u', kMark}, {"Ü", 'u', kMark},
    {"â", 'a', kHat},  {"Â", 'a', kHat},  {"î", 'i', kHat},  {"Î", 'i', kHat},  {"û", 'u', kHat},  {"Û", 'u', kHat},
};

// All marked letters are two bytes with the leads C3, C4, C5. Looked up by lead and second byte: the entry's number plus one, 0 for none.
constexpr auto kMarkedAt = [] {
  std::array<std::array<std::uint8_t, 64>, 3> table{};
  for (std::size_t i = 0; i < std::size(kMarked); ++i) {
    const auto lead = static_cast<unsigned char>(kMarked[i].letter[0]);
    const auto second = static_cast<unsigned char>(kMarked[i].letter[1]);
    table[lead - 0xC3][second - 0x80] = static_cast<std::uint8_t>(i + 1);
  }
  return table;
}();

constexpr auto kLower = [] {
  std::array<char, 256> table{};
  for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + 0x20 : i);
  return table;
}();

bool StartsWithMark(std::string_view key) {
  return key.starts_with(kMark) || key.starts_with(kHat);
}

char32_t UpperLetter(char32_t code) {
  if (code == U'i') return U'İ';
  if (code == U'ı') return U'I';
  if (code >= U'a' && code <= U'z') return code - 0x20;
  if (code >= 0xE0 && code <= 0xFE && code != 0xF7) return code - 0x20;
  if (code == 0xFF) return 0x178;                                                       // ÿ
  if (code == U'ğ' || code == U'ş' || code == 0x153 || code == 0x161) return code - 1;  // œ š
  return code;
}

char32_t LowerLetter(char32_t code) {
  if (code == U'İ') return U'i';
  if (code == U'I') return U'ı';
  if (code >= U'A' && code <= U'Z') return code + 0x20;
  if (code >= 0xC0 && code <= 0xDE && code != 0xD7) return code + 0x20;
  if (code == 0x178) return 0xFF;
  if (code == U'Ğ' || code == U'Ş' || code == 0x152 || code == 0x160) return code + 1;
  return code;
}

template <typename Change>
std::string ChangeLetters(std::string_view text, Change change) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Letter letter = LetterAt(text, at);
    AppendLetter(result, change(letter.code));
    at += letter.size;
  }
  return result;
}

// The byte at which the letter number `count` begins, or the end.
std::size_t ByteOfLetter(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; count > 0 && at < text.size(); --count) at += LetterAt(text, at).size;
  return at;
}

}  // namespace

std::string FoldKey(std::string_view text) {
  std::string key;
  // Two bytes of a text become five at most.
  key.resize_and_overwrite(text.size() / 2 * 5 + 1, [text](char* to, std::size_t) {
    const char* const start = to;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const auto byte = static_cast<unsigned char>(text[i]);
      if (byte >= 0xC3 && byte <= 0xC5 && i + 1 < text.size()) {
        const auto second = static_cast<unsigned char>(text[i + 1]);
        if (const int number = (second & 0xC0) == 0x80 ? kMarkedAt[byte - 0xC3][second - 0x80] : 0; number != 0) {
          const Marked& marked = kMarked[number - 1];
          *to++ = marked.base;
          to = std::copy(marked.mark.begin(), marked.mark.end(), to);
          ++i;
          continue;
        }
      }
      *to++ = kLower[byte];
    }
    return static_cast<std::size_t>(to - start);
  });
  return key;
}

std::string FoldKeyPrefixEnd(std::string_view prefix) {
  return FoldKey(prefix).append(kHat);
}

std::string FoldKeySql(std::string_view columnSql) {
  std::string sql = fmt::format("lower({})", columnSql);
  for (const Marked& marked : kMarked) {
    sql = fmt::format("replace({},'{}','{}{}')", sql, marked.letter, marked.base, marked.mark);
  }
  return sql;
}

bool EqualText(std::string_view a, std::string_view b) {
  return FoldKey(a) == FoldKey(b);
}

bool ContainsText(std::string_view text, std::string_view part) {
  const std::string key = FoldKey(text);
  const std::string wanted = FoldKey(part);
  // A hit that ends before a mark has cut a letter in two: "c" does not stand in "aç".
  for (std::size_t at = key.find(wanted); at != std::string::npos; at = key.find(wanted, at + 1)) {
    if (wanted.empty() || !StartsWithMark(std::string_view(key).substr(at + wanted.size()))) return true;
  }
  return false;
}

std::string AnyKindOfI(std::string text) {
  for (const char* const letter : {"İ", "ı", "i", "I"}) text = ReplaceAll(text, letter, "?");
  return text;
}

std::string TurkishUpper(std::string_view text) {
  return ChangeLetters(text, UpperLetter);
}
std::string TurkishLower(std::string_view text) {
  return ChangeLetters(text, LowerLetter);
}

std::size_t LetterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += LetterAt(text, at).size) ++count;
  return count;
}

std::string LeftLetters(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, ByteOfLetter(text, count)));
}

std::string RightLetters(std::string_view text, std::size_t count) {
  const std::size_t letters = LetterCount(text);
  return letters <= count ? std::string(text) : std::string(text.substr(ByteOfLetter(text, letters - count)));
}

std::string MidLetters(std::string_view text, std::size_t from, std::size_t count) {
  return LeftLetters(text.substr(ByteOfLetter(text, from)), count);
}

std::string Trim(std::string_view text) {
  const std::size_t from = text.find_first_not_of(" \t");
  if (from == std::string_view::npos) return {};
  return std::string(text.substr(from, text.find_last_not_of(" \t") - from + 1));
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string result;
  for (;;) {
    const std::size_t at = text.find(what);
    result.append(text.substr(0, at));
    if (at == std::string_view::npos) return result;
    result.append(with);
    text.remove_prefix(at + what.size());
  }
}

char32_t FirstLetter(std::string_view text) {
  return text.empty() ? 0 : LetterAt(text, 0).code;
}

std::string LetterToUtf8(char32_t letter) {
  std::string text;
  // What is no letter at all shows as the replacement sign.
  AppendLetter(text, letter > 0x10FFFF || (letter >= 0xD800 && letter < 0xE000) ? U'\uFFFD' : letter);
  return text;
}

}  // namespace karvel
