// Copies of a folder that others write meanwhile: desks of their own processes, other programs, desks that die.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>
#include <utility>

#include "tests/store/sqlite/sqlite_kind.h"
#include "tests/support/copied_stores.h"
#include "tests/support/foreign_program.h"
#include "tests/support/other_process.h"

namespace karvel::testing {
namespace {

using Lines = std::vector<std::string>;
namespace fs = std::filesystem;

class FolderCopyTest : public ::testing::Test {
 protected:
  FolderCopyTest() : stores(MakeSqliteEngine(PatientOptions())) { EXPECT_TRUE(stores.Open(kind.Folder()).Ok()); }
  [[nodiscard]] SqliteOptions PatientOptions() const {
    SqliteOptions options = TestOptions(kind.Folder());
    options.patienceMs = 20000;
    return options;
  }
  // Some megabytes, so that a copy takes several bits.
  void Fill() {
    ForeignProgram program(kind.Path("Cari.mdb"));
    program.Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
        "INSERT INTO CariHareket(cariharkod, DigerId, aciklama) SELECT 'C'||i, 'old'||i, printf('%06000d', i) FROM n");
  }
  [[nodiscard]] Lines Copied(const std::string& file, const std::string& sql) const { return PlainRows(copies.Path() + "/" + file, sql); }

