// The waits of a commit for the disk: how many, in which order, and what a wait that fails leaves.
#include <SQLiteCpp/Database.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/store/sqlite/sqlite_kind.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {
namespace {

namespace fs = std::filesystem;

enum class Synced { Journal, SuperJournal, Store, Folder };

// The sync of its kind with this number fails; where that lasts, so does every sync behind it.
struct Fault {
  Synced kind;
  int number;
  bool lasts = false;
};

// Every sync of this program.
struct Watch {
  std::mutex mutex;
  bool on = false;
  std::vector<Synced> syncs;
  std::vector<bool> superJournalThere;  // for each sync of the folder, whether it named a super-journal
  std::vector<long> journalsThere;      // and how many journals
  int rounds = 0;                       // times that a sync began while no other ran
  int running = 0;
  bool hotJournal = false;  // a journal counted while a store was synced
  std::optional<Fault> fault;
  bool broken = false;  // the fault has come, and lasts
};

Watch& TheWatch() {
  static Watch watch;
  return watch;
}

bool NamesSuperJournal(const fs::path& folder) {
  return std::ranges::any_of(fs::directory_iterator(folder),
                             [](const auto& entry) { return entry.path().filename().string().find("-mj") != std::string::npos; });
}

bool IsJournal(const fs::directory_entry& entry) {
  return entry.path().string().ends_with("-journal");
}

long JournalsIn(const fs::path& folder) {
  return std::ranges::count_if(fs::directory_iterator(folder), IsJournal);
}

bool HasHotJournal(const fs::path& folder) {
  return std::ranges::any_of(fs::directory_iterator(folder),
                             [](const auto& entry) { return IsJournal(entry) && std::ifstream(entry.path()).get() > 0; });
}

Synced KindOf(const std::string& path) {
  if (fs::is_directory(path)) return Synced::Folder;
  if (path.ends_with("-journal")) return Synced::Journal;
  return path.find("-mj") != std::string::npos ? Synced::SuperJournal : Synced::Store;
}

bool Fails(Watch& watch, Synced kind) {
  if (watch.broken || !watch.fault || watch.fault->kind != kind) return watch.broken;
  if (std::ranges::count(watch.syncs, kind) != watch.fault->number) return false;
  watch.broken = watch.fault->lasts;
  return true;
}

// Long enough for the others of its round to begin.
int Sync(long call, int file) {
  Watch& watch = TheWatch();
  std::unique_lock lock(watch.mutex);
  if (!watch.on) return static_cast<int>(syscall(call, file));
  const std::string path = fs::read_symlink("/proc/self/fd/" + std::to_string(file));
  const Synced kind = KindOf(path);
  watch.syncs.push_back(kind);
  if (kind == Synced::Folder) {
    watch.superJournalThere.push_back(NamesSuperJournal(path));
    watch.journalsThere.push_back(JournalsIn(path));
  }
  if (kind == Synced::Store) watch.hotJournal = watch.hotJournal || HasHotJournal(fs::path(path).parent_path());
  if (Fails(watch, kind)) {
    errno = EIO;
    return -1;
  }
  if (watch.running++ == 0) ++watch.rounds;
  lock.unlock();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  lock.lock();
  --watch.running;
  return 0;
}

class CommitRoundsTest : public ::testing::Test {
 protected:
  CommitRoundsTest() : stores_(MakeSqliteEngine(TestOptions(kind_.Folder()))) {
    EXPECT_TRUE(stores_.Open(kind_.Folder()).Ok());
    // From here on the disk is known to be slow.
    Look(true);
    EXPECT_TRUE(Post(kFourFiles).Ok());
  }
  ~CommitRoundsTest() override { Look(false); }

  using Table = std::pair<std::string, std::string>;
  static inline const std::vector<Table> kFourFiles = {
      {"Index.mdb", "Mdbindex"}, {"Stok.mdb", "StokHareket"}, {"Karvel.mdb", "Datam"}, {"Cari.mdb", "CariHareket"}};

