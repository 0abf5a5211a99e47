// Terminals and the server itself are killed in the middle of their work: every posting that was answered is there, every one that was told
// undone is not, and none is half or twice. KARVEL_KILLS=DESKS,LINES,KILLS,SERVER_KILLS makes it longer.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "tests/store/postgres/postgres_kind.h"
#include "tests/support/copied_stores.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {
namespace {

using namespace std::chrono_literals;

struct Plan {
  int desks = 4, lines = 40, kills = 10, serverKills = 4;
};

Plan PlanOfThisRun() {
  Plan plan;
  if (const char* const told = std::getenv("KARVEL_KILLS"))
    std::sscanf(told, "%d,%d,%d,%d", &plan.desks, &plan.lines, &plan.kills, &plan.serverKills);
  return plan;
}

// A line in two files, and a counter that all desks move on.
Status Book(Stores& stores, const std::string& id) {
  Action action(stores, "sale");
  if (!action.Begun().Ok()) return action.Begun();
  const auto counter = Opened(stores, "Index.mdb", "Mdbindex");
  if (counter->FindFirst("Tarih='2026'").Ok() && counter->Edit().Ok()) {
    counter->Set("Indexi", Value(std::to_string(std::stoi(counter->Text("Indexi")) + 1)));
    counter->Update().Ignore();
  }
  for (const auto& [file, table] : {std::pair{"Karvel.mdb", "Datam"}, {"Cari.mdb", "CariHareket"}}) {
    Cursor rows(stores, table);
    rows.SetDatabaseName(file);
    if (!rows.Open(table).Ok() || !rows.AddNew().Ok()) continue;
    rows.Set("DigerId", Value(id));
    if (!rows.Update().Ok()) rows.CancelUpdate();
  }
  return action.Finish();
}

// One desk's life: posts line after line, and writes each outcome down as soon as it knows it.
[[noreturn]] void WorkAsDesk(const std::string& folder, const std::string& notes, int desk, int life, int lines) {
  Stores stores(MakePostgresEngine({.makeFile = MakeSqliteStoreFile}));
  while (!stores.Open(folder).Ok()) std::this_thread::sleep_for(100ms);
  FILE* const file = std::fopen(notes.c_str(), "a");
  for (int line = 0, tries = 0; line < lines; ++tries) {
    const std::string id = std::to_string(desk) + "-" + std::to_string(life) + "-" + std::to_string(tries);
    const auto begin = std::chrono::steady_clock::now();
    Status outcome = Book(stores, id);
    while (outcome.Kind() == ErrorKind::Unknown) {
      std::this_thread::sleep_for(50ms);
      outcome = stores.AskOutcome();
    }
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin).count();
    std::fprintf(file, "%s %s %d\n", outcome.Ok() ? "done" : "undone", id.c_str(), static_cast<int>(took));
    std::fflush(file);
    if (outcome.Ok()) {
      ++line;
    } else {
      std::this_thread::sleep_for(50ms);
      while (stores.IsServerAway() && !stores.AskServer().Ok()) std::this_thread::sleep_for(50ms);
    }
  }
  _exit(0);
}

struct Desk {
  pid_t process = 0;
  int number = 0, life = 0, left = 0;
};

struct Notes {
  std::set<std::string> done, undone;
  std::vector<int> waits;
};

Notes ReadNotes(const std::string& path) {
  Notes notes;
  std::ifstream file(path);
  std::string outcome, id;
  for (int took = 0; file >> outcome >> id >> took;) {
    (outcome == "done" ? notes.done : notes.undone).insert(id);
    notes.waits.push_back(took);
  }
  return notes;
}

}  // namespace

