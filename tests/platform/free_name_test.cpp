#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/folders.h"
#include "tests/support/no_links.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {
namespace {

namespace fs = std::filesystem;

class FreeName : public ::testing::Test {
 protected:
  std::string Put(const std::string& name) {
    std::ofstream(folder.Path() + "/" + name) << name;
    return folder.Path() + "/" + name;
  }
  [[nodiscard]] std::string Bytes(const std::string& path) const {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  TempFolder folder;
};

TEST_F(FreeName, is_taken_and_the_old_one_given_up) {
  const std::string from = Put("made"), to = folder.Path() + "/Cari.mdb";
  EXPECT_EQ(MoveToFreeName(from, to), 0);
  EXPECT_FALSE(fs::exists(from));
  EXPECT_EQ(Bytes(to), "made");
}

TEST_F(FreeName, that_isnt_free_stays_whose_it_is) {
  const std::string from = Put("made"), to = Put("Cari.mdb");
  EXPECT_EQ(MoveToFreeName(from, to), EEXIST);
  EXPECT_EQ(Bytes(to), "Cari.mdb");
  EXPECT_TRUE(fs::exists(from));
}

TEST_F(FreeName, is_found_on_disks_without_links_too) {
  const std::string from = Put("made"), to = folder.Path() + "/Cari.mdb", taken = Put("Stok.mdb");
  EXPECT_EQ(WithoutLinks([&] { return MoveToFreeName(from, taken); }), EEXIST);
  EXPECT_EQ(WithoutLinks([&] { return MoveToFreeName(from, to); }), 0);
  EXPECT_FALSE(fs::exists(from));
  EXPECT_EQ(Bytes(to), "made");
  EXPECT_EQ(Bytes(taken), "Stok.mdb");
}

}  // namespace
}  // namespace karvel::testing
