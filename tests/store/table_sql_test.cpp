// The statements on a table, as an engine with other words than the embedded one's would read them.
#include "store/table_sql.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace karvel {
namespace {

using testing::ElementsAre;

// An engine with numbered parameters behind a dollar sign, a key column of its own, and keys that are made otherwise than FoldKey's.
class ServerWords final : public dialect::SqlTarget {
 public:
  [[nodiscard]] std::string ColumnName(std::string_view column) const override { return QuotedName(column); }
  [[nodiscard]] std::string Parameter(std::size_t n) const override { return fmt::format("${}", n + 1); }
  [[nodiscard]] std::string IndexedKey(std::string_view sql) const override { return fmt::format("indexed({})", sql); }
  [[nodiscard]] std::string ComputedKey(std::string_view sql) const override { return fmt::format("computed({})", sql); }
  [[nodiscard]] std::string Fits(std::string_view text, std::string_view pattern) const override {
    return fmt::format("fits({}, {})", text, pattern);
  }
  [[nodiscard]] std::string LeftOf(std::string_view text, int count) const override { return fmt::format("left({}, {})", text, count); }
  [[nodiscard]] std::string Key(std::string_view text) const override { return fmt::format("key of {}", text); }
  [[nodiscard]] std::string KeyPrefixEnd(std::string_view prefix) const override { return fmt::format("end of {}", prefix); }
};

class TableSqlTest : public testing::Test {
 protected:
  static constexpr const char* kColumns = R"("CariKod", "VadeTarih", "Tutar")";
  const DatabaseFile& file_ = *Catalogue::File("Cari.mdb");
  const Table& table_ = *file_.Find("VadeGün");
  const ServerWords words_;
  const TableSql sql_{table_, words_, {R"("01_cari"."VadeGün")", R"("satir")"}};

  RowQuery Query(const std::string& source) {
    dialect::Statement statement;
    EXPECT_TRUE(dialect::ParseStatement(source, file_, statement).Ok());
    return {&file_, statement.table, {statement.where}, statement.order};
  }
  std::string From() { return fmt::format(R"(SELECT "satir", {} FROM "01_cari"."VadeGün")", kColumns); }
};

Value Text(const char* text) {
  return std::string(text);
}

TEST_F(TableSqlTest, one_row_goes_by_the_engines_key_column) {
  EXPECT_EQ(sql_.Read(), From() + R"( WHERE "satir" = $1)");
  EXPECT_EQ(sql_.Insert(), R"(INSERT INTO "01_cari"."VadeGün" ("CariKod", "VadeTarih", "Tutar") VALUES ($1, $2, $3))");
  EXPECT_EQ(sql_.Delete(), R"(DELETE FROM "01_cari"."VadeGün" WHERE "satir" = $1)");
  const std::vector<FieldValue> fields{{2, 5.0}, {0, Text("A")}};
  const SqlText change = sql_.Change(7, fields);
  EXPECT_EQ(change.text, R"(UPDATE "01_cari"."VadeGün" SET "Tutar" = $1, "CariKod" = $2 WHERE "satir" = $3)");
  EXPECT_THAT(change.parameters, ElementsAre(Value(5.0), Text("A"), Value(7.0)));
}

TEST_F(TableSqlTest, a_list_compares_and_orders_texts_by_the_engines_keys) {
  const SqlText sql = sql_.Select(Query("Select * From VadeGün Where CariKod Like 'a*' Order By CariKod Desc"), {}, 8, 3);
  EXPECT_EQ(sql.text, From() + R"( WHERE ((indexed("CariKod") >= $1 AND indexed("CariKod") < $2)))" +
                          R"( ORDER BY indexed("CariKod") DESC, "satir" DESC LIMIT $3 OFFSET $4)");
  EXPECT_THAT(sql.parameters, ElementsAre(Text("key of a"), Text("end of a"), Value(8.0), Value(3.0)));
}

TEST_F(TableSqlTest, the_rows_beside_a_row_are_one_seek_a_stretch) {
  const RowQuery query = Query("Select * From VadeGün Order By CariKod Asc, Tutar Desc");
  const GridRow beside{7, {Text("A"), DateTime{}, 5.0}};
  const std::vector<Stretch> stretches = TableSql::Stretches(query, beside, false);
  std::vector<std::string> wheres;
  for (const Stretch& stretch : stretches) {
    const SqlText sql = sql_.Count(query, {.stretch = &stretch, .beside = &beside});
    wheres.push_back(sql.text.substr(sql.text.find("WHERE ") + 6));
  }
  EXPECT_THAT(wheres,
              ElementsAre(R"(indexed("CariKod") = $1 AND "Tutar" = $2 AND "satir" < $3)", R"(indexed("CariKod") = $1 AND "Tutar" < $2)",
                          R"(indexed("CariKod") = $1 AND "Tutar" IS NULL)", R"(indexed("CariKod") > $1)"));
  const SqlText last = sql_.Select(query, {.stretch = &stretches.front(), .beside = &beside}, 8);
  EXPECT_THAT(last.parameters, ElementsAre(Text("key of A"), Value(5.0), Value(7.0), Value(8.0)));
  EXPECT_TRUE(last.text.ends_with(R"( ORDER BY "satir" DESC LIMIT $4)")) << last.text;
}

TEST_F(TableSqlTest, another_span_needs_no_other_text) {
  const RowQuery query = Query("Select * From VadeGün Order By CariKod Asc");
  const KeySpan first{"a", "b"};
  SqlText sql = sql_.Count(query, {.span = &first}, 10);
  EXPECT_EQ(sql.text,
            R"(SELECT count(*) FROM (SELECT 1 FROM "01_cari"."VadeGün" WHERE indexed("CariKod") >= $1 AND indexed("CariKod") < $2)"
            R"( LIMIT $3) AS counted)");
  TableSql::SetSpan(sql, {"c", "d"});
  EXPECT_THAT(sql.parameters, ElementsAre(Text("c"), Text("d"), Value(10.0)));
}

TEST_F(TableSqlTest, sums_and_deletions_are_narrowed_alike) {
  const RowQuery query = Query("Select * From VadeGün Where Tutar>5");
  EXPECT_EQ(sql_.Sum(query, 2).text, R"(SELECT sum("Tutar") FROM "01_cari"."VadeGün" WHERE ("Tutar" > $1))");
  EXPECT_EQ(sql_.DeleteWhere(query).text, R"(DELETE FROM "01_cari"."VadeGün" WHERE ("Tutar" > $1))");
}

TEST(QuotedName, doubles_a_quote) {
  EXPECT_EQ(QuotedName("Cari\"Kod"), "\"Cari\"\"Kod\"");
}

}  // namespace
}  // namespace karvel
