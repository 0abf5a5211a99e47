#include "app/qt_shell.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/disk_files.h"
#include "support/temp_folder.h"

namespace karvel {
namespace {

class QtShellTest : public testing::Test {
 protected:
  TempFolder temp_;
  const std::string home_ = temp_.Path();
  DiskFiles files_{{.home = home_, .program = home_, .disks = {}}};
};

TEST_F(QtShellTest, a_second_copy_of_a_terminal_is_refused_and_another_terminal_is_not) {
  QtShell first(files_, "", true), second(files_, "", true);
  EXPECT_EQ(first.ClaimOnlyCopy("Velmora Karvel1"), Claim::Ours);
  EXPECT_EQ(first.ClaimOnlyCopy("Velmora Karvel1"), Claim::Ours);
  EXPECT_EQ(second.ClaimOnlyCopy("Velmora Karvel1"), Claim::Taken);
  EXPECT_EQ(second.ClaimOnlyCopy("Velmora Karvel2"), Claim::Ours);
}

TEST_F(QtShellTest, a_killed_copy_frees_its_place) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    QtShell shell(files_, "", true);
    const char claimed = shell.ClaimOnlyCopy("Velmora Karvel1") == Claim::Ours ? 'y' : 'n';
    if (write(ready[1], &claimed, 1) != 1) _exit(1);
    for (;;) pause();
  }
  char claimed = 0;
  ASSERT_EQ(read(ready[0], &claimed, 1), 1);
  ASSERT_EQ(claimed, 'y');
  QtShell shell(files_, "", true);
  EXPECT_EQ(shell.ClaimOnlyCopy("Velmora Karvel1"), Claim::Taken);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(shell.ClaimOnlyCopy("Velmora Karvel1"), Claim::Ours);
  close(ready[0]);
  close(ready[1]);
}

TEST_F(QtShellTest, a_further_start_calls_the_copy_that_runs_and_no_other) {
  QtShell first(files_, "", true), other(files_, "", true), second(files_, "", true);
  int calls = 0, otherCalls = 0;
  const ScopedConnection heard = first.startedAgain.Connect([&] { ++calls; });
  const ScopedConnection otherHeard = other.startedAgain.Connect([&] { ++otherCalls; });
  ASSERT_EQ(first.ClaimOnlyCopy("Velmora Karvel1"), Claim::Ours);
  ASSERT_EQ(other.ClaimOnlyCopy("Velmora Karvel2"), Claim::Ours);
  QCoreApplication::processEvents();
  EXPECT_EQ(calls, 0);
  ASSERT_EQ(second.ClaimOnlyCopy("Velmora Karvel1"), Claim::Taken);
  QCoreApplication::processEvents();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(otherCalls, 0);
}

// Where the last copy was killed, its bell lies there still.
TEST_F(QtShellTest, a_copy_after_a_killed_one_is_called_too) {
  const pid_t child = fork();
  if (child == 0) {
    QtShell shell(files_, "", true);
    _exit(shell.ClaimOnlyCopy("Velmora Karvel1") == Claim::Ours ? 0 : 1);  // without any goodbye
  }
  int outcome = 1;
  waitpid(child, &outcome, 0);
  ASSERT_EQ(outcome, 0);
  QtShell shell(files_, "", true), second(files_, "", true);
  int calls = 0;
  const ScopedConnection heard = shell.startedAgain.Connect([&] { ++calls; });
  ASSERT_EQ(shell.ClaimOnlyCopy("Velmora Karvel1"), Claim::Ours);
  ASSERT_EQ(second.ClaimOnlyCopy("Velmora Karvel1"), Claim::Taken);
  QCoreApplication::processEvents();
  EXPECT_EQ(calls, 1);
}

TEST_F(QtShellTest, a_lock_that_can_not_be_made_is_told_with_its_folder) {
  std::ofstream(home_ + "/lock") << "a file where the folder should be";
  QtShell shell(files_, "", true);
  const auto claim = shell.ClaimOnlyCopy("Velmora Karvel1");
  ASSERT_FALSE(claim);
  EXPECT_TRUE(claim.error().Place().starts_with(home_ + "/lock")) << claim.error().Place();
}

TEST_F(QtShellTest, a_shortcut_is_made_only_where_there_is_a_desktop) {
  const std::string desktop = home_ + "/Desktop";
  QtShell shell(files_, desktop, true);
  shell.MakeShortcut("Velmora Karvel1");
  EXPECT_FALSE(std::filesystem::exists(desktop));
  std::filesystem::create_directory(desktop);
  shell.MakeShortcut("Velmora Karvel1");
  std::ostringstream text;
  text << std::ifstream(desktop + "/Velmora Karvel1.desktop").rdbuf();
  EXPECT_NE(text.str().find("Name=Velmora Karvel1\n"), std::string::npos);
  EXPECT_NE(text.str().find("Exec=\"/"), std::string::npos);
  EXPECT_EQ(access((desktop + "/Velmora Karvel1.desktop").c_str(), X_OK), 0);
}

}  // namespace
}  // namespace karvel
