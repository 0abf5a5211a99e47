#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class DayBookListTest : public AccountsFixture {
 protected:
  void SetUp() override {
    AccountsFixture::SetUp();
    Sell("Ayşe Yılmaz", "1001", "2");
  }
};

TEST_F(DayBookListTest, a_tap_makes_the_main_button_delete_the_line) {
  desk->screen.Label1(4).SetColor(color::kGreen);
  TapLine(LastId());
  EXPECT_EQ(At("Command2").Caption(), "Satır Sil");
  EXPECT_TRUE(At("Command2").Enabled());
  for (int i = 2; i <= 6; ++i) EXPECT_EQ(desk->screen.Label1(i).Color(), color::kYellow) << i;
  EXPECT_EQ(At("Label5").Color(), color::kRed);
  EXPECT_EQ(At("Label1(7)").Caption(), "Fiş Top.");
  EXPECT_EQ(At("Label5").Caption(), "100,00");
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
  EXPECT_FALSE(desk->screen.StokGrid.Marker());
}

TEST_F(DayBookListTest, without_rows_the_main_button_is_off) {
  LeaveSale();
  EnterSale("Burak Demir");
  desk->screen.HareketGrid.TapCell(0);
  EXPECT_FALSE(At("Command2").Enabled());
  EXPECT_FALSE(desk->screen.HareketGrid.Marker());
}

TEST_F(DayBookListTest, a_double_tap_marks_only_this_terminals_lines_in_sale_mode) {
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(At("Command3").Caption(), "Düzeltme");
  PickItem("1001");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  DoubleTap("Label4");
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
}

TEST_F(DayBookListTest, a_line_that_was_transferred_has_no_correction) {
  Sql("Karvel.mdb", "UPDATE Datam SET yeni=0");
  LeaveSale();
  EnterSale("Ayşe Yılmaz");
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
}

TEST_F(DayBookListTest, with_deletion_on_a_line_is_loaded_into_the_fields) {
  PickItem("1002");
  At("Silme").SetChecked(true);
  Sql("Karvel.mdb", "UPDATE Datam SET Fiyat=1234.5");
  TapLine(LastId());
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
  EXPECT_EQ(At("Text2(0)").Text(), "1.234,50");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");
}

TEST_F(DayBookListTest, with_deletion_on_in_return_mode_the_row_itself_is_loaded) {
  PickItem("1002");
  DoubleTap("Label4");
  At("Silme").SetChecked(true);
  TapLine(LastId());
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
  EXPECT_EQ(At("Text2(0)").Text(), "50");
  EXPECT_EQ(At("Text2(1)").Text(), "2");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");  // and what comes back is that item
}

TEST_F(DayBookListTest, with_deletion_off_or_the_print_choice_open_nothing_is_loaded) {
  PickItem("1002");
  TapLine(LastId());
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
  At("Silme").SetChecked(true);
  At("Frame3").SetVisible(true);
  TapLine(LastId());
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
}

TEST_F(DayBookListTest, an_item_whose_card_is_gone_loads_nothing) {
  PickItem("1002");
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  At("Silme").SetChecked(true);
  TapLine(LastId());
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
}

TEST_F(DayBookListTest, a_release_on_a_live_line_opens_the_main_button_and_on_a_cancelled_one_closes_it_with_deletion_on) {
  const std::string live = LastId();
  clock.now = clock.now.PlusSeconds(60);
  PickItem("1001");
  Post("1");
  const std::string cancelled = LastId();
  Cancel(cancelled);
  At("Silme").SetChecked(true);
  ASSERT_TRUE(desk->cursors.HareketData.FindFirst("DigerId='" + live + "'").Ok());
  desk->screen.HareketGrid.mouseUp(MouseEvent{});
  EXPECT_TRUE(At("Command2").Enabled());
  ASSERT_TRUE(desk->cursors.HareketData.FindFirst("DigerId='" + cancelled + "'").Ok());
  desk->screen.HareketGrid.mouseUp(MouseEvent{});
  EXPECT_FALSE(At("Command2").Enabled());
  At("Silme").SetChecked(false);
  desk->screen.HareketGrid.mouseUp(MouseEvent{});
  EXPECT_TRUE(At("Command2").Enabled());
}

TEST_F(DayBookListTest, an_item_with_a_quote_in_its_code_is_loaded) {
  AddQuotedCards();
  Front("C001");
  SellInFront("S'1", "1");
  PickItem("1002");
  At("Silme").SetChecked(true);
  TapLine(LastId());
  EXPECT_EQ(At("Text1(1)").Text(), "Taze 'Kaşar'");
}

}  // namespace
}  // namespace karvel
