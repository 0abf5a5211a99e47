#include "books/cancellation.h"

#include <string>
#include <vector>

#include "tests/support/posted_lines.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class CancellationBook : public PostedLines {
 protected:
  Cancellation Of(const std::string& id, RowKey itemInFront = 0, const std::string& lastPostedId = "") {
    return {DayKey(id), false, itemInFront, lastPostedId};
  }
  void Cancel(const Cancellation& cancellation) {
    const Status cancelled = CancelLine(shop, cancellation);
    EXPECT_TRUE(cancelled.Ok()) << cancelled.Message();
  }
  void Cancel(const std::string& id) { Cancel(Of(id)); }
  void ExpectNoRecord(const Cancellation& cancellation) {
    const Texts before = AllRows();
    EXPECT_EQ(CancelLine(shop, cancellation).Kind(), ErrorKind::NoRecord);
    EXPECT_EQ(AllRows(), before);
    EXPECT_FALSE(stores.InAction());
  }
  std::string Count(const std::string& file, const std::string& from) { return One(file, "SELECT count(*) FROM " + from); }
};

TEST_F(CancellationBook, a_sale_is_taken_back_and_stays_in_the_day_book_as_cancelled) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 40, .cost = 12});
  PutDue("C001", "2026-03-01", 100);
  Fields day = Day("L1"), card = Card("1002"), customer = Customer("C001");
  Cancel("L1");
  day["Durum"] = "Iptal";
  for (const char* const field : {"CikanMik", "CikanTutar", "KalanA"}) card[field] = "0.0";
  for (const char* const field : {"Borc", "Bakiye"}) customer[field] = "0.0";
  EXPECT_EQ(Day("L1"), day);
  EXPECT_EQ(Card("1002"), card);  // its profit is not taken back
  EXPECT_EQ(Customer("C001"), customer);
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Due("C001"), Texts{});
}

TEST_F(CancellationBook, a_sale_with_two_ledger_rows_takes_each_part_back_by_subtraction) {
  PutSale("L1", 1);
  Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Aciklama, Borc, Alacak, DigerId) VALUES('=110','Perakende satış',0,50,'L1')");
  Raise("=110", 0, 80);
  Cancel("L1");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Balance("=110"), "0.0|30.0|30.0|Alacak");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
}

TEST_F(CancellationBook, a_sale_is_one_in_capitals_too) {
  PutSale("L1", 1);
  Sql("Cari.mdb", "UPDATE CariHareket SET Aciklama='PİRİNÇ SATIŞ'");
  Cancel("L1");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
}

TEST_F(CancellationBook, a_collection_leaves_no_trace_but_totals_that_crossed_over) {
  PutSale("L1", 3);
  PutCollection("L2", "C001", 60);
  PutDue("C001", "2026-03-01", 90);
  const Fields card = Card("1001");
  Cancel("L2");
  EXPECT_EQ(Balance("C001"), "210.0|60.0|150.0|Borç");
  EXPECT_EQ(Balance("=100"), "60.0|60.0|0.0|Borç");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT DigerId, Durum FROM Datam"), Texts{"L1|Satış"});
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod FROM CariHareket"), Texts{"C001"});
  EXPECT_EQ(Due("C001"), Texts{"90.0"});  // not restored
  EXPECT_EQ(Card("1001"), card);
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "1");
}

TEST_F(CancellationBook, a_return_is_taken_back_from_the_incoming_side) {
  PutSale("L1", 3);
  PutLine({.id = "L2", .mode = "İade", .quantity = 1});
  ASSERT_EQ(Card("1001")["GirenMik"], "1.0");
  Cancel("L2");
  Fields card = Card("1001");
  EXPECT_EQ(card["GirenMik"], "0.0");
  EXPECT_EQ(card["GirenTutar"], "0.0");
  EXPECT_EQ(card["CikanMik"], "3.0");
  EXPECT_EQ(card["KalanA"], "3.0");
  EXPECT_EQ(Day("L2")["Durum"], "Iptal");
  EXPECT_EQ(Balance("C001"), "200.0|50.0|150.0|Borç");
}

