#include "text/decimal.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace karvel {
namespace {

void DropZerosAtEnd(std::string& digits) {
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
}

}  // namespace

Decimal::Decimal(double value) {
  if (!std::isfinite(value) || value == 0) return;
  negative = value < 0;
  // "d.dddddddddddddde±xx"
  std::array<char, 24> letters{};
  const auto written = std::to_chars(letters.data(), letters.data() + letters.size(), std::abs(value), std::chars_format::scientific, 14);
  const std::string_view text(letters.data(), written.ptr);
  digits = text.substr(0, 1);
  digits += text.substr(2, 14);
  const std::size_t from = text.find('e') + (text[text.find('e') + 1] == '+' ? 2 : 1);
  std::from_chars(text.data() + from, text.data() + text.size(), exponent);
  ++exponent;
  DropZerosAtEnd(digits);
}

void Decimal::Round(int decimals, Half half) {
  const int keep = exponent + decimals;
  if (keep >= static_cast<int>(digits.size())) return;
  bool up = false;
  if (keep >= 0) {
    const auto kept = static_cast<std::size_t>(keep);
    up = digits[kept] >= '5';
    const bool exactHalf = digits[kept] == '5' && kept + 1 == digits.size();
    if (exactHalf && half == Half::ToEven) up = kept > 0 && (digits[kept - 1] - '0') % 2 == 1;
    digits.resize(kept);
  } else {
    digits.clear();
  }
  if (up) {
    std::size_t at = digits.size();
    while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
    if (at > 0) {
      ++digits[at - 1];
    } else {
      digits.insert(digits.begin(), '1');
      ++exponent;
    }
  }
  DropZerosAtEnd(digits);
  if (digits.empty()) {
    exponent = 0;
    negative = false;
  }
}

std::string Decimal::Whole() const {
  if (exponent <= 0) return {};
  const auto length = static_cast<std::size_t>(exponent);
  std::string whole = digits.substr(0, length);
  whole.resize(length, '0');
  return whole;
}

std::string Decimal::Fraction() const {
  if (exponent <= 0) return digits.empty() ? std::string() : std::string(static_cast<std::size_t>(-exponent), '0') + digits;
  const auto length = static_cast<std::size_t>(exponent);
  return length < digits.size() ? digits.substr(length) : std::string();
}

double Decimal::ToDouble() const {
  if (digits.empty()) return 0;
  const std::string text = fmt::format("{}0.{}e{}", negative ? "-" : "", digits, exponent);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

}  // namespace karvel
