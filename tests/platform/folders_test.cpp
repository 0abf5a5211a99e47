#include "platform/folders.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "tests/support/temp_folder.h"

namespace karvel::testing {

TEST(Folders, the_folder_of_a_path_may_be_the_root_or_the_current_one) {
  EXPECT_EQ(FolderOf("/a/b"), "/a");
  EXPECT_EQ(FolderOf("/a"), "/");
  EXPECT_EQ(FolderOf("/"), "/");
  EXPECT_EQ(FolderOf("a"), ".");
}

TEST(Folders, one_that_knows_no_sync_is_no_failure) {
  const TempFolder folder;
  EXPECT_EQ(SyncFolder(folder.Path()), 0);
  EXPECT_EQ(SyncFolder(folder.Path() + "/gone"), 0);
  EXPECT_EQ(SyncFolder("/proc"), 0);
}

TEST(Folders, two_exchange_their_names) {
  const TempFolder folder;
  const std::string one = folder.Path() + "/one", other = folder.Path() + "/other";
  std::filesystem::create_directory(one);
  std::filesystem::create_directories(other + "/inside");
  EXPECT_EQ(ExchangeNames(one, folder.Path() + "/gone"), ENOENT);
  ASSERT_EQ(ExchangeNames(one, other), 0);
  EXPECT_TRUE(std::filesystem::exists(one + "/inside"));
  EXPECT_TRUE(std::filesystem::is_empty(other));
}

}  // namespace karvel::testing
