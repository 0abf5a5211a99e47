// The move between stores, where the network takes the answer of its commit away.
#include "exchange/store_move.h"

#include <gtest/gtest.h>

#include "store/sqlite/sqlite_engine.h"
#include "tests/support/loopback_proxy.h"
#include "tests/support/moved_shop.h"
#include "tests/support/temp_folder.h"
#include "tests/support/watched_engine.h"
#include "tools/value_limits.h"

namespace karvel::testing {
namespace {

class StoresMove : public ::testing::Test {
 protected:
  StoresMove() {
    shop.AddOddRows();
    shop.AddLines(3000);
    EXPECT_TRUE(source.Open(shop.DataFolder()).Ok());
    EXPECT_TRUE(OpenSoon(target, NetworkFolder(proxy.Port(), shop.Server().Firm())));
  }

  static std::unique_ptr<Engine> NewServerEngine() { return MakePostgresEngine({.makeFile = MakeSqliteStoreFile}); }
  // A machine that is busy with other tests may answer late.
  static bool OpenSoon(Stores& stores, const std::string& folder) {
    for (int turn = 0; turn < 20; ++turn) {
      if (stores.Open(folder).Ok()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
    return false;
  }

  StoreMove Move(const std::function<bool()>& looksAgain) {
    return MoveStores(
        {source, target, WhatServerCantHold, [&](const MoveProgress& progress) { seen(progress); }, [&] { return stops; }, looksAgain});
  }

  TempFolder folder;
  MovedShop shop{folder.Path() + "/shop"};
  LoopbackProxy proxy{{"127.0.0.1", shop.Server().Server().Port()}};
  Stores source{MakeSqliteEngine({})};
  Stores target{NewServerEngine()};
  std::function<void(const MoveProgress&)> seen = [](const MoveProgress&) {};
  bool stops = false;
};

TEST_F(StoresMove, a_commit_whose_answer_was_lost_is_looked_up) {
  proxy.LoseNextCommit(CommitLoss::kAnswer);
  const StoreMove move = Move([] { return true; });
  EXPECT_TRUE(proxy.LostCommit());
  EXPECT_EQ(move.end, MoveEnd::Moved) << move.status.Message();
  EXPECT_EQ(shop.RowsOnServer(), move.rows);
}

TEST_F(StoresMove, a_commit_that_never_came_there_is_told_as_failed) {
  proxy.LoseNextCommit(CommitLoss::kCommand);
  const StoreMove move = Move([] { return true; });
  EXPECT_EQ(move.end, MoveEnd::TargetFailed);
  EXPECT_EQ(shop.RowsOnServer(), 0);
}

TEST_F(StoresMove, while_the_server_is_away_behind_its_commit_it_is_asked_again) {
  proxy.LoseNextCommit(CommitLoss::kAnswer);
  seen = [&](const MoveProgress& progress) {
    if (progress.stage == MoveStage::Compare && progress.table.name == "GirenCikan") proxy.Refuse(true);
  };
  int asked = 0;
  const StoreMove move = Move([&] {
    if (++asked == 3) proxy.Refuse(false);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    return asked < 50;
  });
  EXPECT_GE(asked, 3);
  EXPECT_EQ(move.end, MoveEnd::Moved) << move.status.Message();
  EXPECT_EQ(shop.RowsOnServer(), move.rows);
}

TEST_F(StoresMove, a_line_that_is_cut_in_the_middle_leaves_the_server_empty) {
  seen = [&](const MoveProgress& progress) {
    if (progress.stage == MoveStage::Write && progress.rows == 2000) proxy.CutAll();
  };
  EXPECT_EQ(Move([] { return true; }).end, MoveEnd::TargetFailed);
  EXPECT_EQ(shop.RowsOnServer(), 0);
  seen = [](const MoveProgress&) {};
  for (int i = 0; i < 100 && target.IsServerAway() && !target.AskServer().Ok(); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(Move([] { return true; }).end, MoveEnd::Moved);
}

// The files are held against everybody; on a server, another program may write a row all the same.
TEST_F(StoresMove, a_row_that_another_program_changes_on_the_way_is_found_before_the_commit) {
  const StoreMove there = Move([] { return true; });
  ASSERT_EQ(there.end, MoveEnd::Moved);
  Stores fromServer{NewServerEngine()};
  ASSERT_TRUE(OpenSoon(fromServer, shop.Server().Folder()));
  const MovedShop back(folder.Path() + "/back");
  Stores intoFiles{MakeSqliteEngine({})};
  ASSERT_TRUE(intoFiles.Open(back.DataFolder()).Ok());
  const std::string change =
      "UPDATE \"" + shop.Server().Firm() + "_cari\".\"CariKartlar\" SET \"Unvan\" = 'other' WHERE \"CariKod\" = 'C2'";
  const StoreMove changed = MoveStores({fromServer, intoFiles, WhatFilesCantHold,
                                        [&](const MoveProgress& progress) {
                                          if (progress.stage == MoveStage::Write && progress.done && progress.table.name == "CariKartlar")
                                            Psql(shop.Server().Server(), change);
                                        },
                                        [] { return false; }, [] { return true; }});
  EXPECT_EQ(changed.end, MoveEnd::NotAlike);
  EXPECT_EQ(changed.where, "Cari.mdb/CariKartlar, 2. satır, Unvan");
  for (const auto& [table, rows] : MovedShop::Everything(back.DataFolder())) EXPECT_TRUE(rows.empty()) << table;
}

// A server ends a session that says nothing for a minute in the middle of its action, and takes long over the indexes of many rows.
TEST_F(StoresMove, while_the_target_works_on_the_rows_the_source_is_kept_awake) {
  shop.AddLines(20000);
  const auto selects = [&](Stores& to, std::chrono::milliseconds silence) {
    EngineWatch watch;
    Stores from{std::make_unique<WatchedEngine>(MakeSqliteEngine({}), watch)};
    EXPECT_TRUE(from.Open(shop.DataFolder()).Ok());
    MoveOrder order{from, to, WhatServerCantHold, seen, [] { return false; }, [] { return true; }};
    order.longestSilence = silence;
    EXPECT_EQ(MoveStores(order).end, MoveEnd::Moved);
    return watch.selects;
  };
  PostgresKind other;
  Stores another{NewServerEngine()};
  ASSERT_TRUE(OpenSoon(another, other.Folder()));
  const int quiet = selects(target, std::chrono::hours(1));
  EXPECT_GT(selects(another, std::chrono::milliseconds(1)), quiet);
}

TEST_F(StoresMove, one_that_is_stopped_moves_nothing) {
  seen = [&](const MoveProgress& progress) { stops = progress.stage == MoveStage::Write && progress.rows == 1000; };
  EXPECT_EQ(Move([] { return true; }).end, MoveEnd::Stopped);
  EXPECT_EQ(shop.RowsOnServer(), 0);
  EXPECT_TRUE(source.Begin("sale").Ok()) << "the source is free again";
}

}  // namespace
}  // namespace karvel::testing
