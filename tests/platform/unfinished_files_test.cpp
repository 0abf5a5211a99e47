#include "platform/unfinished_files.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/support/temp_folder.h"

namespace karvel {
namespace {
namespace fs = std::filesystem;

class UnfinishedFiles : public ::testing::Test {
 protected:
  std::string Put(const std::string& name) {
    std::ofstream(folder.Path() + "/" + name) << "half";
    return folder.Path() + "/" + name;
  }
  // The number of a process that has ended.
  static pid_t DeadProcess() {
    const pid_t child = fork();
    if (child == 0) _exit(0);
    waitpid(child, nullptr, 0);
    return child;
  }

  TempFolder folder;
};

TEST_F(UnfinishedFiles, of_processes_that_no_longer_live_are_swept) {
  const std::string dead = Put(fmt::format(".karvel-{}-1.tmp", DeadProcess()));
  const std::string living = Put(fmt::format(".karvel-{}-1.tmp", getppid()));
  const std::string document = Put("Fatura.pdf"), unnamed = Put(".karvel-x.tmp"),
                    other = Put(fmt::format("karvel-{}-1.tmp", DeadProcess()));
  SweepUnfinished(folder.Path());
  EXPECT_FALSE(fs::exists(dead));
  for (const std::string& path : {living, document, unnamed, other}) EXPECT_TRUE(fs::exists(path)) << path;
}

TEST_F(UnfinishedFiles, of_our_own_number_are_in_use_once_we_have_written) {
  const std::string first = UnfinishedIn(folder.Path());
  const std::string own = Put(fs::path(first).filename().string() + ".AbCdEf");
  EXPECT_TRUE(IsUnfinished(fs::path(own).filename().string()));
  EXPECT_NE(UnfinishedIn(folder.Path()), first);
  SweepUnfinished(folder.Path());
  EXPECT_TRUE(fs::exists(own));
}

TEST_F(UnfinishedFiles, in_a_folder_that_is_not_there_are_none) {
  SweepUnfinished(folder.Path() + "/none");
  EXPECT_FALSE(fs::exists(folder.Path() + "/none"));
}

}  // namespace
}  // namespace karvel