  // Watches from now on, with nothing seen yet.
  static void Look(bool on, std::optional<Fault> fault = {}) {
    const std::lock_guard lock(TheWatch().mutex);
    TheWatch().on = on;
    TheWatch().syncs.clear();
    TheWatch().superJournalThere.clear();
    TheWatch().journalsThere.clear();
    TheWatch().rounds = 0;
    TheWatch().broken = TheWatch().hotJournal = false;
    TheWatch().fault = fault;
  }

  // A row in each table, one action.
  Status Post(const std::vector<Table>& tables, int rows = 1) {
    Action action(stores_, "posting");
    for (const auto& [file, table] : tables) {
      Cursor cursor(stores_, table);
      cursor.SetDatabaseName(file);
      cursor.Open(table).Ignore();
      for (int i = 0; i < rows; ++i) {
        cursor.AddNew().Ignore();
        cursor.Set(table == "Mdbindex" ? "Serino" : "Aciklama", Value(std::string(3000, 'x')));
        cursor.Update().Ignore();
      }
    }
    return action.Begun().Ok() ? action.Finish() : action.Begun();
  }

  void ExpectInAll(int rows) {
    for (const auto& [file, table] : kFourFiles) EXPECT_EQ(Opened(stores_, file, table)->RecordCount(), rows) << table;
  }

  // The rows of each table in a copy of the folder as it is, which a program that knows nothing of rounds puts right; -1 where the tables
  // don't agree.
  [[nodiscard]] int RowsElsewhere() const {
    const TempFolder copy;
    fs::copy(kind_.Folder(), copy.Path(), fs::copy_options::recursive);
    std::set<int> counts;
    for (const auto& [file, table] : kFourFiles) {
      SQLite::Database store(copy.Path() + "/" + file, SQLite::OPEN_READWRITE);
      counts.insert(store.execAndGet("SELECT count(*) FROM " + table).getInt());
    }
    return counts.size() == 1 ? *counts.begin() : -1;
  }

  const SqliteKind kind_;
  Stores stores_;
};

}  // namespace

TEST_F(CommitRoundsTest, four_files_are_waited_for_four_times) {
  Look(true);
  ASSERT_TRUE(Post(kFourFiles).Ok());
  EXPECT_EQ(TheWatch().rounds, 4);
  std::vector<Synced> syncs = TheWatch().syncs;
  ASSERT_EQ(syncs.size(), 15u);
  // Those of a round come in any order.
  for (const auto& [begin, end] : {std::pair(0, 6), std::pair(6, 10), std::pair(10, 14)})
    std::sort(syncs.begin() + begin, syncs.begin() + end);
  using enum Synced;
  EXPECT_EQ(syncs, (std::vector{Journal, Journal, Journal, Journal, SuperJournal, Folder, Journal, Journal, Journal, Journal, Store, Store,
                                Store, Store, Folder}));
  Look(false);
  ExpectInAll(2);
}

TEST_F(CommitRoundsTest, the_folder_is_synced_with_the_super_journal_in_it_and_again_when_that_is_gone) {
  // Of one file too: nothing else makes its commit last.
  Look(true);
  ASSERT_TRUE(Post({{"Cari.mdb", "CariHareket"}}).Ok());
  EXPECT_EQ(TheWatch().superJournalThere, (std::vector{true, false}));
  EXPECT_EQ(TheWatch().syncs.back(), Synced::Folder);
  EXPECT_EQ(TheWatch().rounds, 4);
}

TEST_F(CommitRoundsTest, nothing_written_waits_for_nothing) {
  Look(true);
  Action action(stores_, "nothing");
  EXPECT_TRUE(stores_.Execute("Karvel.mdb", "DELETE FROM Datam Where CariKod='Z'").Ok());
  EXPECT_TRUE(action.Finish().Ok());
  EXPECT_TRUE(TheWatch().syncs.empty());
}

