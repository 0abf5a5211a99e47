// What keeps money from being booked: the customer on the screen must be the one in front, in the files too.
#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class MoneyConfirmationRefusalsTest : public AccountsFixture {
 protected:
  Lines Booked() { return Rows("Karvel.mdb", "SELECT CariKod, StokKod, Miktar, Tutar, Tahsilat, Durum FROM Datam ORDER BY DigerId"); }
};

TEST_F(MoneyConfirmationRefusalsTest, without_a_customers_name_nothing_is_paid) {
  Set("Text2(2)", "40");
  At("Text1(0)").SetText("");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_TRUE(At("Text1(0)").HasFocus());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
}

TEST_F(MoneyConfirmationRefusalsTest, a_name_that_nobody_has_pays_nothing) {
  Set("Text2(2)", "40");
  At("Text1(0)").SetText("Kimse Yok");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE Unvan='Kimse Yok'"), "0");
  // With the right name the same amount is taken.
  Set("Text1(0)", "Burak Demir");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{"C002||0.0|0.0|40.0|Nakit"});
}

TEST_F(MoneyConfirmationRefusalsTest, the_beginning_of_the_name_in_front_is_that_customer) {
  Set("Text1(0)", "Burak Demir");
  At("CariGrid").SetFocus();
  At("Text1(0)").SetText("burak");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{"C002||0.0|0.0|40.0|Nakit"});
}

TEST_F(MoneyConfirmationRefusalsTest, over_an_empty_list_nothing_is_paid) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Boş',1)");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Boş");
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
}

TEST_F(MoneyConfirmationRefusalsTest, a_customer_deleted_at_another_terminal_pays_nothing_and_leaves_the_list) {
  Front("C002");
  ASSERT_EQ(At("Text1(0)").Text(), "Burak Demir");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C002'");
  PayInFront("5");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C002'").Kind() == ErrorKind::NoRecord);
  EXPECT_EQ(At("Text2(2)").Text(), "0");  // a second tap takes it from nobody else
  EXPECT_FALSE(At("Command2").Enabled());
  Pay("Ayşe Yılmaz", "5");
  EXPECT_EQ(Booked(), Lines{"C001||0.0|0.0|5.0|Nakit"});
}

TEST_F(MoneyConfirmationRefusalsTest, the_till_does_not_pay_what_the_customer_on_the_screen_pays) {
  LeaveSale();
  ASSERT_TRUE(desk->cursors.CariData.Open("CariKartlar").Ok());
  Set("Text1(0)", "Ayşe Yılmaz");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='=100'").Ok());
  desk->form.RepositionGuard.Keep(Mute::Nothing);
  ASSERT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz");
  PayInFront("5");
  EXPECT_EQ(Booked(), Lines{"C001||0.0|0.0|5.0|Nakit"});
}

TEST_F(MoneyConfirmationRefusalsTest, an_emptied_name_pays_nothing_and_the_row_in_front_is_named_again) {
  Front("C002");
  Set("Text2(2)", "5");
  At("Text1(0)").SetText("");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{});
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
  EXPECT_EQ(At("Text2(2)").Text(), "5");
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{"C002||0.0|0.0|5.0|Nakit"});
}

}  // namespace
}  // namespace karvel