TEST(PostgresKills, of_terminals_and_of_the_server_leave_every_posting_whole_or_gone_as_it_was_told) {
  const Plan plan = PlanOfThisRun();
  PostgresServer server({.durable = true, .onLoopback = true});
  PrepareServer(server);
  const TempFolder folder;
  const std::string firm = NetworkFolder(server.Port(), "01");
  {
    Stores stores(MakePostgresEngine({.makeFile = MakeSqliteStoreFile}));
    ASSERT_TRUE(stores.Open(firm).Ok());
    const auto counter = Opened(stores, "Index.mdb", "Mdbindex");
    ASSERT_TRUE(counter->AddNew().Ok());
    counter->Set("Tarih", Value("2026"));
    counter->Set("Indexi", Value("0"));
    ASSERT_TRUE(counter->Update().Ok());
  }
  const auto notesOf = [&](int desk) { return folder.Path() + "/" + std::to_string(desk); };
  std::vector<Desk> desks(static_cast<std::size_t>(plan.desks));
  const auto begin = [&](Desk& desk) {
    desk.left = plan.lines - static_cast<int>(ReadNotes(notesOf(desk.number)).done.size());
    ++desk.life;
    desk.process = fork();
    if (desk.process == 0) WorkAsDesk(firm, notesOf(desk.number), desk.number, desk.life, desk.left);
  };
  for (std::size_t i = 0; i < desks.size(); ++i) {
    desks[i].number = static_cast<int>(i);
    begin(desks[i]);
  }

  std::mt19937 chance(7);
  const auto upTo = [&chance](int most) { return static_cast<int>(chance() % static_cast<unsigned>(most + 1)); };
  int kills = plan.kills, serverKills = plan.serverKills;
  while (kills + serverKills > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20 + upTo(200)));
    if (upTo(kills + serverKills - 1) < kills) {
      --kills;
      Desk& desk = desks[static_cast<std::size_t>(upTo(plan.desks - 1))];
      kill(desk.process, SIGKILL);
      waitpid(desk.process, nullptr, 0);
      begin(desk);
    } else {
      --serverKills;
      if (serverKills % 2 == 0) {
        EXPECT_GE(server.KillBackends(), 0);
      } else {
        EXPECT_TRUE(server.Stop("immediate"));
        EXPECT_TRUE(server.Start());
      }
    }
  }
  for (Desk& desk : desks) {
    int outcome = -1;
    waitpid(desk.process, &outcome, 0);
    EXPECT_EQ(outcome, 0);
  }

  const auto ids = [&](const std::string& table) {
    return Psql(server, "SELECT \"DigerId\" FROM \"01_" + table + " ORDER BY \"DigerId\" COLLATE \"C\"");
  };
  const std::vector<std::string> day = ids("karvel\".\"Datam\"");
  EXPECT_EQ(day, ids("cari\".\"CariHareket\""));
  const std::set<std::string> there(day.begin(), day.end());
  EXPECT_EQ(there.size(), day.size());
  EXPECT_EQ(Psql(server, "SELECT \"Indexi\" FROM \"01_indeks\".\"Mdbindex\""), std::vector<std::string>{std::to_string(day.size())});
  std::size_t done = 0;
  std::vector<int> waits;
  for (const Desk& desk : desks) {
    const Notes notes = ReadNotes(notesOf(desk.number));
    done += notes.done.size();
    waits.insert(waits.end(), notes.waits.begin(), notes.waits.end());
    for (const std::string& id : notes.done) EXPECT_TRUE(there.contains(id)) << id << " was answered";
    for (const std::string& id : notes.undone) EXPECT_FALSE(there.contains(id)) << id << " was told undone";
  }
  EXPECT_EQ(done, static_cast<std::size_t>(plan.desks * plan.lines));
  // What was in flight when its desk was killed is there or not.
  EXPECT_GE(there.size(), done);
  EXPECT_LE(there.size(), done + static_cast<std::size_t>(plan.kills));
  std::ranges::sort(waits);
  std::printf("%zu lines, longest wait %d ms, median %d ms\n", there.size(), waits.back(), waits[waits.size() / 2]);
}

TEST(PostgresKills, of_the_main_machine_let_the_desks_go_on_at_its_standby) {
  PostgresServer first({.durable = true, .onLoopback = true});
  PrepareServer(first);
  PostgresServer standby({.durable = true, .onLoopback = true, .standbyOf = &first});
  ASSERT_TRUE(standby.Runs()) << standby.Problem();
  // An answer is given when both have it.
  Psql(first, "ALTER SYSTEM SET synchronous_standby_names = '*'");
  Psql(first, "SELECT pg_reload_conf()");
  const TempFolder folder;
  const std::string machines =
      "\\\\127.0.0.1:" + std::to_string(first.Port()) + ";127.0.0.1:" + std::to_string(standby.Port()) + "\\MuhasebeData\\01";
  {
    Stores stores(MakePostgresEngine({.makeFile = MakeSqliteStoreFile}));
    ASSERT_TRUE(stores.Open(machines).Ok());
  }
  constexpr int kDesks = 4, kLines = 60;
  std::vector<pid_t> desks;
  for (int desk = 0; desk < kDesks; ++desk) {
    desks.push_back(fork());
    if (desks.back() == 0) WorkAsDesk(machines, folder.Path() + "/" + std::to_string(desk), desk, 1, kLines);
  }
  const auto done = [&] {
    std::size_t lines = 0;
    for (int desk = 0; desk < kDesks; ++desk) lines += ReadNotes(folder.Path() + "/" + std::to_string(desk)).done.size();
    return lines;
  };
  const auto waitFor = [&](std::size_t lines) {
    const auto begin = std::chrono::steady_clock::now();
    while (done() < lines && std::chrono::steady_clock::now() - begin < 60s) std::this_thread::sleep_for(20ms);
    return std::chrono::steady_clock::now() - begin;
  };
  waitFor(kDesks * kLines / 4);
  ASSERT_TRUE(first.Stop("immediate"));
  ASSERT_TRUE(standby.Promote());
  const std::size_t before = done();
  EXPECT_LT(waitFor(std::min<std::size_t>(before + kDesks, kDesks * kLines)), 10s);
  for (const pid_t desk : desks) {
    int outcome = -1;
    waitpid(desk, &outcome, 0);
    EXPECT_EQ(outcome, 0);
  }
  const std::vector<std::string> day = Psql(standby, "SELECT \"DigerId\" FROM \"01_karvel\".\"Datam\" ORDER BY \"DigerId\" COLLATE \"C\"");
  EXPECT_EQ(day, Psql(standby, "SELECT \"DigerId\" FROM \"01_cari\".\"CariHareket\" ORDER BY \"DigerId\" COLLATE \"C\""));
  EXPECT_EQ(day.size(), static_cast<std::size_t>(kDesks * kLines));
  const std::set<std::string> there(day.begin(), day.end());
  EXPECT_EQ(there.size(), day.size());
  for (int desk = 0; desk < kDesks; ++desk) {
    const Notes notes = ReadNotes(folder.Path() + "/" + std::to_string(desk));
    for (const std::string& id : notes.done) EXPECT_TRUE(there.contains(id)) << id << " was answered";
    for (const std::string& id : notes.undone) EXPECT_FALSE(there.contains(id)) << id << " was told undone";
  }
}

}  // namespace karvel::testing
