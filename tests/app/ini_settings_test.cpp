#include "app/ini_settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "support/temp_folder.h"

namespace karvel {
namespace {

constexpr const char* kTitle = "Velmora Karvel1";

class IniSettingsTest : public testing::Test {
 protected:
  TempFolder temp_;
  const std::string home_ = temp_.Path();

  mode_t Mode() {
    struct stat info{};
    return stat((home_ + "/settings.ini").c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
  }
};

TEST_F(IniSettingsTest, values_and_keys_keep_blanks_and_turkish_letters) {
  const std::string values[] = {" Ürün", "",          "Hariç", "\\\\127.0.0.1\\MuhasebeData\\01", "#,##0", "a;b=c \"d\"", "@x",
                                "1,5",   "ğüşıöçİ₺ ", "a\nb"};
  {
    IniSettings settings(home_);
    for (const std::string& value : values) settings.Save(kTitle, "Size", "DökNo" + value, value);
    settings.Save(kTitle, "Size", "FtpKlasör", "/gün");
    settings.Save(kTitle, "Size", "SatırSay", "15");
  }
  const IniSettings again(home_);
  for (const std::string& value : values) EXPECT_EQ(again.Get(kTitle, "Size", "DökNo" + value, "none"), value);
  EXPECT_EQ(again.Get(kTitle, "Size", "FtpKlasör", ""), "/gün");
  EXPECT_EQ(again.Get(kTitle, "Size", "SatırSay", ""), "15");
}

TEST_F(IniSettingsTest, a_missing_value_reads_as_its_preset) {
  const IniSettings settings(home_);
  EXPECT_EQ(settings.Get(kTitle, "Size", "Kdv", "Hariç"), "Hariç");
}

TEST_F(IniSettingsTest, terminals_keep_their_settings_apart) {
  IniSettings settings(home_);
  settings.Save("Velmora Karvel1", "Size", "Kdv", "Dahil");
  EXPECT_EQ(settings.Get("Velmora Karvel2", "Size", "Kdv", ""), "");
}

TEST_F(IniSettingsTest, only_the_owner_reads_the_file) {
  IniSettings settings(home_);
  EXPECT_EQ(Mode(), 0600u);
  settings.Save(kTitle, "Size", "FtpPass", "gizli");
  EXPECT_EQ(Mode(), 0600u);
  ASSERT_EQ(chmod((home_ + "/settings.ini").c_str(), 0644), 0);
  const IniSettings again(home_);
  EXPECT_EQ(Mode(), 0600u);
}

TEST_F(IniSettingsTest, a_save_is_in_the_file_at_once) {
  IniSettings settings(home_);
  settings.Save(kTitle, "Size", "Kdv", "Dahil");
  std::ostringstream text;
  text << std::ifstream(home_ + "/settings.ini").rdbuf();
  EXPECT_NE(text.str().find("Size\\Kdv=Dahil"), std::string::npos);
}

// Two terminals that take slip numbers at the same time: none twice, none lost.
TEST_F(IniSettingsTest, changes_of_several_processes_are_in_line) {
  constexpr int kProcesses = 4, kChanges = 40;
  pid_t children[kProcesses];
  for (pid_t& child : children) {
    child = fork();
    if (child != 0) continue;
    IniSettings settings(home_);
    for (int i = 0; i < kChanges; ++i)
      settings.Change("Velmora Karvel", "Size", "DökNo", "000000", [](const std::string& old) {
        std::string next = std::to_string(std::stoi(old) + 1);
        return std::string(6 - next.size(), '0') + next;
      });
    _exit(0);
  }
  IniSettings reader(home_);
  std::string last = "000000";
  int running = kProcesses;
  while (running > 0) {
    const std::string now = reader.Get("Velmora Karvel", "Size", "DökNo", "000000");
    EXPECT_GE(now, last);
    last = now;
    if (waitpid(-1, nullptr, WNOHANG) > 0) --running;
  }
  EXPECT_EQ(reader.Get("Velmora Karvel", "Size", "DökNo", ""), "000160");
}

TEST_F(IniSettingsTest, a_change_may_save_other_values) {
  IniSettings settings(home_);
  EXPECT_EQ(settings.Change(kTitle, "Size", "FatNo", "000000",
                            [&](const std::string& old) {
                              settings.Save(kTitle, "Size", "Kdv", "Dahil");
                              return old + "1";
                            }),
            "0000001");
  EXPECT_EQ(settings.Get(kTitle, "Size", "Kdv", ""), "Dahil");
}

}  // namespace
}  // namespace karvel
