// karvel-restore as a shop's owner runs it: as a program, on a home of its own.
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "exchange/zip/zip_archives.h"
#include "tests/support/program_home.h"

namespace karvel::testing {
namespace {

namespace fs = std::filesystem;

class RestoreProgram : public ProgramHome {
 protected:
  RestoreProgram() {
    fs::create_directories(Path("program"));
    std::vector<Archives::Item> items;
    for (const char* const name :
         {"Cari.mdb", "Stok.mdb", "Index.mdb", "Karvel.mdb", "SeriNo.mdb", "Fatura.mdb", "Temp.mdb", "DataStok.mdb"})
      items.push_back({name, std::string(KARVEL_PROGRAMS "/") + name});
    items.push_back({"Ayarlar/settings.ini", Lay("packed.ini", "[Velmora%20Karvel1]\nSize\\SatırSay=22\n")});
    items.push_back({"Ayarlar/Firmam.txt", Lay("packed.txt", "Bereket Market\r\n")});
    EXPECT_TRUE(archives.Pack(Path("backup.ZIP"), items, [](int) {}).Ok());
  }

  // `words` as a shell reads them, behind the backup.
  [[nodiscard]] Ended Restore(const std::string& words = "") const {
    return RunLine("KARVEL_PROGRAM='" + Path("program") + "' " + Command("karvel-restore '" + Path("backup.ZIP") + "' " + words));
  }
  // The names in a folder that begin so.
  [[nodiscard]] std::vector<std::string> Named(const std::string& place, const std::string& begin) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Path(place)))
      if (const std::string name = entry.path().filename(); name.starts_with(begin)) names.push_back(name);
    std::ranges::sort(names);
    return names;
  }

  ZipArchives archives;
};

