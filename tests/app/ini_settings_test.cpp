#include "app/ini_settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/other_process.h"
#include "support/temp_folder.h"

namespace karvel {
namespace {

constexpr const char* kTitle = "Velmora Karvel1";

class IniSettingsTest : public testing::Test {
 protected:
  TempFolder temp_;
  const std::string home_ = temp_.Path();

  static std::string Content(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
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
    for (const std::string& value : values) settings.Save(kTitle, "Size", "DökNo" + value, value).Ignore();
    settings.Save(kTitle, "Size", "FtpKlasör", "/gün").Ignore();
    settings.Save(kTitle, "Size", "SatırSay", "15").Ignore();
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
  settings.Save("Velmora Karvel1", "Size", "Kdv", "Dahil").Ignore();
  EXPECT_EQ(settings.Get("Velmora Karvel2", "Size", "Kdv", ""), "");
}

TEST_F(IniSettingsTest, only_the_owner_reads_the_file) {
  IniSettings settings(home_);
  EXPECT_EQ(Mode(), 0600u);
  settings.Save(kTitle, "Size", "FtpPass", "gizli").Ignore();
  EXPECT_EQ(Mode(), 0600u);
  ASSERT_EQ(chmod((home_ + "/settings.ini").c_str(), 0644), 0);
  const IniSettings again(home_);
  EXPECT_EQ(Mode(), 0600u);
}

TEST_F(IniSettingsTest, a_save_is_in_the_file_at_once) {
  IniSettings settings(home_);
  settings.Save(kTitle, "Size", "Kdv", "Dahil").Ignore();
  EXPECT_NE(Content(home_ + "/settings.ini").find("Size\\Kdv=Dahil"), std::string::npos);
}

// Two terminals that take slip numbers at the same time: none twice, none lost.
TEST_F(IniSettingsTest, changes_of_several_processes_are_in_line) {
  constexpr int kProcesses = 4, kChanges = 40;
  pid_t children[kProcesses];
  for (pid_t& child : children) {
    child = fork();
    if (child != 0) continue;
    IniSettings settings(home_);
    const auto next = [](const std::string& old) {
      std::string number = std::to_string(std::stoi(old) + 1);
      return std::string(6 - number.size(), '0') + number;
    };
    for (int i = 0; i < kChanges; ++i)
      if (!settings.Change("Velmora Karvel", "Size", "DökNo", "000000", next)) _exit(1);
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
                              settings.Save(kTitle, "Size", "Kdv", "Dahil").Ignore();
                              return old + "1";
                            }),
            "0000001");
  EXPECT_EQ(settings.Get(kTitle, "Size", "Kdv", ""), "Dahil");
}

TEST_F(IniSettingsTest, a_first_start_has_nothing_to_tell) {
  IniSettings settings(home_);
  EXPECT_EQ(settings.MakeReady(), "");
  EXPECT_EQ(IniSettings(home_).MakeReady(), "");
}

TEST_F(IniSettingsTest, a_file_that_is_none_is_kept_under_another_name_and_the_slip_number_is_uncertain) {
  const std::string noise = std::string("\x7f\0\x01[A]\nB=1", 10) + std::string(3000, '\xEE');
  std::ofstream(home_ + "/settings.ini", std::ios::binary) << noise;
  IniSettings settings(home_);
  const auto aside = settings.MakeReady();
  ASSERT_TRUE(aside);
  ASSERT_TRUE(aside->starts_with(home_ + "/settings.ini.bozuk-")) << *aside;
  EXPECT_EQ(Content(*aside), noise);
  EXPECT_EQ(Mode(), 0600u);
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", "000000"), "?");
  settings.Save(kTitle, "Size", "Kdv", "Dahil").Ignore();
  EXPECT_EQ(IniSettings(home_).MakeReady(), "");
  EXPECT_EQ(IniSettings(home_).Get(kTitle, "Size", "Kdv", ""), "Dahil");
}

TEST_F(IniSettingsTest, what_can_be_read_of_a_file_goes_on) {
  std::ofstream(home_ + "/settings.ini")
      << "[Velmora%20Karvel]\nSize\\D%F6kNo=000070\n[Velmora%20Karvel1]\nSize\\Online=10.0.0.5\nSize\\Kd";
  IniSettings settings(home_);
  EXPECT_NE(settings.MakeReady(), "");
  EXPECT_EQ(settings.Get(kTitle, "Size", "Online", ""), "10.0.0.5");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "000070?");
}

TEST_F(IniSettingsTest, two_unreadable_files_in_one_second_are_both_kept) {
  for (const char* const noise : {"one", "two"}) {
    std::ofstream(home_ + "/settings.ini") << noise;
    const auto aside = IniSettings(home_).MakeReady();
    ASSERT_TRUE(aside);
    EXPECT_EQ(Content(*aside), noise);
  }
}

