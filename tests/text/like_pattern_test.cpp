#include "text/like_pattern.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

#include "text/turkish.h"

namespace karvel {
namespace {

TEST(Like, a_star_takes_any_run) {
  EXPECT_TRUE(Like("Şeker", "*"));
  EXPECT_TRUE(Like("", "*"));
  EXPECT_TRUE(Like("Şeker 1 kg", "şe*"));
  EXPECT_TRUE(Like("Şeker 1 kg", "*KG"));
  EXPECT_TRUE(Like("Şeker 1 kg", "*er*1*"));
  EXPECT_TRUE(Like("aab", "a*ab"));
  EXPECT_TRUE(Like("abc", "a**c"));
  EXPECT_FALSE(Like("Şeker", "se*"));
  EXPECT_FALSE(Like("Çay", "c*"));
  EXPECT_FALSE(Like("Şeker", "*ş"));
}

TEST(Like, without_signs_it_is_the_compare_rule) {
  EXPECT_TRUE(Like("TOPTAN", "toptan"));
  EXPECT_TRUE(Like("", ""));
  EXPECT_FALSE(Like("ışık", "IŞIK"));
  EXPECT_FALSE(Like("a", ""));
  EXPECT_FALSE(Like("", "a"));
}

TEST(Like, a_question_mark_takes_one_letter_however_many_bytes_it_has) {
  EXPECT_TRUE(Like("aşk", "a?k"));
  EXPECT_TRUE(Like("a₺k", "a?k"));
  EXPECT_TRUE(Like("😀", "?"));
  EXPECT_TRUE(Like("\xC5", "?"));
  EXPECT_FALSE(Like("ak", "a?k"));
  EXPECT_FALSE(Like("ş", "??"));
}

TEST(Like, a_hash_takes_one_digit) {
  EXPECT_TRUE(Like("A1", "a#"));
  EXPECT_FALSE(Like("AA", "a#"));
  EXPECT_FALSE(Like("A", "a#"));
}

TEST(Like, a_set_takes_one_of_its_letters) {
  EXPECT_TRUE(Like("B", "[abc]"));
  EXPECT_TRUE(Like("Ç", "[çş]"));
  EXPECT_FALSE(Like("c", "[çş]"));
  EXPECT_FALSE(Like("d", "[abc]"));
  EXPECT_FALSE(Like("", "[abc]"));
}

TEST(Like, a_range_follows_the_turkish_alphabet) {
  for (const std::string letter : {"a", "Ç", "ğ", "ı", "i", "İ", "ö", "ş", "Ü", "z"}) EXPECT_TRUE(Like(letter, "[a-z]")) << letter;
  EXPECT_TRUE(Like("ç", "[c-d]"));
  EXPECT_FALSE(Like("ç", "[a-c]"));
  EXPECT_TRUE(Like("ı", "[h-i]"));
  EXPECT_FALSE(Like("İ", "[h-i]"));
  EXPECT_FALSE(Like("1", "[a-z]"));
  EXPECT_FALSE(Like("b", "[c-a]"));
}

TEST(Like, a_set_with_an_exclamation_mark_takes_what_is_not_in_it) {
  EXPECT_TRUE(Like("1", "[!a-z]"));
  EXPECT_FALSE(Like("ş", "[!a-z]"));
  EXPECT_FALSE(Like("", "[!a-z]"));
  EXPECT_TRUE(Like("c", "[!ç]"));
}

TEST(Like, signs_in_a_set_are_themselves) {
  EXPECT_TRUE(Like("5*", "5[*]"));
  EXPECT_FALSE(Like("55", "5[*]"));
  EXPECT_TRUE(Like("?", "[?]"));
  EXPECT_TRUE(Like("#", "[#]"));
  EXPECT_TRUE(Like("[", "[[]"));
  EXPECT_TRUE(Like("]", "]"));
  EXPECT_TRUE(Like("-", "[a-]"));
  EXPECT_TRUE(Like("-", "[-a]"));
  EXPECT_TRUE(Like("!", "[!]"));
  EXPECT_TRUE(Like("ab", "a[]b"));
}

TEST(Like, an_unclosed_set_matches_nothing) {
  EXPECT_FALSE(Like("[a", "[a"));
  EXPECT_FALSE(Like("a", "*[a"));
  EXPECT_FALSE(Like("", "["));
  EXPECT_FALSE(LikePattern("x[").Valid());
}

TEST(Like, many_stars_do_not_make_it_slow) {
  const std::string text(20000, 'a');
  std::string pattern;
  for (int i = 0; i < 50; ++i) pattern += "a*";
  pattern += "b";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(Like(text, pattern));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

// Says the same in the plainest way, for short texts of one-byte letters.
bool SlowLike(std::string_view text, std::string_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == '*') return SlowLike(text, pattern.substr(1)) || (!text.empty() && SlowLike(text.substr(1), pattern));
  if (text.empty()) return false;
  const bool takes = pattern[0] == '?' || (pattern[0] == '#' ? text[0] >= '0' && text[0] <= '9' : pattern[0] == text[0]);
  return takes && SlowLike(text.substr(1), pattern.substr(1));
}

TEST(Like, agrees_with_the_plain_definition_on_random_patterns) {
  std::mt19937 random(5);
  const auto draw = [&](std::string_view signs, std::size_t most) {
    std::string text;
    for (auto left = random() % (most + 1); left > 0; --left) text.push_back(signs[random() % signs.size()]);
    return text;
  };
  int hits = 0;
  for (int round = 0; round < 50000; ++round) {
    const std::string text = draw("ab1", 7);
    const std::string pattern = draw("ab1*?#", 6);
    ASSERT_EQ(Like(text, pattern), SlowLike(text, pattern)) << text << " / " << pattern;
    hits += SlowLike(text, pattern) ? 1 : 0;
  }
  EXPECT_GT(hits, 1000);
}

TEST(Like, any_bytes_are_safe) {
  std::mt19937 random(9);
  for (int round = 0; round < 20000; ++round) {
    std::string text, pattern;
    for (auto left = random() % 10; left > 0; --left) text.push_back(static_cast<char>(random() % 256));
    for (auto left = random() % 10; left > 0; --left)
      pattern.push_back(random() % 3 == 0 ? "*?#[]!-"[random() % 7] : static_cast<char>(random() % 256));
    Like(text, pattern);
    EXPECT_TRUE(Like(text, "*"));
    EXPECT_EQ(Like(text, std::string(LetterCount(text), '?')), true);
  }
}

}  // namespace
}  // namespace karvel