  SqliteKind kind;
  Stores stores;
  TempFolder copies;
};

TEST_F(FolderCopyTest, eight_desks_that_post_at_full_speed_leave_a_copy_of_one_moment) {
  Fill();
  std::vector<std::unique_ptr<OtherProcess>> desks;
  for (int desk = 0; desk < 8; ++desk) {
    desks.push_back(std::make_unique<OtherProcess>([&, desk] {
      const pid_t parent = getpid();
      if (fork() != 0) return true;
      close(STDOUT_FILENO);  // its last posting may find the folder gone
      Stores own(MakeSqliteEngine(PatientOptions()));
      if (!own.Open(kind.Folder()).Ok()) _exit(1);
      for (int i = 0; getppid() == parent; ++i) BookTwice(own, 100000 * (desk + 1) + i);
      _exit(0);
    }));
  }
  for (int round = 0; round < 5; ++round) {
    const TempFolder folder;
    ASSERT_TRUE(CopyAll(stores, folder.Path()).Ok());
    const Lines day = PlainRows(folder.Path() + "/Karvel.mdb", "SELECT DigerId FROM Datam ORDER BY 1");
    EXPECT_EQ(day, PlainRows(folder.Path() + "/Cari.mdb", "SELECT DigerId FROM CariHareket WHERE DigerId NOT LIKE 'old%' ORDER BY 1"));
    EXPECT_EQ(PlainRows(folder.Path() + "/Cari.mdb", "PRAGMA integrity_check"), Lines{"ok"});
    EXPECT_EQ(PlainRows(folder.Path() + "/Karvel.mdb", "PRAGMA integrity_check"), Lines{"ok"});
    EXPECT_FALSE(round > 0 && day.empty());
  }
}

TEST_F(FolderCopyTest, what_another_program_writes_meanwhile_is_in_the_copy_too) {
  Fill();
  ForeignProgram program(kind.Path("Cari.mdb"));
  int written = 0;
  ASSERT_TRUE(CopyAll(stores, copies.Path(), [&] {
                if (written++ < 2) program.Run("UPDATE CariHareket SET cariharkod='moved' WHERE rowid IN (1, 1500, 3000)");
              }).Ok());
  EXPECT_EQ(Copied("Cari.mdb", "SELECT count(*) FROM CariHareket WHERE cariharkod='moved'"), Lines{"3"});
  EXPECT_EQ(Copied("Cari.mdb", "PRAGMA integrity_check"), Lines{"ok"});
}

TEST_F(FolderCopyTest, another_program_beside_a_desk_is_seen_too) {
  Fill();
  Stores desk(MakeSqliteEngine(PatientOptions()));
  ASSERT_TRUE(desk.Open(kind.Folder()).Ok());
  ForeignProgram program(kind.Path("Cari.mdb"));
  int written = 0;
  ASSERT_TRUE(CopyAll(stores, copies.Path(), [&] {
                if (written++ > 1) return;
                BookTwice(desk, written);
                program.Run("UPDATE CariHareket SET cariharkod='moved' WHERE rowid IN (1, 1500, 3000)");
                BookTwice(desk, 10 + written);
              }).Ok());
  EXPECT_EQ(Copied("Cari.mdb", "SELECT count(*) FROM CariHareket WHERE cariharkod='moved'"), Lines{"3"});
  EXPECT_EQ(Copied("Cari.mdb", "PRAGMA integrity_check"), Lines{"ok"});
}

TEST_F(FolderCopyTest, a_file_that_shrinks_meanwhile_shrinks_in_the_copy) {
  Fill();
  ForeignProgram program(kind.Path("Cari.mdb"));
  bool done = false;
  ASSERT_TRUE(CopyAll(stores, copies.Path(), [&] {
                if (!std::exchange(done, true)) program.Run("DELETE FROM CariHareket WHERE rowid>10; VACUUM");
              }).Ok());
  EXPECT_EQ(Copied("Cari.mdb", "SELECT count(*) FROM CariHareket"), Lines{"10"});
  EXPECT_EQ(Copied("Cari.mdb", "PRAGMA integrity_check"), Lines{"ok"});
  EXPECT_EQ(fs::file_size(copies.Path() + "/Cari.mdb"), fs::file_size(kind.Path("Cari.mdb")));
}

TEST_F(FolderCopyTest, nobody_waits_long_for_a_copy) {
  Fill();
  std::atomic<bool> copied = false;
  double longest = 0;
  int posted = 0;
  std::thread desk([&] {
    Stores own(MakeSqliteEngine(PatientOptions()));
    if (!own.Open(kind.Folder()).Ok()) return;
    while (!copied) {
      const Stopwatch watch;
      BookTwice(own, ++posted);
      longest = std::max(longest, watch.Seconds());
    }
  });
  for (int round = 0; round < 10; ++round) {
    const TempFolder folder;
    EXPECT_TRUE(CopyAll(stores, folder.Path()).Ok());
  }
  copied = true;
  desk.join();
  EXPECT_GT(posted, 0);
  EXPECT_LT(longest, 0.2);
}

TEST_F(FolderCopyTest, no_notes_are_left_behind) {
  const auto notes = [&] {
    return std::ranges::count_if(fs::directory_iterator(kind.Folder()),
                                 [](const auto& entry) { return entry.path().string().ends_with("-changes"); });
  };
  {
    std::unique_ptr<StoresCopy> copy;
    ASSERT_TRUE(stores.Copy(copies.Path(), copy).Ok());
    EXPECT_EQ(notes(), 8);
  }
  EXPECT_EQ(notes(), 0);
  const TempFolder others;
  ASSERT_TRUE(CopyAll(stores, others.Path()).Ok());
  EXPECT_EQ(notes(), 0);
}

TEST_F(FolderCopyTest, notes_of_a_copy_that_was_killed_go_with_the_next_posting) {
  std::ofstream(kind.Path("Karvel.mdb-changes")) << "notes";
  BookTwice(stores, 1);
  EXPECT_FALSE(fs::exists(kind.Path("Karvel.mdb-changes")));
}

TEST_F(FolderCopyTest, notes_of_a_copy_that_was_killed_hinder_no_other) {
  std::ofstream(kind.Path("Karvel.mdb-changes")) << "these are no notes at all";
  EXPECT_TRUE(CopyAll(stores, copies.Path()).Ok());
}

// The folder's disk has no room for a note: the sale goes on, and the copy reads the file once more.
TEST_F(FolderCopyTest, notes_that_went_missing_make_the_copy_read_all_once_more) {
  Fill();
  Stores desk(MakeSqliteEngine(PatientOptions()));
  ASSERT_TRUE(desk.Open(kind.Folder()).Ok());
  int posted = 0;
  ASSERT_TRUE(CopyAll(stores, copies.Path(), [&] {
                if (posted++ > 1) return;
                fs::remove(kind.Path("Cari.mdb-changes"));
                BookTwice(desk, posted);
              }).Ok());
  EXPECT_EQ(Copied("Cari.mdb", "SELECT DigerId FROM CariHareket WHERE DigerId NOT LIKE 'old%'"), (Lines{"1", "2"}));
  EXPECT_EQ(Copied("Cari.mdb", "PRAGMA integrity_check"), Lines{"ok"});
}

TEST_F(FolderCopyTest, a_desk_that_is_killed_meanwhile_leaves_the_copy_whole) {
  Fill();
  for (int round = 0; round < 6; ++round) {
    OtherProcess desk([&] {
      const pid_t parent = getpid();
      if (fork() != 0) return true;
      close(STDOUT_FILENO);  // its last posting may find the folder gone
      Stores own(MakeSqliteEngine(PatientOptions()));
      if (!own.Open(kind.Folder()).Ok()) _exit(1);
      std::ofstream(kind.Path("process")) << getpid() << std::flush;
      for (int i = 0; getppid() == parent; ++i) BookTwice(own, 1000000 + 10000 * round + i);
      _exit(0);
    });
    pid_t process = 0;
    while (process == 0) std::ifstream(kind.Path("process")) >> process;
    const TempFolder folder;
    int bits = 0;
    ASSERT_TRUE(CopyAll(stores, folder.Path(), [&] {
                  if (++bits == 1 + round % 3) kill(process, SIGKILL);
                }).Ok());
    kill(process, SIGKILL);
    fs::remove(kind.Path("process"));
    EXPECT_EQ(PlainRows(folder.Path() + "/Karvel.mdb", "SELECT DigerId FROM Datam ORDER BY 1"),
              PlainRows(folder.Path() + "/Cari.mdb", "SELECT DigerId FROM CariHareket WHERE DigerId NOT LIKE 'old%' ORDER BY 1"));
    EXPECT_EQ(PlainRows(folder.Path() + "/Cari.mdb", "PRAGMA integrity_check"), Lines{"ok"});
  }
}

}  // namespace
}  // namespace karvel::testing
