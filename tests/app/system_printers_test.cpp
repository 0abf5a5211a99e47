#include "app/system_printers.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/qt_printer.h"
#include "tests/app/private_cups.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/folder_files.h"

namespace karvel {
namespace {

class SystemPrintersTest : public ::testing::Test {
 protected:
  void SetUp() override { cups.MakeQueue(); }

  // One text in the middle of the paper of this number, if any.
  Status PrintOne(const std::string& text, int paper = 0) {
    if (paper > 0) printer.SetPaperSize(paper);
    printer.SetScaleMode(ScaleMode::Pixels);
    printer.SetFont({"MS Sans Serif", 10});
    if (const Status drawn = printer.PrintText(40, 40, text); !drawn.Ok()) {
      printer.KillDoc();
      return drawn;
    }
    return printer.EndDoc();
  }

  testing::PrivateCups& cups = testing::SharedCups();
  TempFolder folder;
  FolderFiles files{folder.Path()};
  FixedClock clock;
  SystemPrinters system;
  QtPrinter printer{files, clock, system};
};

TEST_F(SystemPrintersTest, the_machines_own_printer_is_the_current_one) {
  EXPECT_EQ(printer.Current().deviceName, "Kasa");
  const auto printers = printer.Printers();
  ASSERT_EQ(printers.size(), 2U);
  EXPECT_EQ(printers[0].deviceName, "Kasa");
  EXPECT_EQ(printers[1].deviceName, "Velmora PDF");
}

TEST_F(SystemPrintersTest, its_papers_have_the_platforms_numbers_and_rolls_count_from_256) {
  const std::vector<Paper> papers = system.Papers("Kasa");
  const auto has = [&](int number) { return std::ranges::any_of(papers, [&](const Paper& paper) { return paper.number == number; }); };
  EXPECT_TRUE(has(9));
  EXPECT_TRUE(has(11));
  EXPECT_TRUE(has(78));
  const auto roll = std::ranges::find(papers, "Roll80", &Paper::media);
  ASSERT_NE(roll, papers.end());
  EXPECT_GE(roll->number, 256);
  EXPECT_NEAR(roll->width, 80, 0.5);
  EXPECT_NEAR(roll->left, 11 / 72.0 * 25.4, 0.5);
  EXPECT_TRUE(system.Papers("Yok").empty());
}

TEST_F(SystemPrintersTest, a_document_reaches_the_printer_with_every_letter_on_the_paper_asked_for) {
  ASSERT_TRUE(PrintOne("Çığ düşü ŞİŞE öğün", 9).Ok());
  const std::string received = cups.Received();
  EXPECT_EQ(testing::TextsOf(received), (std::vector<std::string>{"Çığ düşü ŞİŞE öğün"}));
  EXPECT_EQ(testing::SizeOf(received), "210 x 297");
}

TEST_F(SystemPrintersTest, a_roll_reaches_the_printer_in_its_width) {
  const std::vector<Paper> papers = system.Papers("Kasa");
  const auto roll = std::ranges::find(papers, "Roll80", &Paper::media);
  ASSERT_NE(roll, papers.end());
  ASSERT_TRUE(PrintOne("Rulo", roll->number).Ok());
  const std::string received = cups.Received();
  EXPECT_EQ(testing::TextsOf(received), (std::vector<std::string>{"Rulo"}));
  EXPECT_EQ(testing::SizeOf(received), "80 x 297");
}

TEST_F(SystemPrintersTest, a_printer_that_is_gone_cannot_become_current) {
  ASSERT_EQ(printer.Current().deviceName, "Kasa");
  EXPECT_FALSE(printer.MakeCurrent("Yok"));
  EXPECT_EQ(printer.Current().deviceName, "Kasa");
  cups.Run("lpadmin -x Kasa");
  EXPECT_EQ(PrintOne("x").Kind(), ErrorKind::Missing);
}

TEST_F(SystemPrintersTest, a_queue_that_is_held_keeps_the_job) {
  cups.Run("cupsdisable Kasa");
  ASSERT_TRUE(PrintOne("Bekleyen").Ok());
  EXPECT_EQ(cups.Received(1000), "");
  cups.Run("cupsenable Kasa");
  EXPECT_EQ(testing::TextsOf(cups.Received()), (std::vector<std::string>{"Bekleyen"}));
}

TEST_F(SystemPrintersTest, a_queue_that_takes_no_jobs_refuses_at_the_first_drawing) {
  cups.Run("cupsreject Kasa");
  EXPECT_FALSE(PrintOne("x").Ok());
  cups.Run("cupsaccept Kasa");
  EXPECT_TRUE(PrintOne("Sonra").Ok());
  EXPECT_EQ(testing::TextsOf(cups.Received()), (std::vector<std::string>{"Sonra"}));
}

TEST_F(SystemPrintersTest, a_printing_system_that_goes_away_in_the_middle_prints_nothing_and_says_so) {
  ASSERT_TRUE(printer.PrintText(0, 0, "yarım").Ok());
  cups.Stop();
  EXPECT_FALSE(printer.EndDoc().Ok());
  cups.Start();
  EXPECT_TRUE(PrintOne("Tam").Ok());
  EXPECT_EQ(testing::TextsOf(cups.Received()), (std::vector<std::string>{"Tam"}));
}

TEST_F(SystemPrintersTest, a_printing_system_that_hangs_is_given_up_and_what_it_got_does_not_come_out_later) {
  using namespace std::chrono_literals;
  SystemPrinters hasty(3s);
  QtPrinter hanging(files, clock, hasty);
  const auto print = [&](const std::string& text) {
    hanging.SetFont({"MS Sans Serif", 10});
    const Status drawn = hanging.PrintText(40, 40, text);
    return drawn.Ok() ? hanging.EndDoc() : (hanging.KillDoc(), drawn);
  };
  ASSERT_TRUE(hanging.MakeCurrent("Kasa"));
  ASSERT_TRUE(hanging.PrintText(0, 0, "yarım").Ok());
  cups.Hang();
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(hanging.EndDoc().Kind(), ErrorKind::Other);
  EXPECT_EQ(print("hemen sonra").Kind(), ErrorKind::Other);
  EXPECT_TRUE(hanging.MakeCurrent("Kasa"));  // its papers are known
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 8s);
  cups.GoOn();
  std::this_thread::sleep_for(2500ms);
  EXPECT_EQ(cups.Received(1000), "");
  EXPECT_TRUE(print("Tam").Ok());
  EXPECT_EQ(testing::TextsOf(cups.Received()), (std::vector<std::string>{"Tam"}));
}

TEST_F(SystemPrintersTest, a_user_without_rights_is_refused) {
  cups.Run("lpadmin -p Kasa -u deny:root");
  EXPECT_EQ(PrintOne("x").Kind(), ErrorKind::NoRights);
}

TEST_F(SystemPrintersTest, copies_are_made_by_the_printer) {
  printer.SetCopies(2);
  ASSERT_TRUE(PrintOne("Fiş").Ok());
  EXPECT_EQ(testing::TextsOf(cups.Received()), (std::vector<std::string>{"Fiş", "Fiş"}));
}

}  // namespace
}  // namespace karvel
