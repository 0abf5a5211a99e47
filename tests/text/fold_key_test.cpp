#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kMark = "\xF4\x8F\xBF\xBD";
constexpr std::string_view kHat = "\xF4\x8F\xBF\xBC";

bool HasPrefix(const std::string& text, const std::string& prefix) {
  const std::string key = FoldKey(text);
  return FoldKey(prefix) <= key && key < FoldKeyPrefixEnd(prefix);
}

// Real letters and broken pieces in one text, never a zero byte.
std::string RandomText(std::mt19937& random) {
  static const std::vector<std::string> pieces = {
      "a", "B", "c", "C", "g",  "h",    "H",    "i",    "I",    "o",    "S",    "u",    "z",    "Z",    " ",       "'", "1",
      "ç", "Ç", "ğ", "Ğ", "ı",  "İ",    "ö",    "Ö",    "ş",    "Ş",    "ü",    "Ü",    "â",    "Â",    "î",       "Î", "û",
      "Û", "é", "ß", "₺", "😀", "\xC3", "\xC4", "\xC5", "\x87", "\xA7", "\xB1", "\x9E", "\xF4", "\xFF", "\xE2\x82"};
  std::string text;
  for (auto left = random() % 12; left > 0; --left) {
    if (random() % 8 == 0) {
      text.push_back(static_cast<char>(1 + random() % 255));
    } else {
      text += pieces[random() % pieces.size()];
    }
  }
  return text;
}

TEST(FoldKey, ascii_letters_lose_their_case) {
  EXPECT_EQ(FoldKey("Velmora KARVEL 1i"), "velmora karvel 1i");
}

TEST(FoldKey, turkish_letters_stand_behind_their_plain_ones) {
  const std::string mark(kMark);
  const std::string hat(kHat);
  EXPECT_EQ(FoldKey("çÇ"), "c" + mark + "c" + mark);
  EXPECT_EQ(FoldKey("ğĞ"), "g" + mark + "g" + mark);
  EXPECT_EQ(FoldKey("ıİ"), "h" + mark + "i" + mark);
  EXPECT_EQ(FoldKey("öÖşŞüÜ"), "o" + mark + "o" + mark + "s" + mark + "s" + mark + "u" + mark + "u" + mark);
  EXPECT_EQ(FoldKey("âÂîÎûÛ"), "a" + hat + "a" + hat + "i" + hat + "i" + hat + "u" + hat + "u" + hat);
}

TEST(FoldKey, everything_else_stays_byte_for_byte) {
  EXPECT_EQ(FoldKey("é₺😀'\"%"), "é₺😀'\"%");
  EXPECT_EQ(FoldKey("\xC3"), "\xC3");
  EXPECT_EQ(FoldKey("x\xC5\xFF\x9E"), "x\xC5\xFF\x9E");
  EXPECT_EQ(FoldKey("\xC3\xC3\xA7"),
            "\xC3"
            "c" +
                std::string(kMark));
  EXPECT_EQ(FoldKey(std::string_view("A\0B", 3)), std::string("a\0b", 3));
  EXPECT_EQ(FoldKey(""), "");
}

TEST(FoldKey, dotless_i_is_only_equal_to_itself) {
  EXPECT_EQ(FoldKey("I"), FoldKey("i"));
  for (const std::string other : {"I", "i", "İ", "h"}) EXPECT_NE(FoldKey("ı"), FoldKey(other)) << other;
  for (const std::string other : {"I", "i", "ı"}) EXPECT_NE(FoldKey("İ"), FoldKey(other)) << other;
}

TEST(FoldKey, letters_order_by_the_turkish_alphabet) {
  const std::vector<std::string> alphabet = {"a", "b", "c", "ç", "d", "e", "f", "g", "ğ", "h", "ı", "i", "j", "k", "l",
                                             "m", "n", "o", "ö", "p", "r", "s", "ş", "t", "u", "ü", "v", "y", "z"};
  for (std::size_t i = 1; i < alphabet.size(); ++i) {
    EXPECT_LT(FoldKey(alphabet[i - 1]), FoldKey(alphabet[i]));
    // Whatever stands behind the smaller letter does not carry it over the next one.
    EXPECT_LT(FoldKey(alphabet[i - 1] + "zzz"), FoldKey(alphabet[i])) << alphabet[i];
    EXPECT_LT(FoldKey(alphabet[i - 1] + "ü"), FoldKey(alphabet[i] + "a")) << alphabet[i];
  }
}

