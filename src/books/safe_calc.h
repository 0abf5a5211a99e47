// Arithmetic that tolerates text: stock figures come from cards, fields and captions alike.
#pragma once

#include <string>

#include "store/value.h"

namespace karvel {

enum class CalcOp { Subtract = 0, Add = 1, Multiply = 2, Divide = 3 };

// Both values lose "TL" and "KG" and the blanks around them; what isn't a number then counts as 0; at most 6 decimals survive.
// A division by zero gives 0, and one whose dividend is less than 1 is cut to 3 decimals. The result is rounded to 6 places: a plain number
// as text.
std::string SafeCalc(CalcOp op, const Value& a, const Value& b);
// The same, read back as a number.
double SafeCalcNumber(CalcOp op, const Value& a, const Value& b);

}  // namespace karvel
