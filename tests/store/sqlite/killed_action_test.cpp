// A terminal that dies in the middle of its actions, again and again: each action is in all files or in none.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <string>

#include "tests/store/sqlite/sqlite_kind.h"

namespace karvel::testing {
namespace {

// One posting: a number, and a row under it in each of three further files.
bool Post(Stores& stores, Cursor& counter, std::vector<std::unique_ptr<Cursor>>& books) {
  Action action(stores, "posting");
  if (!counter.FindFirst("Tarih='2026'").Ok() || !counter.Edit().Ok()) return false;
  const std::string id = std::to_string(std::stoi(counter.Text("Indexi")) + 1);
  counter.Set("Indexi", Value(id));
  bool well = counter.Update().Ok();
  for (const auto& book : books) {
    well = book->AddNew().Ok() && well;
    book->Set("DigerId", Value(id));
    book->Set("Unvan", Value(std::string(300, 'x')));  // so that pages fill and split
    book->Set("Aciklama", Value(std::string(300, 'x')));
    well = book->Update().Ok() && well;
  }
  return action.Finish().Ok() && well;
}

std::vector<std::unique_ptr<Cursor>> Books(Stores& stores) {
  std::vector<std::unique_ptr<Cursor>> books;
  books.push_back(Opened(stores, "Karvel.mdb", "Datam"));
  books.push_back(Opened(stores, "Cari.mdb", "CariHareket"));
  books.push_back(Opened(stores, "Stok.mdb", "StokHareket"));
  return books;
}

[[noreturn]] void PostForever(const std::string& folder, int opened) {
  Stores stores(MakeSqliteEngine(TestOptions(folder)));
  if (!stores.Open(folder).Ok()) _exit(1);
  auto counter = Opened(stores, "Index.mdb", "Mdbindex");
  auto books = Books(stores);
  if (write(opened, "1", 1) != 1) _exit(1);
  for (;;) {
    if (!Post(stores, *counter, books)) _exit(1);
  }
}

}  // namespace

// Writes the counter's first row, and posts once. Tells the microseconds that it took.
useconds_t Begin(const std::string& folder) {
  Stores stores(MakeSqliteEngine(TestOptions(folder)));
  EXPECT_TRUE(stores.Open(folder).Ok());
  auto counter = Opened(stores, "Index.mdb", "Mdbindex");
  EXPECT_TRUE(counter->AddNew().Ok());
  counter->Set("Tarih", "2026");
  counter->Set("Indexi", "0");
  EXPECT_TRUE(counter->Update().Ok());
  auto books = Books(stores);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_TRUE(Post(stores, *counter, books));
  const auto took = std::chrono::steady_clock::now() - begin;
  return static_cast<useconds_t>(std::chrono::duration_cast<std::chrono::microseconds>(took).count());
}

// KARVEL_KILLS sets how often; the usual run is short.
TEST(KilledAction, lands_in_all_files_or_in_none) {
  const SqliteKind kind;
  // On a slow disk they live longer, so that they come to post.
  const useconds_t life = std::max<useconds_t>(25'000, 4 * Begin(kind.Folder()));
  const char* wanted = getenv("KARVEL_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 60;
  std::mt19937 random(20260301);
  int posted = 1;
  for (int kill = 0; kill < kills; ++kill) {
    int opened[2];
    ASSERT_EQ(pipe(opened), 0);
    const pid_t child = fork();
    if (child == 0) PostForever(kind.Folder(), opened[1]);
    // Most die at their postings, some while they recover what the one before left.
    close(opened[1]);
    char sign = 0;
    if (kill % 5 != 4) {
      ASSERT_EQ(read(opened[0], &sign, 1), 1);
    }
    close(opened[0]);
    usleep(std::uniform_int_distribution<useconds_t>(1'000, life)(random));
    ::kill(child, SIGKILL);
    int outcome = 0;
    waitpid(child, &outcome, 0);
    ASSERT_TRUE(WIFSIGNALED(outcome)) << "a posting failed by itself";

    Stores stores(MakeSqliteEngine(TestOptions(kind.Folder())));
    ASSERT_TRUE(stores.Open(kind.Folder()).Ok());
    const int number = std::stoi(Opened(stores, "Index.mdb", "Mdbindex")->Text("Indexi"));
    EXPECT_GE(number, posted);
    posted = number;
    for (const auto& book : Books(stores)) {
      ASSERT_EQ(book->RecordCount(), number) << book->Name() << " after kill " << kill;
      ASSERT_TRUE(book->FindFirst("DigerId='" + std::to_string(number) + "'").Ok()) << book->Name();
    }
    for (const auto& entry : std::filesystem::directory_iterator(kind.Folder())) {
      EXPECT_EQ(entry.path().string().find("-mj"), std::string::npos) << "a left super-journal was not swept";
    }
  }
  EXPECT_GT(posted, kills / 4) << "the kills came before anything was posted";
}

}  // namespace karvel::testing
