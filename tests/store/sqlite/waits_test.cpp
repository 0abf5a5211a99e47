// Waiting for other terminals and other programs: bounded in all, heard of, and never in the way of the screen.
#include <fcntl.h>
#include <gtest/gtest.h>

#include "tests/store/sqlite/sqlite_kind.h"
#include "tests/support/foreign_program.h"
#include "tests/support/other_process.h"

namespace karvel::testing {
namespace {

using std::chrono::milliseconds;
constexpr milliseconds kPatience{600};
constexpr double kAbout = 0.3;  // what a slow machine may add

class WaitsTest : public ::testing::Test {
 protected:
  WaitsTest() {
    EXPECT_TRUE(stores_.Open(kind_.Folder()).Ok());
    AddCustomer(stores_, "A", "Ali");
  }
  static SqliteOptions Options(const std::string& folder) {
    SqliteOptions options = TestOptions(folder);
    options.patienceMs = static_cast<int>(kPatience.count());
    return options;
  }

  const SqliteKind kind_;
  Stores stores_{MakeSqliteEngine(Options(kind_.Folder()))};
};

// Lets a file go after some calls, and tries other things meanwhile.
struct Listener : WaitListener {
  void Waiting(milliseconds soFar) override {
    longest = soFar;
    ++calls;
    if (meanwhile) meanwhile();
  }
  void WaitOver() override { ++over; }
  std::function<void()> meanwhile;
  milliseconds longest{};
  int calls = 0, over = 0;
};

// Another terminal in the middle of an action, for so long.
class OtherTerminal : public OtherProcess {
 public:
  OtherTerminal(const std::string& folder, milliseconds lives)
      : OtherProcess(
            [&] {
              struct flock lock{};
              lock.l_type = F_WRLCK;
              return fcntl(open((folder + "/karvel.lock").c_str(), O_RDWR), F_OFD_SETLK, &lock) == 0;
            },
            lives) {}
};

TEST_F(WaitsTest, the_line_and_another_programs_lock_share_one_patience) {
  ForeignProgram other(kind_.Path("Stok.mdb"));
  other.Keep();
  const OtherTerminal terminal(kind_.Folder(), kPatience / 2);
  ASSERT_TRUE(terminal.Taken());
  const Stopwatch watch;
  EXPECT_EQ(stores_.Begin("sale").Kind(), ErrorKind::Busy);
  EXPECT_GE(watch.Seconds(), 0.55);
  EXPECT_LT(watch.Seconds(), 0.6 + kAbout);
}

TEST_F(WaitsTest, what_follows_a_wait_in_vain_is_refused_at_once) {
  ForeignProgram other(kind_.Path("Cari.mdb"));
  other.Keep();
  auto customers = Customers(stores_);
  const Stopwatch watch;
  EXPECT_EQ(customers->FindFirst("CariKod='A'").Kind(), ErrorKind::Busy);
  const double first = watch.Seconds();
  EXPECT_GE(first, 0.55);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(customers->FindFirst("CariKod='A'").Kind(), ErrorKind::Busy);
  EXPECT_EQ(stores_.Begin("sale").Kind(), ErrorKind::Busy);
  EXPECT_LT(watch.Seconds() - first, kAbout);
  other.Leave();
  EXPECT_TRUE(customers->FindFirst("CariKod='A'").Ok());
}

TEST_F(WaitsTest, a_read_waits_for_a_program_that_is_soon_done) {
  ForeignProgram other(kind_.Path("Cari.mdb"));
  other.Keep();
  Listener listener;
  bool kept = true;
  listener.meanwhile = [&] {
    if (kept && listener.longest > milliseconds(200)) other.Leave();
    kept = listener.longest <= milliseconds(200);
  };
  stores_.SetWaitListener(&listener);
  EXPECT_TRUE(Customers(stores_)->FindFirst("CariKod='A'").Ok());
  EXPECT_GT(listener.calls, 5);
  EXPECT_EQ(listener.over, 1);
}

TEST_F(WaitsTest, a_commit_waits_for_a_reader_and_is_whole) {
  ForeignProgram other(kind_.Path("Cari.mdb"));
  other.Read("CariKartlar");
  Listener listener;
  bool kept = true;
  listener.meanwhile = [&] {
    if (kept && listener.longest > milliseconds(200)) other.Leave();
    kept = listener.longest <= milliseconds(200);
  };
  stores_.SetWaitListener(&listener);
  ASSERT_TRUE(stores_.Begin("sale").Ok());
  AddCustomer(stores_, "B", "Buket");
  AddLine(stores_, "B", {2026, 3, 1, 0, 0, 0}, 1);
  EXPECT_EQ(listener.calls, 0);
  EXPECT_TRUE(stores_.Commit().Ok());
  EXPECT_EQ(listener.over, 1);
  EXPECT_TRUE(Customers(stores_)->FindFirst("CariKod='B'").Ok());
}

TEST_F(WaitsTest, a_commit_that_waited_in_vain_leaves_nothing) {
  ForeignProgram other(kind_.Path("Cari.mdb"));
  other.Read("CariKartlar");
  ASSERT_TRUE(stores_.Begin("sale").Ok());
  AddCustomer(stores_, "B", "Buket");
  AddLine(stores_, "B", {2026, 3, 1, 0, 0, 0}, 1);
  const Stopwatch watch;
  EXPECT_EQ(stores_.Commit().Kind(), ErrorKind::Busy);
  EXPECT_LT(watch.Seconds(), 0.6 + kAbout);
  other.Leave();
  EXPECT_EQ(Customers(stores_)->FindFirst("CariKod='B'").Kind(), ErrorKind::NoRecord);
  EXPECT_FALSE(Opened(stores_, "Karvel.mdb", "Datam")->HasRows());
}

// What the window runs while it waits: it reads other files, and can neither wait nor write in between.
TEST_F(WaitsTest, inside_a_wait_others_are_read_and_no_second_wait_begins) {
  ForeignProgram other(kind_.Path("Stok.mdb"));
  other.Keep();
  Listener listener;
  Status read, kept, begun;
  listener.meanwhile = [&] {
    if (listener.calls != 3) return;
    const Stopwatch watch;
    read = Customers(stores_)->FindFirst("CariKod='A'");
    kept = Opened(stores_, "Stok.mdb", "StokKartlar")->FindFirst("StokKod='1'");
    begun = stores_.Begin("another");
    EXPECT_LT(watch.Seconds(), kAbout);
  };
  stores_.SetWaitListener(&listener);
  EXPECT_EQ(stores_.Begin("sale").Kind(), ErrorKind::Busy);
  EXPECT_TRUE(read.Ok());
  EXPECT_EQ(kept.Kind(), ErrorKind::Busy);
  EXPECT_EQ(begun.Kind(), ErrorKind::Busy);
  EXPECT_EQ(listener.over, 1);
}

TEST_F(WaitsTest, a_glance_waits_for_nobody_and_tells_that_it_saw_nothing) {
  auto customers = Customers(stores_);
  ForeignProgram other(kind_.Path("Cari.mdb"));
  other.Keep();
  const Stopwatch watch;
  {
    const Glance glance(*customers);
    EXPECT_TRUE(customers->RowsFromStart(5).empty());
    EXPECT_FALSE(glance.Complete());
  }
  EXPECT_LT(watch.Seconds(), kAbout);
  other.Leave();
  const Glance glance(*customers);
  EXPECT_EQ(customers->RowsFromStart(5).size(), 1U);
  EXPECT_TRUE(glance.Complete());
}

TEST_F(WaitsTest, a_start_waits_for_a_kept_file_and_names_it) {
  ForeignProgram other(kind_.Path("SeriNo.mdb"));
  other.Keep();
  Stores second(MakeSqliteEngine(Options(kind_.Folder())));
  const Stopwatch watch;
  const Status opened = second.Open(kind_.Folder());
  EXPECT_EQ(opened.Kind(), ErrorKind::Busy);
  EXPECT_EQ(opened.Place(), kind_.Path("SeriNo.mdb"));
  EXPECT_GE(watch.Seconds(), 0.55);
  EXPECT_LT(watch.Seconds(), 0.6 + kAbout);
}

}  // namespace
}  // namespace karvel::testing
