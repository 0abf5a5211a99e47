// The server's words mean what the desk's own rules say.
#include "store/postgres/postgres_sql.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/store/postgres/postgres_kind.h"
#include "text/turkish.h"

namespace karvel::testing {
namespace {

std::string Quoted(const std::string& text) {
  return "'" + ReplaceAll(text, "'", "''") + "'";
}

const std::vector<std::string>& Letters() {
  static const std::vector<std::string> letters{"a", "A", "b", "Z",  "ç", "Ç", "ğ", "Ğ", "ı", "I", "i",  "İ", "ö",
                                                "Ö", "ş", "Ş", "ü",  "Ü", "â", "Â", "î", "û", "0", "7",  "9", " ",
                                                "-", ".", "'", "\\", "^", "$", "(", "é", "Я", "€", "😀", "{"};
  return letters;
}

std::string RandomText(std::mt19937& chance, std::size_t most, const std::vector<std::string>& more = {}) {
  std::string text;
  const std::size_t count = chance() % (most + 1);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t pick = chance() % (Letters().size() + more.size() * 3);
    text += pick < Letters().size() ? Letters()[pick] : more[(pick - Letters().size()) % more.size()];
  }
  return text;
}

// The values of an expression over the texts, one row each.
std::vector<std::string> OverTexts(PostgresServer& server, const std::string& expression, const std::vector<std::string>& texts) {
  std::string rows;
  for (std::size_t i = 0; i < texts.size(); ++i) rows += (i > 0 ? ", (" : "(") + std::to_string(i) + ", " + Quoted(texts[i]) + ")";
  return Psql(server, "SELECT " + expression + " FROM (VALUES " + rows + ") AS texts(i, t) ORDER BY i");
}

}  // namespace

TEST(PostgresWords, texts_fit_patterns_as_everywhere_on_the_desk) {
  PostgresServer& server = PostgresServer::Shared();
  PrepareServer(server);
  const postgres::PostgresWords words;
  std::mt19937 chance(5);
  std::vector<std::string> patterns{"",    "*",     "?",     "#",      "[a-z]*", "[!a-z]*", "[z-a]", "[!z-a]", "[ç-ş]", "[!ç]",  "[]a",
                                    "[!]", "[a-",   "[i]",   "[I-i]",  "[a-ç]?", "*ş*ı*",   "a**b",  "[-a]",   "[a-]",  "[^a]",  "[!^]",
                                    ".*",  "\\\\d", "(a|b)", "[€-😀]", "[A-Z]",  "[0-9]#",  "[{-~]", "i*",     "İ*",    "[h-i]*"};
  for (int i = 0; i < 150; ++i) patterns.push_back(RandomText(chance, 5, {"*", "?", "#", "[a-i]", "[!ı]", "[çş]"}));
  std::vector<std::string> texts{""};
  for (const std::string& letter : Letters()) texts.push_back(letter);
  for (int i = 0; i < 300; ++i) texts.push_back(RandomText(chance, 6));
  for (const std::string& pattern : patterns) {
    std::vector<std::string> expected;
    for (const std::string& text : texts) expected.emplace_back(Like(text, pattern) ? "t" : "f");
    EXPECT_EQ(OverTexts(server, words.Fits("t", Quoted(words.Pattern(pattern))), texts), expected) << pattern;
  }
}

TEST(PostgresWords, keys_are_the_desk_s_own_and_order_by_their_bytes) {
  PostgresServer& server = PostgresServer::Shared();
  PrepareServer(server);
  const postgres::PostgresWords words;
  std::mt19937 chance(6);
  std::vector<std::string> texts{""}, keys;
  for (const std::string& letter : Letters()) texts.push_back(letter);
  for (int i = 0; i < 500; ++i) texts.push_back(RandomText(chance, 8));
  for (const std::string& text : texts) keys.push_back(FoldKey(text));
  EXPECT_EQ(OverTexts(server, words.IndexedKey("t"), texts), keys);
  for (const std::string constant : {"toptan", "=", "", "ş", "i", "plasiyer", "a"}) {
    const std::string key = FoldKey(constant);
    std::vector<std::string> unlike;
    for (const std::string& text : keys) unlike.emplace_back(text != key ? "t" : "f");
    EXPECT_EQ(OverTexts(server, words.KeyUnlike("t", key) + " <> " + Quoted(key), texts), unlike) << constant;
  }
}

}  // namespace karvel::testing
