#include "touch/number_pad.h"

#include <gtest/gtest.h>

#include <string>

#include "touch/typed_number.h"

namespace karvel {
namespace {

using namespace number_pad;

std::string AfterDigits(std::string text, const std::string& digits) {
  for (const char digit : digits) text = WithDigit(text, std::string(1, digit), "");
  return text;
}

TEST(NumberPad, digits_build_a_number) {
  EXPECT_EQ(AfterDigits("", "1234567890"), "123456789");
  EXPECT_EQ(AfterDigits("", "907"), "907");
}

TEST(NumberPad, two_zeros_at_an_empty_pad_are_one) {
  EXPECT_EQ(AfterDigits("", "00"), "0");
  EXPECT_EQ(WithZeros("", "00"), "0");
  EXPECT_EQ(WithZeros("", "000"), "0");
  EXPECT_EQ(WithZeros("0", "00"), "0");
}

TEST(NumberPad, a_leading_zero_goes) {
  EXPECT_EQ(WithDigit("0", "5", ""), "5");
}

TEST(NumberPad, a_zero_before_the_comma_stays) {
  EXPECT_EQ(WithDigit("0,", "5", ""), "0,5");
  EXPECT_EQ(WithZeros("0,", "00"), "0,00");
  EXPECT_EQ(WithDigit("0,0", "5", ""), "0,05");
}

TEST(NumberPad, several_zeros_are_added_at_once) {
  EXPECT_EQ(WithZeros("12", "00"), "1200");
  EXPECT_EQ(WithZeros("12", "000"), "12000");
  EXPECT_EQ(WithZeros("1,5", "00"), "1,500");
}

TEST(NumberPad, more_than_nine_digits_are_no_amount) {
  EXPECT_EQ(WithDigit("123456789", "0", ""), "123456789");
  EXPECT_EQ(WithZeros("12345678", "00"), "12345678");
  EXPECT_EQ(WithDigit("123456789,", "5", ""), "123456789,5");
}

TEST(NumberPad, the_first_digit_takes_the_place_of_the_question_for_the_role) {
  EXPECT_EQ(WithDigit("MiktarFiyat", "7", "Miktar"), "7");
}

TEST(NumberPad, a_pad_that_orders_asks_for_no_role) {
  EXPECT_EQ(WithDigit("MiktarFiyat", "7", "Sipariş"), "MiktarFiyat");
}

TEST(NumberPad, zeros_and_comma_do_not_answer_the_question_for_the_role) {
  EXPECT_EQ(WithZeros("MiktarFiyat", "00"), "MiktarFiyat");
  EXPECT_EQ(WithComma("MiktarFiyat"), "MiktarFiyat");
}

TEST(NumberPad, the_comma_on_an_empty_box_is_zero_comma) {
  EXPECT_EQ(WithComma(""), "0,");
}

TEST(NumberPad, the_comma_comes_once) {
  EXPECT_EQ(WithComma("12"), "12,");
  EXPECT_EQ(WithComma("12,"), "12,");
  EXPECT_EQ(WithComma("12,5"), "12,5");
}

TEST(NumberPad, the_last_sign_can_be_taken_back) {
  EXPECT_EQ(WithoutLast("12,"), "12");
  EXPECT_EQ(WithoutLast("1"), "");
  EXPECT_EQ(WithoutLast(""), "");
}

TEST(NumberPad, a_typed_point_is_a_comma) {
  EXPECT_EQ(Typed("12", 2, 0, U'.'), U',');
  EXPECT_EQ(Typed("12", 2, 0, U','), U',');
}

TEST(NumberPad, digits_and_backspace_pass) {
  for (char32_t digit = U'0'; digit <= U'9'; ++digit) EXPECT_EQ(Typed("", 0, 0, digit), digit);
  EXPECT_EQ(Typed("12", 2, 0, 8), 8U);
}

TEST(NumberPad, every_other_key_is_dropped) {
  for (const char32_t letter : {U'a', U'ş', U'-', U'+', U' ', U'/', U':', char32_t{9}, char32_t{13}})
    EXPECT_EQ(Typed("1", 1, 0, letter), 0U);
}

TEST(NumberPad, a_second_typed_comma_is_dropped) {
  EXPECT_EQ(Typed("1,5", 3, 0, U','), 0U);
  EXPECT_EQ(Typed("1,5", 0, 3, U','), U',');  // over a selection it is the first
}

TEST(NumberPad, a_tenth_typed_digit_is_dropped) {
  EXPECT_EQ(Typed("123456789", 9, 0, U'0'), 0U);
  EXPECT_EQ(Typed("123456789", 0, 9, U'4'), U'4');
}

TEST(NumberPad, nothing_and_a_lone_zero_are_no_answer) {
  EXPECT_FALSE(HoldsAnswer(""));
  EXPECT_FALSE(HoldsAnswer(" "));
  EXPECT_FALSE(HoldsAnswer("0"));
  EXPECT_FALSE(HoldsAnswer(" 0 "));
}

TEST(NumberPad, every_other_number_is_an_answer) {
  EXPECT_TRUE(HoldsAnswer("5"));
  EXPECT_TRUE(HoldsAnswer("0,5"));
  EXPECT_TRUE(HoldsAnswer("10"));
}

TEST(TypedNumber, the_beginning_of_a_number_may_stand) {
  EXPECT_TRUE(MayBecomeNumber(""));
  EXPECT_TRUE(MayBecomeNumber("12,"));
  EXPECT_TRUE(MayBecomeNumber("1.234,56"));
}

TEST(TypedNumber, what_never_becomes_one_may_not) {
  EXPECT_FALSE(MayBecomeNumber(" "));
  EXPECT_FALSE(MayBecomeNumber("1,2,"));
  EXPECT_FALSE(MayBecomeNumber("a"));
  EXPECT_FALSE(MayBecomeNumber("1234567890"));
}

}  // namespace
}  // namespace karvel
