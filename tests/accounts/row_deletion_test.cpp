#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class RowDeletionTest : public AccountsFixture {
 protected:
  void SetUp() override {
    AccountsFixture::SetUp();
    Sell("Ayşe Yılmaz", "1001", "2");
  }
  void PressDelete(GridElement& grid) {
    KeyEvent event{key::kDelete};
    grid.keyDown(event);
    EXPECT_TRUE(event.dropped);
  }
};

TEST_F(RowDeletionTest, the_delete_key_wipes_the_row_and_takes_nothing_back) {
  PickItem("1002");
  Post("1");
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.HareketGrid);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");
  EXPECT_EQ(Balance("C001"), "120.0|0.0|120.0|Borç");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "2");
  EXPECT_TRUE(desk->cursors.HareketData.HasCurrent());
  ASSERT_EQ(shell.sounds.size(), 1U);
  EXPECT_EQ(shell.sounds[0], files.ProgramFolder() + "/Recycle.wav");
  PressDelete(desk->screen.HareketGrid);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  PressDelete(desk->screen.HareketGrid);
  EXPECT_EQ(shell.sounds.size(), 2U);
}

TEST_F(RowDeletionTest, with_deletion_off_the_delete_key_does_nothing) {
  PressDelete(desk->screen.HareketGrid);
  LeaveSale();
  PressDelete(desk->screen.CariGrid);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_TRUE(shell.sounds.empty());
}

TEST_F(RowDeletionTest, the_delete_key_wipes_a_customer_card_as_it_stands) {
  LeaveSale();
  Set("Text1(0)", "Ayşe Yılmaz");
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.CariGrid);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='C001'"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "1");
  EXPECT_TRUE(desk->cursors.CariData.HasCurrent());
  EXPECT_EQ(shell.sounds.size(), 1U);
}

TEST_F(RowDeletionTest, the_delete_key_spares_the_stock_cards_in_the_same_list) {
  LeaveSale();
  At("Silme").SetChecked(true);
  At("StokChk").SetChecked(true);
  KeyEvent event{key::kDelete};
  desk->screen.CariGrid.keyDown(event);
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "2");
}

TEST_F(RowDeletionTest, behind_a_deleted_row_the_next_one_is_current_and_behind_the_last_the_one_left) {
  std::vector<std::string> ids{LastId()};
  for (int i = 0; i < 2; ++i) {
    clock.now = clock.now.PlusSeconds(60);
    PickItem("1001");
    Post("1");
    ids.push_back(LastId());
  }
  // The youngest stands first.
  TapLine(ids[1]);
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.HareketGrid);
  EXPECT_EQ(desk->cursors.HareketData.Text("DigerId"), ids[0]);
  PressDelete(desk->screen.HareketGrid);
  EXPECT_EQ(desk->cursors.HareketData.Text("DigerId"), ids[2]);
}

TEST_F(RowDeletionTest, behind_the_last_customer_deleted_the_one_left_is_current) {
  LeaveSale();
  Front("Muhtelif Müşteri");
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.CariGrid);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
}

// Without the sale.
class RowDeletionOfLastTest : public AccountsFixture {};

TEST_F(RowDeletionOfLastTest, behind_the_only_customer_nobody_is_in_front) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Tek',1)");
  AddCustomer("B001", "Tek Kişi", "Gurup='Tek', Borc=5, Bakiye=5, Hesap='Borç'");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Tek");
  ASSERT_EQ(At("Label5").Caption(), "5,00");
  At("Silme").SetChecked(true);
  KeyEvent event{key::kDelete};
  desk->screen.CariGrid.keyDown(event);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='B001'"), "0");
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  Set("Text2(2)", "5");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
}

}  // namespace
}  // namespace karvel
