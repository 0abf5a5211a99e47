#include "tests/support/loopback_proxy.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <pqxx/pqxx>

#include "tests/support/other_process.h"
#include "tests/support/postgres_server.h"

namespace karvel {
namespace {

class LoopbackProxyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(server_.Runs()) << server_.Problem();
    pqxx::connection desk(server_.Connection());
    pqxx::nontransaction(desk).exec("drop table if exists kasa; create table kasa (tutar int)");
  }
  [[nodiscard]] std::string ThroughProxy() const {
    return "host=127.0.0.1 port=" + std::to_string(proxy_.Port()) + " user=karvel dbname=postgres";
  }
  // Counted past the proxy.
  [[nodiscard]] int Rows() const {
    pqxx::connection desk(server_.Connection());
    return pqxx::nontransaction(desk).exec1("select count(*) from kasa")[0].as<int>();
  }

  PostgresServer& server_ = PostgresServer::Shared();
  LoopbackProxy proxy_{{server_.SocketFolder(), server_.Port()}};
};

TEST_F(LoopbackProxyTest, hands_on_what_is_asked_and_answered) {
  pqxx::connection desk(ThroughProxy());
  pqxx::work work(desk);
  const std::string long_text(3'000'000, 'x');
  EXPECT_EQ(work.exec_params1("select length($1)", long_text)[0].as<int>(), 3'000'000);
  EXPECT_EQ(work.exec1("select repeat('y', 3000000)")[0].size(), 3'000'000U);
  EXPECT_EQ(proxy_.Connections(), 1);
}

TEST_F(LoopbackProxyTest, reaches_the_server_by_its_port_too) {
  proxy_.AimAt({"127.0.0.1", server_.Port()});
  pqxx::connection desk(ThroughProxy());
  EXPECT_EQ(pqxx::nontransaction(desk).exec1("select 5")[0].as<int>(), 5);
}

TEST_F(LoopbackProxyTest, cuts_what_stands_and_takes_new_ones) {
  pqxx::connection desk(ThroughProxy());
  proxy_.CutAll();
  EXPECT_THROW(pqxx::nontransaction(desk).exec1("select 1"), pqxx::broken_connection);
  pqxx::connection again(ThroughProxy());
  EXPECT_EQ(pqxx::nontransaction(again).exec1("select 1")[0].as<int>(), 1);
}

TEST_F(LoopbackProxyTest, refuses_new_ones_until_it_is_told_otherwise) {
  pqxx::connection desk(ThroughProxy());
  proxy_.Refuse(true);
  EXPECT_THROW(pqxx::connection another(ThroughProxy()), pqxx::broken_connection);
  EXPECT_EQ(pqxx::nontransaction(desk).exec1("select 1")[0].as<int>(), 1);
  proxy_.Refuse(false);
  EXPECT_NO_THROW(pqxx::connection another(ThroughProxy()));
}

TEST_F(LoopbackProxyTest, delays_each_round_trip_by_both_ways_whatever_its_size) {
  pqxx::connection desk(ThroughProxy());
  pqxx::nontransaction work(desk);
  proxy_.Delay(std::chrono::milliseconds(50));
  const Stopwatch small;
  EXPECT_EQ(work.exec1("select 1")[0].as<int>(), 1);
  EXPECT_GE(small.Seconds(), 0.1);
  const Stopwatch large;
  EXPECT_EQ(work.exec1("select repeat('y', 3000000)")[0].size(), 3'000'000U);
  EXPECT_GE(large.Seconds(), 0.1);
  EXPECT_LT(large.Seconds(), 1.5);  // some 46 pieces of 64 kB, none of which waits for the one before it
  proxy_.Delay(std::chrono::milliseconds(0));
  double shortest = 1;
  for (int turn = 0; turn < 20; ++turn) {
    const Stopwatch undelayed;
    EXPECT_EQ(work.exec1("select 1")[0].as<int>(), 1);
    shortest = std::min(shortest, undelayed.Seconds());
  }
  EXPECT_LT(shortest, 0.09);
}

TEST_F(LoopbackProxyTest, loses_the_answer_of_a_commit_that_the_server_has_done) {
  pqxx::connection desk(ThroughProxy());
  proxy_.LoseNextCommit(CommitLoss::kAnswer);
  {
    pqxx::work work(desk);
    work.exec("insert into kasa values (1)");
    EXPECT_FALSE(proxy_.LostCommit());
    EXPECT_THROW(work.commit(), pqxx::failure);
  }
  EXPECT_TRUE(proxy_.LostCommit());
  EXPECT_EQ(Rows(), 1);
  // Once only.
  pqxx::connection again(ThroughProxy());
  pqxx::work work(again);
  work.exec("insert into kasa values (1)");
  EXPECT_NO_THROW(work.commit());
  EXPECT_EQ(Rows(), 2);
}

TEST_F(LoopbackProxyTest, loses_the_answer_of_a_commit_that_travels_with_other_statements) {
  pqxx::connection desk(ThroughProxy());
  proxy_.Delay(std::chrono::milliseconds(5));
  proxy_.LoseNextCommit(CommitLoss::kAnswer);
  EXPECT_THROW(pqxx::nontransaction(desk).exec("begin; insert into kasa values (1); commit"), pqxx::failure);
  EXPECT_EQ(Rows(), 1);
}

TEST_F(LoopbackProxyTest, loses_the_answer_of_a_commit_kept_under_a_name) {
  pqxx::connection desk(ThroughProxy());
  desk.prepare("ends", "commit");
  proxy_.LoseNextCommit(CommitLoss::kAnswer);
  pqxx::nontransaction work(desk);
  work.exec("begin; insert into kasa values (1)");
  EXPECT_THROW(work.exec_prepared("ends"), pqxx::failure);
  EXPECT_EQ(Rows(), 1);
}

TEST_F(LoopbackProxyTest, loses_a_commit_before_the_server_has_seen_it) {
  pqxx::connection desk(ThroughProxy());
  proxy_.LoseNextCommit(CommitLoss::kCommand);
  pqxx::work work(desk);
  work.exec("insert into kasa values (1)");
  EXPECT_THROW(work.commit(), pqxx::failure);
  EXPECT_TRUE(proxy_.LostCommit());
  EXPECT_EQ(Rows(), 0);
}

TEST_F(LoopbackProxyTest, ends_connections_when_the_server_stops) {
  PostgresServer own;
  ASSERT_TRUE(own.Runs()) << own.Problem();
  proxy_.AimAt({own.SocketFolder(), own.Port()});
  pqxx::connection desk(ThroughProxy());
  ASSERT_TRUE(own.Stop("immediate"));
  EXPECT_THROW(pqxx::nontransaction(desk).exec1("select 1"), pqxx::failure);
  EXPECT_THROW(pqxx::connection another(ThroughProxy()), pqxx::broken_connection);
}

}  // namespace
}  // namespace karvel
