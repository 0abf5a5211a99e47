// A number as the decimal digits that the desk shows: 15 significant ones, so 2.675 is 2.675 and not the binary number a little below it.
// For the files of this folder.
#pragma once

#include <string>

namespace karvel {

struct Decimal {
  bool negative = false;
  // 0.DIGITS times ten to the power `exponent`; no zeros at either end; "" for zero, and for what is no number.
  std::string digits;
  int exponent = 0;

  explicit Decimal(double value);
  enum class Half { AwayFromZero, ToEven };
  // Keeps this many digits after the point, 0 or more.
  void Round(int decimals, Half half);
  // The digits before the point and those after it; "" when there are none.
  [[nodiscard]] std::string Whole() const;
  [[nodiscard]] std::string Fraction() const;
  [[nodiscard]] double ToDouble() const;
};

}  // namespace karvel
