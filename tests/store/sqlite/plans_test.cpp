// The desk's look-ups run on indexes: no search and no step of a list reads the whole table.
#include <gtest/gtest.h>

#include <string>

#include "store/sqlite/connection.h"
#include "store/sqlite/sqlite_sql.h"
#include "store/table_sql.h"
#include "tests/store/look_ups.h"
#include "tests/store/sqlite/sqlite_kind.h"

namespace karvel::testing {
namespace {

std::string PlanOf(sqlite::Connection& connection, const SqlText& sql) {
  std::string plan;
  SQLite::Statement statement(connection.Database(), "EXPLAIN QUERY PLAN " + sql.text);
  while (statement.executeStep()) plan += statement.getColumn(3).getString() + "; ";
  return plan;
}

class Plans : public ::testing::TestWithParam<LookUp> {};

}  // namespace

TEST_P(Plans, use_an_index) {
  const SqliteKind kind;
  const DatabaseFile& file = *Catalogue::File(GetParam().file);
  dialect::Statement source;
  ASSERT_TRUE(dialect::ParseStatement(GetParam().source, file, source).Ok());
  RowQuery query{&file, source.table, {}, source.order};
  if (source.where) query.where.push_back(source.where);
  const bool find = *GetParam().criterion != '\0';
  if (find) {
    dialect::ExprPtr criterion;
    ASSERT_TRUE(dialect::ParseCriteria(GetParam().criterion, file, *source.table, criterion).Ok());
    query.where.push_back(criterion);
  }
  sqlite::Connection connection(kind.Path(std::string(file.name)), "");
  const sqlite::SqliteWords words;
  const TableSql sql(*source.table, words, sqlite::NamesOf(*source.table, "main"));
  const std::string first = PlanOf(connection, sql.Select(query, {}, 1));
  if (find) {
    EXPECT_NE(first.find("SEARCH"), std::string::npos) << first;
    EXPECT_EQ(first.find("SCAN"), std::string::npos) << first;
    return;
  }
  // A list is read in its order, and from any row on, without sorting.
  EXPECT_NE(first.find("INDEX"), std::string::npos) << first;
  EXPECT_EQ(first.find("TEMP B-TREE"), std::string::npos) << first;
  GridRow beside;
  for (const Column& column : source.table->columns) {
    beside.values.push_back(column.type == ColumnType::Number ? Value(1.0) : column.type == ColumnType::Boolean ? Value(true) : Value("x"));
  }
  for (const bool reversed : {false, true}) {
    for (const Stretch& stretch : TableSql::Stretches(query, beside, reversed)) {
      const std::string plan = PlanOf(connection, sql.Select(query, {reversed, &stretch, &beside}, 64));
      EXPECT_NE(plan.find("SEARCH"), std::string::npos) << plan;
      EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << plan;
    }
  }
}

// A shop's lines are nearly all sales: by their state a customer's day would be looked for among all of the day's.
TEST(PlansOfADay, go_by_the_customer_not_by_the_state) {
  const SqliteKind kind;
  const DatabaseFile& file = *Catalogue::File("Karvel.mdb");
  const std::string day = "Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59#";
  for (const std::string& text : {"Select Sum(Tutar) FROM Datam Where " + day + " And CariAd='A' And Durum='Satış' And Tahsilat=0",
                                  "select sum(Tutar) FROM Datam Where CariKod='A' And Durum='Satış' And " + day}) {
    dialect::Statement statement;
    ASSERT_TRUE(dialect::ParseStatement(text, file, statement).Ok());
    const RowQuery query{&file, statement.table, {statement.where}, {}};
    sqlite::Connection connection(kind.Path("Karvel.mdb"), "");
    const sqlite::SqliteWords words;
    const TableSql sql(*statement.table, words, sqlite::NamesOf(*statement.table, "main"));
    const std::string plan = PlanOf(connection, sql.Sum(query, statement.sumPosition));
    EXPECT_NE(plan.find("_Cari"), std::string::npos) << plan;
  }
}

INSTANTIATE_TEST_SUITE_P(Lists, Plans, ::testing::ValuesIn(kLists));
INSTANTIATE_TEST_SUITE_P(Finds, Plans, ::testing::ValuesIn(kFinds));

}  // namespace karvel::testing