TEST_F(CancellationBook, a_purchase_crosses_the_totals_over_and_shrinks_the_due_date) {
  PutLine({.id = "L1", .mode = "Alış"});
  PutDue("C001", "2026-03-01", 100);
  Cancel("L1");
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
  EXPECT_EQ(Card("1001")["GirenTutar"], "0.0");
  EXPECT_EQ(Balance("C001"), "100.0|100.0|0.0|Borç");
  EXPECT_EQ(Due("C001"), Texts{});
}

TEST_F(CancellationBook, what_is_left_of_the_stock_is_rounded_to_three_places) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=1.00049 WHERE StokKod='1001'");
  PutSale("L1");
  Cancel("L1");
  EXPECT_EQ(Card("1001")["KalanB"], "1.0");
  EXPECT_EQ(Card("1001")["KalanA"], "0.0");
}

TEST_F(CancellationBook, an_id_with_a_T_finds_its_ledger_rows_without_it_and_its_movement_with_it) {
  PutSale("1T2T3");
  Sql("Cari.mdb", "UPDATE CariHareket SET DigerId='123'");
  EXPECT_EQ(LedgerIdOf("1T2T3"), "123");
  Cancel("1T2T3");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Day("1T2T3")["Durum"], "Iptal");
}

TEST_F(CancellationBook, the_small_x_of_an_export_stands_in_nobodys_way) {
  PutSale("L1");
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='x'");
  Cancel("L1");
  EXPECT_EQ(Day("L1")["Durum"], "Iptal");
}

TEST_F(CancellationBook, a_second_cancel_of_a_line_listed_as_cancelled_wipes_its_row_and_touches_no_card) {
  PutSale("L1");
  PutSale("L2");
  Cancel("L1");
  Cancellation again = Of("L1");
  again.listedAsCancelled = true;
  Cancel(again);
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT DigerId FROM Datam"), Texts{"L2"});
  EXPECT_EQ(Balance("C001"), "100.0|0.0|100.0|Borç");
  EXPECT_EQ(Card("1001")["CikanMik"], "2.0");
}

TEST_F(CancellationBook, before_the_first_posting_of_a_run_no_serial_goes) {
  PutSale("L1");
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, DigerId) VALUES('S1','L1'),('S2','')");
  Cancel("L1");
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT barcode FROM SeriNo ORDER BY barcode"), (Texts{"S1", "S2"}));
}

TEST_F(CancellationBook, the_serials_that_go_are_those_of_the_line_posted_last) {
  PutSale("L1");
  PutSale("L2");
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, DigerId) VALUES('S1','L1'),('S2','L2'),('S3','L2')");
  Cancel(Of("L1", 0, "L2"));
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT barcode FROM SeriNo"), Texts{"S1"});
}

TEST_F(CancellationBook, a_line_without_an_id_takes_nobody_elses_rows) {
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, StokKod, Durum, Tarih) VALUES('C001','1001','Satış','2026-02-01 10:00:00')");
  Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Aciklama, Borc) VALUES('C002','Eski',40)");
  Sql("Stok.mdb", "INSERT INTO StokHareket(StokHarKod, Miktar) VALUES('1002',4)");
  Cancel("");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "1");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "1");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Balance("C002"), "0.0|0.0|0.0|");
}

TEST_F(CancellationBook, an_id_of_which_nothing_is_left_without_its_T_takes_no_rows_that_lack_one) {
  PutSale("T");
  Sql("Cari.mdb", "UPDATE CariHareket SET DigerId='', cariharkod='C002'");
  Cancel("T");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "1");
  EXPECT_EQ(Balance("C002"), "0.0|0.0|0.0|");
  EXPECT_EQ(Day("T")["Durum"], "Iptal");
}

