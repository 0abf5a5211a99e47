// The line to the main machine fails at every moment: nothing is half, nothing twice, and whoever asks is told what happened.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/store/postgres/postgres_kind.h"
#include "tests/support/logged_lines.h"
#include "tests/support/loopback_proxy.h"

namespace karvel::testing {
namespace {

using namespace std::chrono_literals;

class LostLine : public ::testing::Test {
 protected:
  LostLine() : stores_(kind_.NewEngine()) {}
  void SetUp() override { ASSERT_TRUE(stores_.Open(NetworkFolder(line_.Port(), kind_.Firm())).Ok()); }

  [[nodiscard]] std::vector<std::string> Lines() const {
    return Psql(kind_.Server(), "SELECT \"DigerId\" FROM \"" + kind_.Firm() + "_karvel\".\"Datam\" ORDER BY 1");
  }
  // As the desk does while the main machine is away.
  static void FindServer(Stores& stores) {
    for (int i = 0; i < 100 && stores.IsServerAway() && !stores.AskServer().Ok(); ++i) std::this_thread::sleep_for(50ms);
  }
  // The line is cut when this returns.
  void Cut() {
    line_.CutAll();
    while (line_.Connections() > 0) std::this_thread::sleep_for(5ms);
  }
  Status Post(const std::string& id) {
    FindServer(stores_);
    Action action(stores_, "posting");
    if (!action.Begun().Ok()) return action.Begun();
    auto lines = std::make_unique<Cursor>(stores_, "Datam");
    lines->SetDatabaseName("Karvel.mdb");
    if (Status opened = lines->Open("Datam"); !opened.Ok()) return opened;
    if (Status added = lines->AddNew(); !added.Ok()) return added;
    lines->Set("DigerId", Value(id));
    lines->Set("Tutar", Value(5.0));
    if (Status updated = lines->Update(); !updated.Ok()) {
      lines->CancelUpdate();
      return action.Finish();
    }
    return action.Finish();
  }

  // What is known of a posting in the end: a machine that is busy may take its time to see that a line was cut.
  Status Outcome(Status posted) {
    for (int i = 0; i < 100 && posted.Kind() == ErrorKind::Unknown; ++i) {
      std::this_thread::sleep_for(100ms);
      posted = stores_.AskOutcome();
    }
    return posted;
  }

  PostgresKind kind_;
  LoopbackProxy line_{{kind_.Server().SocketFolder(), kind_.Server().Port()}};
  Stores stores_;
  Connections connections_;
};

}  // namespace

TEST_F(LostLine, a_line_cut_at_rest_is_made_anew_at_the_next_use) {
  ASSERT_TRUE(Post("1").Ok());
  Cut();
  FindServer(stores_);
  EXPECT_EQ(Opened(stores_, "Karvel.mdb", "Datam")->RecordCount(), 1);
  Cut();
  EXPECT_TRUE(Post("2").Ok());
  EXPECT_EQ(Lines(), (std::vector<std::string>{"1", "2"}));
}

TEST_F(LostLine, a_line_cut_inside_an_action_undoes_it_and_the_next_one_goes_through) {
  const LoggedLines log;
  Action action(stores_, "posting");
  AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 1, "1");
  Cut();
  auto lines = Opened(stores_, "Karvel.mdb", "Datam");
  EXPECT_FALSE(lines->HasRows());
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::Unreachable);
  EXPECT_TRUE(Lines().empty());
  EXPECT_TRUE(Post("2").Ok());
  EXPECT_EQ(Lines(), std::vector<std::string>{"2"});
}

TEST_F(LostLine, a_commit_whose_answer_is_lost_stands_and_is_told_as_done) {
  line_.LoseNextCommit(CommitLoss::kAnswer);
  EXPECT_TRUE(Outcome(Post("1")).Ok());
  EXPECT_TRUE(line_.LostCommit());
  EXPECT_EQ(Lines(), std::vector<std::string>{"1"});
  EXPECT_TRUE(Post("2").Ok());
}

