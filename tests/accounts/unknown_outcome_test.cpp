// What the clerk sees when the disk fails at the end of a posting.
#include <string>

#include "tests/support/accounts_fixture.h"
#include "tests/support/faulty_files.h"

namespace karvel {
namespace {

class UnknownOutcomeOnScreen : public AccountsFixture {
 protected:
  void SetUp() override {
    vfs = testing::FaultyFiles();
    testing::Faults().Reset();
    AccountsFixture::SetUp();
  }
  void TearDown() override { testing::Faults().Reset(); }

  // The next commit fails at its very last sync, when everything is in the files.
  static void FailLastSync(bool silent) {
    testing::Faults().Reset();
    testing::Faults().failFolderSync = 1;
    testing::Faults().silentAfterFolderSync = silent;
  }
  [[nodiscard]] std::string Said() { return desk->screen.Durum.Caption(); }
  int Lines() { return std::stoi(One("Karvel.mdb", "SELECT count(*) FROM Datam")); }
};

TEST_F(UnknownOutcomeOnScreen, a_sale_that_stands_is_told_as_done_with_a_warning) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  FailLastSync(false);
  Post("3");
  EXPECT_EQ(Lines(), 1);
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(Said(), "3 × Pirinç 150,00 kaydedildi; Kayıt yapıldı ama disk hata verdi: diski denetletin");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(At("Command2").Enabled());
  Post("1");
  EXPECT_EQ(Said(), "1 × Pirinç 50,00 kaydedildi");
}

TEST_F(UnknownOutcomeOnScreen, a_sale_that_cannot_be_looked_up_keeps_the_buttons_off_until_it_is_known) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  FailLastSync(true);
  Post("3");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown.front().title, "Kayıt Bilinmiyor");
  EXPECT_NE(messages.shown.front().text.find("bilinmiyor"), std::string::npos);
  EXPECT_FALSE(At("Command2").Enabled());
  Set("Text2(1)", "4");
  EXPECT_FALSE(At("Command2").Enabled()) << "a second tap would sell twice";
  EXPECT_FALSE(At("Command7(1)").Enabled());
  ASSERT_TRUE(loop.timer);
  loop.timer();
  EXPECT_FALSE(At("Command2").Enabled());

  testing::Faults().Reset();
  const auto look = loop.timer;
  look();
  EXPECT_EQ(messages.shown.size(), 1U) << "no second box";
  EXPECT_EQ(Lines(), 1);
  EXPECT_EQ(LastId(), "10000000261");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_NE(Said().find("3 × Pirinç 150,00 kaydedildi"), std::string::npos) << Said();
  EXPECT_FALSE(loop.timer);
  EXPECT_TRUE(At("Command7(1)").Enabled());
  Post("1");
  EXPECT_EQ(Lines(), 2);
}

TEST_F(UnknownOutcomeOnScreen, a_sale_that_turns_out_undone_is_told_so_and_can_be_tried_again) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  int step = 1;
  while (messages.shown.empty() || messages.shown.back().title != "Kayıt Bilinmiyor") {
    ASSERT_LT(step, 300);
    testing::Faults().Reset();
    testing::Faults().failFrom = step++;
    testing::Faults().failWith = SQLITE_IOERR_WRITE;
    Post("3");
  }
  testing::Faults().Reset();
  const auto look = loop.timer;
  look();
  EXPECT_EQ(Lines(), 0);
  EXPECT_NE(Said().find("Kayıt yapılmadı"), std::string::npos) << Said();
  EXPECT_EQ(At("Text2(1)").Text(), "3");
  EXPECT_TRUE(At("Command2").Enabled());
  Click("Command2");
  EXPECT_EQ(Lines(), 1);
}

TEST_F(UnknownOutcomeOnScreen, money_in_the_panel_a_correction_and_a_cancellation_are_shown_when_they_are_known) {
  At("Command9").SetCaption("Yazıcı Yok");
  Sell("Muhtelif Müşteri", "1001", "3");
  const std::string id = LastId();
  const auto learn = [&] {
    EXPECT_EQ(messages.shown.back().title, "Kayıt Bilinmiyor");
    testing::Faults().Reset();
    const auto look = loop.timer;
    ASSERT_TRUE(look);
    look();
  };
  Click("Command1");
  ASSERT_TRUE(At("TahsilatFrame").Visible());
  FailLastSync(true);
  Click("Command7(1)");
  learn();
  EXPECT_FALSE(At("TahsilatFrame").Visible());
  EXPECT_NE(Said().find("150,00 Nakit alındı"), std::string::npos) << Said();
  EXPECT_EQ(At("Text2(2)").Text(), "0");
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "150.0|150.0|0.0|Borç");

  TapLine(id);
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  Set("Text2(1)", "2");
  FailLastSync(true);
  Click("Command2");
  EXPECT_EQ(At("Command3").Caption(), "Düzeltme");
  learn();
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_NE(Said().find("düzeltildi"), std::string::npos) << Said();

  TapLine(id);
  messages.answers.push_back("Yes");
  FailLastSync(true);
  Click("Command2");
  learn();
  EXPECT_NE(Said().find("Silindi"), std::string::npos) << Said();
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
}

// A second tap after a refusal books what the first would have, as if that had never been: no id is left out, no amount counted twice.
TEST_F(UnknownOutcomeOnScreen, a_second_tap_after_one_failed_write_or_sync_finds_nothing_of_the_first) {
  Pay("Ayşe Yılmaz", "10");
  testing::Faults().Reset();
  Pay("Ayşe Yılmaz", "10");
  const int steps = testing::Faults().steps;
  ASSERT_GT(steps, 20);
  double paid = 20;
  for (int step = 1; step <= steps; ++step) {
    SCOPED_TRACE(step);
    ASSERT_TRUE(Start());  // with nothing in memory, as in the morning
    const int lines = Lines();
    Set("Text1(0)", "Ayşe Yılmaz");
    Set("Text2(2)", "10");
    testing::Faults().Reset();
    testing::Faults().failFrom = step;
    testing::Faults().failOnce = true;
    testing::Faults().failWith = step % 2 == 0 ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    Click("Command2");
    testing::Faults().Reset();
    if (loop.timer) loop.timer();
    paid += 10;
    if (Lines() == lines) Click("Command2");
    EXPECT_EQ(Lines(), lines + 1);
    EXPECT_EQ(One("Karvel.mdb", "SELECT max(CAST(substr(DigerId, -8) AS INTEGER)) FROM Datam"), "26" + std::to_string(lines + 1));
    EXPECT_EQ(std::stod(One("Cari.mdb", "SELECT Alacak FROM CariKartlar WHERE CariKod = 'C001'")), paid);
  }
}

}  // namespace
}  // namespace karvel
