#include "books/safe_calc.h"

#include <cmath>

#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

double Operand(const Value& value) {
  std::string text = TurkishUpper(AsText(value));
  text = Trim(ReplaceAll(ReplaceAll(text, "TL", ""), "KG", ""));
  if (text == "," || !IsNumeric(text)) text = "0";
  return NumberOrZero(Format(NumberOrZero(text), "##0.00####"));
}

}  // namespace

std::string SafeCalc(CalcOp op, const Value& a, const Value& b) {
  const double left = Operand(a);
  const double right = Operand(b);
  double result = 0;
  switch (op) {
    case CalcOp::Subtract:
      result = left - right;
      break;
    case CalcOp::Add:
      result = left + right;
      break;
    case CalcOp::Multiply:
      result = left * right;
      break;
    case CalcOp::Divide:
      result = right == 0 ? 0 : left / right;
      if (left < 1) result = std::floor(result * 1000) / 1000;
      break;
  }
  return PlainNumber(RoundTo(result, 6));
}

double SafeCalcNumber(CalcOp op, const Value& a, const Value& b) {
  return NumberOrZero(SafeCalc(op, a, b));
}

}  // namespace karvel
