// Several terminals and other programs on one firm.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "store/postgres/address.h"
#include "tests/store/postgres/postgres_kind.h"
#include "text/turkish.h"

namespace karvel::testing {
namespace {

std::set<std::string> News(Stores& stores) {
  std::set<std::string> tables;
  for (int i = 0; i < 500 && tables.empty(); ++i) {
    stores.Driver().TakeForeignChanges(tables);
    if (tables.empty()) usleep(20'000);
  }
  return tables;
}

}  // namespace

TEST(PostgresTerminals, a_firm_is_made_once_however_many_begin_together) {
  PostgresServer& server = PostgresServer::Shared();
  PostgresKind kind;
  std::vector<pid_t> terminals;
  for (int i = 0; i < 6; ++i) {
    terminals.push_back(fork());
    if (terminals.back() != 0) continue;
    Stores stores(MakePostgresEngine({.makeFile = MakeSqliteStoreFile}));
    const bool well = stores.Open(kind.Folder()).Ok() && stores.Begin("x").Ok() && stores.Commit().Ok();
    _exit(well ? 0 : 1);
  }
  for (const pid_t terminal : terminals) {
    int outcome = -1;
    EXPECT_EQ(waitpid(terminal, &outcome, 0), terminal);
    EXPECT_EQ(outcome, 0);
  }
  EXPECT_EQ(Psql(server, "SELECT count(*) FROM pg_namespace WHERE nspname LIKE '" + kind.Firm() + "\\_%'"), std::vector<std::string>{"8"});
}

TEST(PostgresTerminals, a_schema_table_or_column_that_is_missing_is_named_and_never_made_empty) {
  for (const auto& [sql, name] :
       {std::pair<std::string, std::string>{"ALTER TABLE \"{}_stok\".\"StokKartlar\" DROP COLUMN \"Fiyat\"", "_stok/StokKartlar/Fiyat"},
        {"DROP TABLE \"{}_stok\".\"StokHareket\"", "_stok/StokHareket"},
        {"DROP SCHEMA \"{}_stok\" CASCADE", "_stok"}}) {
    PostgresKind kind;
    Stores stores(kind.NewEngine());
    ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
    stores.Close();
    Psql(kind.Server(), ReplaceAll(sql, "{}", kind.Firm()));
    const Status opened = stores.Open(kind.Folder());
    EXPECT_EQ(opened.Kind(), ErrorKind::Damaged);
    EXPECT_NE(opened.Message().find(kind.Firm() + name + " is missing"), std::string::npos) << opened.Message();
    EXPECT_FALSE(stores.IsOpen());
  }
}

TEST(PostgresTerminals, other_programs_read_and_write_the_tables_by_their_names) {
  PostgresKind kind;
  Stores stores(kind.NewEngine());
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  const std::string cards = '"' + kind.Firm() + "_cari\".\"CariKartlar\"";
  ASSERT_TRUE(Psql(kind.Server(), "INSERT INTO " + cards + " (\"CariKod\", \"Unvan\") VALUES ('Ş1', 'Iğdır Şarküteri')").empty());
  auto cursor = Customers(stores);
  ASSERT_TRUE(cursor->FindFirst("Unvan Like 'ığdır*'").Ok() || cursor->FindFirst("Unvan Like 'iğdır*'").Ok());
  EXPECT_EQ(cursor->Get("Borc"), Value(0.0));
  EXPECT_EQ(cursor->Get("HesKullan"), Value(false));
  AddLine(stores, "Ş1", {}, 1.5, "9");
  EXPECT_EQ(Psql(kind.Server(), "SELECT \"Tutar\", \"Tarih\" FROM \"" + kind.Firm() + "_karvel\".\"Datam\""),
            std::vector<std::string>{"1.5|-infinity"});
  Psql(kind.Server(), "UPDATE " + cards + " SET \"Borc\" = 'NaN', \"Alacak\" = NULL, \"Unvan\" = NULL");
  ASSERT_TRUE(cursor->Refresh().Ok());
  EXPECT_FALSE(IsNumberOrNothing(cursor->Get("Borc")));
  EXPECT_EQ(cursor->Get("Alacak"), Value());
  EXPECT_EQ(cursor->Text("Unvan"), "");
}

TEST(PostgresTerminals, a_row_read_for_an_edit_is_held_against_other_programs_too) {
  PostgresKind kind;
  Stores stores(kind.NewEngine());
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  AddCustomer(stores, "A", "Ali", 10);
  const std::string update = "UPDATE \"" + kind.Firm() + "_cari\".\"CariKartlar\" SET \"Borc\" = \"Borc\" + 100";
  auto cursor = Customers(stores);
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 10);
  Psql(kind.Server(), update);
  ASSERT_TRUE(cursor->Edit().Ok());
  EXPECT_DOUBLE_EQ(cursor->Number("Borc"), 110);
  EXPECT_THAT(Psql(kind.Server(), "SET lock_timeout = '100ms'; " + update).at(0), ::testing::HasSubstr("lock timeout"));
  cursor->Set("Borc", cursor->Number("Borc") + 1);
  ASSERT_TRUE(cursor->Update().Ok());
  EXPECT_EQ(Psql(kind.Server(), "SELECT \"Borc\" FROM \"" + kind.Firm() + "_cari\".\"CariKartlar\""), std::vector<std::string>{"111"});
}

TEST(PostgresTerminals, a_commit_tells_the_others_which_tables_it_wrote) {
  PostgresKind kind;
  Stores ours(kind.NewEngine()), theirs(kind.NewEngine());
  ASSERT_TRUE(ours.Open(kind.Folder()).Ok());
  ASSERT_TRUE(theirs.Open(kind.Folder()).Ok());
  std::set<std::string> tables;
  ours.Driver().TakeForeignChanges(tables);
  EXPECT_TRUE(tables.empty());
  AddCustomer(ours, "B", "Bilge");
  ours.Driver().TakeForeignChanges(tables);
  EXPECT_TRUE(tables.empty());  // its own
  AddCustomer(theirs, "A", "Ali");
  EXPECT_EQ(News(ours), std::set<std::string>{"cari/CariKartlar"});
  EXPECT_EQ(News(theirs), std::set<std::string>{"cari/CariKartlar"});
  {
    const Action left(theirs, "left");
    AddCustomer(theirs, "C", "Can");
  }
  ours.Driver().TakeForeignChanges(tables);
  EXPECT_TRUE(tables.empty());
}

TEST(PostgresTerminals, after_a_line_was_lost_all_tables_may_have_changed) {
  PostgresServer own({.onLoopback = true});
  PostgresKind kind(own);
  Stores ours(kind.NewEngine());
  ASSERT_TRUE(ours.Open(kind.Folder()).Ok());
  EXPECT_GT(kind.Server().KillBackends(), 0);
  EXPECT_GT(News(ours).size(), 10U);
}

TEST(PostgresTerminals, texts_that_the_server_refuses_fail_alone) {
  PostgresKind kind;
  Stores stores(kind.NewEngine());
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  Action action(stores, "posting");
  AddCustomer(stores, "A", "Ali");
  auto cursor = Customers(stores);
  for (const std::string& damaged : {std::string("a\0b", 3), std::string("\xC3"), std::string("\xFF\xFE")}) {
    ASSERT_TRUE(cursor->AddNew().Ok());
    cursor->Set("Unvan", Value(damaged));
    EXPECT_EQ(cursor->Update().Kind(), ErrorKind::BadText);
    cursor->CancelUpdate();
  }
  Value sum;
  AddLine(stores, "A", {2026, 3, 1, 0, 0, 0}, 1e308);
  AddLine(stores, "A", {2026, 3, 1, 0, 0, 0}, 1e308);
  stores.QueryValue("Karvel.mdb", "Select Sum(Tutar) FROM Datam", sum).Ignore();
  AddCustomer(stores, "B", "Bilge");
  EXPECT_TRUE(action.Finish().Ok());
  EXPECT_EQ(Customers(stores)->RecordCount(), 2);
}

TEST(PostgresTerminals, a_firm_is_begun_by_the_first_that_opens_it) {
  PostgresKind kind;
  const auto first = kind.NewEngine(), second = kind.NewEngine();
  ASSERT_TRUE(first->Open(kind.Folder()).Ok());
  EXPECT_TRUE(first->BegunAnew());
  ASSERT_TRUE(second->Open(kind.Folder()).Ok());
  EXPECT_FALSE(second->BegunAnew());
  ASSERT_TRUE(first->Open(kind.Folder()).Ok());
  EXPECT_FALSE(first->BegunAnew());
}

TEST(PostgresAddress, is_read_as_a_terminal_writes_it) {
  using namespace postgres;
  Address address;
  ASSERT_TRUE(ReadAddress("\\\\192.168.1.10\\MuhasebeData\\01", address).Ok());
  ASSERT_EQ(address.machines.size(), 1U);
  EXPECT_EQ(address.machines[0].host, "192.168.1.10");
  EXPECT_EQ(address.database + "|" + address.firm, "MuhasebeData|01");
  ASSERT_TRUE(ReadAddress("\\\\ana:5433; yedek ;[fe80::1]:6000;fe80::2\\MuhasebeData\\02\\", address).Ok());
  std::string machines;
  for (const ServerPlace& machine : address.machines) machines += machine.host + "|" + std::to_string(machine.port) + " ";
  EXPECT_EQ(machines, "ana|5433 yedek|5432 fe80::1|6000 fe80::2|5432 ");
  EXPECT_EQ(address.firm, "02");
  for (const std::string folder : {"C:\\KarvelData\\", "\\\\", "\\\\ana", "\\\\ana\\MuhasebeData", "\\\\ana\\MuhasebeData\\",
                                   "\\\\;\\MuhasebeData\\01", "\\\\ana:x\\MuhasebeData\\01", "\\\\:5432\\MuhasebeData\\01"})
    EXPECT_EQ(ReadAddress(folder, address).Kind(), ErrorKind::BadText) << folder;
  EXPECT_EQ(ReadAddress("\\\\ana\\MuhasebeData\\" + std::string(41, '1'), address).Kind(), ErrorKind::BadText);
}

}  // namespace karvel::testing
