#include "tests/support/postgres_server.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <pqxx/pqxx>

#include "tests/support/other_process.h"

namespace karvel {
namespace {

int Answer(const std::string& connection, const std::string& question) {
  pqxx::connection server(connection);
  return pqxx::nontransaction(server).exec1(question)[0].as<int>();
}

bool Answers(const PostgresServer& server) {
  try {
    return Answer(server.Connection(), "select 1") == 1;
  } catch (const pqxx::failure&) {
    return false;
  }
}

template <typename Condition>
bool Soon(const Condition& holds) {
  const Stopwatch watch;
  while (!holds() && watch.Seconds() < 20) usleep(10000);
  return holds();
}

TEST(PostgresServer, answers_over_its_socket_and_over_loopback) {
  const PostgresServer& server = PostgresServer::Shared();
  ASSERT_TRUE(server.Runs()) << server.Problem();
  EXPECT_EQ(Answer(server.Connection(), "select current_setting('server_version_num')::int / 10000"), 15);
  const std::string loopback = "host=127.0.0.1 port=" + std::to_string(server.Port()) + " user=karvel dbname=postgres";
  EXPECT_EQ(Answer(loopback, "select 6 * 7"), 42);
}

TEST(PostgresServer, what_was_committed_is_there_after_an_immediate_stop) {
  PostgresServer server({.durable = true});
  ASSERT_TRUE(server.Runs()) << server.Problem();
  {
    pqxx::connection desk(server.Connection());
    pqxx::work work(desk);
    work.exec("create table kasa (tutar int)");
    work.exec("insert into kasa values (12)");
    work.commit();
  }
  ASSERT_TRUE(server.Stop("immediate"));
  EXPECT_EQ(server.Pid(), 0);
  EXPECT_FALSE(Answers(server));
  ASSERT_TRUE(server.Start());
  EXPECT_GT(server.Pid(), 0);
  EXPECT_EQ(Answer(server.Connection(), "select sum(tutar) from kasa"), 12);
}

TEST(PostgresServer, killed_backends_end_their_connections_and_the_server_comes_back) {
  const PostgresServer server;
  ASSERT_TRUE(server.Runs()) << server.Problem();
  pqxx::connection desk(server.Connection());
  const pid_t pid = server.Pid();
  EXPECT_EQ(server.KillBackends(), 1);
  EXPECT_THROW(pqxx::nontransaction(desk).exec1("select 1"), pqxx::broken_connection);
  EXPECT_TRUE(Soon([&] { return Answers(server); }));
  EXPECT_EQ(server.Pid(), pid);
}

TEST(PostgresServer, nothing_is_left_of_one_whose_program_was_killed) {
  int places[2];
  ASSERT_EQ(pipe(places), 0);
  const pid_t program = fork();
  if (program == 0) {
    const PostgresServer server;
    const std::string place = std::to_string(server.Pid()) + server.SocketFolder();
    if (write(places[1], place.data(), place.size()) < 0) _exit(1);
    raise(SIGKILL);
  }
  close(places[1]);
  std::string place;
  for (char letter = 0; read(places[0], &letter, 1) == 1;) place += letter;
  close(places[0]);
  waitpid(program, nullptr, 0);
  const std::string folder = place.substr(place.find('/'));
  const pid_t pid = std::stoi(place);
  ASSERT_GT(pid, 0);
  EXPECT_TRUE(Soon([&] { return kill(pid, 0) != 0 && !std::filesystem::exists(folder); }));
}

}  // namespace
}  // namespace karvel
