// The printed SQL against a plain reading of the tree, row by row, on the same rows.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "random_tree.h"
#include "store/dialect/dialect.h"
#include "store/dialect/operators.h"
#include "support/plain_sqlite_target.h"
#include "text/turkish.h"

namespace karvel::dialect {
namespace {

// What a criterion says of one row: true, false, or unknown where a Null stands in the way.
class Reading {
 public:
  explicit Reading(const Row& row) : row_(row) {}

  [[nodiscard]] std::optional<bool> Of(const Expr& expr) const {
    if (const auto* node = std::get_if<And>(&expr.node)) {
      const auto left = Of(*node->left), right = Of(*node->right);
      if (left == false || right == false) return false;
      return left && right ? std::optional(true) : std::nullopt;
    }
    if (const auto* node = std::get_if<Or>(&expr.node)) {
      const auto left = Of(*node->left), right = Of(*node->right);
      if (left == true || right == true) return true;
      return left && right ? std::optional(false) : std::nullopt;
    }
    if (const auto* node = std::get_if<Not>(&expr.node)) {
      const auto inner = Of(*node->condition);
      return inner ? std::optional(!*inner) : std::nullopt;
    }
    if (const auto* node = std::get_if<Compare>(&expr.node)) {
      const Value left = ValueOf(*node->left), right = ValueOf(*node->right);
      if (left.index() == 0 || right.index() == 0) return {};
      return Holds(node->op, Comparable(left), Comparable(right));
    }
    if (const auto* node = std::get_if<karvel::dialect::Like>(&expr.node)) {
      if (!node->pattern.empty() && node->pattern.find_first_not_of('*') == std::string::npos) return true;
      const Value text = ValueOf(*node->text);
      return text.index() == 0 ? std::nullopt : std::optional(karvel::Like(std::get<std::string>(text), node->pattern));
    }
    const Value value = ValueOf(expr);
    return value.index() == 0 ? std::nullopt : std::optional(std::get<bool>(value));
  }

 private:
  [[nodiscard]] Value ValueOf(const Expr& expr) const {
    if (const auto* node = std::get_if<Field>(&expr.node)) return row_[static_cast<std::size_t>(node->position)];
    if (const auto* node = std::get_if<LCase>(&expr.node)) return ValueOf(*node->text);
    if (const auto* node = std::get_if<Left>(&expr.node)) {
      const Value text = ValueOf(*node->text);
      return text.index() == 0 ? text : Value(LeftLetters(std::get<std::string>(text), static_cast<std::size_t>(node->count)));
    }
    return std::get<Literal>(expr.node).value;
  }
  static Value Comparable(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? Value(FoldKey(*text)) : value;
  }

  const Row& row_;
};

class AgainstSqlite : public testing::TestWithParam<const char*> {};

TEST_P(AgainstSqlite, random_criteria_take_the_same_rows) {
  const Table& table = *Catalogue::File("Cari.mdb")->Find(GetParam());
  const support::PlainSqliteTarget target;
  support::PlainSqlite store;
  store.MakeTable(table);
  RandomTree random(table, 4711);
  std::vector<Row> rows(300);
  for (Row& row : rows) {
    for (const Column& column : table.columns) row.push_back(random.Stored(column.type));
    store.Insert(table, row);
  }
  std::size_t taken = 0, left = 0;
  for (int round = 0; round < 1500; ++round) {
    const ExprPtr tree = random.Condition(random.Below(4));
    std::vector<std::int64_t> expected;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (Reading(rows[i]).Of(*tree) == true) expected.push_back(static_cast<std::int64_t>(i + 1));
    }
    std::vector<Value> parameters;
    const std::string condition = PrintSql(*tree, table, target, parameters);
    const std::string sql = fmt::format("SELECT rowid FROM \"{}\" WHERE {} ORDER BY rowid", table.name, condition);
    ASSERT_EQ(store.Numbers(sql, parameters), expected) << Print(*tree, table);
    (expected.empty() || expected.size() == rows.size() ? left : taken) += 1;
  }
  // Criteria that split the rows are what shows a difference.
  EXPECT_GT(taken, left / 2);
}

INSTANTIATE_TEST_SUITE_P(Tables, AgainstSqlite, testing::Values("CariKartlar", "CariHareket", "Gurup", "VadeGün", "Cari"));

TEST(AgainstSqlite, prefixes_take_what_the_pattern_takes) {
  const DatabaseFile& file = *Catalogue::File("Stok.mdb");
  const Table& table = *file.Find("Gurup");
  const support::PlainSqliteTarget target;
  support::PlainSqlite store;
  store.MakeTable(table);
  const std::vector<std::string> names{"Çay",   "cay", "ÇAY 500", "İnce", "ince", "Ince", "ınce", "şeker", "Şeker",
                                       "sirke", "Su",  "Üzüm",    "",     "c",    "ç",    "â",    "a"};
  for (const std::string& name : names) store.Insert(table, {name, true});
  for (const std::string& head : names) {
    std::vector<std::int64_t> expected;
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (karvel::Like(names[i], head + "*")) expected.push_back(static_cast<std::int64_t>(i + 1));
    }
    ExprPtr tree;
    ASSERT_TRUE(ParseCriteria("Gurup Like '" + head + "*'", file, table, tree).Ok());
    std::vector<Value> parameters;
    const std::string condition = PrintSql(*tree, table, target, parameters);
    EXPECT_EQ(store.Numbers("SELECT rowid FROM \"Gurup\" WHERE " + condition, parameters), expected) << head;
  }
}

TEST(AgainstSqlite, the_longest_chain_runs) {
  const DatabaseFile& file = *Catalogue::File("Stok.mdb");
  const Table& table = *file.Find("Gurup");
  support::PlainSqlite store;
  store.MakeTable(table);
  store.Insert(table, {std::string("Çay"), true});
  std::string text = "Gurup='çay'";
  for (int i = 1; i < 1250; ++i) text += " Or Gurup='x'";
  ExprPtr tree;
  ASSERT_TRUE(ParseCriteria(text, file, table, tree).Ok());
  std::vector<Value> parameters;
  const std::string condition = PrintSql(*tree, table, support::PlainSqliteTarget(), parameters);
  EXPECT_EQ(parameters.size(), 1250U);
  EXPECT_EQ(store.Numbers("SELECT rowid FROM \"Gurup\" WHERE " + condition, parameters), std::vector<std::int64_t>{1});
}

}  // namespace
}  // namespace karvel::dialect
