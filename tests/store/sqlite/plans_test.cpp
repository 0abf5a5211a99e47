// The desk's look-ups run on indexes: no search and no step of a list reads the whole table.
#include <gtest/gtest.h>

#include <string>

#include "store/sqlite/connection.h"
#include "store/sqlite/sqlite_sql.h"
#include "store/table_sql.h"
#include "tests/store/sqlite/sqlite_kind.h"

namespace karvel::testing {
namespace {

struct LookUp {
  const char* file;
  const char* source;
  const char* criterion;  // "" for the list itself
};

void PrintTo(const LookUp& lookUp, std::ostream* out) {
  *out << lookUp.source << " | " << lookUp.criterion;
}

constexpr const char* kCustomerList =
    "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And LCase(Gurup)<>'plasiyer' And Left(CariKod,1)<>'=' And "
    "CariKod<>'Merkez' Order By Unvan Asc";
constexpr const char* kStockList = "Select * From StokKartlar Where StokGizle=False Order By StokAdi ASC";

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

INSTANTIATE_TEST_SUITE_P(
    Lists, Plans,
    ::testing::Values(LookUp{"Cari.mdb", kCustomerList, ""}, LookUp{"Stok.mdb", kStockList, ""},
                      LookUp{"Cari.mdb", "Select * From CariKartlar Where HesKullan=False Order By Gurup DESC", ""},
                      LookUp{"Cari.mdb", "Select * From CariKartlar Where HesKullan=False And Gurup='Toptan' Order By Unvan Asc", ""},
                      LookUp{"Stok.mdb", "Select * From StokKartlar Where StokGizle=False And Gurup='İçecek' Order By StokAdi Asc", ""},
                      LookUp{"Stok.mdb", "Select * From StokKartlar Where StokGizle=False And StokAdi Like 'ç*' Order By StokAdi ASC", ""},
                      LookUp{"Karvel.mdb", "Select * From Datam Where CariKod='A' Order By Tarih Desc", ""},
                      LookUp{"Karvel.mdb", "Select * From Datam Where Durum='Iptal' Order By Tarih Desc", ""},
                      LookUp{"Cari.mdb", "Select * From CariKartlar Where HesKullan=False Order By Bakiye DESC", ""},
                      LookUp{"Stok.mdb", "Select * From StokKartlar Where StokGizle=False Order By KalanB ASC", ""},
                      LookUp{"Karvel.mdb",
                             "Select * From Datam Where Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 23:59:59# Order By Tarih Asc",
                             ""},
                      LookUp{"Cari.mdb", "Select * From CariHareket Where CariHarKod='A' Order By Tarih Desc", ""},
                      LookUp{"Stok.mdb", "Select * From StokHareket Where Carisi='A' Order By Tarih Desc", ""},
                      LookUp{"Cari.mdb", "Select * From VadeGün Where CariKod='A' Order By VadeTarih Asc", ""}));

INSTANTIATE_TEST_SUITE_P(
    Finds, Plans,
    ::testing::Values(LookUp{"Cari.mdb", "CariKartlar", "CariKod='A'"}, LookUp{"Cari.mdb", kCustomerList, "CariKod='A'"},
                      LookUp{"Cari.mdb", kCustomerList, "Unvan Like 'ş*'"}, LookUp{"Cari.mdb", kCustomerList, "Unvan='A'"},
                      LookUp{"Cari.mdb", kCustomerList, "KartNo='1'"}, LookUp{"Cari.mdb", "CariKartlar", "CariKod Like 'A?C'"},
                      LookUp{"Cari.mdb", "Cari", "StokKod='1' And CariKod='A'"}, LookUp{"Cari.mdb", "CariHareket", "DigerId='1'"},
                      LookUp{"Cari.mdb", "Select * From VadeGün Where CariKod='A' Order By VadeTarih Asc", "VadeTarih=#03/01/2026#"},
                      LookUp{"Stok.mdb", kStockList, "Barkod='1'"}, LookUp{"Stok.mdb", kStockList, "StokKod='1'"},
                      LookUp{"Stok.mdb", kStockList, "StokAdi='1'"}, LookUp{"Stok.mdb", kStockList, "StokKod Like '1*'"},
                      LookUp{"Stok.mdb", "StokHareket", "DigerId='1'"}, LookUp{"Karvel.mdb", "Datam", "DigerId='1'"},
                      LookUp{"Karvel.mdb", "Datam", "SeriNo='000001'"}, LookUp{"SeriNo.mdb", "SeriNo", "Barcode='1'"},
                      LookUp{"SeriNo.mdb", "SeriNo", "BarCode1='1'"}, LookUp{"Index.mdb", "Mdbindex", "Tarih='2026'"},
                      LookUp{"Index.mdb", "Tarih", "Tarih='2026'"}, LookUp{"Fatura.mdb", "Faturalar", "FaturaNo='1'"},
                      LookUp{"Fatura.mdb", "Select * From FatHareket Where FatHarNo='1'", "FatStok='1'"},
                      LookUp{"Fatura.mdb", "GirenCikan", "StokKod='1'"}));

}  // namespace karvel::testing
