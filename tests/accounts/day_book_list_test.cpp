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
  void PressDelete(GridElement& grid) {
    KeyEvent event{key::kDelete};
    grid.keyDown(event);
    EXPECT_TRUE(event.dropped);
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

TEST_F(DayBookListTest, the_delete_key_wipes_the_row_and_takes_nothing_back) {
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

TEST_F(DayBookListTest, with_deletion_off_the_delete_key_does_nothing) {
  PressDelete(desk->screen.HareketGrid);
  LeaveSale();
  PressDelete(desk->screen.CariGrid);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_TRUE(shell.sounds.empty());
}

TEST_F(DayBookListTest, the_delete_key_wipes_a_customer_card_as_it_stands) {
  LeaveSale();
  Set("Text1(0)", "Ayşe Yılmaz");
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.CariGrid);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='C001'"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "1");
  EXPECT_TRUE(desk->cursors.CariData.HasCurrent());
  EXPECT_EQ(shell.sounds.size(), 1U);
}

TEST_F(DayBookListTest, the_delete_key_spares_the_stock_cards_in_the_same_list) {
  LeaveSale();
  At("Silme").SetChecked(true);
  At("StokChk").SetChecked(true);
  KeyEvent event{key::kDelete};
  desk->screen.CariGrid.keyDown(event);
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "2");
}

TEST_F(DayBookListTest, behind_a_deleted_row_the_next_one_is_current_and_behind_the_last_the_one_left) {
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

TEST_F(DayBookListTest, behind_the_last_customer_deleted_the_one_left_is_current) {
  LeaveSale();
  Front("Muhtelif Müşteri");
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.CariGrid);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
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

class DeletedLinesTest : public DayBookListTest {
 protected:
  void SetUp() override {
    DayBookListTest::SetUp();
    id = LastId();
    Cancel(id);
    LeaveSale();
    settings.Save("Velmora Karvel1", "Size", "iSif", "gizli");
    Front("C002");
    messages.answers = {"gizli"};
    At("SilinenChk").SetChecked(true);
    ASSERT_EQ(desk->cursors.HareketData.Text("DigerId"), id);
  }
  // Every text, colour and switch that a tap on a line moves elsewhere.
  std::vector<std::string> Column() {
    std::vector<std::string> all;
    for (const char* const name : {"Command2", "Command3", "Label5", "Label1(0)", "Label1(5)", "Label1(7)", "Text1(0)", "Text1(1)",
                                   "Text2(0)", "Text2(1)", "Text2(2)"}) {
      const Element& element = At(name);
      all.push_back(element.Name() + "=" + element.Caption() + "|" + std::to_string(element.Color()) +
                    (element.Enabled() ? "|on" : "|off"));
    }
    return all;
  }
  std::string id;
};

TEST_F(DeletedLinesTest, a_tap_a_double_tap_and_a_release_change_nothing_but_the_marker) {
  At("Silme").SetChecked(true);
  desk->screen.HareketGrid.SetMarker(false);
  const auto before = Column();
  desk->screen.HareketGrid.mouseUp(MouseEvent{});
  desk->screen.HareketGrid.TapCell(2);
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(Column(), before);
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
  EXPECT_EQ(desk->form.EditLineId, "");
}

TEST_F(DeletedLinesTest, they_close_with_the_customer_in_front_as_he_was) {
  desk->screen.HareketGrid.TapCell(2);
  At("SilinenChk").SetChecked(false);
  EXPECT_EQ(At("Label5").Color(), color::kWhite);
  EXPECT_FALSE(At("HareketGrid").Visible());
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_EQ(At("Label1(7)").Caption(), "Bakiye");
}

TEST_F(DeletedLinesTest, the_delete_key_wipes_one_as_it_stands) {
  At("Silme").SetChecked(true);
  PressDelete(desk->screen.HareketGrid);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(shell.sounds.size(), 1U);
}

class EmptiedListTest : public AccountsFixture {};

TEST_F(EmptiedListTest, behind_the_only_customer_nobody_is_in_front) {
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
