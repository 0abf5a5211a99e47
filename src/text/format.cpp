#include "text/format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "text/decimal.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// A pattern taken apart: literals, the digit places, literals.
struct NumberPattern {
  std::string before;
  std::string after;
  std::size_t wholeDigits = 0;  // at least
  std::size_t lowDecimals = 0;
  std::size_t highDecimals = 0;
  bool grouped = false;
  bool hasPlaces = false;
};

NumberPattern ReadPattern(std::string_view pattern) {
  NumberPattern result;
  const std::size_t from = pattern.find_first_of("0#");
  if (from == std::string_view::npos) {
    result.before = pattern;
    return result;
  }
  const std::size_t to = pattern.find_last_of("0#") + 1;
  // A "." right before the first place belongs to the number, not to the words.
  const bool pointFirst = from > 0 && pattern[from - 1] == '.';
  result.hasPlaces = true;
  result.before = pattern.substr(0, pointFirst ? from - 1 : from);
  result.after = pattern.substr(to);
  bool behindPoint = pointFirst;
  bool zeroSeen = false;
  for (const char sign : pattern.substr(from, to - from)) {
    if (sign == '.') {
      behindPoint = true;
    } else if (sign == ',' && !behindPoint) {
      result.grouped = true;
    } else if (sign == '0' || sign == '#') {
      if (behindPoint) {
        ++result.highDecimals;
        if (sign == '0') result.lowDecimals = result.highDecimals;
      } else {
        zeroSeen = zeroSeen || sign == '0';
        if (zeroSeen) ++result.wholeDigits;
      }
    }
  }
  return result;
}

// Compares the lengths first: patterns are used by the thousand, and few of them are names.
bool IsNamed(std::string_view pattern, std::string_view name) {
  return pattern.size() == name.size() && EqualText(pattern, name);
}

std::string Grouped(const std::string& whole) {
  std::string result;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (i > 0 && (whole.size() - i) % 3 == 0) result.push_back('.');
    result.push_back(whole[i]);
  }
  return result;
}

std::string FormatDecimal(double value, const NumberPattern& pattern) {
  Decimal decimal(value);
  decimal.Round(static_cast<int>(pattern.highDecimals), Decimal::Half::AwayFromZero);
  std::string whole = decimal.Whole();
  if (whole.size() < pattern.wholeDigits) whole.insert(0, pattern.wholeDigits - whole.size(), '0');
  if (pattern.grouped) whole = Grouped(whole);
  std::string fraction = decimal.Fraction();
  if (fraction.size() < pattern.lowDecimals) fraction.resize(pattern.lowDecimals, '0');
  std::string result = decimal.negative ? "-" : "";
  result += pattern.before + whole;
  if (!fraction.empty()) result += "," + fraction;
  return result + pattern.after;
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
  if (pattern.empty() || IsNamed(pattern, "General Number")) return PlainNumber(value);
  const NumberPattern places = ReadPattern(IsNamed(pattern, "Standard") ? "#,##0.00" : pattern);
  return places.hasPlaces ? FormatDecimal(value, places) : places.before;
}

std::string Format(std::string_view text, std::string_view pattern) {
  const std::optional<double> number = ReadNumber(text);
  return number ? Format(*number, pattern) : std::string(text);
}

std::string PlainNumber(double value) {
  const Decimal decimal(value);
  const std::string whole = decimal.Whole();
  const std::string fraction = decimal.Fraction();
  std::string result = decimal.negative ? "-" : "";
  result += whole.empty() ? "0" : whole;
  return fraction.empty() ? result : result + "," + fraction;
}

std::string CriteriaNumber(double value) {
  if (!std::isfinite(value) || value == 0) return "0";
  // The longest are those near the smallest number: a sign, "0.", some 323 zeros and 17 digits.
  std::array<char, 400> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  return {buffer.data(), result.ptr};
}

std::optional<double> ReadNumber(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string plain;
  bool digitSeen = false;
  bool commaSeen = false;
  for (std::size_t i = 0; i < trimmed.size(); ++i) {
    const char sign = trimmed[i];
    if (sign >= '0' && sign <= '9') {
      digitSeen = true;
      plain.push_back(sign);
    } else if (sign == ',' && !commaSeen) {
      commaSeen = true;
      plain.push_back('.');
    } else if (sign == '-' && i == 0) {
      plain.push_back(sign);
    } else if (!(sign == '+' && i == 0) && !(sign == '.' && !commaSeen)) {
      return std::nullopt;
    }
  }
  if (!digitSeen) return std::nullopt;
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  // Thousands of digits after the comma are still a number; thousands before it are none that the desk can hold.
  if (result.ec != std::errc{}) return std::nullopt;
  return value == 0 ? 0.0 : value;
}

bool IsNumeric(std::string_view text) {
  return ReadNumber(text).has_value();
}
double NumberOrZero(std::string_view text) {
  return ReadNumber(text).value_or(0);
}

bool ReadBoolean(std::string_view text) {
  const std::string trimmed = Trim(text);
  return EqualText(trimmed, "True") || EqualText(trimmed, "Doğru") || NumberOrZero(trimmed) != 0;
}

double RoundTo(double value, int decimals) {
  Decimal decimal(value);
  decimal.Round(decimals, Decimal::Half::ToEven);
  return decimal.ToDouble();
}

}  // namespace karvel
