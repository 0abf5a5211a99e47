// A name that the desk relies on outlasts a power cut: its folder is synced behind each that comes to be.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include "app/atomic_file.h"
#include "app/private_files.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

// The names that stood in each folder when it was synced.
struct Synced {
  std::string folder;
  std::vector<std::string> names;
  bool operator==(const Synced&) const = default;
};

std::mutex mutex;
std::vector<Synced> synced;

void Note(int file) {
  const std::string path = fs::read_symlink("/proc/self/fd/" + std::to_string(file));
  if (!fs::is_directory(path)) return;
  const std::lock_guard lock(mutex);
  Synced& one = synced.emplace_back(path);
  for (const auto& entry : fs::directory_iterator(path)) one.names.push_back(entry.path().filename());
}

class FolderSyncsTest : public ::testing::Test {
 protected:
  FolderSyncsTest() { synced.clear(); }
  const TempFolder folder;
  const std::string root = fs::canonical(folder.Path());
};

TEST_F(FolderSyncsTest, each_folder_that_is_made_is_safe_in_the_one_above_it) {
  ASSERT_TRUE(MakePrivateFolder(root + "/share/velmora-karvel/C").Ok());
  EXPECT_EQ(synced,
            (std::vector<Synced>{{root, {"share"}}, {root + "/share", {"velmora-karvel"}}, {root + "/share/velmora-karvel", {"C"}}}));
  synced.clear();
  ASSERT_TRUE(MakePrivateFolder(root + "/share/velmora-karvel/C").Ok());
  EXPECT_TRUE(synced.empty()) << "what is there costs nothing";
}

TEST_F(FolderSyncsTest, a_file_that_is_laid_or_replaced_is_safe_under_its_name_alone) {
  for (const bool replace : {false, true}) {
    synced.clear();
    AtomicFile file(root + "/settings.ini");
    file.Append("rows");
    ASSERT_TRUE(file.Finish(replace).Ok());
    EXPECT_EQ(synced, (std::vector<Synced>{{root, {"settings.ini"}}}));
  }
}

}  // namespace
}  // namespace karvel

// The program's own definition stands before the C library's.
extern "C" int fsync(int file) {
  karvel::Note(file);
  return static_cast<int>(syscall(SYS_fsync, file));
}