// A folder stands for whatever the system refuses to read: rights mean nothing to the superuser, who may run the tests.
TEST_F(IniSettingsTest, what_the_system_refuses_to_read_is_kept_aside_too) {
  std::filesystem::create_directory(home_ + "/settings.ini");
  std::ofstream(home_ + "/settings.ini/x") << "y";
  IniSettings settings(home_);
  const auto aside = settings.MakeReady();
  ASSERT_TRUE(aside);
  EXPECT_TRUE(std::filesystem::exists(*aside + "/x"));
}

TEST_F(IniSettingsTest, what_can_not_be_kept_aside_is_told_and_not_touched) {
  const std::string file = home_ + "/settings.ini", lock = home_ + "/lock";
  std::ofstream(file) << "noise";
  std::filesystem::create_directory(lock);
  std::ofstream(lock + "/settings.lock").close();
  ASSERT_EQ(chmod(lock.c_str(), 0777) + chmod((lock + "/settings.lock").c_str(), 0666), 0);
  ASSERT_EQ(chmod(file.c_str(), 0) + chmod(home_.c_str(), 0555), 0);
  EXPECT_TRUE(AsNobody([&] {
    IniSettings settings(home_);
    const auto ready = settings.MakeReady();
    return !ready && ready.error().Kind() == ErrorKind::NoRights && ready.error().Place() == file &&
           ready.error().What() == Subject::Settings;
  }));
  ASSERT_EQ(chmod(home_.c_str(), 0700) + chmod(file.c_str(), 0600), 0);
  EXPECT_EQ(Content(home_ + "/settings.ini"), "noise");
}

TEST_F(IniSettingsTest, a_file_that_is_damaged_under_a_running_desk_is_not_written_over_and_what_was_read_stays) {
  IniSettings settings(home_);
  settings.Save(kTitle, "Size", "Kdv", "Dahil").Ignore();
  std::ofstream(home_ + "/settings.ini") << "noise";
  EXPECT_EQ(settings.Get(kTitle, "Size", "Kdv", ""), "Dahil");
  settings.Save(kTitle, "Size", "Kdv", "Hariç").Ignore();
  const auto changed = settings.Change("Velmora Karvel", "Size", "DökNo", "000000", [](const std::string&) { return "000001"; });
  ASSERT_FALSE(changed);
  EXPECT_EQ(changed.error().Kind(), ErrorKind::Damaged);
  EXPECT_EQ(Content(home_ + "/settings.ini"), "noise");
}

TEST_F(IniSettingsTest, settings_that_another_terminal_keeps_are_read_and_a_change_gives_up_after_two_seconds) {
  IniSettings settings(home_);
  settings.Save(kTitle, "Size", "Kdv", "Dahil").Ignore();
  const LockHolder holder(home_ + "/lock/settings.lock");
  Stopwatch watch;
  EXPECT_EQ(settings.Get(kTitle, "Size", "Kdv", ""), "Dahil");
  EXPECT_LT(watch.Seconds(), 0.1);
  const auto changed = settings.Change("Velmora Karvel", "Size", "DökNo", "000000", [](const std::string&) { return "000001"; });
  ASSERT_FALSE(changed);
  EXPECT_EQ(changed.error().Kind(), ErrorKind::Busy);
  EXPECT_EQ(changed.error().What(), Subject::Settings);
  EXPECT_GE(watch.Seconds(), 1.9);
  // What the same tap still saves doesn't wait again.
  for (int i = 0; i < 10; ++i) settings.Save(kTitle, "Size", "Kdv", "Hariç").Ignore();
  EXPECT_LT(watch.Seconds(), 2.5);
  EXPECT_EQ(settings.Get(kTitle, "Size", "Kdv", ""), "Dahil");
}

TEST_F(IniSettingsTest, a_change_waits_for_a_terminal_that_is_soon_done) {
  IniSettings settings(home_);
  LockHolder holder(home_ + "/lock/settings.lock", std::chrono::milliseconds(300));
  EXPECT_EQ(settings.Change("Velmora Karvel", "Size", "DökNo", "000000", [](const std::string&) { return "000001"; }), "000001");
}

TEST_F(IniSettingsTest, the_wait_for_the_settings_is_heard_of) {
  struct Listener : WaitListener {
    void Waiting(std::chrono::milliseconds soFar) override { longest = soFar; }
    void WaitOver() override { ++over; }
    std::chrono::milliseconds longest{};
    int over = 0;
  } listener;
  IniSettings settings(home_);
  settings.SetWaitListener(&listener);
  settings.Save(kTitle, "Size", "Kdv", "Hariç").Ignore();
  EXPECT_EQ(listener.over, 0);
  const LockHolder holder(home_ + "/lock/settings.lock", std::chrono::milliseconds(300));
  settings.Save(kTitle, "Size", "Kdv", "Dahil").Ignore();
  EXPECT_GE(listener.longest, std::chrono::milliseconds(200));
  EXPECT_EQ(listener.over, 1);
}

}  // namespace
}  // namespace karvel