TEST_F(RestoreProgram, on_a_new_machine_all_comes_where_the_desk_reads_it) {
  const Ended ended = Restore();
  EXPECT_EQ(ended.code, 0) << ended.said;
  EXPECT_EQ(BytesOf("program/Firmam.txt"), "Bereket Market\r\n");
  EXPECT_NE(BytesOf("home/settings.ini").find("=22"), std::string::npos);
  EXPECT_EQ(fs::status(Path("home/settings.ini")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(fs::exists(Path("home/C/KarvelData/Cari.mdb")));
  EXPECT_FALSE(fs::exists(Path("home/C/KarvelData/Ayarlar")));
}

TEST_F(RestoreProgram, where_there_is_no_data_folder_what_lies_beside_is_told) {
  Lay("home/C/KarvelData.eski-20260301-091507/Cari.mdb", "of today");
  const Ended ended = Restore();
  EXPECT_EQ(ended.code, 0) << ended.said;
  EXPECT_NE(ended.said.find("KarvelData.eski-20260301-091507"), std::string::npos) << ended.said;
  EXPECT_EQ(BytesOf("home/C/KarvelData.eski-20260301-091507/Cari.mdb"), "of today");
}

TEST_F(RestoreProgram, settings_that_are_there_stay_unless_they_are_to_be_replaced_and_it_is_told) {
  Lay("home/settings.ini", "[Velmora%20Karvel1]\nSize\\SatırSay=9\n");
  Lay("program/FIRMAM.TXT", "Yeni Market\r\n");
  const Ended ended = Restore();
  EXPECT_EQ(ended.code, 0) << ended.said;
  EXPECT_NE(BytesOf("home/settings.ini").find("=9"), std::string::npos);
  EXPECT_EQ(BytesOf("program/FIRMAM.TXT"), "Yeni Market\r\n");
  for (const char* const name : {"settings.ini", "Firmam.txt"}) {
    EXPECT_TRUE(fs::exists(Path("home/C/KarvelData/Ayarlar/") + name)) << name;
    EXPECT_NE(ended.said.find(std::string("Ayarlar/") + name), std::string::npos) << ended.said;
  }
}

TEST_F(RestoreProgram, what_is_replaced_is_kept_beside_and_passwords_which_no_backup_holds_go_on) {
  Lay("home/settings.ini", "[Velmora%20Karvel1]\nSize\\SatırSay=9\nSize\\iSif=gizli\nSize\\FtpUser=ali\n");
  Lay("program/Firmam.txt", "Yeni Market\r\n");
  Lay("home/C/KarvelData/Cari.mdb", "of today");
  EXPECT_EQ(Restore().code, 1);
  EXPECT_EQ(BytesOf("program/Firmam.txt"), "Yeni Market\r\n");
  const Ended ended = Restore("--replace");
  EXPECT_EQ(ended.code, 0) << ended.said;
  EXPECT_EQ(BytesOf("program/Firmam.txt"), "Bereket Market\r\n");
  const std::string settings = BytesOf("home/settings.ini");
  EXPECT_NE(settings.find("=22"), std::string::npos) << settings;
  EXPECT_NE(settings.find("gizli"), std::string::npos) << settings;
  EXPECT_EQ(settings.find("FtpUser"), std::string::npos) << settings;
  EXPECT_EQ(Named("home", "settings.ini.eski-").size(), 1U);
  EXPECT_EQ(Named("program", "Firmam.txt.eski-").size(), 1U);
  EXPECT_EQ(Named("home/C", "KarvelData.eski-").size(), 1U);
}

TEST_F(RestoreProgram, settings_that_were_damaged_count_as_there) {
  Lay("home/settings.ini", std::string(100, '\x02'));
  EXPECT_EQ(Restore().code, 0);
  EXPECT_EQ(BytesOf("home/settings.ini"), std::string(100, '\x02'));
  EXPECT_TRUE(fs::exists(Path("home/C/KarvelData/Ayarlar/settings.ini")));
}

TEST_F(RestoreProgram, into_a_folder_that_no_desk_opens_the_settings_stay_beside_the_data) {
  const Ended ended = Restore(Path("look"));
  EXPECT_EQ(ended.code, 0) << ended.said;
  EXPECT_TRUE(fs::exists(Path("look/Ayarlar/Firmam.txt")));
  EXPECT_FALSE(fs::exists(Path("program/Firmam.txt")));
  EXPECT_FALSE(fs::exists(Path("home/settings.ini")));
  EXPECT_NE(ended.said.find(Path("look/Ayarlar")), std::string::npos) << ended.said;
}

TEST_F(RestoreProgram, another_homes_backup_never_changes_the_name_of_this_shop) {
  Lay("program/Firmam.txt", "Bu Market\r\n");
  const Ended ended = Restore(Path("other/C/KarvelData") + " --replace");
  EXPECT_EQ(ended.code, 0) << ended.said;
  EXPECT_EQ(BytesOf("program/Firmam.txt"), "Bu Market\r\n");
  EXPECT_NE(BytesOf("other/settings.ini").find("=22"), std::string::npos);
  EXPECT_FALSE(fs::exists(Path("home/settings.ini")));
}

TEST_F(RestoreProgram, what_cant_be_put_in_its_place_is_a_failure_that_names_it) {
  fs::create_directories(Path("program/Firmam.txt"));
  const Ended ended = Restore();
  EXPECT_EQ(ended.code, 1);
  EXPECT_NE(ended.said.find("Ayarlar/Firmam.txt"), std::string::npos) << ended.said;
  EXPECT_TRUE(fs::exists(Path("home/C/KarvelData/Cari.mdb")));
}

TEST_F(RestoreProgram, what_it_does_not_know_is_told) {
  EXPECT_EQ(Restore("a b").code, 2);
  EXPECT_EQ(Restore("--over").code, 2);
  fs::resize_file(Path("backup.ZIP"), 1000);
  const Ended cut = Restore();
  EXPECT_EQ(cut.code, 1);
  EXPECT_NE(cut.said.find("bozuk"), std::string::npos) << cut.said;
  EXPECT_FALSE(fs::exists(Path("home/C/KarvelData")));
}

}  // namespace
}  // namespace karvel::testing
