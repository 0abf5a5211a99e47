#include "app/qt_shell.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

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
  EXPECT_TRUE(first.ClaimOnlyCopy("Velmora Karvel1"));
  EXPECT_TRUE(first.ClaimOnlyCopy("Velmora Karvel1"));
  EXPECT_FALSE(second.ClaimOnlyCopy("Velmora Karvel1"));
  EXPECT_TRUE(second.ClaimOnlyCopy("Velmora Karvel2"));
}

TEST_F(QtShellTest, a_killed_copy_frees_its_place) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    QtShell shell(files_, "", true);
    const char claimed = shell.ClaimOnlyCopy("Velmora Karvel1") ? 'y' : 'n';
    if (write(ready[1], &claimed, 1) != 1) _exit(1);
    for (;;) pause();
  }
  char claimed = 0;
  ASSERT_EQ(read(ready[0], &claimed, 1), 1);
  ASSERT_EQ(claimed, 'y');
  QtShell shell(files_, "", true);
  EXPECT_FALSE(shell.ClaimOnlyCopy("Velmora Karvel1"));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(shell.ClaimOnlyCopy("Velmora Karvel1"));
  close(ready[0]);
  close(ready[1]);
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
