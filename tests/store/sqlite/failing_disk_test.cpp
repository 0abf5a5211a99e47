// Disks that fill up or break, at every step of an action in turn: whole or nothing, and the desk goes on when the cause is gone.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <string>

#include "tests/store/sqlite/sqlite_kind.h"
#include "tests/support/faulty_files.h"

namespace karvel::testing {
namespace {

SqliteOptions FaultyOptions(const SqliteKind& kind) {
  SqliteOptions options = TestOptions(kind.Folder());
  options.vfs = FaultyFiles();
  return options;
}

int Rows(Stores& stores, const std::string& file, const std::string& source) {
  return static_cast<int>(Opened(stores, file, source)->RecordCount());
}

// A row in each of four files, one commit. Steps that fail are passed over, as a posting does.
Status PostOverFourFiles(Stores& stores) {
  Action action(stores, "posting");
  const auto add = [&](const std::string& file, const std::string& table, const std::string& field) {
    Cursor cursor(stores, table);
    cursor.SetDatabaseName(file);
    cursor.Open(table).Ignore();
    cursor.AddNew().Ignore();
    cursor.Set(field, Value(std::string(3000, 'x')));
    cursor.Update().Ignore();
  };
  add("Index.mdb", "Mdbindex", "Serino");
  add("Stok.mdb", "StokHareket", "Unvan");
  add("Karvel.mdb", "Datam", "CariAd");
  add("Cari.mdb", "CariHareket", "Unvan");
  return action.Begun().Ok() ? action.Finish() : action.Begun();
}

void ExpectInAll(Stores& stores, int rows) {
  EXPECT_EQ(Rows(stores, "Index.mdb", "Mdbindex"), rows);
  EXPECT_EQ(Rows(stores, "Stok.mdb", "StokHareket"), rows);
  EXPECT_EQ(Rows(stores, "Karvel.mdb", "Datam"), rows);
  EXPECT_EQ(Rows(stores, "Cari.mdb", "CariHareket"), rows);
}

void FailAtEveryStep(int failWith, ErrorKind atFirst) {
  const SqliteKind kind;
  Faults().Reset();
  Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  ASSERT_TRUE(PostOverFourFiles(stores).Ok());
  Faults().Reset();
  ASSERT_TRUE(PostOverFourFiles(stores).Ok());
  const int steps = Faults().steps;
  ASSERT_GT(steps, 20);
  int rows = 2;
  int undone = 0;
  for (int step = 1; step <= steps; ++step) {
    SCOPED_TRACE(step);
    Faults().Reset();
    Faults().failFrom = step;
    Faults().failWith = failWith;
    const Status outcome = PostOverFourFiles(stores);
    const bool failed = Faults().steps >= step;
    Faults().Reset();
    if (step == 1) {
      EXPECT_EQ(outcome.Kind(), atFirst) << outcome.Message();
    }
    if (outcome.Ok()) {
      ++rows;
    } else {
      EXPECT_TRUE(failed);
      ++undone;
    }
    ExpectInAll(stores, rows);
    ASSERT_TRUE(PostOverFourFiles(stores).Ok()) << "the desk goes on";
    ++rows;
  }
  EXPECT_GT(undone, steps / 2);
  ExpectInAll(stores, rows);
}

}  // namespace

TEST(FailingDisk, that_is_full_leaves_an_action_whole_or_undone_and_the_desk_goes_on) {
  FailAtEveryStep(SQLITE_FULL, ErrorKind::DiskFull);
}

TEST(FailingDisk, that_breaks_leaves_an_action_whole_or_undone_and_the_desk_goes_on) {
  FailAtEveryStep(SQLITE_IOERR_WRITE, ErrorKind::Other);
}

TEST(FailingDisk, an_action_that_hit_it_leaves_rows_that_a_fresh_start_reads_the_same) {
  const SqliteKind kind;
  for (int step = 1; step < 60; step += 3) {
    SCOPED_TRACE(step);
    Faults().Reset();
    int before = 0;
    bool well = false;
    {
      Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
      ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
      before = Rows(stores, "Karvel.mdb", "Datam");
      Faults().failFrom = Faults().steps + step;
      Faults().failWith = SQLITE_IOERR_WRITE;
      well = PostOverFourFiles(stores).Ok();
      // The desk ends with the disk still broken.
    }
    Faults().Reset();
    Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
    ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
    ExpectInAll(stores, before + (well ? 1 : 0));
  }
}

TEST(FailingDisk, a_limit_on_file_size_reads_as_a_full_disk) {
  const SqliteKind kind;
  EXPECT_TRUE(InChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    Stores stores(MakeSqliteEngine(TestOptions(kind.Folder())));
    if (!stores.Open(kind.Folder()).Ok() || !PostOverFourFiles(stores).Ok()) return false;
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::filesystem::file_size(kind.Path("Stok.mdb"));
    setrlimit(RLIMIT_FSIZE, &limit);
    int well = 1;
    Status outcome;
    for (int i = 0; i < 100 && outcome.Ok(); ++i) {
      outcome = PostOverFourFiles(stores);
      if (outcome.Ok()) ++well;
    }
    if (outcome.Kind() != ErrorKind::DiskFull) return false;
    if (Rows(stores, "Cari.mdb", "CariHareket") != well || Rows(stores, "Stok.mdb", "StokHareket") != well) return false;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
    return PostOverFourFiles(stores).Ok() && Rows(stores, "Index.mdb", "Mdbindex") == well + 1;
  }));
}

TEST(FailingDisk, too_many_open_files_fail_an_action_and_are_not_told_as_missing_rights) {
  const SqliteKind kind;
  EXPECT_TRUE(InChild([&] {
    Stores stores(MakeSqliteEngine(TestOptions(kind.Folder())));
    if (!stores.Open(kind.Folder()).Ok() || !PostOverFourFiles(stores).Ok()) return false;
    const int next = dup(STDERR_FILENO);
    close(next);
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit usual = limit;
    limit.rlim_cur = static_cast<rlim_t>(next);
    setrlimit(RLIMIT_NOFILE, &limit);
    const Status outcome = PostOverFourFiles(stores);
    setrlimit(RLIMIT_NOFILE, &usual);
    return outcome.Kind() == ErrorKind::Other && PostOverFourFiles(stores).Ok() && Rows(stores, "Cari.mdb", "CariHareket") == 2;
  }));
}

TEST(CommitSyncs, four_files_cost_fifteen_and_nothing_written_costs_none) {
  const SqliteKind kind;
  Faults().Reset();
  Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  ASSERT_TRUE(PostOverFourFiles(stores).Ok());
  Faults().Reset();
  ASSERT_TRUE(PostOverFourFiles(stores).Ok());
  // Two a journal, one a store, one for the super-journal; the two of the folder are made by the layer below.
  EXPECT_EQ(Faults().syncs, 13);
  Faults().Reset();
  {
    Action action(stores, "nothing");
    EXPECT_TRUE(stores.Execute("Karvel.mdb", "DELETE FROM Datam Where CariKod='Z'").Ok());
    EXPECT_TRUE(action.Finish().Ok());
  }
  EXPECT_EQ(Faults().syncs, 0);
  EXPECT_EQ(Faults().writes, 0);
}

}  // namespace karvel::testing