TEST_F(LostLine, a_commit_that_never_arrives_is_told_as_not_done) {
  line_.LoseNextCommit(CommitLoss::kCommand);
  EXPECT_EQ(Outcome(Post("1")).Kind(), ErrorKind::Unreachable);
  EXPECT_TRUE(line_.LostCommit());
  EXPECT_TRUE(Lines().empty());
  EXPECT_TRUE(Post("1").Ok());
  EXPECT_EQ(Lines(), std::vector<std::string>{"1"});
}

TEST_F(LostLine, while_the_line_is_down_the_outcome_is_unknown_and_is_found_when_it_is_back) {
  for (const CommitLoss loss : {CommitLoss::kAnswer, CommitLoss::kCommand}) {
    const bool stands = loss == CommitLoss::kAnswer;
    const std::vector<std::string> before = Lines();
    line_.LoseNextCommit(loss);
    line_.Refuse(true);
    EXPECT_EQ(Post("7").Kind(), ErrorKind::Unknown);
    EXPECT_TRUE(stores_.IsOutcomeUnknown());
    EXPECT_FALSE(Post("8").Ok());  // nothing is begun until it is known
    EXPECT_EQ(stores_.AskOutcome().Kind(), ErrorKind::Unknown);
    line_.Refuse(false);
    const Status outcome = Outcome(stores_.AskOutcome());
    EXPECT_EQ(outcome.Ok(), stands) << outcome.Message();
    EXPECT_EQ(Lines().size(), before.size() + (stands ? 1 : 0));
    EXPECT_FALSE(stores_.IsOutcomeUnknown());
  }
  EXPECT_TRUE(Post("9").Ok());
}

// A full disk, a right that was taken away: the lists stay, and as soon as it is mended the next press books.
TEST_F(LostLine, a_write_that_the_server_refuses_leaves_the_session_as_good_as_before) {
  ASSERT_TRUE(Post("1").Ok());
  const std::string table = "\"" + kind_.Firm() + "_karvel\".\"Datam\"";
  Psql(kind_.Server(),
       "CREATE FUNCTION public.refuse() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN RAISE EXCEPTION 'full' USING ERRCODE='53100'; END$$");
  Psql(kind_.Server(), "CREATE TRIGGER refuse BEFORE INSERT ON " + table + " FOR EACH ROW EXECUTE FUNCTION public.refuse()");
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(Post("2").Kind(), ErrorKind::DiskFull);
    EXPECT_EQ(Opened(stores_, "Karvel.mdb", "Datam")->RecordCount(), 1);
  }
  Psql(kind_.Server(), "DROP TRIGGER refuse ON " + table);
  Psql(kind_.Server(), "DROP FUNCTION public.refuse()");
  EXPECT_TRUE(Post("2").Ok());
  EXPECT_EQ(Lines(), (std::vector<std::string>{"1", "2"}));
}

// The clerk reads last what became of his line, not that the machine is back.
TEST_F(LostLine, whoever_knows_the_outcome_has_found_the_machine) {
  std::vector<std::string> heard;
  connections_ += stores_.serverFound.Connect([&] { heard.emplace_back("found"); });
  ASSERT_TRUE(Post("1").Ok());
  line_.LoseNextCommit(CommitLoss::kAnswer);
  line_.Refuse(true);
  ASSERT_EQ(Post("2").Kind(), ErrorKind::Unknown);
  auto lines = Opened(stores_, "Karvel.mdb", "Datam");  // which finds that it is away
  EXPECT_FALSE(lines->HasRows());
  ASSERT_TRUE(stores_.IsServerAway());
  line_.Refuse(false);
  EXPECT_TRUE(Outcome(stores_.AskOutcome()).Ok());
  heard.emplace_back("told");
  EXPECT_EQ(heard, (std::vector<std::string>{"found", "told"}));
  EXPECT_FALSE(stores_.IsServerAway());
  EXPECT_EQ(lines->RecordCount(), 2);
}

