#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;
class LineCancellationTest : public AccountsFixture {};

TEST_F(LineCancellationTest, a_sale_is_taken_back_and_stays_in_the_day_book) {
  Sell("Ayşe Yılmaz", "1002", "5");
  const std::string id = LastId();
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(Day(id)["Tutar"], "100.0");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(Card("1002")["CikanMik"], "0.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "0.0");
  EXPECT_EQ(Card("1002")["KalanA"], "0.0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Due("C001"), Lines{});
  EXPECT_EQ(At("Label5").Color(), color::kBlack);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_TRUE(At("StokGrid").HasFocus());
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(LineCancellationTest, the_profit_of_the_item_is_not_taken_back) {
  Sell("Ayşe Yılmaz", "1002", "5");
  Cancel(LastId());
  EXPECT_EQ(Card("1002")["Kar"], "40.0");
}

TEST_F(LineCancellationTest, it_asks_first_and_no_changes_nothing) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  TapLine(id);
  messages.answers.push_back("No");
  Click("Command2");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Satır Silinecek Emimisiniz..?");
  EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
  EXPECT_EQ(Day(id)["Durum"], "Satış");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
}

TEST_F(LineCancellationTest, a_sale_with_two_ledger_rows_takes_each_part_back_by_subtraction) {
  Sell("Ayşe Yılmaz", "1001", "1");
  const std::string id = LastId();
  Sql("Cari.mdb",
      "INSERT INTO CariHareket(cariharkod, Aciklama, Borc, Alacak, DigerId) VALUES('=110','Perakende satış',0,50,'" + id + "')");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=80, Bakiye=80, Hesap='Alacak' WHERE CariKod='=110'");
  Cancel(id);
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Balance("=110"), "0.0|30.0|30.0|Alacak");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
}

TEST_F(LineCancellationTest, a_collection_leaves_no_trace_but_totals_that_crossed_over) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Pay("Ayşe Yılmaz", "60");
  const std::string id = LastId();
  EnterSale("Ayşe Yılmaz");
  Cancel(id);
  EXPECT_EQ(Balance("C001"), "210.0|60.0|150.0|Borç");
  EXPECT_EQ(Balance("=100"), "60.0|60.0|0.0|Borç");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Durum FROM Datam"), Lines{"Satış"});
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod FROM CariHareket"), Lines{"C001"});
  EXPECT_EQ(Due("C001"), Lines{"90.0"});  // not restored
  EXPECT_EQ(Card("1001")["CikanMik"], "3.0");
}

TEST_F(LineCancellationTest, a_return_is_taken_back_from_the_incoming_side) {
  Sell("Ayşe Yılmaz", "1001", "3");
  PickItem("1001");
  DoubleTap("Label4");
  Post("1");
  const std::string id = LastId();
  ASSERT_EQ(Card("1001")["GirenMik"], "1.0");
  Cancel(id);
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
  EXPECT_EQ(Card("1001")["GirenTutar"], "0.0");
  EXPECT_EQ(Card("1001")["KalanA"], "3.0");
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(Balance("C001"), "200.0|50.0|150.0|Borç");
}

TEST_F(LineCancellationTest, the_due_date_shrinks_by_the_total) {
  Sell("Ayşe Yılmaz", "1001", "3");
  PickItem("1002");
  Post("1");
  Cancel(LastId());
  EXPECT_EQ(Due("C001"), Lines{"150.0"});
}

TEST_F(LineCancellationTest, an_id_with_a_T_finds_its_ledger_rows_without_it_and_its_stock_row_with_it) {
  Sell("Ayşe Yılmaz", "1001", "2");
  Sql("Karvel.mdb", "UPDATE Datam SET DigerId='1T2T3'");
  Sql("Stok.mdb", "UPDATE StokHareket SET DigerId='1T2T3'");
  Sql("Cari.mdb", "UPDATE CariHareket SET DigerId='123'");
  LeaveSale();
  EnterSale("Ayşe Yılmaz");
  Cancel("1T2T3");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Day("1T2T3")["Durum"], "Iptal");
}