TEST_F(CommitRoundsTest, journals_one_of_which_cannot_be_synced_never_count) {
  Look(true, Fault{Synced::Journal, 1});
  EXPECT_FALSE(Post(kFourFiles).Ok());
  // A cut now, with the journals' names back, would play them back as they came to the disk.
  EXPECT_FALSE(TheWatch().hotJournal);
  EXPECT_EQ(std::ranges::count(TheWatch().syncs, Synced::Store), 4);
  Look(false);
  ExpectInAll(1);
  EXPECT_TRUE(Post(kFourFiles).Ok());
  ExpectInAll(2);
}

TEST_F(CommitRoundsTest, journals_stay_until_it_is_sure_that_the_super_journal_is_gone) {
  Look(true, Fault{Synced::Folder, 2, true});
  EXPECT_EQ(Post(kFourFiles).Kind(), ErrorKind::Unknown);
  EXPECT_EQ(JournalsIn(kind_.Folder()), 4);
  // The disk is well again: the action stands, in all files.
  Look(false);
  EXPECT_TRUE(stores_.AskOutcome().Ok());
  ExpectInAll(2);
  EXPECT_EQ(JournalsIn(kind_.Folder()), 0);
  EXPECT_TRUE(Post(kFourFiles).Ok());
  ExpectInAll(3);
}

// Killed between the removal of the super-journal and the folder's sync, a desk leaves a removal that a cut may take back. If by then some
// of the journals were gone for good, the others would be played back without them.
TEST_F(CommitRoundsTest, a_start_after_a_kill_keeps_the_journals_until_it_is_sure_too) {
  Look(true, Fault{Synced::Folder, 2, true});
  EXPECT_EQ(Post(kFourFiles).Kind(), ErrorKind::Unknown);
  Look(false);
  const TempFolder killed;
  fs::copy(kind_.Folder(), killed.Path(), fs::copy_options::recursive);
  Look(true);
  Stores started(MakeSqliteEngine(TestOptions(killed.Path())));
  ASSERT_TRUE(started.Open(killed.Path()).Ok());
  EXPECT_EQ(TheWatch().journalsThere, (std::vector<long>{4, 3, 2, 1}));
  Look(false);
  EXPECT_EQ(JournalsIn(killed.Path()), 0);
  for (const auto& [file, table] : kFourFiles) EXPECT_EQ(Opened(started, file, table)->RecordCount(), 2) << table;
}

// Up to the third round the action can only come undone, and in the fourth it stands; where the disk gives no word of it, no more is told
// than that.
TEST_F(CommitRoundsTest, one_that_fails_is_told_as_the_files_have_it) {
  struct Case {
    std::string failing;
    Fault fault;
    bool stands, unknown;
  };
  using enum Synced;
  const std::vector<Case> cases = {
      {"round 1: a journal", {Journal, 2}, false, false},
      {"round 1: a journal, and all behind it", {Journal, 2, true}, false, false},
      {"round 1: the super-journal", {SuperJournal, 1}, false, false},
      {"round 1: the super-journal, and all behind it", {SuperJournal, 1, true}, false, false},
      {"round 1: the folder", {Folder, 1}, false, false},
      {"round 1: the folder, and all behind it", {Folder, 1, true}, false, false},
      {"round 2: a header", {Journal, 6}, false, false},
      {"round 2: a header, and all behind it", {Journal, 6, true}, false, true},
      {"round 3: a store", {Store, 2}, false, false},
      {"round 3: a store, and all behind it", {Store, 2, true}, false, true},
      {"round 4: the folder", {Folder, 2}, true, false},
      {"round 4: the folder, and all behind it", {Folder, 2, true}, true, true},
  };
  int warnings = 0, rows = 1;
  const auto heard = stores_.savedOnFailingDisk.Connect([&] { ++warnings; });
  for (const Case& one : cases) {
    SCOPED_TRACE(one.failing);
    warnings = 0;
    Look(true, one.fault);
    Status told = Post(kFourFiles);
    EXPECT_EQ(told.Kind() == ErrorKind::Unknown, one.unknown) << told.Message();
    if (one.unknown) {
      EXPECT_EQ(stores_.AskOutcome().Kind(), ErrorKind::Unknown) << "the disk is no better";
    }
    Look(false);
    const int found = RowsElsewhere();
    if (one.unknown) told = stores_.AskOutcome();
    EXPECT_EQ(told.Ok(), one.stands) << told.Message();
    EXPECT_EQ(warnings, one.stands ? 1 : 0);
    if (one.stands) {
      ++rows;
    } else {
      EXPECT_EQ(told.Kind(), ErrorKind::DiskFailed) << told.Message();
    }
    EXPECT_EQ(found, rows) << "as another program has it";
    ExpectInAll(rows);
    ASSERT_TRUE(Post(kFourFiles).Ok()) << "the desk goes on";
    ExpectInAll(++rows);
  }
}

