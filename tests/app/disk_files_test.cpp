#include "app/disk_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QStorageInfo>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>

#include "support/temp_folder.h"

namespace karvel {
namespace {
namespace fs = std::filesystem;

// Sets variables of the environment, and puts them back as they were.
class Environment {
 public:
  Environment() = default;
  ~Environment() {
    for (const auto& [name, value] : before_) Put(name, value);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  // Without a value the variable is taken away.
  void Set(const char* name, const std::optional<std::string>& value) {
    before_.try_emplace(name, qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name).toStdString()) : std::nullopt);
    Put(name, value);
  }

 private:
  static void Put(const char* name, const std::optional<std::string>& value) {
    if (value) {
      qputenv(name, QByteArray::fromStdString(*value));
    } else {
      qunsetenv(name);
    }
  }

  std::map<const char*, std::optional<std::string>> before_;
};

TEST(FilePlaces, the_home_is_the_one_told_or_lies_in_the_users_data_folder) {
  const TempFolder temp;
  Environment environment;
  environment.Set("HOME", temp.Path());
  environment.Set("KARVEL_HOME", temp.Path() + "/own//");
  environment.Set("XDG_DATA_HOME", temp.Path() + "/data");
  EXPECT_EQ(FilePlaces::OfThisMachine(temp.Path()).home, temp.Path() + "/own");
  environment.Set("KARVEL_HOME", {});
  EXPECT_EQ(FilePlaces::OfThisMachine(temp.Path()).home, temp.Path() + "/data/velmora-karvel");
  environment.Set("XDG_DATA_HOME", "data");
  EXPECT_EQ(FilePlaces::OfThisMachine(temp.Path()).home, temp.Path() + "/.local/share/velmora-karvel");
  environment.Set("XDG_DATA_HOME", {});
  EXPECT_EQ(FilePlaces::OfThisMachine(temp.Path()).home, temp.Path() + "/.local/share/velmora-karvel");
}

TEST(FilePlaces, the_disks_are_those_that_are_mounted) {
  const TempFolder temp;
  const FilePlaces places = FilePlaces::OfThisMachine(temp.Path());
  std::vector<std::string> mounted;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) mounted.push_back(volume.rootPath().toStdString());
  EXPECT_EQ(places.disks(), RemovableDisks(mounted));
}

class DiskFilesTest : public testing::Test {
 protected:
  TempFolder temp_;
  const fs::path folder_ = temp_.Path();
  std::vector<std::string> disks_;
  DiskFiles files_{{.home = folder_ / "home", .program = folder_ / "program", .disks = [this] { return disks_; }}};

  void Put(const fs::path& file, const std::string& text = "x") {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
  }
  std::string Home(const std::string& rest) { return (folder_ / "home").string() + rest; }
};

TEST_F(DiskFilesTest, drives_and_shares_lie_in_the_home) {
  EXPECT_EQ(files_.RealPath("C:\\KarvelData\\Cari.mdb"), Home("/C/KarvelData/Cari.mdb"));
  EXPECT_EQ(files_.RealPath("c:"), Home("/C"));
  EXPECT_EQ(files_.RealPath("\\\\KASA\\MuhasebeData\\01\\"), Home("/net/KASA/MuhasebeData/01"));
  EXPECT_EQ(files_.RealPath("/etc/hosts"), "/etc/hosts");
  EXPECT_EQ(files_.RealPath("Logo.jpg"), (folder_ / "program/Logo.jpg").string());
}

TEST_F(DiskFilesTest, a_folder_is_one_also_when_it_is_empty) {
  Put(folder_ / "home/C/KarvelData/Karvel.mdb");
  fs::create_directories(folder_ / "home/C/Yedek");
  EXPECT_TRUE(files_.IsFolder("C:\\KarvelData\\"));
  EXPECT_TRUE(files_.IsFolder("c:\\yedek"));
  EXPECT_FALSE(files_.IsFolder("C:\\KarvelData\\Karvel.mdb"));
  EXPECT_FALSE(files_.IsFolder("C:\\Nerede"));
}

TEST_F(DiskFilesTest, existing_names_match_ignoring_case_piece_by_piece) {
  Put(folder_ / "home/C/KARVELDATA/Karvel.Mdb");
  EXPECT_EQ(files_.RealPath("C:\\KarvelData\\KARVEL.MDB"), Home("/C/KARVELDATA/Karvel.Mdb"));
  EXPECT_EQ(files_.RealPath("C:\\KarvelData\\Yeni.dat"), Home("/C/KARVELDATA/Yeni.dat"));
  EXPECT_TRUE(files_.Exists("C:\\karveldata\\karvel.mdb"));
}

