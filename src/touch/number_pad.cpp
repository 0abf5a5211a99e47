#include "touch/number_pad.h"

#include <cstddef>

#include "text/format.h"
#include "text/turkish.h"
#include "touch/typed_number.h"

namespace karvel::number_pad {
namespace {

constexpr char32_t kBackspace = 8;

// A zero in front of a whole number goes: "05" is 5, and "00" is 0.
std::string WithoutLeadingZero(const std::string& text) {
  if (text.starts_with("00")) return "0";
  if (text.starts_with('0') && !text.contains(',')) return Format(text, "#,##0");
  return text;
}

}  // namespace

std::string WithDigit(const std::string& text, std::string_view digit, std::string_view caption) {
  const bool asked = text == kRoleAsked && caption != kOrdering;
  return WithZeros(asked ? std::string() : text, digit);
}

std::string WithZeros(const std::string& text, std::string_view zeros) {
  const std::string longer = text + std::string(zeros);
  return MayBecomeNumber(longer) ? WithoutLeadingZero(longer) : text;
}

std::string WithComma(const std::string& text) {
  if (text.empty()) return "0,";
  return MayBecomeNumber(text + ",") ? text + "," : text;
}

std::string WithoutLast(const std::string& text) {
  const std::size_t letters = LetterCount(text);
  return letters == 0 ? text : LeftLetters(text, letters - 1);
}

char32_t Typed(const std::string& text, int start, int length, char32_t letter) {
  if (letter == kBackspace) return letter;
  if (letter == U'.') letter = U',';
  if (letter != U',' && (letter < U'0' || letter > U'9')) return 0;
  const auto from = static_cast<std::size_t>(start);
  const std::string after = LeftLetters(text, from) + LetterToUtf8(letter) + MidLetters(text, from + static_cast<std::size_t>(length));
  return after == "," || MayBecomeNumber(after) ? letter : 0;
}

bool HoldsAnswer(const std::string& text) {
  const std::string number = Trim(text);
  return !number.empty() && number != "0";
}

}  // namespace karvel::number_pad
