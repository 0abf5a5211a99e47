// What the desk makes is its user's alone, and no link leads it elsewhere.
#include "app/private_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/atomic_file.h"
#include "app/disk_files.h"
#include "app/file_lock.h"
#include "app/ini_settings.h"
#include "app/log_file.h"
#include "app/only_copy.h"
#include "platform/log.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

class PrivateFilesTest : public ::testing::Test {
 protected:
  PrivateFilesTest() : umask_(umask(0)) {}
  ~PrivateFilesTest() override { umask(umask_); }

  // What others may read or write under the home.
  [[nodiscard]] std::vector<std::string> OpenToOthers() const {
    std::vector<std::string> open;
    for (const auto& entry : fs::recursive_directory_iterator(home)) {
      struct stat info{};
      if (lstat(entry.path().c_str(), &info) == 0 && (info.st_mode & 077) != 0) open.push_back(entry.path().string());
    }
    struct stat info{};
    if (stat(home.c_str(), &info) != 0 || (info.st_mode & 077) != 0) open.push_back(home);
    return open;
  }
  static std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TempFolder folder;
  const std::string home = folder.Path() + "/home";
  const std::string victim = folder.Path() + "/victim";

 private:
  const mode_t umask_;
};

TEST_F(PrivateFilesTest, all_that_is_made_under_the_home_is_its_users_alone) {
  DiskFiles files({.home = home, .program = folder.Path(), .disks = {}});
  std::ofstream(folder.Path() + "/Cari.mdb") << "template";
  IniSettings settings(home);
  settings.Save("App", "Section", "Key", "secret").Ignore();
  EXPECT_TRUE(files.MakeFolder("C:\\KarvelData\\Deep").Ok());
  EXPECT_TRUE(files.Write("C:\\KarvelData\\a.txt", "rows").Ok());
  EXPECT_TRUE(files.CopyNew(folder.Path() + "/Cari.mdb", "C:\\KarvelData\\Cari.mdb").Ok());
  FileLock lock(home + "/lock/x.lock");
  EXPECT_TRUE(lock.Try().Ok());
  {
    LogFile log(home, "Velmora Karvel1");
    Log("line");
  }
  EXPECT_TRUE(fs::exists(home + "/log/Velmora Karvel1.log"));
  EXPECT_EQ(OpenToOthers(), std::vector<std::string>());
}

TEST_F(PrivateFilesTest, no_file_is_read_or_written_through_a_link) {
  std::ofstream(victim) << "theirs";
  fs::create_directories(home + "/lock");
  fs::create_directories(home + "/log");
  fs::create_directories(home + "/C");
  const auto lay = [&](const std::string& name) { fs::create_symlink(victim, home + "/" + name); };
  for (const char* const name : {"settings.ini", "lock/x.lock", "log/Velmora Karvel1.log", "C/a.txt"}) lay(name);

  DiskFiles files({.home = home, .program = folder.Path(), .disks = {}});
  std::string bytes;
  EXPECT_FALSE(files.Read("C:\\a.txt", bytes).Ok());
  EXPECT_EQ(bytes, "");
  EXPECT_FALSE(FileLock(home + "/lock/x.lock").Try().Ok());
  IniSettings settings(home);
  EXPECT_TRUE(settings.MakeReady().has_value()) << "the link is put aside as what can't be read";
  settings.Save("App", "Section", "Key", "secret").Ignore();
  {
    LogFile log(home, "Velmora Karvel1");
    Log("line");
  }
  EXPECT_TRUE(files.Write("C:\\a.txt", "ours").Ok()) << "the link itself is replaced";
  EXPECT_EQ(Content(home + "/C/a.txt"), "ours");
  EXPECT_EQ(Content(victim), "theirs");
  struct stat info{};
  ASSERT_EQ(stat(victim.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0666U) << "its rights too";
}

TEST_F(PrivateFilesTest, a_home_that_is_itself_a_link_is_used) {
  fs::create_directory(folder.Path() + "/real");
  fs::create_directory_symlink(folder.Path() + "/real", home);
  DiskFiles files({.home = home, .program = folder.Path(), .disks = {}});
  EXPECT_TRUE(files.MakeFolder("C:\\KarvelData").Ok());
  EXPECT_TRUE(files.Write("C:\\KarvelData\\a.txt", "rows").Ok());
  std::string bytes;
  EXPECT_TRUE(files.Read("C:\\KarvelData\\a.txt", bytes).Ok());
  EXPECT_EQ(bytes, "rows");
}

TEST_F(PrivateFilesTest, a_folder_that_cannot_be_made_is_named) {
  std::ofstream(victim) << "a file";
  const Status made = MakePrivateFolder(victim + "/x/y");
  EXPECT_EQ(made.Kind(), ErrorKind::Missing) << made.Message();
  EXPECT_FALSE(made.Place().empty());
}

}  // namespace
}  // namespace karvel
