// What the clerk sees while another program keeps the stores, and while another terminal keeps the settings.
#include "tests/support/accounts_fixture.h"
#include "tests/support/foreign_program.h"
#include "tests/support/other_process.h"

namespace karvel {
namespace {

class WaitingNoticeTest : public AccountsFixture {};

TEST_F(WaitingNoticeTest, a_sale_that_waits_says_why_after_half_a_second_and_is_posted_then) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "2");
  testing::ForeignProgram other(DataFolder() + "/Cari.mdb");
  other.Keep();
  const Stopwatch watch;
  std::string told;
  double toldAfter = 0;
  loop.duringBusyWait = [&] {
    if (toldAfter > 0) return;
    if (At("Frame5").Visible()) told = At("Label16").Caption();
    toldAfter = watch.Seconds();
    other.Leave();
  };
  Click("Command2");
  EXPECT_EQ(told, "Başka bir terminal kayıt yapıyor, bekleniyor…");
  EXPECT_GE(toldAfter, 0.5);
  EXPECT_LT(toldAfter, 0.9);
  EXPECT_FALSE(At("Frame5").Visible());
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(One("Karvel.mdb", "SELECT Miktar FROM Datam"), "2.0");
}

TEST_F(WaitingNoticeTest, a_sale_that_does_not_wait_shows_nothing) {
  bool ran = false;
  loop.duringBusyWait = [&] { ran = ran || At("Frame5").Visible(); };
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_FALSE(ran);
}

TEST_F(WaitingNoticeTest, what_the_panel_said_before_is_said_again) {
  At("Label16").SetCaption("Yedekleniyor.");
  At("Frame5").SetVisible(true);
  ASSERT_NE(settings.waitListener, nullptr);
  settings.waitListener->Waiting(std::chrono::milliseconds(400));
  EXPECT_EQ(At("Label16").Caption(), "Yedekleniyor.");
  settings.waitListener->Waiting(std::chrono::milliseconds(600));
  EXPECT_NE(At("Label16").Caption(), "Yedekleniyor.");
  settings.waitListener->WaitOver();
  EXPECT_EQ(At("Label16").Caption(), "Yedekleniyor.");
  EXPECT_TRUE(At("Frame5").Visible());
}

TEST_F(WaitingNoticeTest, without_a_slip_number_nothing_is_posted_and_the_fields_stay) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  settings.changeFault = Status(ErrorKind::Busy, "kept").About(Subject::Settings);
  Post("2");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Ayarlar şu anda başka bir terminalce kullanılıyor. Kayıt yapılmadı; biraz bekleyip yeniden deneyin.");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(At("Text2(1)").Text(), "2");
  EXPECT_EQ(desk->form.SlipNo, "");
  settings.changeFault = {};
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT SeriNo FROM Datam"), "000001");
}

TEST_F(WaitingNoticeTest, after_lost_settings_the_slips_go_on_from_the_day_book) {
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, SeriNo) VALUES('C001','000321'),('C001','x99'),('C002','000045'),('C002','')");
  settings.Save("Velmora Karvel", "Size", "DökNo", "?").Ignore();
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT SeriNo FROM Datam WHERE StokKod='1001'"), "000322");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "000322");
}

}  // namespace
}  // namespace karvel
