#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class LedgerViewTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=75.5, Borc=75.5, Hesap='Borç'");
    Sql("Karvel.mdb",
        "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum, Tahsilat) VALUES"
        "('C001','Ayşe Yılmaz',10,'2026-03-01 00:00:00','Satış',0),"
        "('C001','Ayşe Yılmaz',20.5,'2026-03-01 23:59:59','İade',0),"
        "('C001','Ayşe Yılmaz',40,'2026-02-28 23:59:59','Satış',0),"
        "('C002','Ayşe Yılmaz',80,'2026-03-01 10:00:00','Satış',0)");
    ASSERT_TRUE(Start());
  }
};

TEST_F(LedgerViewTest, the_print_choice_leads_back_to_the_whole_day_book) {
  int printed = 0;
  connections += At("Command1").click.Connect([&printed] { ++printed; });
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  At("Command5(1)").SetEnabled(false);
  At("Command5(2)").SetCaption("x");
  ASSERT_TRUE(desk->cursors.HareketData.Open("Datam").Ok());
  Click("VzgCmd");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 3);
  EXPECT_TRUE(At("Command5(1)").Enabled());
  EXPECT_EQ(At("Command5(2)").Caption(), "Tümünü Yazdır");
  EXPECT_EQ(printed, 1);
}

}  // namespace
}  // namespace karvel
