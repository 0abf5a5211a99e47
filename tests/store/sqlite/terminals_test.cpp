// Several terminals, each a process of its own, on one data folder.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "store/sqlite/connection.h"
#include "store/sqlite/gate.h"
#include "store/table_rows.h"
#include "tests/store/sqlite/sqlite_kind.h"

namespace karvel::testing {

using namespace std::chrono_literals;

TEST(Terminals, one_that_is_open_while_another_adds_thousands_of_rows_reads_on_with_the_same_indexes) {
  const SqliteKind kind;
  const std::string indexes = "SELECT group_concat(sql, ';') FROM (SELECT sql FROM sqlite_schema WHERE type='index' ORDER BY name)";
  const auto stored = [&] { return sqlite::Connection(kind.Path("Cari.mdb"), "").AskText(indexes); };
  const std::string before = stored();
  Stores reader(MakeSqliteEngine(TestOptions(kind.Folder())));
  ASSERT_TRUE(reader.Open(kind.Folder()).Ok());
  AddCustomer(reader, "A", "Ali");
  auto cards = Customers(reader);
  ASSERT_TRUE(cards->FindFirst("CariKod='A'").Ok());
  {
    Stores writer(MakeSqliteEngine(TestOptions(kind.Folder())));
    ASSERT_TRUE(writer.Open(kind.Folder()).Ok());
    Action action(writer, "many");
    TableRows rows(writer, "Cari.mdb", "CariKartlar");
    ASSERT_TRUE(rows.Add(2000, [](std::int64_t i, Row& row) { row[0] = "K" + std::to_string(i); }).Ok());
    ASSERT_TRUE(action.Finish().Ok());
  }
  EXPECT_EQ(stored(), before);
  ASSERT_TRUE(cards->FindFirst("CariKod='K1999'").Ok());
  AddCustomer(reader, "Z", "Zehra");
  EXPECT_EQ(cards->RecordCount(), 2002);
}

TEST(Terminals, four_that_count_at_once_lose_no_update) {
  const SqliteKind kind;
  constexpr int kTerminals = 4;
  constexpr int kRounds = 200;
  {
    Stores stores(MakeSqliteEngine(TestOptions(kind.Folder())));
    ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
    AddCustomer(stores, "A", "Ali");
  }
  std::vector<pid_t> children;
  for (int i = 0; i < kTerminals; ++i) {
    const pid_t child = fork();
    if (child == 0) {
      SqliteOptions options = TestOptions(kind.Folder());
      options.patienceMs = 60000;
      Stores stores(MakeSqliteEngine(options));
      bool well = stores.Open(kind.Folder()).Ok();
      Cursor cursor(stores, "CariData");
      cursor.SetDatabaseName("Cari.mdb");
      for (int round = 0; well && round < kRounds; ++round) {
        well = cursor.Open("CariKartlar").Ok() && cursor.FindFirst("CariKod='A'").Ok() && cursor.Edit().Ok();
        cursor.Set("Borc", Value(cursor.Number("Borc") + 1));
        well = well && cursor.Update().Ok();
      }
      _exit(well ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int outcome = 0;
    waitpid(child, &outcome, 0);
    EXPECT_EQ(outcome, 0);
  }
  Stores stores(MakeSqliteEngine(TestOptions(kind.Folder())));
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  EXPECT_DOUBLE_EQ(Customers(stores)->Number("Borc"), kTerminals * kRounds);
}

TEST(Gate, opens_for_the_next_as_soon_as_its_holder_leaves_or_dies) {
  const TempFolder folder;
  sqlite::Gate gate;
  ASSERT_TRUE(gate.Open(folder.Path()).Ok());
  int ready[2], leave[2];
  ASSERT_EQ(pipe(ready), 0);
  ASSERT_EQ(pipe(leave), 0);
  const pid_t holder = fork();
  if (holder == 0) {
    sqlite::Gate theirs;
    const bool taken = theirs.Open(folder.Path()).Ok() && theirs.TryTake().Ok();
    const char sign = taken ? '1' : '0';
    if (write(ready[1], &sign, 1) != 1) _exit(1);
    close(leave[1]);
    char end = 0;
    (void)!read(leave[0], &end, 1);
    usleep(100'000);
    _exit(0);  // without leaving
  }
  char sign = 0;
  ASSERT_EQ(read(ready[0], &sign, 1), 1);
  ASSERT_EQ(sign, '1');
  Patience shortOne(20ms), longOne(60s);
  EXPECT_EQ(gate.Take(shortOne).Kind(), ErrorKind::Busy);
  close(leave[1]);
  EXPECT_TRUE(gate.Take(longOne).Ok());
  waitpid(holder, nullptr, 0);
  gate.Leave();
  sqlite::Gate second;
  ASSERT_TRUE(second.Open(folder.Path()).Ok());
  EXPECT_TRUE(second.TryTake().Ok());
  EXPECT_EQ(gate.TryTake().Kind(), ErrorKind::Busy);
}

TEST(Gate, tells_a_folder_that_is_missing) {
  sqlite::Gate gate;
  EXPECT_EQ(gate.Open("/nowhere/at/all").Kind(), ErrorKind::Missing);
  EXPECT_EQ(gate.TryTake().Kind(), ErrorKind::Missing);
}

}  // namespace karvel::testing
