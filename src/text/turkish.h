// The letters of the desk: how texts compare, order and change case, whatever the machine's locale.
//
// Compare rule: case is ignored; "I" and "i" are alike; "İ" and "ı" are each only equal to themselves.
// Order rule: the Turkish alphabet (… c ç d … g ğ h ı i … o ö p … s ş t u ü v …).
// Both rest on one key, so an index on the key serves equality, prefixes and order.
#pragma once

#include <string>
#include <string_view>

namespace karvel {

// The compare and order key of a UTF-8 text. Two texts are equal on the desk if and only if their keys are equal bytes,
// and they order as their keys do, byte by byte. A text starts with a prefix if and only if its key k has
// FoldKey(prefix) <= k < FoldKeyPrefixEnd(prefix). O(n).
std::string FoldKey(std::string_view text);
// The first key after those of all texts that start with this prefix.
std::string FoldKeyPrefixEnd(std::string_view prefix);
// The same key as an SQL expression over a column, made of built-in functions only (lower and replace), for SQLite.
std::string FoldKeySql(std::string_view columnSql);

bool EqualText(std::string_view a, std::string_view b);
// True if `part` stands anywhere in `text`, by the compare rule.
bool ContainsText(std::string_view text, std::string_view part);

// The dialect's Like: "*" any run, "?" one letter, "#" one digit, "[a-z]" and "[!a-z]" sets, compared by the compare rule.
// An unclosed "[" matches nothing. Linear in the text for patterns with one star, never exponential.
bool Like(std::string_view text, std::string_view pattern);

// A pattern for Like with "?" in the place of İ, I, i and ı: two texts that differ only in the kind of an i are one.
std::string AnyKindOfI(std::string text);

// Case changes by Turkish rules: i and İ, ı and I.
std::string TurkishUpper(std::string_view text);
std::string TurkishLower(std::string_view text);

// UTF-8 pieces. Lengths and positions count letters (code points); a damaged byte counts as one letter.
std::size_t LetterCount(std::string_view text);
std::string LeftLetters(std::string_view text, std::size_t count);
std::string RightLetters(std::string_view text, std::size_t count);
std::string MidLetters(std::string_view text, std::size_t from, std::size_t count = std::string_view::npos);  // from counts from 0
std::string Trim(std::string_view text);                                                                      // blanks at both ends
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);
std::string LetterToUtf8(char32_t letter);
char32_t FirstLetter(std::string_view text);  // 0 for an empty text

// Windows code page 1254, the files outside the stores. Letters that it lacks become "?".
std::string ToCp1254(std::string_view utf8);
std::string FromCp1254(std::string_view bytes);

}  // namespace karvel