TEST(FoldKey, names_order_as_in_a_turkish_list) {
  const std::vector<std::string> sorted = {"Ahmet", "Cem",   "Cuma",  "Çelik", "Çınar", "Demir", "Güzel", "Ğ",
                                           "Hasan", "Hülya", "Ilgaz", "irfan", "İnci",  "Jale",  "Oya",   "Ömer",
                                           "Polat", "Suna",  "Şahin", "Tan",   "Uzun",  "Ümit",  "Veli"};
  std::vector<std::string> names = sorted;
  std::shuffle(names.begin(), names.end(), std::mt19937(3));
  std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) { return FoldKey(a) < FoldKey(b); });
  // "I" is the dotted letter's capital on the desk, so "Ilgaz" stands with "i".
  EXPECT_EQ(names, sorted);
}

TEST(FoldKeyPrefixEnd, a_prefix_is_one_range) {
  EXPECT_TRUE(HasPrefix("Çelik", "çe"));
  EXPECT_TRUE(HasPrefix("CEM", "ce"));
  EXPECT_TRUE(HasPrefix("cem", "cem"));
  EXPECT_TRUE(HasPrefix("ince", "IN"));
  EXPECT_TRUE(HasPrefix("her şey", ""));
  EXPECT_FALSE(HasPrefix("Çelik", "c"));
  EXPECT_FALSE(HasPrefix("ılık", "h"));
  EXPECT_FALSE(HasPrefix("İnce", "i"));
  EXPECT_FALSE(HasPrefix("âdem", "a"));
  EXPECT_FALSE(HasPrefix("Kaş", "kas"));
  EXPECT_FALSE(HasPrefix("ce", "cem"));
}

TEST(FoldKeyPrefixEnd, the_range_holds_a_text_exactly_when_it_starts_with_the_prefix) {
  const std::vector<std::string> letters = {"a", "A", "â", "c", "ç", "Ç", "h", "ı", "i", "İ", "I", "z", "1", "é", "₺"};
  std::mt19937 random(11);
  const auto text = [&](std::size_t most) {
    std::vector<std::string> result(random() % (most + 1));
    for (auto& letter : result) letter = letters[random() % letters.size()];
    return result;
  };
  int hits = 0;
  for (int round = 0; round < 20000; ++round) {
    const auto whole = text(4);
    const auto prefix = text(2);
    std::string wholeText, prefixText;
    for (const auto& letter : whole) wholeText += letter;
    for (const auto& letter : prefix) prefixText += letter;
    bool expected = prefix.size() <= whole.size();
    for (std::size_t i = 0; expected && i < prefix.size(); ++i) expected = EqualText(whole[i], prefix[i]);
    ASSERT_EQ(HasPrefix(wholeText, prefixText), expected) << wholeText << " / " << prefixText;
    hits += expected ? 1 : 0;
  }
  EXPECT_GT(hits, 1000);
}

TEST(FoldKeySql, gives_the_same_bytes_as_the_desk) {
  sqlite3* opened = nullptr;
  ASSERT_EQ(sqlite3_open(":memory:", &opened), SQLITE_OK);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
  sqlite3_stmt* prepared = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(opened, ("SELECT " + FoldKeySql("?1")).c_str(), -1, &prepared, nullptr), SQLITE_OK)
      << sqlite3_errmsg(opened);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared, sqlite3_finalize);
  std::mt19937 random(20260301);
  for (int round = 0; round < 20000; ++round) {
    const std::string text = RandomText(random);
    sqlite3_bind_text(prepared, 1, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    ASSERT_EQ(sqlite3_step(prepared), SQLITE_ROW);
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(prepared, 0));
    const std::string key =
        bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(prepared, 0)));
    ASSERT_EQ(FoldKey(text), key) << testing::PrintToString(text);
    sqlite3_reset(prepared);
  }
}

