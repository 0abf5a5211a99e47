// Disks that fill up or break, at every step of an action in turn: whole or nothing, and the desk goes on when the cause is gone.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
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
    Status outcome = PostOverFourFiles(stores);
    const bool failed = Faults().steps >= step;
    Faults().Reset();
    // What could not be recovered on the failing disk is looked up when it works again.
    if (outcome.Kind() == ErrorKind::Unknown) outcome = stores.AskOutcome();
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
  FailAtEveryStep(SQLITE_IOERR_WRITE, ErrorKind::DiskFailed);
}

// What was undone is undone for the desk too: the counter that the next action reads is that of the files.
void CountThroughSingleFailures(int failWith) {
  const SqliteKind kind;
  Faults().Reset();
  Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  const auto post = [&] {
    Action action(stores, "posting");
    Cursor counter(stores, "counter");
    counter.SetDatabaseName("Index.mdb");
    counter.Open("Mdbindex").Ignore();
    const bool there = counter.FindFirst("Tarih='2026'").Ok();
    (there ? counter.Edit() : counter.AddNew()).Ignore();
    if (!there) counter.Set("Tarih", "2026");
    counter.Set("Indexi", std::to_string(there ? static_cast<int>(counter.Number("Indexi")) + 1 : 1));
    counter.Update().Ignore();
    const Status over = PostOverFourFiles(stores);
    const Status done = action.Finish();
    return over.Ok() ? done : over;
  };
  const auto counted = [&] {
    Cursor counter(stores, "counter");
    counter.SetDatabaseName("Index.mdb");
    counter.Open("Mdbindex").Ignore();
    EXPECT_TRUE(counter.FindFirst("Tarih='2026'").Ok());
    return counter.Number("Indexi");
  };
  ASSERT_TRUE(post().Ok());
  Faults().Reset();
  ASSERT_TRUE(post().Ok());
  const int steps = Faults().steps;
  double count = 2;
  for (int step = 1; step <= steps + 5; ++step) {
    SCOPED_TRACE(step);
    Faults().Reset();
    Faults().failFrom = step;
    Faults().failOnce = true;
    Faults().failWith = failWith;
    Status outcome = post();
    Faults().Reset();
    if (outcome.Kind() == ErrorKind::Unknown) outcome = stores.AskOutcome();
    if (outcome.Ok()) ++count;
    EXPECT_EQ(counted(), count);
    ASSERT_TRUE(post().Ok());
    ++count;
    EXPECT_EQ(counted(), count);
  }
}

TEST(FailingDisk, a_single_failure_leaves_nothing_of_the_action_in_memory) {
  CountThroughSingleFailures(SQLITE_IOERR_WRITE);
  CountThroughSingleFailures(SQLITE_FULL);
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
      const Status outcome = PostOverFourFiles(stores);
      well = outcome.Ok();
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

// The folder's sync behind the removal of the super-journal is the last step of a commit: by then all of it is in the files.
TEST(FailingDisk, a_commit_whose_last_sync_fails_is_told_as_done_with_a_warning) {
  const SqliteKind kind;
  Faults().Reset();
  Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  int warnings = 0;
  const auto heard = stores.savedOnFailingDisk.Connect([&] { ++warnings; });
  for (int rows = 1; rows <= 3; ++rows) {
    Faults().Reset();
    Faults().failFolderSync = 1;
    EXPECT_TRUE(PostOverFourFiles(stores).Ok());
    EXPECT_EQ(warnings, rows);
    ExpectInAll(stores, rows);
  }
  Faults().Reset();
  EXPECT_TRUE(PostOverFourFiles(stores).Ok());
  EXPECT_EQ(warnings, 3);
}

TEST(FailingDisk, a_commit_that_cannot_be_looked_up_is_unknown_until_it_can) {
  const SqliteKind kind;
  Faults().Reset();
  Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
  ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
  int unknown = 0;
  const auto heard = stores.outcomeUnknown.Connect([&] { ++unknown; });
  Faults().failFolderSync = 1;
  Faults().silentAfterFolderSync = true;
  EXPECT_EQ(PostOverFourFiles(stores).Kind(), ErrorKind::Unknown);
  EXPECT_EQ(unknown, 1);
  EXPECT_TRUE(stores.IsOutcomeUnknown());
  EXPECT_EQ(stores.AskOutcome().Kind(), ErrorKind::Unknown);
  EXPECT_EQ(PostOverFourFiles(stores).Kind(), ErrorKind::Other) << "nothing is begun meanwhile";
  Faults().Reset();
  EXPECT_TRUE(stores.AskOutcome().Ok());
  EXPECT_FALSE(stores.IsOutcomeUnknown());
  ExpectInAll(stores, 1);
  EXPECT_TRUE(PostOverFourFiles(stores).Ok());
  ExpectInAll(stores, 2);
}

// Whatever the desk was told after a failure, a fresh start must find it so.
TEST(FailingDisk, what_an_action_was_told_is_what_a_fresh_start_finds) {
  const SqliteKind kind;
  int rows = 0, unknown = 0, failed = 0;
  for (int step = 50; step < 150; ++step) {
    SCOPED_TRACE(step);
    Faults().Reset();
    Status told;
    {
      Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
      ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
      Faults().failFrom = Faults().steps + step;
      Faults().failWith = SQLITE_IOERR_WRITE;
      told = PostOverFourFiles(stores);
      Faults().Reset();
      if (told.Kind() == ErrorKind::Unknown) {
        ++unknown;
        told = stores.AskOutcome();
      }
    }
    Stores stores(MakeSqliteEngine(TestOptions(kind.Folder())));
    ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
    if (told.Ok()) ++rows;
    if (!told.Ok()) ++failed;
    ExpectInAll(stores, rows);
  }
  EXPECT_GT(failed, 10);
  EXPECT_GT(unknown, 3) << "what can't be recovered can't be looked up";
}

// The engine tells a page that the disk did not give in the words of a damaged file.
TEST(FailingDisk, a_read_that_failed_is_not_told_as_damage) {
  const SqliteKind kind;
  Faults().Reset();
  for (const int code : {SQLITE_IOERR_READ, SQLITE_IOERR_CORRUPTFS}) {
    Stores stores(MakeSqliteEngine(FaultyOptions(kind)));
    ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
    int told = 0;
    const auto heard = stores.readFailed.Connect([&](const Status& fault) {
      ++told;
      EXPECT_EQ(fault.Kind(), ErrorKind::DiskFailed) << fault.Message();
      EXPECT_NE(fault.Place().find("Karvel.mdb"), std::string::npos) << fault.Place();
    });
    const auto cursor = Opened(stores, "Karvel.mdb", "Datam");
    Faults().failReadsFrom = 1;
    Faults().failReadsWith = code;
    Faults().systemError = EIO;
    EXPECT_EQ(cursor->FindFirst("CariAd='Ali'").Kind(), ErrorKind::DiskFailed);
    EXPECT_EQ(told, 1);
    Faults().Reset();
    EXPECT_EQ(cursor->FindFirst("CariAd='Ali'").Kind(), ErrorKind::NoRecord) << "the page was as good as ever";
  }
}

}  // namespace karvel::testing
