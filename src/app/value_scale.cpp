#include "app/value_scale.h"

#include <algorithm>
#include <string>
#include <vector>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::size_t kLetters = 8;  // letters of a text that a double tells apart
constexpr std::size_t kText = 2, kNumber = 1, kDate = 4;

struct Letter {
  std::string key, text;
};

// The letters that texts are made of, in the order of the lists.
const std::vector<Letter>& Alphabet() {
  static const std::vector<Letter> letters = [] {
    std::vector<Letter> all;
    const std::string signs = " 0123456789abcçdefgğhıiİjklmnoöpqrsştuüvwxyz";
    for (std::size_t i = 0; i < LetterCount(signs); ++i) {
      const std::string letter = MidLetters(signs, i, 1);
      all.push_back({FoldKey(letter), letter});
    }
    std::ranges::sort(all, {}, &Letter::key);
    return all;
  }();
  return letters;
}

// A text as a number between 0 and 1 that orders as the texts do.
double Measure(const std::string& text) {
  const auto& alphabet = Alphabet();
  const auto base = static_cast<double>(alphabet.size() + 1);
  double value = 0, weight = 1;
  const std::size_t count = std::min(LetterCount(text), kLetters);
  for (std::size_t i = 0; i < count; ++i) {
    weight /= base;
    const auto found = std::ranges::upper_bound(alphabet, FoldKey(MidLetters(text, i, 1)), {}, &Letter::key);
    value += weight * static_cast<double>(found - alphabet.begin());
  }
  return value;
}

std::string TextAt(double value) {
  const auto& alphabet = Alphabet();
  const auto base = static_cast<double>(alphabet.size() + 1);
  std::string text;
  for (std::size_t i = 0; i < kLetters; ++i) {
    value *= base;
    const auto digit = std::min(static_cast<std::size_t>(value), alphabet.size());
    value -= static_cast<double>(digit);
    if (digit == 0) break;
    text += alphabet[digit - 1].text;
  }
  return text;
}

double MeasureValue(const Value& value) {
  switch (value.index()) {
    case kNumber:
      return std::get<kNumber>(value);
    case kText:
      return Measure(std::get<kText>(value));
    case kDate:
      return static_cast<double>(std::get<kDate>(value).SecondNumber());
    default:
      return 0;
  }
}

}  // namespace

std::optional<ValueScale> ValueScale::Between(const Value& first, const Value& last) {
  if (first.index() != last.index()) return std::nullopt;
  const double from = MeasureValue(first), to = MeasureValue(last);
  if (from == to) return std::nullopt;
  return ValueScale(from, to, first.index());
}

double ValueScale::PlaceOf(const Value& value) const {
  if (value.index() != kind_) return 0;
  return std::clamp((MeasureValue(value) - first_) / (last_ - first_), 0.0, 1.0);
}

Value ValueScale::At(double place) const {
  const double value = first_ + std::clamp(place, 0.0, 1.0) * (last_ - first_);
  if (kind_ == kText) return TextAt(value);
  if (kind_ == kDate) return DateTime::FromSecondNumber(static_cast<std::int64_t>(value));
  return value;
}

}  // namespace karvel