TEST_F(LostLine, a_main_machine_that_is_away_is_told_at_once_and_found_again) {
  ASSERT_TRUE(Post("1").Ok());
  line_.Refuse(true);
  Cut();
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Post("2").Kind(), ErrorKind::Unreachable);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
  Status heard;
  connections_ += stores_.readFailed.Connect([&](const Status& failure) { heard = failure; });
  Cursor lines(stores_, "lines");
  lines.SetDatabaseName("Karvel.mdb");
  lines.Open("Datam").Ignore();
  EXPECT_FALSE(lines.HasRows());
  EXPECT_EQ(heard.Kind(), ErrorKind::Unreachable);
  line_.Refuse(false);
  EXPECT_TRUE(Post("2").Ok());
  EXPECT_TRUE(lines.Refresh().Ok());
  EXPECT_EQ(lines.RecordCount(), 2);
}

TEST_F(LostLine, a_terminal_cut_off_in_the_middle_of_an_action_leaves_the_line_to_others) {
  auto other = std::make_unique<Stores>(kind_.NewEngine());
  ASSERT_TRUE(other->Open(kind_.Folder()).Ok());
  Action action(stores_, "posting");
  AddLine(stores_, "A", {2026, 3, 1, 0, 0, 0}, 1, "1");
  EXPECT_EQ(other->Begin("theirs").Kind(), ErrorKind::Busy);
  Cut();
  Status begun = other->Begin("theirs");
  for (int i = 0; i < 40 && !begun.Ok(); ++i) begun = other->Begin("theirs");
  EXPECT_TRUE(begun.Ok());
  EXPECT_TRUE(other->Commit().Ok());
  EXPECT_FALSE(action.Finish().Ok());
  EXPECT_TRUE(Lines().empty());
}

TEST_F(LostLine, a_slow_line_is_slow_and_nothing_else) {
  line_.Delay(25ms);
  EXPECT_TRUE(Post("1").Ok());
  EXPECT_EQ(Opened(stores_, "Karvel.mdb", "Datam")->RecordCount(), 1);
}

TEST_F(LostLine, a_main_machine_without_the_database_or_that_lets_nobody_in_says_so) {
  Stores stores(kind_.NewEngine());
  const std::string machine = "\\\\127.0.0.1:" + std::to_string(kind_.Server().Port());
  EXPECT_EQ(stores.Open(machine + "\\Yok\\01").Kind(), ErrorKind::Missing);
  setenv("PGUSER", "yabanci", 1);
  EXPECT_EQ(stores.Open(machine + "\\MuhasebeData\\01").Kind(), ErrorKind::NoRights);
  setenv("PGUSER", PostgresServer::User().c_str(), 1);
  EXPECT_EQ(stores.Open("\\\\127.0.0.1:1\\MuhasebeData\\01").Kind(), ErrorKind::Unreachable);
  EXPECT_FALSE(stores.IsOpen());
}

TEST_F(LostLine, a_server_killed_and_started_again_keeps_what_was_told_and_nothing_else) {
  PostgresServer own({.durable = true, .onLoopback = true});
  PrepareServer(own);
  const std::string folder = NetworkFolder(own.Port(), "01");
  Stores stores(MakePostgresEngine(PostgresTestOptions()));
  ASSERT_TRUE(stores.Open(folder).Ok());
  AddLine(stores, "A", {2026, 3, 1, 0, 0, 0}, 1, "1");
  {
    Action action(stores, "posting");
    AddLine(stores, "A", {2026, 3, 1, 0, 0, 0}, 1, "2");
    ASSERT_TRUE(own.Stop("immediate"));
    EXPECT_EQ(action.Finish().Kind(), ErrorKind::Unknown);
  }
  EXPECT_EQ(stores.AskOutcome().Kind(), ErrorKind::Unknown);
  ASSERT_TRUE(own.Start());
  std::this_thread::sleep_for(600ms);
  Status outcome = stores.AskOutcome();
  EXPECT_EQ(outcome.Kind(), ErrorKind::Unreachable) << outcome.Message();
  FindServer(stores);
  AddLine(stores, "A", {2026, 3, 1, 0, 0, 0}, 1, "3");
  EXPECT_EQ(Psql(own, "SELECT \"DigerId\" FROM \"01_karvel\".\"Datam\" ORDER BY 1"), (std::vector<std::string>{"1", "3"}));
}

}  // namespace karvel::testing