TEST_F(LineCancellationTest, a_line_that_was_handed_on_is_refused_and_the_desk_stays_as_it_is) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='X'");
  LeaveSale();
  EnterSale("Ayşe Yılmaz");
  Cancel(id);
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[1].text, "Veri Aktarımı Yapılmış Silinemez..!");
  EXPECT_EQ(Day(id)["Durum"], "Satış");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 555);
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), "CariKartlar");
  EXPECT_EQ(desk->cursors.CariHarData.RecordSource(), "Select * From CariHareket Where DigerId='" + id + "'");
  EXPECT_FALSE(stores->InAction());
}

TEST_F(LineCancellationTest, the_small_x_of_an_export_does_not_block) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='x'");
  LeaveSale();
  EnterSale("Ayşe Yılmaz");
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
}

TEST_F(LineCancellationTest, with_deletion_on_a_cancelled_line_is_not_cancelled_again) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Cancel(id);
  At("Silme").SetChecked(true);
  TapLine(id);
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(LineCancellationTest, with_deletion_off_a_second_cancel_finds_no_rows_and_wipes_the_line) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Cancel(id);
  Cancel(id);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
  EXPECT_FALSE(desk->screen.HareketGrid.Marker());
}

TEST_F(LineCancellationTest, right_after_a_start_no_serial_goes_whatever_the_line) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, DigerId) VALUES('S1','" + id + "'),('S2','')");
  ASSERT_TRUE(Start());
  EnterSale("Ayşe Yılmaz");
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT barcode FROM SeriNo ORDER BY barcode"), (Lines{"S1", "S2"}));
}

TEST_F(LineCancellationTest, the_serials_that_go_are_those_of_the_line_posted_last_on_purpose) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string first = LastId();
  PickItem("1001");
  Post("1");
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, DigerId) VALUES('S1','" + first + "'),('S2','" + LastId() + "')");
  Cancel(first);
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT barcode FROM SeriNo"), Lines{"S1"});
}

TEST_F(LineCancellationTest, a_line_without_an_id_takes_nobody_elses_rows) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, CariAd, StokKod, Durum, Tarih) VALUES('C001','Ayşe Yılmaz','1001','Satış','2026-02-01 10:00:00')");
  Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Aciklama, Borc) VALUES('C002','Eski',40)");
  Sql("Stok.mdb", "INSERT INTO StokHareket(StokHarKod, Miktar) VALUES('1002',4)");
  EnterSale("Ayşe Yılmaz");
  desk->screen.HareketGrid.mouseUp(MouseEvent{});
  desk->screen.HareketGrid.TapCell(2);
  messages.answers.push_back("Yes");
  Click("Command2");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "1");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "1");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(Balance("C002"), "0.0|0.0|0.0|");
}

TEST_F(LineCancellationTest, a_store_that_refuses_takes_nothing_back) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Cancel(id);
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[1].title, "Kayıt Yapılamadı");
  EXPECT_EQ(Day(id)["Durum"], "Satış");
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_EQ(Card("1001")["CikanMik"], "2.0");
  EXPECT_EQ(Due("C001"), Lines{"100.0"});
  EXPECT_TRUE(At("Command2").Enabled());
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  engine.commitFault = {};
  messages.answers.push_back("Yes");
  Click("Command2");
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
}

TEST_F(LineCancellationTest, a_second_tap_after_a_refusal_means_the_same_line) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string older = LastId();
  clock.now = clock.now.PlusSeconds(60);
  PickItem("1001");
  Post("3");
  const std::string newer = LastId();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Cancel(older);
  engine.commitFault = {};
  messages.answers.push_back("Yes");
  Click("Command2");
  EXPECT_EQ(Day(older)["Durum"], "Iptal");
  EXPECT_EQ(Day(newer)["Durum"], "Satış") << "the newest line leads the list, and is none of his business";
}

