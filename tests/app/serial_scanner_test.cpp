#include "app/serial_scanner.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QSerialPortInfo>
#include <QTest>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

#include "app/qt_event_loop.h"
#include "settings/settings.h"
#include "tests/support/logged_lines.h"
#include "tests/support/memory_settings.h"
#include "tests/support/pseudo_terminal.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

using Codes = std::vector<std::string>;

class SerialScannerTest : public ::testing::Test {
 protected:
  SerialScannerTest() {
    connections += scanner.codeRead.Connect([this](const std::string& code) {
      codes.push_back(code);
      deepest = std::max(deepest, ++depth);
      if (handler) handler(code);
      --depth;
    });
  }

  // A device at the same port, whatever the system calls it.
  void PlugIn() {
    line = std::make_unique<PseudoTerminal>();
    std::filesystem::remove(port);
    std::filesystem::create_symlink(line->Path(), port);
  }
  void Unplug() {
    line->Close();
    std::filesystem::remove(port);
  }
  void StartAtPort() {
    PlugIn();
    settings.Save(Setting::ScannerPort, port);
    ASSERT_TRUE(scanner.Start());
  }
  // A line that nobody has opened is not raw.
  bool IsOpened() { return (line->Mode().c_lflag & static_cast<tcflag_t>(ICANON)) == 0; }
  Codes Await(std::size_t count) {
    (void)QTest::qWaitFor([&] { return codes.size() >= count; }, 5000);
    return codes;
  }
  // What comes in a time that is long for a serial line.
  Codes Later(int milliseconds = 100) {
    QTest::qWait(milliseconds);
    return codes;
  }

  TempFolder folder;
  const std::string port = folder.Path() + "/scanner";
  MemorySettings store;
  Settings settings{store, "Velmora Karvel1"};
  std::unique_ptr<PseudoTerminal> line;
  SerialScanner scanner{settings, SerialScanner::Device::Expected};
  Codes codes;
  std::function<void(const std::string&)> handler;
  int depth = 0, deepest = 0;
  Connections connections;
};

TEST_F(SerialScannerTest, a_code_comes_without_its_end_mark) {
  StartAtPort();
  line->Write("8690001\r");
  EXPECT_EQ(Await(1), (Codes{"8690001"}));
}

TEST_F(SerialScannerTest, a_device_is_opened_by_its_own_path_too) {
  PlugIn();
  settings.Save(Setting::ScannerPort, " " + line->Path() + " ");
  ASSERT_TRUE(scanner.Start());
  line->Write("8690001\n");
  EXPECT_EQ(Await(1), (Codes{"8690001"}));
}

TEST_F(SerialScannerTest, a_code_may_come_in_pieces) {
  StartAtPort();
  for (const char* const piece : {"86", "9000", "1"}) {
    line->Write(piece);
    EXPECT_EQ(Later(30), Codes{});
  }
  line->Write("\r");
  EXPECT_EQ(Await(1), (Codes{"8690001"}));
}

TEST_F(SerialScannerTest, several_codes_at_once_come_in_their_order_whatever_ends_them) {
  StartAtPort();
  line->Write("1\r2\n3\r\n\r\n4\r");
  EXPECT_EQ(Await(4), (Codes{"1", "2", "3", "4"}));
  EXPECT_EQ(Later().size(), 4U);
}

TEST_F(SerialScannerTest, bytes_are_turkish_letters_of_the_code_page) {
  StartAtPort();
  line->Write("\xDE\x45\x4B\x45R \xFD\xF0\xDD\xC7\r");
  EXPECT_EQ(Await(1), (Codes{"ŞEKER ığİÇ"}));
}

TEST_F(SerialScannerTest, a_line_without_an_end_is_cut_and_the_next_code_is_whole) {
  StartAtPort();
  for (int i = 0; i < 30; ++i) {
    ASSERT_TRUE(line->Write(std::string(100, static_cast<char>('a' + i % 26))));
    Later(5);
  }
  line->Write("\r8690001\r");
  ASSERT_EQ(Await(2).size(), 2U);
  EXPECT_EQ(codes[0].size(), 1024U);
  EXPECT_EQ(codes[0].substr(0, 101), std::string(100, 'a') + "b");
  EXPECT_EQ(codes[1], "8690001");
}

TEST_F(SerialScannerTest, switched_off_it_keeps_codes_and_reports_them_in_order_when_on) {
  StartAtPort();
  scanner.SetEnabled(false);
  line->Write("1\r2\r");
  EXPECT_EQ(Later(), Codes{});
  line->Write("3\r");
  Later();
  scanner.SetEnabled(true);
  EXPECT_EQ(codes, (Codes{"1", "2", "3"}));
}

TEST_F(SerialScannerTest, codes_that_come_while_one_is_handled_wait_for_it) {
  StartAtPort();
  QtEventLoop loop;
  handler = [&](const std::string& code) {
    if (code == "1") line->Write("4\r");
    loop.Wait(60);
    if (code == "1") line->Write("5\r6\r");
    if (code == "2") scanner.SetEnabled(true);
    loop.Wait(60);
  };
  line->Write("1\r2\r3\r");
  EXPECT_EQ(Await(6), (Codes{"1", "2", "3", "4", "5", "6"}));
  EXPECT_EQ(Later(300).size(), 6U);
  EXPECT_EQ(deepest, 1);
}

TEST_F(SerialScannerTest, a_code_waits_while_a_box_is_open) {
  StartAtPort();
  QDialog box;
  box.setModal(true);
  box.show();
  line->Write("8690001\r");
  EXPECT_EQ(Later(300), Codes{});
  box.close();
  EXPECT_EQ(Await(1), (Codes{"8690001"}));
}

