#include "desk/unreadable_notice.h"

#include "platform/clerk_message.h"
#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class UnreadableNoticeTest : public DeskFixture {
 protected:
  void SetUp() override {
    AddCards();
    ASSERT_TRUE(Start());
    messages.shown.clear();
  }
  void AddCards() {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    AddStock("1001", "Pirinç");
  }
  void ReadWith(const Status& fault) {
    engine.readFault = fault;
    EXPECT_FALSE(desk->cursors.StokData.FindFirst("StokKod='1001'").Ok());
    engine.readFault = {};
  }
};

TEST_F(UnreadableNoticeTest, what_cannot_be_read_is_told_at_once_and_once) {
  const Status broken = Status(ErrorKind::Damaged, "malformed").At("/x/Stok.mdb");
  ReadWith(broken);
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Veri Okunamadı");
  EXPECT_TRUE(ContainsText(messages.shown[0].text, "/x/Stok.mdb"));
  EXPECT_TRUE(ContainsText(messages.shown[0].text, "yedekten geri yükleyin"));
  EXPECT_EQ(desk->screen.Durum.Caption(), ReadingMessage(broken));
  ReadWith(broken);
  EXPECT_EQ(messages.shown.size(), 1U);
  ReadWith(Status(ErrorKind::Damaged, "malformed").At("/x/Cari.mdb"));
  EXPECT_EQ(messages.shown.size(), 2U) << "another file";
}

TEST_F(UnreadableNoticeTest, a_passing_fault_sends_nobody_to_the_backup) {
  ReadWith(Status(ErrorKind::DiskFailed, "input/output error").At("/x/Stok.mdb"));
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_FALSE(ContainsText(messages.shown[0].text, "yedek"));
}

TEST_F(UnreadableNoticeTest, what_another_program_keeps_is_told_in_the_quiet_line_alone) {
  ReadWith(Status(ErrorKind::Busy, "locked"));
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(desk->screen.Durum.Caption(), "Veri dosyası başka bir programda açık, okunamadı: yeniden deneyin");
}

TEST_F(UnreadableNoticeTest, a_posting_that_meets_it_tells_it_alone) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "1");
  engine.readFault = {ErrorKind::Damaged, "malformed"};
  engine.readsBeforeFault = 4;  // the look-ups before the posting
  Click("Command2");
  engine.readFault = {};
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
}

TEST_F(UnreadableNoticeTest, what_was_done_before_a_list_could_not_be_read_stays_told) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "1");
  // The line stands, and then its list can't be read.
  loop.defers = true;
  loop.duringBusyWait = [&] { engine.readFault = Status(ErrorKind::DiskFailed, "input/output error").At("/x/Karvel.mdb"); };
  Click("Command2");
  loop.duringBusyWait = {};
  engine.readFault = {};
  ASSERT_FALSE(loop.deferred.empty());
  loop.RunDeferred();
  EXPECT_TRUE(ContainsText(desk->screen.Durum.Caption(), "Disk okunamadı")) << desk->screen.Durum.Caption();
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");
  EXPECT_TRUE(ContainsText(desk->screen.Durum.Caption(), "kaydedildi")) << desk->screen.Durum.Caption();
}

}  // namespace
}  // namespace karvel