TEST_F(LineCancellationTest, the_balance_is_the_one_that_another_terminal_left_meanwhile) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  Cancel(id);
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=120.5, Bakiye=120.5 WHERE CariKod='C001'");
  Cancel(id);  // takes nothing back a second time, and reads the card anew
  EXPECT_EQ(At("Label5").Caption(), "120,50");
}

TEST_F(LineCancellationTest, the_balance_stands_in_black_while_the_customer_owes) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string first = LastId();
  PickItem("1002");
  Post("1");
  Cancel(first);
  EXPECT_EQ(At("Label5").Caption(), "20,00");  // not the sum of the day, in which the cancelled line still counts
  EXPECT_EQ(At("Label5").Color(), color::kBlack);
  EXPECT_EQ(At("Label1(7)").Caption(), "Bakiye");
}

TEST_F(LineCancellationTest, the_balance_stands_in_red_while_the_shop_owes) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=130, Bakiye=130, Hesap='Alacak' WHERE CariKod='C001'");
  Sell("Ayşe Yılmaz", "1001", "2");
  Cancel(LastId());
  EXPECT_EQ(At("Label5").Caption(), "130,00");
  EXPECT_EQ(At("Label5").Color(), color::kRed);
}

TEST_F(LineCancellationTest, list_and_ledger_are_back_on_their_sources) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string list = desk->cursors.CariData.RecordSource();
  const std::string ledger = desk->cursors.CariHarData.RecordSource();
  ASSERT_NE(ledger, "CariHareket");
  Cancel(LastId());
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
  EXPECT_EQ(desk->cursors.CariHarData.RecordSource(), ledger);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C001");
  EXPECT_FALSE(desk->cursors.CariData.FindFirst("CariKod='=100'").Ok());
}

TEST_F(LineCancellationTest, the_customer_in_front_becomes_the_customer_of_the_sale) {
  Sell("Ayşe Yılmaz", "1001", "2");
  desk->form.CurrentCustomerCode = "C002";
  Cancel(LastId());
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C001");
  PickItem("1002");
  Post("1");
  EXPECT_EQ(Day(LastId())["CariKod"], "C001");
}

TEST_F(LineCancellationTest, a_missing_customer_stops_nothing_and_the_card_in_front_takes_his_place) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  const std::string first = One("Cari.mdb", "SELECT CariKod FROM CariKartlar WHERE CariKod<>'C001' ORDER BY rowid LIMIT 1");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(Balance(first), "-100.0|0.0|100.0|Alacak");
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
}

TEST_F(LineCancellationTest, a_missing_stock_card_stops_nothing_and_the_item_in_front_takes_its_place) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  PickItem("1002");
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
  EXPECT_EQ(Card("1002")["CikanMik"], "-2.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "-100.0");
  EXPECT_EQ(Card("1002")["KalanB"], "2.0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
}

TEST_F(LineCancellationTest, codes_with_a_quote_in_them_are_found) {
  AddQuotedCards();
  Front("O'1");
  SellInFront("S'1", "2");
  const std::string id = LastId();
  ASSERT_EQ(Due("O''1"), Lines{"100.0"});
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(Card("S''1")["CikanMik"], "0.0");
  EXPECT_EQ(Balance("O''1"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Due("O''1"), Lines{});
  EXPECT_EQ(desk->form.CurrentCustomerCode, "O'1");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "O'1");
}

TEST_F(LineCancellationTest, a_total_above_the_earliest_due_amount_leaves_it_below_zero_and_the_next_alone) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Sql("Cari.mdb", "DELETE FROM \"VadeGün\"");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-02-15 00:00:00',200),('C001','2026-01-05 00:00:00',100)");
  Cancel(LastId());
  EXPECT_EQ(Due("C001"), (Lines{"-50.0", "200.0"}));
}

TEST_F(LineCancellationTest, a_purchase_is_taken_back_from_the_incoming_side_and_its_due_date_shrinks) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Post("2");
  const std::string id = LastId();
  ASSERT_EQ(Due("C001"), Lines{"100.0"});
  Cancel(id);
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
  EXPECT_EQ(Card("1001")["GirenTutar"], "0.0");
  EXPECT_EQ(Balance("C001"), "100.0|100.0|0.0|Borç");  // no "Satış" in the ledger's text: the totals cross over
  EXPECT_EQ(Due("C001"), Lines{});
}