TEST_F(SerialScannerTest, the_line_is_raw_at_the_speed_of_the_settings) {
  settings.Save(Setting::ScannerSpeed, "115200");
  StartAtPort();
  const termios mode = line->Mode();
  EXPECT_EQ(cfgetispeed(&mode), static_cast<speed_t>(B115200));
  EXPECT_EQ(mode.c_lflag & static_cast<tcflag_t>(ICANON | ECHO | ISIG), 0U);
  EXPECT_EQ(mode.c_iflag & static_cast<tcflag_t>(ICRNL | INLCR | IGNCR | IXON | ISTRIP), 0U);
  EXPECT_EQ(mode.c_cflag & static_cast<tcflag_t>(CSIZE | PARENB | CSTOPB), static_cast<tcflag_t>(CS8));
}

TEST_F(SerialScannerTest, a_speed_that_is_none_is_the_usual_one_and_noted) {
  for (const std::string speed : {"hızlı", "", "0", "-9600", "9600,5", "99999999999"}) {
    testing::LoggedLines log;
    settings.Save(Setting::ScannerSpeed, speed);
    StartAtPort();
    const termios mode = line->Mode();
    EXPECT_EQ(cfgetispeed(&mode), static_cast<speed_t>(B9600)) << speed;
    EXPECT_TRUE(log.Holds("\"" + speed + "\" is no speed")) << speed;
    scanner.Stop();
  }
}

TEST_F(SerialScannerTest, without_its_port_it_does_not_start_nor_wait_for_one) {
  testing::LoggedLines log;
  settings.Save(Setting::ScannerPort, port);
  EXPECT_FALSE(scanner.Start());
  EXPECT_TRUE(log.Holds(port));
  PlugIn();
  QTest::qWait(1500);
  EXPECT_FALSE(IsOpened());
  EXPECT_TRUE(scanner.Start());
  EXPECT_TRUE(IsOpened());
}

TEST_F(SerialScannerTest, no_port_named_means_the_first_scanner_found) {
  const auto ports = QSerialPortInfo::availablePorts();
  const bool plugged = std::ranges::any_of(ports, [](const QSerialPortInfo& info) { return info.hasVendorIdentifier(); });
  EXPECT_EQ(scanner.Start(), plugged);
}

TEST_F(SerialScannerTest, a_device_beside_other_ways_is_opened_only_where_it_is_named) {
  SerialScanner beside(settings, SerialScanner::Device::IfNamed);
  connections += beside.codeRead.Connect([this](const std::string& code) { codes.push_back(code); });
  EXPECT_TRUE(beside.Start());
  beside.Take("1");
  beside.Stop();
  settings.Save(Setting::ScannerPort, port);
  EXPECT_FALSE(beside.Start());
  PlugIn();
  EXPECT_TRUE(beside.Start());
  line->Write("2\r");
  EXPECT_EQ(Await(2), (Codes{"1", "2"}));
}

TEST_F(SerialScannerTest, an_edited_setting_counts_at_the_next_start) {
  StartAtPort();
  scanner.Stop();
  PseudoTerminal other;
  settings.Save(Setting::ScannerPort, other.Path());
  ASSERT_TRUE(scanner.Start());
  line->Write("1\r");
  other.Write("2\r");
  EXPECT_EQ(Await(1), (Codes{"2"}));
  EXPECT_EQ(Later().size(), 1U);
}

TEST_F(SerialScannerTest, stop_drops_what_waits) {
  StartAtPort();
  scanner.SetEnabled(false);
  line->Write("1\r2");
  Later();
  scanner.Stop();
  scanner.SetEnabled(true);
  ASSERT_TRUE(scanner.Start());
  line->Write("3\r");
  EXPECT_EQ(Await(1), (Codes{"3"}));
}

TEST_F(SerialScannerTest, a_scanner_that_is_unplugged_and_plugged_in_again_reads_on) {
  testing::LoggedLines log;
  StartAtPort();
  for (const std::string code : {"1", "2", "3"}) {
    line->Write(code + "\r" + "half");
    EXPECT_EQ(Await(static_cast<std::size_t>(std::stoi(code))).back(), code);
    Unplug();
    EXPECT_EQ(Later(code == "2" ? 2300 : 50).back(), code);
    PlugIn();
    EXPECT_TRUE(QTest::qWaitFor([this] { return IsOpened(); }, 5000));
  }
  EXPECT_EQ(log.Lines().size(), 3U);  // one line each time, and nothing while it is looked for
  line->Write("4\r");
  EXPECT_EQ(Await(4), (Codes{"1", "2", "3", "4"}));
}

TEST_F(SerialScannerTest, codes_that_came_before_it_was_unplugged_are_not_lost) {
  StartAtPort();
  QtEventLoop loop;
  handler = [&](const std::string& code) {
    if (code != "1") return;
    line->Write("2\r3\rhal");
    loop.Wait(60);
    Unplug();
    loop.Wait(60);
  };
  line->Write("1\r");
  EXPECT_EQ(Await(3), (Codes{"1", "2", "3"}));
}

TEST_F(SerialScannerTest, stop_ends_the_wait_for_an_unplugged_scanner) {
  StartAtPort();
  Unplug();
  QTest::qWait(100);
  scanner.Stop();
  PlugIn();
  QTest::qWait(1500);
  EXPECT_FALSE(IsOpened());
}

}  // namespace
}  // namespace karvel
