// What keeps a line from being sold: the screen must name the item that is in front, its price and a quantity.
#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class SaleConfirmationRefusalsTest : public AccountsFixture {
 protected:
  Lines Booked() { return Rows("Karvel.mdb", "SELECT CariKod, StokKod, Miktar, Tutar, Tahsilat, Durum FROM Datam ORDER BY DigerId"); }
};

TEST_F(SaleConfirmationRefusalsTest, an_item_that_the_screen_does_not_name_is_not_sold) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text1(1)").SetText("Şek");
  Set("Text2(1)", "2");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
}

TEST_F(SaleConfirmationRefusalsTest, without_an_item_on_the_screen_nothing_is_sold) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text1(1)").SetText(" ");
  Post("2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_TRUE(At("Text1(1)").HasFocus());
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
}

TEST_F(SaleConfirmationRefusalsTest, an_item_sells_whatever_signs_its_name_has) {
  for (const char* name : {"Süt [1 L]", "Kola #2", "Ekmek?", "Yağ*", "Lay''s", "100% Portakal", " Boşluk"}) {
    Sql("Stok.mdb", std::string("UPDATE StokKartlar SET StokAdi='") + name + "' WHERE StokKod='1001'");
    Sql("Karvel.mdb", "DELETE FROM Datam");
    ASSERT_TRUE(Start());
    Sell("Ayşe Yılmaz", "1001", "2");
    EXPECT_EQ(Booked(), Lines{"C001|1001|2.0|100.0|0.0|Satış"}) << name;
  }
}

TEST_F(SaleConfirmationRefusalsTest, a_quantity_of_nothing_sells_nothing) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(2)", "40");
  Set("Text2(1)", "0");
  ASSERT_TRUE(At("Command2").Enabled());  // there is a payment
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_TRUE(At("Text2(1)").HasFocus());
}

TEST_F(SaleConfirmationRefusalsTest, a_name_in_the_price_sells_nothing) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "1");
  At("Text2(0)").SetText("7 Up");
  At("Command2").SetEnabled(true);
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_TRUE(At("Text2(0)").HasFocus());
}

TEST_F(SaleConfirmationRefusalsTest, an_item_deleted_at_another_terminal_is_not_sold) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "1");
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
}

}  // namespace
}  // namespace karvel