TEST_F(LineCancellationTest, a_payment_out_leaves_totals_that_crossed_over) {
  At("GurupCombo").ChooseText("Toptan");
  Pay("Toptan Gıda", "75");
  const std::string id = LastId();
  Cancel(id);
  EXPECT_EQ(Balance("T001"), "75.0|75.0|0.0|Borç");
  EXPECT_EQ(Balance("=100"), "75.0|75.0|0.0|Borç");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
}

TEST_F(LineCancellationTest, a_line_is_taken_back_from_its_own_item_also_when_the_stock_list_shows_others) {
  Sell("Ayşe Yılmaz", "1001", "5");
  const std::string id = LastId();
  PickItem("1002");
  Post("1");
  ASSERT_TRUE(
      desk->cursors.StokData.Open("Select * From StokKartlar Where StokGizle=False And StokAdi Like 'Şe*' Order By StokAdi ASC").Ok());
  TapLine(id);
  messages.answers = {"Yes"};
  Click("Command2");
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
  EXPECT_EQ(Card("1001")["KalanA"], "0.0");
  EXPECT_EQ(Card("1002")["CikanMik"], "1.0");
  EXPECT_EQ(desk->cursors.StokData.RecordCount(), 1);
}

TEST_F(LineCancellationTest, satis_in_capitals_is_a_sale_too) {
  Sell("Ayşe Yılmaz", "1001", "1");
  Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Aciklama, Alacak, DigerId) VALUES('=110','PİRİNÇ SATIŞ',30,'" + LastId() + "')");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=100 WHERE CariKod='=110'");
  TapLine(LastId());
  messages.answers = {"Yes"};
  Click("Command2");
  EXPECT_EQ(Customer("=110")["Alacak"], "70.0");
  EXPECT_EQ(Customer("=110")["Borc"], "0.0");
}

TEST_F(LineCancellationTest, a_line_that_another_terminal_cancelled_meanwhile_is_not_taken_back_twice) {
  Sell("Ayşe Yılmaz", "1001", "1");
  PickItem("1001");
  Post("2");
  const std::string id = LastId();
  TapLine(id);
  Sql("Karvel.mdb", "UPDATE Datam SET Durum='Iptal' WHERE DigerId='" + id + "'");
  const auto due = Due("C001");
  messages.answers.push_back("Yes");
  Click("Command2");
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(Due("C001"), due);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(LineCancellationTest, a_line_that_another_terminal_corrected_is_taken_back_as_it_is_now) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  TapLine(id);
  Sql("Karvel.mdb", "UPDATE Datam SET Miktar=1, Tutar=50 WHERE DigerId='" + id + "'");
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=1, CikanTutar=50, KalanA=1 WHERE StokKod='1001'");
  messages.answers.push_back("Yes");
  Click("Command2");
  Fields card = Card("1001");
  EXPECT_EQ(card["CikanMik"], "0.0");
  EXPECT_EQ(card["CikanTutar"], "0.0");
}

TEST_F(LineCancellationTest, a_line_that_can_not_be_read_is_not_told_as_gone) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  messages.answers.push_back("Yes");
  engine.readFault = Status(ErrorKind::Busy, "kept by another program");
  Click("Command2");
  engine.readFault = {};
  EXPECT_EQ(messages.shown.back().text, "Başka bir terminal kayıt yapıyor. Kayıt yapılmadı; biraz bekleyip yeniden deneyin.");
  EXPECT_TRUE(At("Command2").Enabled());
  messages.answers.push_back("Yes");
  Click("Command2");
  EXPECT_EQ(Day(LastId())["Durum"], "Iptal");
  EXPECT_EQ(At("Durum").Caption(), "Silindi");
}

}  // namespace
}  // namespace karvel
