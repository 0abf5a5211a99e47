#include "books/safe_calc.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

std::string Calc(CalcOp op, const std::string& a, const std::string& b) {
  return SafeCalc(op, Value(a), Value(b));
}

TEST(SafeCalc, works_out_the_four_operations) {
  EXPECT_EQ(Calc(CalcOp::Subtract, "5", "7,5"), "-2,5");
  EXPECT_EQ(Calc(CalcOp::Add, "5", "7,5"), "12,5");
  EXPECT_EQ(Calc(CalcOp::Multiply, "2,5", "4"), "10");
  EXPECT_EQ(Calc(CalcOp::Divide, "7", "2"), "3,5");
}

TEST(SafeCalc, takes_currency_and_weight_words_out) {
  EXPECT_EQ(Calc(CalcOp::Add, " 12,50 tl", "3 Kg "), "15,5");
  EXPECT_EQ(Calc(CalcOp::Add, "1.250,75 TL", "0"), "1250,75");
}

TEST(SafeCalc, reads_what_is_no_number_as_zero) {
  EXPECT_EQ(Calc(CalcOp::Add, "", "2"), "2");
  EXPECT_EQ(Calc(CalcOp::Add, ",", "2"), "2");
  EXPECT_EQ(Calc(CalcOp::Add, "elma", "2"), "2");
}

TEST(SafeCalc, keeps_six_decimals_of_each_value) {
  EXPECT_EQ(Calc(CalcOp::Add, "0,1234567", "0"), "0,123457");
  EXPECT_EQ(Calc(CalcOp::Multiply, "0,0000004", "1000000"), "0");
}

TEST(SafeCalc, gives_zero_for_a_division_by_zero) {
  EXPECT_EQ(Calc(CalcOp::Divide, "5", "0"), "0");
  EXPECT_EQ(Calc(CalcOp::Divide, "0", "0"), "0");
}

TEST(SafeCalc, cuts_a_division_of_less_than_one_to_three_decimals) {
  EXPECT_EQ(Calc(CalcOp::Divide, "0,2", "0,3"), "0,666");
  EXPECT_EQ(Calc(CalcOp::Divide, "-2", "3"), "-0,667");  // the cut goes down, below zero too
  EXPECT_EQ(Calc(CalcOp::Divide, "2", "3"), "0,666667");
}

TEST(SafeCalc, takes_numbers_and_texts_alike) {
  EXPECT_EQ(SafeCalc(CalcOp::Add, 1.5, Value(std::string("2,25"))), "3,75");
  EXPECT_EQ(SafeCalc(CalcOp::Add, Value(), 2.0), "2");
}

}  // namespace
}  // namespace karvel