TEST_F(CancellationBook, for_a_missing_customer_the_first_card_of_the_file_stands_in) {
  PutSale("L1");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  const std::string first = One("Cari.mdb", "SELECT CariKod FROM CariKartlar ORDER BY rowid LIMIT 1");
  Cancel("L1");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Balance(first), "-100.0|0.0|100.0|Alacak");
  EXPECT_EQ(Day("L1")["Durum"], "Iptal");
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
}

TEST_F(CancellationBook, for_a_missing_customer_behind_another_row_that_rows_card_stands_in) {
  PutCollection("L1", "C001", 60);
  Sql("Cari.mdb", "UPDATE CariHareket SET cariharkod='=150' WHERE cariharkod='=100'");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  Cancel("L1");
  EXPECT_EQ(Balance("=150"), "60.0|60.0|0.0|Borç");  // its own 60 and the customer's
  EXPECT_EQ(Balance("=100"), "60.0|0.0|60.0|Borç");
}

TEST_F(CancellationBook, in_a_file_without_cards_the_rows_go_all_the_same) {
  PutSale("L1");
  Sql("Cari.mdb", "DELETE FROM CariKartlar");
  Cancel("L1");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Day("L1")["Durum"], "Iptal");
}

TEST_F(CancellationBook, for_a_missing_stock_card_the_item_in_front_stands_in) {
  PutSale("L1");
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  Cancel(Of("L1", Item("1002")));
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
  EXPECT_EQ(One("Stok.mdb", "SELECT CikanMik, CikanTutar, KalanA, KalanB FROM StokKartlar WHERE StokKod='1002'"), "-2.0|-100.0|0.0|2.0");
  EXPECT_EQ(Day("L1")["Durum"], "Iptal");
}

TEST_F(CancellationBook, with_its_card_there_the_item_in_front_is_left_alone) {
  PutSale("L1");
  const Fields other = Card("1002");
  Cancel(Of("L1", Item("1002")));
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
  EXPECT_EQ(Card("1002"), other);
}

TEST_F(CancellationBook, without_a_card_and_without_an_item_in_front_nobody_takes_the_goods) {
  for (const RowKey itemInFront : {RowKey{0}, RowKey{999}}) {
    PutSale("L1");
    Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
    const Texts cards = Rows("Stok.mdb", "SELECT * FROM StokKartlar");
    Cancel(Of("L1", itemInFront));
    EXPECT_EQ(Rows("Stok.mdb", "SELECT * FROM StokKartlar"), cards);
    EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
    EXPECT_EQ(Day("L1")["Durum"], "Iptal");
    Sql("Karvel.mdb", "DELETE FROM Datam");
  }
}

TEST_F(CancellationBook, hidden_items_and_wholesalers_are_found_too) {
  PutLine({.id = "L1", .customer = "T001"});
  Sql("Stok.mdb", "UPDATE StokKartlar SET StokGizle=1 WHERE StokKod='1001'");
  Cancel("L1");
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
  EXPECT_EQ(Balance("T001"), "0.0|0.0|0.0|Borç");
}

TEST_F(CancellationBook, codes_with_a_quote_in_them_are_found) {
  AddCustomer("O''1", "Oya''nın yeri");
  AddStock("S''1", "Taze ''Kaşar''");
  PutLine({.id = "L''1", .customer = "O'1", .item = "S'1"});
  PutDue("O'1", "2026-03-01", 100);
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, DigerId) VALUES('S1','L''1')");
  Cancel(Of("L''1", 0, "L'1"));
  EXPECT_EQ(Day("L''1")["Durum"], "Iptal");
  EXPECT_EQ(Card("S''1")["CikanMik"], "0.0");
  EXPECT_EQ(Balance("O''1"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Due("O''1"), Texts{});
  EXPECT_EQ(Count("SeriNo.mdb", "SeriNo"), "0");
}

