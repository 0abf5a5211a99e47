#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class LineCorrectionTest : public AccountsFixture {};

TEST_F(LineCorrectionTest, rewrites_the_line_in_every_store) {
  Sell("Ayşe Yılmaz", "1002", "5");
  const std::string id = LastId();
  Correct(id, "18", "4");
  EXPECT_EQ(Day(id)["Fiyat"], "18.0");
  EXPECT_EQ(Day(id)["Miktar"], "4.0");
  EXPECT_EQ(Day(id)["Tutar"], "72.0");
  EXPECT_EQ(Day(id)["Durum"], "Satış");
  EXPECT_EQ(Movement(id)["Miktar"], "4.0");
  EXPECT_EQ(Movement(id)["Tutar"], "72.0");
  EXPECT_EQ(Movement(id)["Fiyat"], "20.0");
  EXPECT_EQ(Card("1002")["CikanMik"], "4.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "72.0");
  EXPECT_EQ(Card("1002")["KalanA"], "4.0");
  EXPECT_EQ(Ledger(id, "C001")["Borc"], "72.0");
  EXPECT_EQ(Ledger(id, "C001")["Miktar"], "5.0");
  EXPECT_EQ(Balance("C001"), "72.0|0.0|72.0|Borç");
  EXPECT_EQ(Due("C001"), std::vector<std::string>{"100.0"});
}

TEST_F(LineCorrectionTest, the_new_profit_is_the_old_total_less_the_new_cost_that_is_how_it_stands) {
  Sell("Ayşe Yılmaz", "1002", "5");
  const std::string id = LastId();
  Correct(id, "18", "4");
  EXPECT_EQ(Movement(id)["Kar"], "52.0");  // 100 - 4 x 12
  EXPECT_EQ(Card("1002")["Kar"], "52.0");
  EXPECT_EQ(Day(id)["Kar"], "40.0");
}

TEST_F(LineCorrectionTest, a_loss_becomes_profit_zero) {
  Sell("Ayşe Yılmaz", "1002", "5");
  const std::string id = LastId();
  Correct(id, "20", "10");
  EXPECT_EQ(Movement(id)["Kar"], "0.0");
  EXPECT_EQ(Card("1002")["Kar"], "0.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "200.0");
}

TEST_F(LineCorrectionTest, an_item_without_a_cost_gets_profit_zero) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Sql("Stok.mdb", "UPDATE StokHareket SET Kar=5");
  Sql("Stok.mdb", "UPDATE StokKartlar SET Kar=5 WHERE StokKod='1001'");
  Correct(id, "45", "2");
  EXPECT_EQ(Movement(id)["Kar"], "0.0");
  EXPECT_EQ(Card("1001")["Kar"], "0.0");
}

TEST_F(LineCorrectionTest, fractions_survive_to_the_last_digit) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Correct(id, "12,25", "1,5");
  EXPECT_EQ(Movement(id)["Miktar"], "1.5");
  EXPECT_EQ(Day(id)["Tutar"], "18.38");
  EXPECT_EQ(Balance("C001"), "18.38|0.0|18.38|Borç");
}

TEST_F(LineCorrectionTest, afterwards_nothing_is_in_correction_and_the_button_is_off) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Correct(id, "45", "2");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_TRUE(At("Command3").Enabled());
  EXPECT_FALSE(At("Command2").Enabled());
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_EQ(desk->form.EditLineId, "");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_EQ(desk->cursors.HareketData.Text("DigerId"), id);
}

TEST_F(LineCorrectionTest, taking_the_line_keeps_its_id_and_opens_the_price) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  EXPECT_EQ(At("Command2").Caption(), "Satır Sil");
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(At("Command3").Caption(), "Düzeltme");
  Click("Command3");
  EXPECT_EQ(desk->form.EditLineId, LastId());
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_TRUE(At("Text2(0)").HasFocus());
  EXPECT_EQ(window.closes, 0);
}

TEST_F(LineCorrectionTest, the_line_in_the_middle_is_the_one_that_changes) {
  Sell("Ayşe Yılmaz", "1001", "1");
  std::vector<std::string> ids{LastId()};
  for (int i = 0; i < 2; ++i) {
    clock.now = clock.now.PlusSeconds(60);
    PickItem("1001");
    Post("1");
    ids.push_back(LastId());
  }
  Correct(ids[1], "30", "1");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Tutar FROM Datam ORDER BY DigerId"), (std::vector<std::string>{"50.0", "30.0", "50.0"}));
  EXPECT_EQ(Rows("Stok.mdb", "SELECT Tutar FROM StokHareket ORDER BY DigerId"), (std::vector<std::string>{"50.0", "30.0", "50.0"}));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT Borc FROM CariHareket ORDER BY DigerId"), (std::vector<std::string>{"50.0", "30.0", "50.0"}));
  EXPECT_EQ(Balance("C001"), "130.0|0.0|130.0|Borç");
}

