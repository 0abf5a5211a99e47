// The SQL that criteria become: which key, which range, which parameters.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/dialect/dialect.h"
#include "text/turkish.h"

namespace karvel::dialect {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Names each piece, so that a test reads what was asked of the engine.
class NamingTarget : public SqlTarget {
 public:
  std::string ColumnName(std::string_view column) const override { return std::string(column); }
  std::string Parameter(std::size_t n) const override { return fmt::format("?{}", n + 1); }
  std::string IndexedKey(std::string_view sql) const override { return fmt::format("indexed({})", sql); }
  std::string ComputedKey(std::string_view sql) const override { return fmt::format("computed({})", sql); }
  std::string Fits(std::string_view text, std::string_view pattern) const override { return fmt::format("fits({}, {})", text, pattern); }
  std::string LeftOf(std::string_view text, int count) const override { return fmt::format("left({}, {})", text, count); }
};

const DatabaseFile& CariFile() {
  return *Catalogue::File("Cari.mdb");
}

class Sql : public testing::Test {
 protected:
  std::string Of(const std::string& criteria, const std::string& table = "CariKartlar") {
    ExprPtr expr;
    const Table& source = *CariFile().Find(table);
    const Status status = ParseCriteria(criteria, CariFile(), source, expr);
    if (!status.Ok()) return status.Message();
    parameters_.clear();
    return PrintSql(*expr, source, NamingTarget(), parameters_);
  }
  std::vector<Value> parameters_;
};

Value Key(const char* text) {
  return FoldKey(text);
}

TEST_F(Sql, a_text_is_compared_by_its_key_on_the_index) {
  EXPECT_EQ(Of("CariKod='ŞIŞLİ'"), "indexed(CariKod) = ?1");
  EXPECT_THAT(parameters_, ElementsAre(Key("ŞIŞLİ")));
  EXPECT_EQ(Of("CariKod>='a' And 'b'>CariKod"), "(indexed(CariKod) >= ?1 AND ?2 > indexed(CariKod))");
  EXPECT_THAT(parameters_, ElementsAre(Key("a"), Key("b")));
  EXPECT_EQ(Of("LCase(CariKod)='A'"), "indexed(CariKod) = ?1");
}

TEST_F(Sql, what_no_index_serves_is_computed) {
  EXPECT_EQ(Of("CariKod<>'x'"), "computed(CariKod) <> ?1");
  EXPECT_EQ(Of("Left(CariKod,1)<>'='"), "computed(left(CariKod, 1)) <> ?1");
  EXPECT_THAT(parameters_, ElementsAre(Key("=")));
  EXPECT_EQ(Of("LCase(Gurup)<>'plasiyer'"), "computed(Gurup) <> ?1");
  EXPECT_EQ(Of("Left(LCase(Left(Gurup,5)),2)='pl'"), "computed(left(left(Gurup, 5), 2)) = ?1");
  EXPECT_EQ(Of("CariKod=Unvan"), "computed(CariKod) = computed(Unvan)");
}

TEST_F(Sql, a_pattern_with_a_head_and_a_last_star_is_only_a_range) {
  EXPECT_EQ(Of("Unvan Like 'al*'"), "(indexed(Unvan) >= ?1 AND indexed(Unvan) < ?2)");
  EXPECT_THAT(parameters_, ElementsAre(Key("al"), Value(FoldKeyPrefixEnd("al"))));
  EXPECT_EQ(Of("Unvan Like 'al***'"), "(indexed(Unvan) >= ?1 AND indexed(Unvan) < ?2)");
  EXPECT_EQ(Of("LCase(Unvan) Like 'al*'"), "(indexed(Unvan) >= ?1 AND indexed(Unvan) < ?2)");
}

TEST_F(Sql, a_pattern_with_more_signs_is_a_range_and_a_fit) {
  EXPECT_EQ(Of("Unvan Like 'al?x*'"), "(indexed(Unvan) >= ?1 AND indexed(Unvan) < ?2 AND fits(Unvan, ?3))");
  EXPECT_THAT(parameters_, ElementsAre(Key("al"), Value(FoldKeyPrefixEnd("al")), Value(std::string("al?x*"))));
  EXPECT_EQ(Of("Unvan Like '*al'"), "fits(Unvan, ?1)");
  EXPECT_EQ(Of("Left(Unvan,3) Like 'al*'"), "fits(left(Unvan, 3), ?1)");
}

TEST_F(Sql, a_pattern_without_signs_is_a_text_to_equal) {
  EXPECT_EQ(Of("Unvan Like 'Ali'"), "indexed(Unvan) = ?1");
  EXPECT_THAT(parameters_, ElementsAre(Key("Ali")));
  EXPECT_EQ(Of("Unvan Like ''"), "indexed(Unvan) = ?1");
  EXPECT_EQ(Of("Left(Unvan,2) Like 'Al'"), "computed(left(Unvan, 2)) = ?1");
}

TEST_F(Sql, stars_alone_take_everything) {
  EXPECT_EQ(Of("Unvan Like '*'"), "1 = 1");
  EXPECT_EQ(Of("Unvan Like '**'"), "1 = 1");
  EXPECT_THAT(parameters_, IsEmpty());
}

TEST_F(Sql, what_hangs_on_no_field_is_settled_before) {
  EXPECT_EQ(Of("'A'='a'"), "1 = 1");
  EXPECT_EQ(Of("Left(LCase('ABC'),2)='ab'"), "1 = 1");
  EXPECT_EQ(Of("'ı'='i'"), "1 = 0");
  EXPECT_EQ(Of("'abc' Like 'B*'"), "1 = 0");
  EXPECT_EQ(Of("1>2"), "1 = 0");
  EXPECT_EQ(Of("#01/31/2026#<#02/01/2026#"), "1 = 1");
  EXPECT_EQ(Of("True<>False"), "1 = 1");
  EXPECT_EQ(Of("True And Not False"), "(1 = 1 AND NOT (1 = 0))");
  EXPECT_THAT(parameters_, IsEmpty());
}

TEST_F(Sql, booleans_numbers_and_dates_are_plain_columns) {
  EXPECT_EQ(Of("HesKullan=False"), "HesKullan = 0");
  EXPECT_EQ(Of("HesKullan<>False"), "HesKullan <> 0");
  EXPECT_EQ(Of("True=HesKullan"), "HesKullan <> 0");
  EXPECT_EQ(Of("HesKullan"), "HesKullan <> 0");
  EXPECT_EQ(Of("HesKullan=HesKullan"), "(HesKullan <> 0) = (HesKullan <> 0)");
  EXPECT_EQ(Of("Borc<>0 And Borc<Alacak"), "(Borc <> ?1 AND Borc < Alacak)");
  EXPECT_THAT(parameters_, ElementsAre(Value(0.0)));
  EXPECT_EQ(Of("VadeTarih<=#03/01/2026 23:59:59#", "VadeGün"), "(VadeTarih <= ?1 AND VadeTarih <> ?2)");
  EXPECT_THAT(parameters_, ElementsAre(Value(DateTime{2026, 3, 1, 23, 59, 59}), Value(DateTime())));
}

TEST_F(Sql, brackets_keep_the_meaning) {
  EXPECT_EQ(Of("Borc=1 Or Borc=2 And Borc=3"), "(Borc = ?1 OR (Borc = ?2 AND Borc = ?3))");
  EXPECT_EQ(Of("(Borc=1 Or Borc=2) And Borc=3"), "((Borc = ?1 OR Borc = ?2) AND Borc = ?3)");
  EXPECT_EQ(Of("Not Borc=1 And Borc=2"), "(NOT (Borc = ?1) AND Borc = ?2)");
  EXPECT_EQ(Of("Not Not Not Borc=1"), "NOT (Borc = ?1)");
  EXPECT_EQ(Of("Borc=1 And (Borc=2 And Borc=3)"), "(Borc = ?1 AND Borc = ?2 AND Borc = ?3)");
}

TEST_F(Sql, parameters_go_on_behind_those_that_are_there) {
  ExprPtr expr;
  const Table& table = *CariFile().Find("CariKartlar");
  ASSERT_TRUE(ParseCriteria("Borc=1", CariFile(), table, expr).Ok());
  std::vector<Value> parameters{Value(7.0)};
  EXPECT_EQ(PrintSql(*expr, table, NamingTarget(), parameters), "Borc = ?2");
  EXPECT_THAT(parameters, ElementsAre(Value(7.0), Value(1.0)));
}

TEST_F(Sql, order_is_by_key_for_texts_and_names_each_field_once) {
  Statement statement;
  ASSERT_TRUE(ParseStatement("Select * From CariKartlar Order By Unvan, Borc Desc, CariKod Asc, unvan Desc", CariFile(), statement).Ok());
  EXPECT_EQ(PrintSqlOrder(statement.order, *statement.table, NamingTarget()), "indexed(Unvan) ASC, Borc DESC, indexed(CariKod) ASC");
  EXPECT_EQ(PrintSqlOrder({}, *statement.table, NamingTarget()), "");
}

}  // namespace
}  // namespace karvel::dialect
