#include "text/format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <random>
#include <string>

namespace karvel {
namespace {

TEST(FormatNumber, groups_thousands_with_points) {
  EXPECT_EQ(Format(0, "#,##0"), "0");
  EXPECT_EQ(Format(999, "#,##0"), "999");
  EXPECT_EQ(Format(1000, "#,##0"), "1.000");
  EXPECT_EQ(Format(1234567.6, "#,##0"), "1.234.568");
  EXPECT_EQ(Format(-1234.5, "#,##0"), "-1.235");
}

TEST(FormatNumber, money_has_two_decimals_behind_a_comma) {
  EXPECT_EQ(Format(0, "#,##0.00"), "0,00");
  EXPECT_EQ(Format(1250.75, "#,##0.00"), "1.250,75");
  EXPECT_EQ(Format(0.5, "#,##0.00"), "0,50");
  EXPECT_EQ(Format(-0.5, "#,##0.00"), "-0,50");
  EXPECT_EQ(Format(1250.75, "Standard"), "1.250,75");
  EXPECT_EQ(Format(1250.75, "standard"), "1.250,75");
  EXPECT_EQ(Format(999999.995, "Standard"), "1.000.000,00");
}

TEST(FormatNumber, halves_are_rounded_away_from_zero_as_the_number_is_shown) {
  EXPECT_EQ(Format(2.675, "#,##0.00"), "2,68");
  EXPECT_EQ(Format(1.005, "#,##0.00"), "1,01");
  EXPECT_EQ(Format(0.125, "#,##0.00"), "0,13");
  EXPECT_EQ(Format(-2.675, "#,##0.00"), "-2,68");
  EXPECT_EQ(Format(0.5, "#,##0"), "1");
  EXPECT_EQ(Format(1.5, "#,##0"), "2");
  EXPECT_EQ(Format(2.5, "#,##0"), "3");
  EXPECT_EQ(Format(0.49999, "#,##0"), "0");
  EXPECT_EQ(Format(0.1 + 0.2, "##0.00####"), "0,30");
}

TEST(FormatNumber, what_rounds_to_zero_has_no_sign) {
  EXPECT_EQ(Format(-0.001, "#,##0.00"), "0,00");
  EXPECT_EQ(Format(-0.0, "#,##0"), "0");
}

TEST(FormatNumber, zeros_pad_to_their_length_and_never_cut) {
  EXPECT_EQ(Format(1, "00"), "01");
  EXPECT_EQ(Format(123, "00"), "123");
  EXPECT_EQ(Format(42, "000000"), "000042");
  EXPECT_EQ(Format(1000000, "000000"), "1000000");
  EXPECT_EQ(Format(261, "0000000000"), "0000000261");
  EXPECT_EQ(Format(-5, "00"), "-05");
}

TEST(FormatNumber, a_digit_from_1_to_9_in_front_is_itself) {
  EXPECT_EQ(Format(261, "10000000000"), "10000000261");
  EXPECT_EQ(Format(261, "20000000000"), "20000000261");
  EXPECT_EQ(Format(261, "1000000000"), "1000000261");
  EXPECT_EQ(Format(5, "A0000000000"), "A0000000005");
}

TEST(FormatNumber, up_to_six_decimals_at_least_two) {
  EXPECT_EQ(Format(0, "##0.00####"), "0,00");
  EXPECT_EQ(Format(1.5, "##0.00####"), "1,50");
  EXPECT_EQ(Format(1.2345678, "##0.00####"), "1,234568");
  EXPECT_EQ(Format(1.234, "##0.00####"), "1,234");
  EXPECT_EQ(Format(12345.1, "##0.00####"), "12345,10");
  EXPECT_EQ(Format(0.0000004, "##0.00####"), "0,00");
}

TEST(FormatNumber, words_around_the_places_stay) {
  EXPECT_EQ(Format(1250, "#,##0.00 TL."), "1.250,00 TL.");
  EXPECT_EQ(Format(5, "kelime"), "kelime");
}

TEST(FormatNumber, general_number_is_plain) {
  EXPECT_EQ(Format(1234.5, "General Number"), "1234,5");
  EXPECT_EQ(Format(1234.5, "GENERAL NUMBER"), "1234,5");
  EXPECT_EQ(Format(1234.5, ""), "1234,5");
}

TEST(FormatText, is_formatted_where_it_is_a_number) {
  EXPECT_EQ(Format("1", "00"), "01");
  EXPECT_EQ(Format("1.250,756", "#,##0.00"), "1.250,76");
  EXPECT_EQ(Format(std::string("0"), "000000"), "000000");
  EXPECT_EQ(Format("05", "#,##0"), "5");
}

TEST(FormatText, comes_back_as_it_is_where_it_is_none) {
  EXPECT_EQ(Format("A", "00"), "A");
  EXPECT_EQ(Format("", "#,##0.00"), "");
  EXPECT_EQ(Format(" abc ", "Standard"), " abc ");
  EXPECT_EQ(Format("12abc", "Standard"), "12abc");
}

TEST(PlainNumber, shows_up_to_fifteen_digits) {
  EXPECT_EQ(PlainNumber(0), "0");
  EXPECT_EQ(PlainNumber(-0.0), "0");
  EXPECT_EQ(PlainNumber(12), "12");
  EXPECT_EQ(PlainNumber(-1234.5), "-1234,5");
  EXPECT_EQ(PlainNumber(0.1 + 0.2), "0,3");
  EXPECT_EQ(PlainNumber(1.0 / 3), "0,333333333333333");
  EXPECT_EQ(PlainNumber(0.05), "0,05");
  EXPECT_EQ(PlainNumber(1000000), "1000000");
  EXPECT_EQ(PlainNumber(1e20), "100000000000000000000");
  EXPECT_EQ(PlainNumber(9.9999999999999999), "10");
}

TEST(PlainNumber, what_is_no_number_shows_as_zero) {
  EXPECT_EQ(PlainNumber(std::numeric_limits<double>::quiet_NaN()), "0");
  EXPECT_EQ(PlainNumber(std::numeric_limits<double>::infinity()), "0");
}

TEST(PlainNumber, reads_back_as_the_number_it_shows) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<long long> cents(-999999999999, 999999999999);
  for (int round = 0; round < 20000; ++round) {
    const double value = static_cast<double>(cents(random)) / 1000;
    ASSERT_EQ(ReadNumber(PlainNumber(value)), value);
    ASSERT_EQ(ReadNumber(Format(value, "#,##0.000")), value);
    ASSERT_EQ(std::stod(CriteriaNumber(value)), value);
  }
}

TEST(CriteriaNumber, has_a_point_and_no_groups) {
  EXPECT_EQ(CriteriaNumber(0), "0");
  EXPECT_EQ(CriteriaNumber(-0.0), "0");
  EXPECT_EQ(CriteriaNumber(1234567.5), "1234567.5");
  EXPECT_EQ(CriteriaNumber(-0.1), "-0.1");
  EXPECT_EQ(CriteriaNumber(1e21), "1000000000000000000000");
  EXPECT_EQ(CriteriaNumber(0.000001), "0.000001");
  EXPECT_EQ(std::stod(CriteriaNumber(-std::numeric_limits<double>::max())), -std::numeric_limits<double>::max());
  EXPECT_EQ(std::stod(CriteriaNumber(2.2250738585072014e-308)), 2.2250738585072014e-308);
}

TEST(ReadNumber, reads_the_turkish_form) {
  EXPECT_EQ(ReadNumber("1.250,75"), 1250.75);
  EXPECT_EQ(ReadNumber("0"), 0);
  EXPECT_EQ(ReadNumber("-5"), -5);
  EXPECT_EQ(ReadNumber("+5"), 5);
  EXPECT_EQ(ReadNumber("  7,5 "), 7.5);
  EXPECT_EQ(ReadNumber(",5"), 0.5);
  EXPECT_EQ(ReadNumber("5,"), 5);
  EXPECT_EQ(ReadNumber("000042"), 42);
  EXPECT_EQ(ReadNumber("1.000.000"), 1000000);
}

TEST(ReadNumber, a_point_is_a_thousands_sign_wherever_it_stands) {
  EXPECT_EQ(ReadNumber("1.5"), 15);
}

TEST(ReadNumber, anything_else_is_none) {
  for (const std::string text : {"",   " ",   "abc", ",",     ".",  "-",   "+",   "1,2,3", "12abc", "1e5", "--5",
                                 "5-", "- 5", "1 2", "1,5.0", "%5", "nan", "inf", "0x10",  "5 TL",  "٣"}) {
    EXPECT_FALSE(ReadNumber(text)) << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(NumberOrZero(text), 0) << text;
  }
  EXPECT_FALSE(ReadNumber(std::string(400, '9')));
}

TEST(ReadBoolean, words_and_numbers) {
  for (const std::string text : {"True", "true", "TRUE", "Doğru", "DOĞRU", "1", "-1", "0,5", " True "})
    EXPECT_TRUE(ReadBoolean(text)) << text;
  for (const std::string text : {"", "False", "Yanlış", "0", "00", "evet", "#TRUE#"}) EXPECT_FALSE(ReadBoolean(text)) << text;
}

TEST(RoundTo, takes_halves_to_even) {
  EXPECT_EQ(RoundTo(2.675, 2), 2.68);
  EXPECT_EQ(RoundTo(2.665, 2), 2.66);
  EXPECT_EQ(RoundTo(0.125, 2), 0.12);
  EXPECT_EQ(RoundTo(2.5, 0), 2);
  EXPECT_EQ(RoundTo(3.5, 0), 4);
  EXPECT_EQ(RoundTo(0.5, 0), 0);
  EXPECT_EQ(RoundTo(-2.675, 2), -2.68);
  EXPECT_EQ(RoundTo(2.6650001, 2), 2.67);
  EXPECT_EQ(RoundTo(0.0005, 3), 0);
  EXPECT_EQ(RoundTo(0.0015, 3), 0.002);
  EXPECT_EQ(RoundTo(9.999, 2), 10);
  EXPECT_EQ(RoundTo(123456789.125, 2), 123456789.12);
}

TEST(RoundTo, clears_the_dust_of_sums) {
  double sum = 0;
  for (int i = 0; i < 10; ++i) sum += 0.1;
  EXPECT_NE(sum, 1.0);
  EXPECT_EQ(RoundTo(sum, 2), 1.0);
  EXPECT_FALSE(std::signbit(RoundTo(-0.001, 2)));
}

TEST(Numbers, do_not_follow_the_machines_locale) {
  // Where the machine has it: a locale that writes "1,5" must not change what files and criteria hold.
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "tr_TR.UTF-8");
  EXPECT_EQ(CriteriaNumber(1.5), "1.5");
  EXPECT_EQ(Format(1234.5, "Standard"), "1.234,50");
  EXPECT_EQ(ReadNumber("1,5"), 1.5);
  EXPECT_EQ(RoundTo(1.255, 2), 1.26);
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace karvel