TEST_F(LineCorrectionTest, a_line_that_is_not_in_front_any_more_is_left_alone_and_so_is_what_stands_there) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  desk->form.EditLineId = "gone";
  Set("Text2(0)", "7");
  Set("Text2(1)", "3");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Fiyat, Miktar, Tutar FROM Datam"), std::vector<std::string>{"50.0|2.0|100.0"});
  EXPECT_EQ(Rows("Stok.mdb", "SELECT Miktar, Tutar FROM StokHareket"), std::vector<std::string>{"2.0|100.0"});
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(LineCorrectionTest, a_correction_ends_with_the_sale_it_was_begun_in) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  LeaveSale();
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_EQ(desk->form.EditLineId, "");
  // What is paid now is a payment, and what is sold now a sale.
  Set("Text2(2)", "40");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Fiyat, Miktar, Tutar, Tahsilat FROM Datam"),
            (std::vector<std::string>{"50.0|2.0|100.0|0.0", "0.0|0.0|0.0|40.0"}));
  EnterSale("Burak Demir");
  desk->screen.StokGrid.TapCell(1);
  Set("Text2(0)", "7");
  Set("Text2(1)", "3");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariAd, Tutar FROM Datam WHERE Durum='Satış'"),
            (std::vector<std::string>{"Ayşe Yılmaz|100.0", "Burak Demir|21.0"}));
}

TEST_F(LineCorrectionTest, a_quantity_of_nothing_corrects_nothing) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  Set("Text2(1)", "0");
  At("Command2").SetEnabled(true);
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Fiyat, Miktar, Tutar FROM Datam"), std::vector<std::string>{"50.0|2.0|100.0"});
  EXPECT_EQ(At("Command3").Caption(), "Düzeltme");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  Set("Text2(1)", "3");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Miktar FROM Datam"), std::vector<std::string>{"3.0"});
}

TEST_F(LineCorrectionTest, the_ledger_row_is_the_customers_own_also_when_the_last_sale_was_left_in_purchase_mode) {
  Sell("Burak Demir", "1001", "1");
  LeaveSale();
  Sell("Ayşe Yılmaz", "1001", "2");
  DoubleTap("Label4");
  DoubleTap("Label4");
  LeaveSale();
  EnterSale("Burak Demir");
  Correct("10000000261", "30", "1");
  EXPECT_EQ(Balance("C002"), "30.0|0.0|30.0|Borç");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
}

TEST_F(LineCorrectionTest, a_store_that_refuses_changes_nothing_and_the_correction_can_be_ended_again) {
  Sell("Ayşe Yılmaz", "1002", "5");
  const std::string id = LastId();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Correct(id, "18", "4");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_EQ(Day(id)["Tutar"], "100.0");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_EQ(At("Text2(0)").Text(), "18");
  EXPECT_EQ(At("Command3").Caption(), "Düzeltme");
  engine.commitFault = {};
  Click("Command2");
  EXPECT_EQ(Day(id)["Tutar"], "72.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "72.0");
  EXPECT_EQ(Balance("C001"), "72.0|0.0|72.0|Borç");
}

TEST_F(LineCorrectionTest, a_return_is_corrected_as_a_sale_that_is_how_it_stands) {
  Sell("Ayşe Yılmaz", "1001", "3");
  PickItem("1001");
  DoubleTap("Label4");
  Post("1");
  const std::string id = LastId();
  PickItem("1001");
  Correct(id, "30", "2");
  EXPECT_EQ(Day(id)["Durum"], "İade");
  EXPECT_EQ(Day(id)["Tutar"], "60.0");
  EXPECT_EQ(Movement(id)["Miktar"], "2.0");
  EXPECT_EQ(Card("1001")["CikanMik"], "4.0");  // 3 - 1 + 2, on the outgoing side
  EXPECT_EQ(Card("1001")["CikanTutar"], "160.0");
  EXPECT_EQ(Card("1001")["GirenMik"], "1.0");
  EXPECT_EQ(Card("1001")["KalanA"], "3.0");
  EXPECT_EQ(Ledger(id, "C001")["Borc"], "60.0");
  EXPECT_EQ(Ledger(id, "C001")["Alacak"], "50.0");
  EXPECT_EQ(Balance("C001"), "210.0|50.0|160.0|Borç");
}

TEST_F(LineCorrectionTest, a_purchase_is_corrected_as_a_sale_that_is_how_it_stands) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Post("5");
  const std::string id = LastId();
  PickItem("1001");
  Correct(id, "50", "6");
  EXPECT_EQ(Day(id)["Durum"], "Alış");
  EXPECT_EQ(Day(id)["Tutar"], "300.0");
  EXPECT_EQ(Card("1001")["GirenMik"], "5.0");
  EXPECT_EQ(Card("1001")["CikanMik"], "1.0");  // 0 - 5 + 6
  EXPECT_EQ(Card("1001")["CikanTutar"], "50.0");
  EXPECT_EQ(Card("1001")["KalanB"], "4.0");
  EXPECT_EQ(Balance("C001"), "300.0|250.0|50.0|Borç");
}

