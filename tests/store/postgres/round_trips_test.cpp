// How often a desk waits for the server's answer: on a slow line that is what a list costs.
#include <gtest/gtest.h>

#include "store/table_rows.h"
#include "tests/store/postgres/postgres_kind.h"

namespace karvel::testing {
namespace {

constexpr std::int64_t kCustomers = 300;
constexpr int kPage = 20;

class PostgresRoundTrips : public ::testing::Test {
 protected:
  void SetUp() override {
    Stores stores(kind_.NewEngine());
    ASSERT_TRUE(stores.Open(kind_.Folder()).Ok());
    Action action(stores, "customers");
    const auto name = static_cast<std::size_t>(customers_->Position("Unvan"));
    ASSERT_TRUE(
        TableRows(stores, "Cari.mdb", "CariKartlar").Add(kCustomers, [&](std::int64_t i, Row& row) { row[name] = NameOf(i); }).Ok());
    ASSERT_TRUE(action.Finish().Ok());
    ASSERT_TRUE(engine_->Open(kind_.Folder()).Ok());
  }

  // "a000r", "b001r", …: there are some under each letter.
  static std::string NameOf(std::int64_t i) {
    const std::string number = std::to_string(1000 + i).substr(1);
    return static_cast<char>('a' + i % 26) + ("r" + number);
  }

  RowQuery CustomersWhere(const char* condition) {
    dialect::Statement source;
    EXPECT_TRUE(dialect::ParseStatement(std::string("Select * From CariKartlar") + condition + " Order By Unvan", *file_, source).Ok());
    RowQuery query{file_, customers_, {}, source.order};
    if (source.where) query.where.push_back(source.where);
    return query;
  }

  // How many answers a read waits for.
  template <typename Read>
  std::int64_t WaitsOf(Read read) {
    const std::int64_t before = engine_->Costs().roundTrips;
    EXPECT_TRUE(read().Ok());
    return engine_->Costs().roundTrips - before;
  }

  PostgresKind kind_;
  const DatabaseFile* file_ = Catalogue::File("Cari.mdb");
  const Table* customers_ = file_->Find("CariKartlar");
  std::unique_ptr<PostgresEngine> engine_ = MakePostgresEngine(PostgresTestOptions());
};

}  // namespace

TEST_F(PostgresRoundTrips, a_page_behind_a_row_is_one_wait) {
  const RowQuery list = CustomersWhere("");
  std::vector<GridRow> first, page;
  ASSERT_TRUE(engine_->Select(list, {}, first).Ok());
  ASSERT_EQ(first.size(), 1U);
  EXPECT_EQ(WaitsOf([&] { return engine_->Select(list, {RowRange::From::Behind, &first.front(), kPage}, page); }), 1);
  ASSERT_EQ(page.size(), static_cast<std::size_t>(kPage));
  EXPECT_LT(AsText(page.front().values[1]), AsText(page.back().values[1]));
}

TEST_F(PostgresRoundTrips, a_rows_place_in_a_list_is_one_wait) {
  const RowQuery list = CustomersWhere("");
  std::vector<GridRow> rows;
  ASSERT_TRUE(engine_->Select(list, {.limit = kPage}, rows).Ok());
  std::int64_t before = 0;
  EXPECT_EQ(WaitsOf([&] { return engine_->CountBefore(list, rows.back(), before); }), 1);
  EXPECT_EQ(before, kPage - 1);
}

TEST_F(PostgresRoundTrips, a_name_with_an_open_first_letter_is_a_handful_of_waits) {
  const RowQuery list = CustomersWhere(" Where Unvan Like '?r*'");
  std::vector<GridRow> rows;
  EXPECT_LE(WaitsOf([&] { return engine_->Select(list, {.limit = static_cast<int>(kCustomers) + 1}, rows); }), 8);
  EXPECT_EQ(rows.size(), static_cast<std::size_t>(kCustomers));
  std::int64_t count = 0;
  EXPECT_EQ(WaitsOf([&] { return engine_->Count(list, count); }), 1);
  EXPECT_EQ(count, kCustomers);
}

TEST_F(PostgresRoundTrips, a_list_that_is_full_asks_for_no_more) {
  const RowQuery list = CustomersWhere(" Where Unvan Like '?r*'");
  std::vector<GridRow> rows;
  EXPECT_LE(WaitsOf([&] { return engine_->Select(list, {.limit = 5}, rows); }), 2);
  EXPECT_EQ(rows.size(), 5U);
}

}  // namespace karvel::testing
