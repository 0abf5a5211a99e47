// The desk's look-ups run on the server's indexes too, by the plan that serves whatever is looked for: none reads a whole table, and no
// list is sorted.
#include <gtest/gtest.h>

#include "store/postgres/postgres_sql.h"
#include "store/table_rows.h"
#include "tests/store/look_ups.h"
#include "tests/store/postgres/postgres_kind.h"

namespace karvel::testing {
namespace {

constexpr std::int64_t kRows = 8000;

// A firm with rows in all tables, told to the server's planner.
class PostgresPlans : public ::testing::Test {
 protected:
  void SetUp() override {
    Stores stores(kind_.NewEngine());
    ASSERT_TRUE(stores.Open(kind_.Folder()).Ok());
    Action action(stores, "rows");
    for (const DatabaseFile& file : Catalogue::Files()) {
      if (!postgres::IsOnServer(file)) continue;
      for (const Table& table : file.tables) {
        TableRows rows(stores, std::string(file.name), std::string(table.name));
        ASSERT_TRUE(rows.Add(kRows, [&](std::int64_t i, Row& row) { Fill(i, table, row); }).Ok());
      }
    }
    ASSERT_TRUE(action.Finish().Ok());
  }

  static void Fill(std::int64_t i, const Table& table, Row& row) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      const bool group = table.columns[column].name == "Gurup" || table.columns[column].name == "Durum";
      if (table.columns[column].type == ColumnType::Text) row[column] = "Ş" + std::to_string(group ? i % 20 : i);
      if (table.columns[column].type == ColumnType::Number) row[column] = static_cast<double>(i % 1000);
      if (table.columns[column].type == ColumnType::Date) row[column] = DateTime{2026, 1, 1, 0, 0, 0}.PlusSeconds(i * 600);
    }
  }

  // The plan that is made without a look at the values.
  std::string PlanOf(const SqlText& sql) {
    std::string values;
    for (std::size_t i = 0; i < sql.parameters.size(); ++i) values += i == 0 ? "NULL" : ", NULL";
    std::string plan;
    for (const std::string& line : Psql(kind_.Server(), "SET plan_cache_mode = force_generic_plan; PREPARE asked AS " + sql.text +
                                                            "; EXPLAIN EXECUTE asked" + (values.empty() ? "" : "(" + values + ")")))
      plan += line + "\n";
    return plan;
  }

  void Check(const LookUp& lookUp) {
    const DatabaseFile& file = *Catalogue::File(lookUp.file);
    dialect::Statement source;
    ASSERT_TRUE(dialect::ParseStatement(lookUp.source, file, source).Ok());
    RowQuery query{&file, source.table, {}, source.order};
    if (source.where) query.where.push_back(source.where);
    if (*lookUp.criterion != '\0') {
      dialect::ExprPtr criterion;
      ASSERT_TRUE(dialect::ParseCriteria(lookUp.criterion, file, *source.table, criterion).Ok());
      query.where.push_back(criterion);
    }
    const postgres::PostgresWords words;
    const TableSql sql(*source.table, words, postgres::NamesOf(file, *source.table, kind_.Firm()));
    const std::string plan = PlanOf(sql.Select(query, {}, 1));
    EXPECT_NE(plan.find("Index Scan"), std::string::npos) << plan;
    EXPECT_EQ(plan.find("Seq Scan"), std::string::npos) << plan;
    if (*lookUp.criterion == '\0') {
      EXPECT_EQ(plan.find("Sort"), std::string::npos) << plan;
    }
  }

  PostgresKind kind_;
};

}  // namespace

TEST_F(PostgresPlans, use_an_index) {
  for (const LookUp& list : kLists) {
    SCOPED_TRACE(::testing::PrintToString(list));
    Check(list);
  }
  for (const LookUp& find : kFinds) {
    SCOPED_TRACE(::testing::PrintToString(find));
    Check(find);
  }
}

}  // namespace karvel::testing