TEST_F(LineCorrectionTest, a_money_line_is_corrected_as_a_sale_and_touches_no_movement_of_another_line) {
  Sell("Ayşe Yılmaz", "1001", "3");
  const std::string sale = LastId();
  Pay("Ayşe Yılmaz", "60");
  const std::string id = LastId();
  EnterSale("Ayşe Yılmaz");
  Correct(id, "10", "2");
  EXPECT_EQ(Day(id)["Tutar"], "20.0");
  EXPECT_EQ(Day(id)["Tahsilat"], "60.0");
  EXPECT_EQ(Day(id)["Durum"], "Nakit");
  EXPECT_EQ(Movement(sale)["Miktar"], "3.0");  // it has no movement of its own
  EXPECT_EQ(Card("1001")["CikanMik"], "3.0");
  EXPECT_EQ(Ledger(id, "C001")["Borc"], "20.0");
  EXPECT_EQ(Ledger(id, "C001")["Alacak"], "60.0");
  EXPECT_EQ(Balance("C001"), "170.0|60.0|110.0|Borç");
}

TEST_F(LineCorrectionTest, afterwards_the_fields_name_the_corrected_item_with_no_quantity) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  PickItem("1002");
  ASSERT_EQ(At("Text1(1)").Text(), "Şeker");
  Correct(id, "45", "3");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_EQ(At("Label2").Caption(), "0,00");
}

TEST_F(LineCorrectionTest, codes_with_a_quote_in_them_are_found) {
  AddQuotedCards();
  Front("O'1");
  SellInFront("S'1", "2");
  const std::string id = LastId();
  Correct(id, "45", "3");
  EXPECT_EQ(Day(id)["Tutar"], "135.0");
  EXPECT_EQ(Card("S''1")["CikanMik"], "3.0");
  EXPECT_EQ(Card("S''1")["CikanTutar"], "135.0");
  EXPECT_EQ(Balance("O''1"), "135.0|0.0|135.0|Borç");
}

TEST_F(LineCorrectionTest, the_side_of_the_stock_follows_the_new_quantity) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=10, KalanB=10 WHERE StokKod='1001'");
  Sell("Ayşe Yılmaz", "1001", "12");
  ASSERT_EQ(Card("1001")["KalanA"], "2.0");
  Correct(LastId(), "50", "9,9994");
  EXPECT_EQ(Card("1001")["KalanA"], "0.0");
  EXPECT_EQ(Card("1001")["KalanB"], "0.001");
}

TEST_F(LineCorrectionTest, the_customers_side_follows_the_new_total) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=60, Bakiye=60, Hesap='Alacak' WHERE CariKod='C001'");
  Sell("Ayşe Yılmaz", "1001", "2");
  ASSERT_EQ(Balance("C001"), "100.0|60.0|40.0|Borç");
  Correct(LastId(), "50", "1");
  EXPECT_EQ(Balance("C001"), "50.0|60.0|10.0|Alacak");
}

TEST_F(LineCorrectionTest, the_price_kept_for_the_customer_and_the_slip_number_stay) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  const std::string slip = Day(id)["SeriNo"];
  Correct(id, "45", "2");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM Cari"), "0");
  EXPECT_EQ(Day(id)["SeriNo"], slip);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");
}

TEST_F(LineCorrectionTest, a_line_is_corrected_on_its_own_item_also_when_the_stock_list_shows_others) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  PickItem("1002");
  Post("1");
  ASSERT_TRUE(
      desk->cursors.StokData.Open("Select * From StokKartlar Where StokGizle=False And StokAdi Like 'Şe*' Order By StokAdi ASC").Ok());
  TapLine(id);
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  Set("Text2(0)", "90");
  Set("Text2(1)", "4");
  Click("Command2");
  EXPECT_EQ(Card("1001")["CikanMik"], "4.0");
  EXPECT_EQ(Card("1001")["CikanTutar"], "360.0");
  EXPECT_EQ(Card("1002")["CikanMik"], "1.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "20.0");
}

TEST_F(LineCorrectionTest, a_line_that_another_terminal_cancelled_meanwhile_is_not_corrected) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  TapLine(id);
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  Set("Text2(0)", "45");
  Set("Text2(1)", "2");
  Sql("Karvel.mdb", "UPDATE Datam SET Durum='Iptal' WHERE DigerId='" + id + "'");
  Click("Command2");
  EXPECT_EQ(Day(id)["Fiyat"], "50.0");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_EQ(desk->form.EditLineId, "");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(At("Command2").Enabled());  // a second tap must not sell what was meant to correct
}

TEST_F(LineCorrectionTest, it_begins_with_the_lines_own_figures_whatever_item_is_in_front) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  PickItem("1002");
  desk->form.MinSalePercent = 10;
  TapLine(id);
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç");
  EXPECT_EQ(At("Text2(0)").Text(), "50,00");
  EXPECT_EQ(At("Text2(1)").Text(), "2");
  EXPECT_EQ(At("Label2").Caption(), "100,00");
  EXPECT_TRUE(At("Text2(0)").HasFocus());
  EXPECT_EQ(desk->form.EditLineId, id);
  Set("Text2(1)", "3");
  Click("Command2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Fiyat, Miktar, Tutar FROM Datam"), std::vector<std::string>{"1001|50.0|3.0|150.0"});
}

}  // namespace
}  // namespace karvel
