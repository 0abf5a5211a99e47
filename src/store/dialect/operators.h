// What the comparison signs of the dialect are called and mean.
#pragma once

#include <string_view>

#include "store/dialect/dialect.h"

namespace karvel::dialect {

// How a comparison is written, in the dialect and in SQL alike.
constexpr std::string_view OperatorText(CompareOp op) {
  switch (op) {
    case CompareOp::Equal:
      return "=";
    case CompareOp::NotEqual:
      return "<>";
    case CompareOp::Less:
      return "<";
    case CompareOp::Greater:
      return ">";
    case CompareOp::LessEqual:
      return "<=";
    case CompareOp::GreaterEqual:
      break;
  }
  return ">=";
}

// Whether a comparison holds for two values of one type that have an order.
template <typename T>
bool Holds(CompareOp op, const T& left, const T& right) {
  switch (op) {
    case CompareOp::Equal:
      return left == right;
    case CompareOp::NotEqual:
      return !(left == right);
    case CompareOp::Less:
      return left < right;
    case CompareOp::Greater:
      return right < left;
    case CompareOp::LessEqual:
      return !(right < left);
    case CompareOp::GreaterEqual:
      break;
  }
  return !(left < right);
}

}  // namespace karvel::dialect
