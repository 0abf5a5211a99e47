// Random sound criteria over one table, the same for the same seed.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "store/dialect/dialect.h"

namespace karvel::dialect {

class RandomTree {
 public:
  RandomTree(const Table& table, unsigned seed) : table_(table), random_(seed) {
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      columns_[static_cast<std::size_t>(table.columns[i].type)].push_back(static_cast<int>(i));
  }

  ExprPtr Condition(int depth) {
    switch (depth == 0 ? Below(5) : Below(9)) {
      case 0:
        return Make({Like{Text(2), Pattern()}});
      case 1:
        return HasColumns(ColumnType::Boolean) ? Boolean() : Condition(depth);
      case 2:
        return HasColumns(ColumnType::Number) ? Plain(ColumnType::Number) : Condition(depth);
      case 3:
        return HasColumns(ColumnType::Date) ? Plain(ColumnType::Date) : Condition(depth);
      case 4:
        return Make({Compare{Op(), Text(2), Text(2)}});
      case 5:
      case 6:
        return Make({And{Condition(depth - 1), Condition(depth - 1)}});
      case 7:
        return Make({Or{Condition(depth - 1), Condition(depth - 1)}});
      default:
        return Make({Not{Condition(depth - 1)}});
    }
  }

  // A value as a row of the table could hold it, Null now and then.
  Value Stored(ColumnType type) { return Below(9) == 0 ? Value() : Constant(type); }

  std::string Word() {
    static const std::vector<std::string> letters{"a", "A", "b", "ç", "Ç", "c", "ğ", "h", "ı", "I", "i",
                                                  "İ", "j", "ö", "Ş", "s", "ü", "z", "1", "9", " ", "'"};
    std::string word;
    for (int length = Below(5); length > 0; --length) word += Of(letters);
    return word;
  }

  std::string Pattern() {
    static const std::vector<std::string> signs{"*", "*", "?", "#", "[a-ç]", "[!ı]", "[", "]", "-"};
    std::string pattern = Word();
    for (int more = Below(4); more > 0; --more) pattern += Below(2) == 0 ? Of(signs) : Word();
    return Below(3) == 0 ? pattern + "*" : pattern;
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

 private:
  static ExprPtr Make(Expr expr) { return std::make_shared<Expr>(std::move(expr)); }

  template <typename T>
  const T& Of(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
  }

  [[nodiscard]] const std::vector<int>& Columns(ColumnType type) const { return columns_[static_cast<std::size_t>(type)]; }
  [[nodiscard]] bool HasColumns(ColumnType type) const { return !Columns(type).empty(); }
  ExprPtr Column(ColumnType type) { return Make({Field{Of(Columns(type))}}); }
  CompareOp Op() { return static_cast<CompareOp>(Below(6)); }

  ExprPtr Text(int depth) {
    switch (depth == 0 ? Below(2) : Below(4)) {
      case 0:
        return Make({Literal{Word()}});
      case 2:
        return Make({Left{Text(depth - 1), Below(4)}});
      case 3:
        return Make({LCase{Text(depth - 1)}});
      default:
        return Column(ColumnType::Text);
    }
  }

  ExprPtr Boolean() {
    const CompareOp op = Below(2) == 0 ? CompareOp::Equal : CompareOp::NotEqual;
    switch (Below(5)) {
      case 0:
        return Column(ColumnType::Boolean);
      case 1:
        return Make({Literal{Below(2) == 0}});
      case 2:
        return Make({Compare{op, Make({Literal{Below(2) == 0}}), Column(ColumnType::Boolean)}});
      case 3:
        return Make({Compare{op, Column(ColumnType::Boolean), Column(ColumnType::Boolean)}});
      default:
        return Make({Compare{op, Column(ColumnType::Boolean), Make({Literal{Below(2) == 0}})}});
    }
  }

  ExprPtr Plain(ColumnType type) {
    const auto side = [&] { return Below(2) == 0 ? Column(type) : Make({Literal{Constant(type)}}); };
    ExprPtr left = side();
    return Make({Compare{Op(), std::move(left), side()}});
  }

  Value Constant(ColumnType type) {
    switch (type) {
      case ColumnType::Number:
        return (Below(21) - 10) * 0.25;
      case ColumnType::Boolean:
        return Below(2) == 0;
      case ColumnType::Date: {
        DateTime date{2026, 1, 1, 0, 0, 0};
        date.month = static_cast<std::int8_t>(1 + Below(2));
        date.day = static_cast<std::int8_t>(1 + Below(3));
        if (Below(2) == 0) date.hour = static_cast<std::int8_t>(Below(24));
        return date;
      }
      case ColumnType::Text:
        break;
    }
    return Word();
  }

  const Table& table_;
  std::mt19937 random_;
  std::vector<int> columns_[4];
};

}  // namespace karvel::dialect
