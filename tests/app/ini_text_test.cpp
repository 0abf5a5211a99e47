#include "app/ini_text.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QString>
#include <fstream>
#include <sstream>

#include "support/temp_folder.h"

namespace karvel {
namespace {

const IniValues kValues{{"Velmora Karvel1/Size/Label1", " Ürün"},
                        {"Velmora Karvel1/Size/Online", ""},
                        {"Velmora Karvel1/Size/FtpKlasör", "/gün"},
                        {"Velmora Karvel1/Size/SatırSay", "15"},
                        {"Velmora Karvel1/Size/a\\b", "C:\\Dizin"},
                        {"Velmora Karvel1/Font/FontName", "DejaVu Sans, Kalın; \"x\"=1 "},
                        {"Velmora Karvel1/Logo/Logom",
                         "a\nb\tc\x01"
                         "2"},
                        {"Velmora Karvel/Size/DökNo", "000123"},
                        {"Karvel/Aktar/ip", "\\\\127.0.0.1\\MuhasebeData\\01"},
                        {"General/Size/x", "@Invalid()"},
                        {"Terminal/Trm/No", "1₺ğ"}};

std::string Content(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

TEST(IniText, what_was_written_reads_the_same) {
  const IniText read = ReadIni(WriteIni(kValues));
  EXPECT_TRUE(read.whole);
  EXPECT_EQ(read.values, kValues);
}

TEST(IniText, the_toolkit_reads_what_we_write) {
  const TempFolder folder;
  std::ofstream(folder.Path() + "/a.ini", std::ios::binary) << WriteIni(kValues);
  const QSettings settings(QString::fromStdString(folder.Path() + "/a.ini"), QSettings::IniFormat);
  EXPECT_EQ(settings.status(), QSettings::NoError);
  EXPECT_EQ(settings.allKeys().size(), static_cast<qsizetype>(kValues.size()));
  for (const auto& [address, value] : kValues) EXPECT_EQ(settings.value(QString::fromStdString(address)).toString().toStdString(), value);
}

TEST(IniText, we_read_what_the_toolkit_writes) {
  const TempFolder folder;
  {
    QSettings settings(QString::fromStdString(folder.Path() + "/a.ini"), QSettings::IniFormat);
    for (const auto& [address, value] : kValues) settings.setValue(QString::fromStdString(address), QString::fromStdString(value));
  }
  const IniText read = ReadIni(Content(folder.Path() + "/a.ini"));
  EXPECT_TRUE(read.whole);
  EXPECT_EQ(read.values, kValues);
}

TEST(IniText, what_a_hand_wrote_is_read) {
  const IniText read =
      ReadIni("; remark\r\n# another\r\n\r\n[Velmora Karvel1]\r\n Size\\Kdv = Dahil ; so\r\nFont\\FontName=Arial, Kalın\r\n");
  EXPECT_TRUE(read.whole);
  EXPECT_EQ(read.values, (IniValues{{"Velmora Karvel1/Size/Kdv", "Dahil"}, {"Velmora Karvel1/Font/FontName", "Arial, Kalın"}}));
}

TEST(IniText, a_line_that_is_none_is_noticed_and_the_others_are_read) {
  for (const char* const line : {"nothing", "=5", "[half"}) {
    const IniText read = ReadIni("[A]\nB\\c=1\n" + std::string(line) + "\nB\\d=2\n");
    EXPECT_FALSE(read.whole) << line;
    EXPECT_EQ(read.values, (IniValues{{"A/B/c", "1"}, {"A/B/d", "2"}})) << line;
  }
}

TEST(IniText, of_a_file_that_is_no_text_nothing_is_read) {
  const IniText read = ReadIni(std::string("[A]\nB\\c=1\n\0\x02\xFE=x\n", 16));
  EXPECT_FALSE(read.whole);
  EXPECT_TRUE(read.values.empty());
}

TEST(IniText, no_settings_are_settings) {
  EXPECT_TRUE(ReadIni("").whole);
  EXPECT_TRUE(ReadIni(WriteIni({})).values.empty());
}

}  // namespace
}  // namespace karvel
