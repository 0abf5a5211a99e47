#include "touch/key_case.h"

#include <gtest/gtest.h>

#include <utility>

namespace karvel {
namespace {

TEST(KeyCase, every_letter_of_the_alphabet_has_both_cases) {
  constexpr std::pair<const char*, const char*> kLetters[] = {
      {"A", "a"}, {"B", "b"}, {"C", "c"}, {"Ç", "ç"}, {"D", "d"}, {"E", "e"}, {"F", "f"}, {"G", "g"}, {"Ğ", "ğ"}, {"H", "h"},
      {"I", "ı"}, {"İ", "i"}, {"J", "j"}, {"K", "k"}, {"L", "l"}, {"M", "m"}, {"N", "n"}, {"O", "o"}, {"Ö", "ö"}, {"P", "p"},
      {"R", "r"}, {"S", "s"}, {"Ş", "ş"}, {"T", "t"}, {"U", "u"}, {"Ü", "ü"}, {"V", "v"}, {"Y", "y"}, {"Z", "z"}};
  for (const auto& [capital, small] : kLetters) {
    EXPECT_EQ(InCase(capital, false), small);
    EXPECT_EQ(InCase(small, true), capital);
    EXPECT_EQ(InCase(capital, true), capital);
    EXPECT_EQ(InCase(small, false), small);
  }
}

TEST(KeyCase, signs_and_digits_have_none) {
  for (const char* sign : {".", "-", "/", "7"}) {
    EXPECT_EQ(InCase(sign, false), sign);
    EXPECT_EQ(InCase(sign, true), sign);
  }
}

}  // namespace
}  // namespace karvel
