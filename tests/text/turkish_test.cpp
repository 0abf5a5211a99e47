#include "text/turkish.h"

#include <gtest/gtest.h>

#include <string>

namespace karvel {
namespace {

TEST(ContainsText, finds_a_part_by_the_compare_rule) {
  EXPECT_TRUE(ContainsText("Beyaz PEYNIR 500 gr", "peynir"));
  EXPECT_TRUE(ContainsText("Açık Çay", "çay"));
  EXPECT_TRUE(ContainsText("her şey", ""));
  EXPECT_TRUE(ContainsText("", ""));
  EXPECT_FALSE(ContainsText("Açık Çay", "cay"));
  EXPECT_FALSE(ContainsText("ışık", "I"));
  EXPECT_FALSE(ContainsText("", "a"));
}

TEST(ContainsText, never_cuts_a_letter_in_two) {
  EXPECT_FALSE(ContainsText("aç", "c"));
  EXPECT_FALSE(ContainsText("ı", "h"));
  EXPECT_TRUE(ContainsText("çc", "c"));
  EXPECT_TRUE(ContainsText("kaş kas", "kas"));
}

TEST(TurkishCase, dotted_and_dotless_i_keep_their_dots) {
  EXPECT_EQ(TurkishUpper("ısı işi ğüşöç âîû é 1"), "ISI İŞİ ĞÜŞÖÇ ÂÎÛ É 1");
  EXPECT_EQ(TurkishLower("ISI İŞİ ĞÜŞÖÇ ÂÎÛ É 1"), "ısı işi ğüşöç âîû é 1");
}

TEST(TurkishCase, signs_and_damaged_bytes_stay) {
  EXPECT_EQ(TurkishUpper("÷×ß₺\xC5"), "÷×ß₺\xC5");
  EXPECT_EQ(TurkishLower("÷×₺\xFF"), "÷×₺\xFF");
  EXPECT_EQ(TurkishUpper("ÿœš"), "ŸŒŠ");
  EXPECT_EQ(TurkishLower("ŸŒŠ"), "ÿœš");
}

TEST(Letters, are_counted_by_code_point) {
  EXPECT_EQ(LetterCount("Şeker"), 5U);
  EXPECT_EQ(LetterCount("₺😀"), 2U);
  EXPECT_EQ(LetterCount(""), 0U);
}

TEST(Letters, a_damaged_byte_is_one_letter) {
  EXPECT_EQ(LetterCount("a\xC5"), 2U);
  EXPECT_EQ(LetterCount("\xC0\x80"), 2U);          // a zero written too long
  EXPECT_EQ(LetterCount("\xED\xA0\x80"), 3U);      // half of a pair
  EXPECT_EQ(LetterCount("\xF4\x90\x80\x80"), 4U);  // behind the last letter
  EXPECT_EQ(LetterCount("\xE2\x82z"), 3U);
  EXPECT_EQ(LeftLetters("\xE2\x82z", 2), "\xE2\x82");
}

TEST(Letters, are_cut_whole) {
  EXPECT_EQ(LeftLetters("Şeker", 1), "Ş");
  EXPECT_EQ(LeftLetters("Şeker", 99), "Şeker");
  EXPECT_EQ(LeftLetters("Şeker", 0), "");
  EXPECT_EQ(RightLetters("maş", 1), "ş");
  EXPECT_EQ(RightLetters("maş", 9), "maş");
  EXPECT_EQ(RightLetters("maş", 0), "");
  EXPECT_EQ(MidLetters("çağrı", 1, 2), "ağ");
  EXPECT_EQ(MidLetters("çağrı", 3), "rı");
  EXPECT_EQ(MidLetters("çağrı", 9, 2), "");
}

TEST(Trim, takes_blanks_from_both_ends_only) {
  EXPECT_EQ(Trim("  a b \t"), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(ReplaceAll, goes_once_through_the_text) {
  EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(ReplaceAll("5 TL", "TL", ""), "5 ");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(ReplaceAll("", "a", "x"), "");
}

TEST(LetterToUtf8, writes_every_length) {
  EXPECT_EQ(LetterToUtf8(U'a'), "a");
  EXPECT_EQ(LetterToUtf8(U'ş'), "ş");
  EXPECT_EQ(LetterToUtf8(U'₺'), "₺");
  EXPECT_EQ(LetterToUtf8(U'😀'), "😀");
  EXPECT_EQ(LetterToUtf8(0xD800), "\uFFFD");
  EXPECT_EQ(LetterToUtf8(0x110000), "\uFFFD");
}

}  // namespace
}  // namespace karvel
