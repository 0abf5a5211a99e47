// Where a row stands in a long list, told from its sorted value alone: the scroll bar of a list that is too long to be counted.
//
// The first and the last value are the ends of the scale; a value between them has a place between 0 and 1, and a place has a value.
// Like the thumb of a telephone book it goes by the alphabet, not by the number of pages: places are never wrong in order.
#pragma once

#include <optional>

#include "store/value.h"

namespace karvel {

class ValueScale {
 public:
  // Nothing when the scale can't tell the two ends apart.
  static std::optional<ValueScale> Between(const Value& first, const Value& last);

  // From 0 at the first value to 1 at the last.
  [[nodiscard]] double PlaceOf(const Value& value) const;
  [[nodiscard]] Value At(double place) const;

 private:
  ValueScale(double first, double last, std::size_t kind) : first_(first), last_(last), kind_(kind) {}

  double first_, last_;
  std::size_t kind_;  // the index of the values' type
};

}  // namespace karvel
