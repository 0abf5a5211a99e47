#include "exchange/zip/zip_archives.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/other_process.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class ZipArchivesTest : public ::testing::Test {
 protected:
  Archives::Item Put(const std::string& name, const std::string& bytes) {
    const std::string path = folder.Path() + "/in" + std::to_string(++count);
    std::ofstream(path, std::ios::binary) << bytes;
    return {name, path};
  }
  static std::string Bytes(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  Status Pack(const std::vector<Archives::Item>& items) {
    return archives.Pack(archive, items, [](int) {});
  }
  Status Unpack() {
    fs::create_directory(folder.Path() + "/out");
    return archives.Unpack(archive, folder.Path() + "/out", names);
  }
  [[nodiscard]] Names Beside() const {
    Names found;
    for (const auto& entry : fs::directory_iterator(folder.Path() + "/zips")) found.push_back(entry.path().filename().string());
    std::ranges::sort(found);
    return found;
  }

  TempFolder folder;
  int count = 0;
  const bool made = fs::create_directory(folder.Path() + "/zips");
  const std::string archive = folder.Path() + "/zips/0915Data.ZIP";
  ZipArchives archives;
  Names names;
};

TEST_F(ZipArchivesTest, what_was_packed_comes_out_again) {
  std::string large;
  for (unsigned i = 0; i < 300'000; ++i) large += std::to_string(i * 7919 % 100'003);
  ASSERT_TRUE(Pack({Put("Cari.mdb", large), Put("boş.Dat", ""), Put("Ayarlar/Firmam.txt", "Şükrü\r\n")}).Ok());
  EXPECT_LT(fs::file_size(archive), large.size());
  ASSERT_TRUE(Unpack().Ok());
  EXPECT_EQ(names, (Names{"Cari.mdb", "boş.Dat", "Ayarlar/Firmam.txt"}));
  EXPECT_EQ(Bytes(folder.Path() + "/out/Cari.mdb"), large);
  EXPECT_EQ(Bytes(folder.Path() + "/out/boş.Dat"), "");
  EXPECT_EQ(Bytes(folder.Path() + "/out/Ayarlar/Firmam.txt"), "Şükrü\r\n");
}

TEST_F(ZipArchivesTest, another_program_opens_it) {
  ASSERT_TRUE(Pack({Put("Cari.mdb", std::string(100'000, 'a')), Put("boş.Dat", ""), Put("İndex.mdb", "i")}).Ok());
  EXPECT_EQ(std::system(("unzip -tqq '" + archive + "'").c_str()), 0);
}

TEST_F(ZipArchivesTest, it_takes_the_place_of_an_older_one_and_leaves_nothing_beside) {
  std::ofstream(archive) << "older";
  ASSERT_TRUE(Pack({Put("a", "newer")}).Ok());
  ASSERT_TRUE(Unpack().Ok());
  EXPECT_EQ(Bytes(folder.Path() + "/out/a"), "newer");
  EXPECT_EQ(Beside(), Names{"0915Data.ZIP"});
}

TEST_F(ZipArchivesTest, a_failure_leaves_the_older_one_and_nothing_beside) {
  std::ofstream(archive) << "older";
  EXPECT_EQ(Pack({Put("a", "newer"), {"b", folder.Path() + "/gone"}}).Kind(), ErrorKind::Missing);
  EXPECT_EQ(Bytes(archive), "older");
  EXPECT_EQ(Beside(), Names{"0915Data.ZIP"});
}

TEST_F(ZipArchivesTest, a_folder_that_is_gone_or_read_only_is_told) {
  const auto item = Put("a", "x");
  EXPECT_EQ(archives.Pack(folder.Path() + "/none/x.zip", {item}, [](int) {}).Kind(), ErrorKind::Missing);
  fs::permissions(folder.Path(), fs::perms::all);
  fs::permissions(folder.Path() + "/in1", fs::perms::all);
  fs::permissions(folder.Path() + "/zips", fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
  EXPECT_TRUE(AsNobody([&] { return Pack({item}).Kind() == ErrorKind::NoRights; }));
}

TEST_F(ZipArchivesTest, a_disk_without_room_is_told_and_the_older_archive_stays) {
  std::string noise(500'000, 'a');
  for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<char>(i * i * 2654435761U >> 23U);
  const auto item = Put("a", noise);
  std::ofstream(archive) << "older";
  const pid_t child = fork();
  if (child == 0) {
    const rlimit most{100'000, 100'000};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &most);
    _exit(Pack({item}).Kind() == ErrorKind::DiskFull ? 0 : 1);
  }
  int outcome = 1;
  waitpid(child, &outcome, 0);
  EXPECT_EQ(outcome, 0);
  EXPECT_EQ(Bytes(archive), "older");
  EXPECT_EQ(Beside(), Names{"0915Data.ZIP"});
}

TEST_F(ZipArchivesTest, what_a_program_that_died_left_is_swept_and_what_one_at_work_writes_stays) {
  pid_t dead = fork();
  if (dead == 0) _exit(0);
  waitpid(dead, nullptr, 0);
  const std::string ours = ".karvel-" + std::to_string(getpid()) + "-99.tmp";
  ASSERT_TRUE(Pack({Put("a", "w")}).Ok());
  std::ofstream(folder.Path() + "/zips/.karvel-" + std::to_string(dead) + "-1.tmp.AbCdEf") << "half";
  std::ofstream(folder.Path() + "/zips/" + ours) << "at work";
  ASSERT_TRUE(Pack({Put("a", "x")}).Ok());
  EXPECT_EQ(Beside(), (Names{ours, "0915Data.ZIP"}));
}

TEST_F(ZipArchivesTest, progress_goes_up_while_it_lasts) {
  std::vector<int> told;
  std::string large(30'000'000, 'a');
  for (std::size_t i = 0; i < large.size(); i += 3) large[i] = static_cast<char>(i * 2654435761U >> 24U);
  ASSERT_TRUE(archives.Pack(archive, {Put("a", large)}, [&](int percent) { told.push_back(percent); }).Ok());
  EXPECT_FALSE(told.empty());
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_LE(told.back(), 100);
}

TEST_F(ZipArchivesTest, a_changed_or_cut_archive_is_damaged) {
  ASSERT_TRUE(Pack({Put("a", "some words that are long enough to be deflated, deflated, deflated")}).Ok());
  const std::string whole = Bytes(archive);
  std::string changed = whole;
  changed[40] = static_cast<char>(changed[40] ^ 1);
  std::ofstream(archive, std::ios::binary) << changed;
  EXPECT_EQ(Unpack().Kind(), ErrorKind::Damaged);
  std::ofstream(archive, std::ios::binary) << whole.substr(0, whole.size() / 2);
  EXPECT_EQ(Unpack().Kind(), ErrorKind::Damaged);
  fs::remove(archive);
  EXPECT_EQ(Unpack().Kind(), ErrorKind::Missing);
}

TEST_F(ZipArchivesTest, a_name_that_leads_out_of_the_folder_is_refused) {
  for (const char* const name : {"../out", "/tmp/x", "a/../../b", "a\\b", "a//b"}) {
    ASSERT_TRUE(Pack({Put(name, "x")}).Ok());
    EXPECT_EQ(Unpack().Kind(), ErrorKind::Damaged) << name;
  }
}

}  // namespace
}  // namespace karvel
