#include "documents/amount_in_words.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "text/format.h"

namespace karvel {
namespace {

std::string Spelled(const std::string& amount) {
  const auto words = YazıylaTutar(amount);
  EXPECT_TRUE(words.has_value()) << amount;
  return words.value_or("");
}

TEST(AmountInWords, amounts_as_a_bookkeeper_writes_them) {
  EXPECT_EQ(Spelled("0,00"), "Sıfır TL. ");
  EXPECT_EQ(Spelled("1,00"), "Bir TL. ");
  EXPECT_EQ(Spelled("2,50"), "İki TL. Elli Kr.");
  EXPECT_EQ(Spelled("1.250,75"), "Binikiyüzelli TL. Yetmişbeş Kr.");
  EXPECT_EQ(Spelled("12.000,00"), "Onikibin TL. ");
  EXPECT_EQ(Spelled("100,00"), "Yüz TL. ");
  EXPECT_EQ(Spelled("101.000,00"), "Yüzbirbin TL. ");
  EXPECT_EQ(Spelled("100.000.000,00"), "Yüzmilyon TL. ");
}

TEST(AmountInWords, kurus_alone_stand_without_liras) {
  EXPECT_EQ(Spelled("0,25"), "Yirmibeş Kr.");
  EXPECT_EQ(Spelled(",05"), "Beş Kr.");
}

TEST(AmountInWords, whole_liras_keep_the_blank_behind_them) {
  EXPECT_EQ(Spelled("20,00"), "Yirmi TL. ");
  EXPECT_EQ(Spelled("20"), "Yirmi TL. ");
  EXPECT_EQ(Spelled(""), "Sıfır TL. ");
}

TEST(AmountInWords, only_the_first_word_of_each_half_is_capitalised) {
  EXPECT_EQ(Spelled("222.222.222,22"), "İkiyüzyirmiikimilyonikiyüzyirmiikibinikiyüzyirmiiki TL. Yirmiiki Kr.");
  EXPECT_EQ(Spelled("300,03"), "Üçyüz TL. Üç Kr.");
  EXPECT_EQ(Spelled("6,06"), "Altı TL. Altı Kr.");
}

TEST(AmountInWords, a_thousand_alone_is_not_counted_and_a_million_is) {
  EXPECT_EQ(Spelled("1.000,00"), "Bin TL. ");
  EXPECT_EQ(Spelled("1.001,00"), "Binbir TL. ");
  EXPECT_EQ(Spelled("21.000,00"), "Yirmibirbin TL. ");
  EXPECT_EQ(Spelled("1.000.000,00"), "Birmilyon TL. ");
  EXPECT_EQ(Spelled("1.001.000,00"), "Birmilyonbin TL. ");
  EXPECT_EQ(Spelled("110.100.101,00"), "Yüzonmilyonyüzbinyüzbir TL. ");
}

TEST(AmountInWords, a_minus_sign_is_dropped) {
  EXPECT_EQ(Spelled("-150,00"), "Yüzelli TL. ");
  EXPECT_EQ(Spelled("-1.000,00"), "Bin TL. ");
  EXPECT_EQ(Spelled("-0,05"), "Beş Kr.");
}

TEST(AmountInWords, one_digit_of_kurus_is_tens) {
  EXPECT_EQ(Spelled("1,5"), "Bir TL. Elli Kr.");
}

TEST(AmountInWords, of_three_digits_of_kurus_two_are_spelled_and_all_count) {
  EXPECT_EQ(Spelled("1,255"), "Bir TL. Yirmibeş Kr.");
  EXPECT_EQ(Spelled("1,005"), "Bir TL.  Kr.");
  EXPECT_EQ(Spelled("1,000"), "Bir TL. ");
}

TEST(AmountInWords, blanks_around_the_liras_are_nothing) {
  EXPECT_EQ(Spelled("  15 ,40"), "Onbeş TL. Kırk Kr.");
}

TEST(AmountInWords, more_than_nine_places_are_refused) {
  EXPECT_EQ(Spelled("999.999.999,99"), "Dokuzyüzdoksandokuzmilyondokuzyüzdoksandokuzbindokuzyüzdoksandokuz TL. Doksandokuz Kr.");
  const auto words = YazıylaTutar("1.000.000.000,00");
  ASSERT_FALSE(words.has_value());
  EXPECT_EQ(words.error().Kind(), ErrorKind::BadText);
}

// The speller that the other is held against works with numbers, by their names from the greatest down, and knows nothing of places.
struct NamedNumber {
  std::int64_t value;
  const char* name;
};
const std::vector<NamedNumber>& Names() {
  static const std::vector<NamedNumber> names{
      {1000000, "milyon"}, {1000, "bin"}, {100, "yüz"}, {90, "doksan"}, {80, "seksen"}, {70, "yetmiş"}, {60, "altmış"},
      {50, "elli"},        {40, "kırk"},  {30, "otuz"}, {20, "yirmi"},  {10, "on"},     {9, "dokuz"},   {8, "sekiz"},
      {7, "yedi"},         {6, "altı"},   {5, "beş"},   {4, "dört"},    {3, "üç"},      {2, "iki"},     {1, "bir"},
  };
  return names;
}

void Count(std::int64_t number, std::string& words) {
  for (const auto& [value, name] : Names()) {
    if (number < value) continue;
    const std::int64_t times = number / value;
    const bool counted = value >= 100 && (times > 1 || value == 1000000);
    if (counted) Count(times, words);
    words += name;
    number %= value;
  }
}

std::string WithCapital(std::string words) {
  for (const auto& [small, great] : {std::pair<std::string, std::string>{"i", "İ"}, {"ü", "Ü"}}) {
    if (words.starts_with(small)) return great + words.substr(small.size());
  }
  words[0] = static_cast<char>(words[0] - ('a' - 'A'));
  return words;
}

std::string ExpectedWords(std::int64_t kuruş) {
  if (kuruş == 0) return "Sıfır TL. ";
  std::string sentence;
  if (kuruş >= 100) {
    std::string liras;
    Count(kuruş / 100, liras);
    sentence = WithCapital(liras) + " TL. ";
  }
  if (kuruş % 100 > 0) {
    std::string rest;
    Count(kuruş % 100, rest);
    sentence += WithCapital(rest) + " Kr.";
  }
  return sentence;
}

std::string Shown(std::int64_t kuruş) {
  return Format(static_cast<double>(kuruş) / 100, "#,##0.00");
}

TEST(AmountInWords, every_amount_below_ten_thousand_liras) {
  for (std::int64_t kuruş = 0; kuruş < 1000000; ++kuruş) {
    ASSERT_EQ(Spelled(Shown(kuruş)), ExpectedWords(kuruş)) << Shown(kuruş);
  }
}

TEST(AmountInWords, a_million_amounts_below_a_billion_liras) {
  std::mt19937_64 random(20260301);
  std::uniform_int_distribution<std::int64_t> amounts(0, 99999999999);
  for (int i = 0; i < 1000000; ++i) {
    const std::int64_t kuruş = amounts(random);
    ASSERT_EQ(Spelled(Shown(kuruş)), ExpectedWords(kuruş)) << Shown(kuruş);
  }
}

}  // namespace
}  // namespace karvel