// What a commit that was cut between its first two rounds leaves: pages, no header, and the name of a super-journal that is gone.
void LeaveCutJournal(const std::string& path, const std::string& super) {
  std::ofstream file(path, std::ios::binary);
  const auto number = [](unsigned value) {
    return std::string{static_cast<char>(value >> 24U), static_cast<char>(value >> 16U), static_cast<char>(value >> 8U),
                       static_cast<char>(value)};
  };
  unsigned sum = 0;
  for (const char letter : super) sum += static_cast<unsigned char>(letter);
  file << std::string(60000, '\0') << super << number(static_cast<unsigned>(super.size())) << number(sum)
       << "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
}

TEST_F(CommitRoundsTest, what_a_cut_commit_left_ends_no_later_journal) {
  Look(false);
  for (const Table& table : kFourFiles) LeaveCutJournal(kind_.Path(table.first) + "-journal", kind_.Path("Karvel.mdb-mj123456934"));
  {
    Action action(stores_, "undone");
    auto counter = Opened(stores_, "Index.mdb", "Mdbindex");
    ASSERT_TRUE(counter->Edit().Ok());
    counter->Set("Serino", "undone");
    ASSERT_TRUE(counter->Update().Ok());
    auto line = Opened(stores_, "Karvel.mdb", "Datam");
    ASSERT_TRUE(line->AddNew().Ok());
    ASSERT_TRUE(line->Update().Ok());
  }
  EXPECT_NE(Opened(stores_, "Index.mdb", "Mdbindex")->Text("Serino"), "undone") << "what was undone stayed in memory";
  ExpectInAll(1);
  ASSERT_TRUE(Post(kFourFiles).Ok());
  ExpectInAll(2);
  EXPECT_EQ(RowsElsewhere(), 2);
}

TEST_F(CommitRoundsTest, an_action_too_large_for_memory_waits_in_the_usual_order) {
  Look(true);
  ASSERT_TRUE(Post({{"Karvel.mdb", "Datam"}, {"Cari.mdb", "CariHareket"}}, 6000).Ok());
  EXPECT_GT(TheWatch().rounds, 6);
  EXPECT_EQ(TheWatch().rounds, static_cast<int>(TheWatch().syncs.size()));
  EXPECT_EQ(TheWatch().syncs.back(), Synced::Folder);
  Look(false);
  EXPECT_EQ(Opened(stores_, "Karvel.mdb", "Datam")->RecordCount(), 6001);
  EXPECT_EQ(Opened(stores_, "Cari.mdb", "CariHareket")->RecordCount(), 6001);
}

}  // namespace karvel::testing

// The program's own definitions stand before the C library's for the engine too.
extern "C" int fsync(int file) {
  return karvel::testing::Sync(SYS_fsync, file);
}
extern "C" int fdatasync(int file) {
  return karvel::testing::Sync(SYS_fdatasync, file);
}