TEST(FoldKeySql, can_stand_in_a_generated_column_and_its_index) {
  sqlite3* opened = nullptr;
  ASSERT_EQ(sqlite3_open(":memory:", &opened), SQLITE_OK);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
  const std::string sql =
      "CREATE TABLE t(ad TEXT, k TEXT AS (" + FoldKeySql("ad") + ")); CREATE INDEX i ON t(k); INSERT INTO t(ad) VALUES('ÇINAR')";
  char* message = nullptr;
  EXPECT_EQ(sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << (message ? message : "");
  sqlite3_free(message);
}

struct Comparison {
  std::string_view typed;
  std::string_view stored;
  bool equal;
};

class CompareRule : public testing::TestWithParam<Comparison> {};

TEST_P(CompareRule, answers_as_the_shop_expects) {
  const auto& [typed, stored, equal] = GetParam();
  EXPECT_EQ(EqualText(typed, stored), equal) << typed << " / " << stored;
  EXPECT_EQ(EqualText(stored, typed), equal) << stored << " / " << typed;
  EXPECT_EQ(FoldKey(typed) == FoldKey(stored), equal);
  EXPECT_EQ(Like(stored, typed), equal);
}

constexpr std::array kComparisons = {
    Comparison{"", "", true},
    Comparison{"ahmet", "Ahmet", true},
    Comparison{"AHMET", "ahmet", true},
    Comparison{"ahmet ", "Ahmet", false},
    Comparison{"Ayşe", "AYŞE", true},
    Comparison{"ayse", "Ayşe", false},
    Comparison{"çınar", "ÇıNAR", true},
    Comparison{"çınar", "ÇINAR", false},  // a typed ı is not the I of an all-capitals card
    Comparison{"çinar", "ÇINAR", true},
    Comparison{"cinar", "ÇINAR", false},
    Comparison{"IŞIK", "işik", true},
    Comparison{"IŞIK", "ışık", false},
    Comparison{"ışık", "ışık", true},
    Comparison{"İSMAİL", "ismail", false},
    Comparison{"ISMAIL", "ismail", true},
    Comparison{"İsmail", "İSMAİl", false},
    Comparison{"İsmail", "İSMAIL", true},
    Comparison{"İsmail", "İsmail", true},
    Comparison{"istanbul", "ISTANBUL", true},
    Comparison{"istanbul", "İSTANBUL", false},
    Comparison{"ığdır", "IĞDIR", false},
    Comparison{"iğdir", "IĞDIR", true},
    Comparison{"Özgür", "ÖZGÜR", true},
    Comparison{"ozgur", "Özgür", false},
    Comparison{"Özgur", "Özgür", false},
    Comparison{"GÜL", "gül", true},
    Comparison{"Gul", "gül", false},
    Comparison{"Çağlar", "ÇAĞLAR", true},
    Comparison{"Caglar", "Çağlar", false},
    Comparison{"Muhtelif Müşteri", "MUHTELIF MÜŞTERI", true},
    Comparison{"Muhtelif Müşteri", "muhtelif müşteri", true},
    Comparison{"MUHTELİF MÜŞTERİ", "Muhtelif Müşteri", false},
    Comparison{"Toptan", "TOPTAN", true},
    Comparison{"Alış", "ALIŞ", false},
    Comparison{"Satış", "Satış", true},
    Comparison{"Satış", "SATIŞ", false},
    Comparison{"Satiş", "SATIŞ", true},
    Comparison{"hâlâ", "HÂLÂ", true},
    Comparison{"hala", "hâlâ", false},
    Comparison{"kâğıt", "KÂĞıT", true},
    Comparison{"millî", "MILLÎ", true},
    Comparison{"sükûn", "SÜKÛN", true},
    Comparison{"É", "é", false},
    Comparison{"100", "100", true},
    Comparison{"O", "0", false},
    Comparison{"Şeker 1 kg", "ŞEKER 1 KG", true},
    Comparison{"şeker", "seker", false},
    Comparison{"h\xC4", "H\xC4", true},
};
static_assert(kComparisons.size() >= 40);
INSTANTIATE_TEST_SUITE_P(TurkishNames, CompareRule, testing::ValuesIn(kComparisons));

}  // namespace
}  // namespace karvel