TEST_F(DiskFilesTest, the_exact_spelling_wins_over_another_case) {
  Put(folder_ / "home/C/A.dat", "1");
  Put(folder_ / "home/C/a.dat", "2");
  std::string bytes;
  ASSERT_TRUE(files_.Read("C:\\a.dat", bytes));
  EXPECT_EQ(bytes, "2");
}

TEST_F(DiskFilesTest, no_path_leads_out_of_its_drive) {
  EXPECT_EQ(files_.RealPath("C:\\..\\..\\etc\\passwd"), Home("/C/etc/passwd"));
  EXPECT_EQ(files_.RealPath("\\\\..\\..\\x"), Home("/net/x"));
}

TEST_F(DiskFilesTest, removable_disks_are_the_drives_from_d_on) {
  disks_ = {(folder_ / "usb").string()};
  Put(folder_ / "usb/Yedek/x.zip");
  EXPECT_EQ(files_.RealPath("D:\\yedek\\x.zip"), (folder_ / "usb/Yedek/x.zip").string());
  EXPECT_EQ(files_.RealPath("E:\\x"), "");
  EXPECT_EQ(files_.MakeFolder("E:\\KarvelYedek").Kind(), ErrorKind::Missing);
  EXPECT_EQ(files_.Write("E:\\x", "y").Kind(), ErrorKind::Missing);
}

TEST_F(DiskFilesTest, the_disks_under_media_are_removable_in_the_order_of_their_names) {
  const auto disks = RemovableDisks({"/", "/run/media/ali/USB DISK", "/media/cdrom", "/mediatheque", "/home/media/x", "/media/cdrom"});
  EXPECT_EQ(disks, (std::vector<std::string>{"/media/cdrom", "/run/media/ali/USB DISK"}));
}

TEST_F(DiskFilesTest, a_desk_path_comes_back_from_its_real_place) {
  disks_ = {(folder_ / "usb").string()};
  for (const std::string path : {"C:\\KarvelData\\Cari.mdb", "\\\\KASA\\Pay\\x", "D:\\x"})
    EXPECT_EQ(files_.DeskPath(files_.RealPath(path)), path);
  EXPECT_EQ(files_.DeskPath("/usr/share/x"), "/usr/share/x");
}

TEST_F(DiskFilesTest, a_write_replaces_the_whole_file_and_leaves_no_neighbour) {
  ASSERT_TRUE(files_.MakeFolder("C:\\KarvelData"));
  ASSERT_TRUE(files_.Write("C:\\KarvelData\\x.dat", "a long first content"));
  ASSERT_EQ(chmod(files_.RealPath("C:\\KarvelData\\x.dat").c_str(), 0640), 0);
  ASSERT_TRUE(files_.Write("C:\\KARVELDATA\\X.DAT", "short"));
  std::string bytes;
  ASSERT_TRUE(files_.Read("C:\\KarvelData\\x.dat", bytes));
  EXPECT_EQ(bytes, "short");
  EXPECT_EQ(files_.List("C:\\KarvelData"), std::vector<std::string>{"x.dat"});
  struct stat info{};
  ASSERT_EQ(stat(files_.RealPath("C:\\KarvelData\\x.dat").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST_F(DiskFilesTest, a_copy_that_fails_leaves_the_target_as_it_was) {
  ASSERT_TRUE(files_.MakeFolder("C:\\"));
  ASSERT_TRUE(files_.Write("C:\\to", "old"));
  EXPECT_EQ(files_.Copy("C:\\from", "C:\\to").Kind(), ErrorKind::Missing);
  std::string bytes;
  ASSERT_TRUE(files_.Read("C:\\to", bytes));
  EXPECT_EQ(bytes, "old");
  EXPECT_EQ(files_.List("C:\\"), std::vector<std::string>{"to"});
  ASSERT_TRUE(files_.Write("C:\\from", std::string(200000, 'z')));
  ASSERT_TRUE(files_.Copy("C:\\from", "C:\\to"));
  ASSERT_TRUE(files_.Read("C:\\to", bytes));
  EXPECT_EQ(bytes, std::string(200000, 'z'));
}

TEST_F(DiskFilesTest, a_moved_file_is_gone_from_its_old_place) {
  ASSERT_TRUE(files_.MakeFolder("C:\\a"));
  ASSERT_TRUE(files_.Write("C:\\a\\x", "1"));
  ASSERT_TRUE(files_.Move("C:\\a\\x", "C:\\y"));
  EXPECT_FALSE(files_.Exists("C:\\a\\x"));
  EXPECT_TRUE(files_.Exists("C:\\y"));
  ASSERT_TRUE(files_.Delete("C:\\y"));
  EXPECT_EQ(files_.Delete("C:\\y").Kind(), ErrorKind::Missing);
}

}  // namespace
}  // namespace karvel
