#include "store/engine_of_place.h"

#include "tests/store/sqlite/sqlite_kind.h"
#include "tests/support/share_engine.h"

namespace karvel::testing {
namespace {

constexpr const char* kShare = "\\\\kasa\\MuhasebeData\\01";

class EngineOfPlaceTest : public ::testing::Test {
 protected:
  EngineOfPlaceTest() {
    WriteTemplates(program_.Path());
    WriteTemplates(own_.Path());
    SqliteOptions alone = TestOptions(program_.Path());
    alone.scratchAlone = true;
    stores_ = std::make_unique<Stores>(MakeEngineOfPlace(
        MakeSqliteEngine(TestOptions(program_.Path())),
        std::make_unique<ShareEngine>(MakeSqliteEngine(TestOptions(program_.Path())), server_, net_.Path(), program_.Path()),
        MakeSqliteEngine(alone)));
  }
  void AddCustomer(const std::string& name) {
    const auto customers = Customers(*stores_);
    ASSERT_TRUE(customers->AddNew().Ok());
    customers->Set("Unvan", Value(name));
    ASSERT_TRUE(customers->Update().Ok());
  }
  std::string FirstCustomer() { return Customers(*stores_)->Text("Unvan"); }
  std::int64_t ScratchLines() { return Opened(*stores_, "DataTemp.Mdb", "CariHareket")->RecordCount(); }
  void AddScratchLine() {
    const auto lines = Opened(*stores_, "DataTemp.Mdb", "CariHareket");
    ASSERT_TRUE(lines->AddNew().Ok());
    ASSERT_TRUE(lines->Update().Ok());
  }

  TempFolder program_, own_, net_;
  ServerWatch server_;
  std::unique_ptr<Stores> stores_;
};

TEST_F(EngineOfPlaceTest, the_last_opening_says_whose_stores_they_are) {
  ASSERT_TRUE(stores_->Open(own_.Path()).Ok());
  AddCustomer("Burada");
  EXPECT_EQ(server_.asked, 0);
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  EXPECT_FALSE(Customers(*stores_)->HasRows());
  AddCustomer("Orada");
  ASSERT_TRUE(stores_->Open(own_.Path()).Ok());
  EXPECT_EQ(FirstCustomer(), "Burada");
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  EXPECT_EQ(FirstCustomer(), "Orada");
}

TEST_F(EngineOfPlaceTest, the_scratch_file_is_this_terminals_own_on_a_share_too) {
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  AddScratchLine();
  ASSERT_TRUE(stores_->Open(own_.Path()).Ok());
  EXPECT_EQ(ScratchLines(), 1);
  AddScratchLine();
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  EXPECT_EQ(ScratchLines(), 2);
}

TEST_F(EngineOfPlaceTest, what_an_action_wrote_into_the_scratch_file_is_kept_or_undone_with_it) {
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  {
    const Action undone(*stores_, "undone");
    AddScratchLine();
    AddCustomer("Yok");
  }
  EXPECT_EQ(ScratchLines(), 0);
  Action kept(*stores_, "kept");
  AddScratchLine();
  AddScratchLine();
  AddCustomer("Var");
  EXPECT_TRUE(kept.Finish().Ok());
  EXPECT_EQ(ScratchLines(), 2);
  EXPECT_EQ(FirstCustomer(), "Var");
}

TEST_F(EngineOfPlaceTest, a_share_that_cannot_be_opened_leaves_nothing_open) {
  ASSERT_TRUE(stores_->Open(own_.Path()).Ok());
  server_.away = true;
  EXPECT_EQ(stores_->Open(kShare).Kind(), ErrorKind::Unreachable);
  EXPECT_FALSE(stores_->IsOpen());
  EXPECT_TRUE(stores_->IsServerAway());
  ASSERT_TRUE(stores_->Open(own_.Path()).Ok());
  EXPECT_FALSE(stores_->IsServerAway());
}

TEST_F(EngineOfPlaceTest, a_server_that_went_is_asked_nothing_until_it_is_looked_for) {
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  AddCustomer("Orada");
  int lost = 0, found = 0, inVain = 0;
  Connections connections;
  connections += stores_->serverLost.Connect([&] { ++lost; });
  connections += stores_->serverFound.Connect([&] { ++found; });
  connections += stores_->readFailed.Connect([&](const Status& fault) { inVain += fault.Kind() == ErrorKind::Unreachable ? 1 : 0; });
  const auto customers = Customers(*stores_);
  int shown = 0;
  connections += customers->shown.Connect([&] { ++shown; });
  server_.away = true;
  EXPECT_FALSE(customers->HasRows());
  EXPECT_EQ(lost, 1);
  EXPECT_GT(inVain, 0);
  const int asked = server_.asked;
  EXPECT_EQ(Action(*stores_, "refused").Finish().Kind(), ErrorKind::Unreachable);
  EXPECT_FALSE(customers->HasRows());
  EXPECT_EQ(server_.asked, asked);
  EXPECT_EQ(lost, 1);
  EXPECT_EQ(stores_->AskServer().Kind(), ErrorKind::Unreachable);
  EXPECT_EQ(server_.asked, asked + 1);

  server_.away = false;
  EXPECT_TRUE(stores_->AskServer().Ok());
  EXPECT_EQ(found, 1);
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(customers->Text("Unvan"), "Orada");
}

TEST_F(EngineOfPlaceTest, a_server_that_goes_inside_an_action_fails_it) {
  ASSERT_TRUE(stores_->Open(kShare).Ok());
  Action action(*stores_, "half");
  AddCustomer("Yarım");
  server_.away = true;
  const auto customers = Customers(*stores_);
  EXPECT_TRUE(customers->AddNew().Ok());
  EXPECT_EQ(customers->Update().Kind(), ErrorKind::Unreachable);
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::Unreachable);
  server_.away = false;
  ASSERT_TRUE(stores_->AskServer().Ok());
  EXPECT_FALSE(Customers(*stores_)->HasRows());
}

}  // namespace
}  // namespace karvel::testing