TEST_F(CancellationBook, an_amount_above_the_earliest_due_leaves_it_below_zero_and_the_next_alone) {
  PutSale("L1", 3);
  PutDue("C001", "2026-02-15", 200);
  PutDue("C001", "2026-01-05", 100);
  PutDue("C002", "2026-01-01", 150);
  Cancel("L1");
  EXPECT_EQ(Due("C001"), (Texts{"-50.0", "200.0"}));
  EXPECT_EQ(Due("C002"), Texts{"150.0"});
}

TEST_F(CancellationBook, a_row_that_is_gone_is_not_cancelled) {
  PutSale("L1");
  PutSale("L2");
  Cancellation cancellation = Of("L1", Item("1002"), "L2");
  Sql("Karvel.mdb", "DELETE FROM Datam WHERE DigerId='L1'");
  ExpectNoRecord(cancellation);
  cancellation.dayBookRow = 0;
  ExpectNoRecord(cancellation);
}

TEST_F(CancellationBook, a_line_that_was_cancelled_meanwhile_is_not_taken_back_twice) {
  PutSale("L1");
  PutDue("C001", "2026-03-01", 300);
  Sql("Karvel.mdb", "UPDATE Datam SET Durum='Iptal'");
  ExpectNoRecord(Of("L1", 0, "L1"));
}

TEST_F(CancellationBook, a_line_that_was_handed_on_meanwhile_stays) {
  PutSale("L1", 3);
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='X'");
  const auto before = AllRows();
  EXPECT_EQ(CancelLine(shop, Of("L1", 0, "L1")).Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(CancellationBook, a_line_that_another_terminal_corrected_is_taken_back_as_it_is_now) {
  PutSale("L1");
  const Cancellation asListed = Of("L1");
  Sql("Karvel.mdb", "UPDATE Datam SET Miktar=1, Tutar=50");
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=1, CikanTutar=50, KalanA=1 WHERE StokKod='1001'");
  Cancel(asListed);
  EXPECT_EQ(Card("1001")["CikanMik"], "0.0");
  EXPECT_EQ(Card("1001")["CikanTutar"], "0.0");
}

TEST_F(CancellationBook, a_fault_of_the_stores_takes_nothing_back_and_says_what_it_was) {
  PutSale("L1");
  PutDue("C001", "2026-03-01", 150);
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, DigerId) VALUES('S1','L1')");
  const Cancellation cancellation = Of("L1", 0, "L1");
  FailsWholeOrWorks([&] { return CancelLine(shop, cancellation); });
  EXPECT_EQ(Day("L1")["Durum"], "Iptal");
  EXPECT_EQ(Due("C001"), Texts{"50.0"});
}

TEST_F(CancellationBook, a_fault_of_the_stores_wipes_no_line_of_money) {
  PutCollection("L1", "C001", 60);
  const Cancellation cancellation = Of("L1");
  FailsWholeOrWorks([&] { return CancelLine(shop, cancellation); });
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
}

TEST_F(CancellationBook, a_fault_of_the_stores_puts_no_goods_on_the_item_in_front) {
  PutSale("L1");
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  const Cancellation cancellation = Of("L1", Item("1002"));
  FailsWholeOrWorks([&] { return CancelLine(shop, cancellation); });
  EXPECT_EQ(Card("1002")["CikanMik"], "-2.0");
}

TEST_F(CancellationBook, a_line_that_cant_be_read_is_not_gone_also_within_an_open_action) {
  PutSale("L1");
  const Cancellation cancellation = Of("L1");
  Action action(stores, "two at once");
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  EXPECT_EQ(CancelLine(shop, cancellation).Kind(), ErrorKind::Other);
  engine.readFault = {};
  EXPECT_EQ(action.Finish().Kind(), ErrorKind::Other);
}

TEST_F(CancellationBook, it_joins_an_action_that_is_open) {
  PutSale("L1");
  const Texts before = AllRows();
  Action action(stores, "two at once");
  Cancel("L1");
  EXPECT_TRUE(stores.InAction());
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  EXPECT_FALSE(action.Finish().Ok());
  EXPECT_EQ(AllRows(), before);
}

}  // namespace
}  // namespace karvel
