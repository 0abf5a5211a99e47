#include "books/correction.h"

#include <string>
#include <vector>

#include "tests/support/posted_lines.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class CorrectionBook : public PostedLines {
 protected:
  Correction Of(const std::string& id, double price, double quantity) {
    return {.dayBookRow = DayKey(id), .id = id, .price = price, .quantity = quantity, .amount = price * quantity};
  }
  void Correct(const std::string& id, double price, double quantity) {
    const Status corrected = CorrectLine(shop, Of(id, price, quantity));
    EXPECT_TRUE(corrected.Ok()) << corrected.Message();
  }
  void ExpectNoRecord(const Correction& correction) {
    const Texts before = AllRows();
    EXPECT_EQ(CorrectLine(shop, correction).Kind(), ErrorKind::NoRecord);
    EXPECT_EQ(AllRows(), before);
    EXPECT_FALSE(stores.InAction());
  }
};

TEST_F(CorrectionBook, rewrites_price_quantity_and_amount_and_nothing_else_of_the_rows) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 40, .cost = 12});
  PutDue("C001", "2026-03-01", 100);
  Fields day = Day("L1"), movement = Movement("L1"), ledger = Ledger("L1", "C001"), card = Card("1002"), customer = Customer("C001");
  Correct("L1", 18, 4);
  day["Fiyat"] = "18.0";
  day["Miktar"] = "4.0";
  day["Tutar"] = "72.0";
  movement["Miktar"] = "4.0";
  movement["Tutar"] = "72.0";
  movement["Kar"] = "52.0";
  ledger["Borc"] = "72.0";
  card["CikanMik"] = card["KalanA"] = "4.0";
  card["CikanTutar"] = "72.0";
  card["Kar"] = "52.0";
  customer["Borc"] = customer["Bakiye"] = "72.0";
  EXPECT_EQ(Day("L1"), day);
  EXPECT_EQ(Movement("L1"), movement);
  EXPECT_EQ(Ledger("L1", "C001"), ledger);
  EXPECT_EQ(Card("1002"), card);
  EXPECT_EQ(Customer("C001"), customer);
  EXPECT_EQ(Due("C001"), Texts{"100.0"});
}

TEST_F(CorrectionBook, the_new_profit_is_the_amount_of_before_less_the_new_cost) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 40, .cost = 12});
  PutLine({.id = "L2", .item = "1002", .price = 20, .quantity = 1, .profit = 8, .cost = 12});
  Correct("L1", 18, 4);
  EXPECT_EQ(Movement("L1")["Kar"], "52.0");  // 100 - 4 x 12
  EXPECT_EQ(Card("1002")["Kar"], "60.0");
  EXPECT_EQ(Day("L1")["Kar"], "40.0");
}

TEST_F(CorrectionBook, a_loss_becomes_profit_zero) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 40, .cost = 12});
  Correct("L1", 20, 10);
  EXPECT_EQ(Movement("L1")["Kar"], "0.0");
  EXPECT_EQ(Card("1002")["Kar"], "0.0");
  EXPECT_EQ(Card("1002")["CikanTutar"], "200.0");
}

TEST_F(CorrectionBook, an_item_that_counts_no_profit_gets_profit_zero) {
  PutLine({.id = "L1", .item = "1001", .quantity = 2, .profit = 5});
  Correct("L1", 45, 2);
  EXPECT_EQ(Movement("L1")["Kar"], "0.0");
  EXPECT_EQ(Card("1001")["Kar"], "0.0");
}

TEST_F(CorrectionBook, the_profit_of_the_movement_is_in_kurus_and_that_of_the_card_is_not_rounded_so) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 0, .cost = 12});
  Correct("L1", 20, 1.2346);
  EXPECT_EQ(Movement("L1")["Kar"], "85.18");  // 100 - 14.8152, in kuruş
  EXPECT_EQ(Card("1002")["Kar"], "85.1848");
}

TEST_F(CorrectionBook, fractions_survive_to_the_last_digit) {
  PutSale("L1");
  EXPECT_TRUE(CorrectLine(shop, {.dayBookRow = DayKey("L1"), .id = "L1", .price = 12.25, .quantity = 1.5, .amount = 18.38}).Ok());
  EXPECT_EQ(Movement("L1")["Miktar"], "1.5");
  EXPECT_EQ(Day("L1")["Tutar"], "18.38");
  EXPECT_EQ(Balance("C001"), "18.38|0.0|18.38|Borç");
}

TEST_F(CorrectionBook, the_amount_is_the_one_that_the_clerk_saw) {
  PutSale("L1");
  EXPECT_TRUE(CorrectLine(shop, {.dayBookRow = DayKey("L1"), .id = "L1", .price = 3.333, .quantity = 3, .amount = 10}).Ok());
  EXPECT_EQ(Day("L1")["Tutar"], "10.0");
  EXPECT_EQ(Balance("C001"), "10.0|0.0|10.0|Borç");
}

TEST_F(CorrectionBook, the_totals_stay_without_binary_dust) {
  for (const char* const id : {"L1", "L2", "L3"}) PutLine({.id = id, .item = "1001", .price = 0.1, .quantity = 1});
  EXPECT_TRUE(CorrectLine(shop, {.dayBookRow = DayKey("L3"), .id = "L3", .price = 0.7, .quantity = 0.7, .amount = 0.49}).Ok());
  EXPECT_EQ(Balance("C001"), "0.69|0.0|0.69|Borç");
  EXPECT_EQ(Card("1001")["CikanTutar"], "0.69");
  EXPECT_EQ(Card("1001")["CikanMik"], "2.7");
}

TEST_F(CorrectionBook, a_price_that_is_no_number_leaves_the_lines_own) {
  PutSale("L1");
  EXPECT_TRUE(CorrectLine(shop, {.dayBookRow = DayKey("L1"), .id = "L1", .price = {}, .quantity = 3, .amount = 0}).Ok());
  EXPECT_EQ(One("Karvel.mdb", "SELECT Fiyat, Miktar, Tutar FROM Datam"), "50.0|3.0|0.0");
}

TEST_F(CorrectionBook, only_the_line_itself_changes_among_others_of_its_customer_and_item) {
  for (const char* const id : {"L1", "L2", "L3"}) PutSale(id, 1);
  Correct("L2", 30, 1);
  const Texts amounts{"50.0", "30.0", "50.0"};
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Tutar FROM Datam ORDER BY DigerId"), amounts);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT Tutar FROM StokHareket ORDER BY DigerId"), amounts);
  EXPECT_EQ(Rows("Cari.mdb", "SELECT Borc FROM CariHareket ORDER BY DigerId"), amounts);
  EXPECT_EQ(Balance("C001"), "130.0|0.0|130.0|Borç");
}

TEST_F(CorrectionBook, a_return_is_corrected_as_a_sale) {
  PutSale("L1", 3);
  PutLine({.id = "L2", .mode = "İade", .quantity = 1});
  Correct("L2", 30, 2);
  EXPECT_EQ(Day("L2")["Durum"], "İade");
  EXPECT_EQ(Movement("L2")["Miktar"], "2.0");
  Fields card = Card("1001");
  EXPECT_EQ(card["CikanMik"], "4.0");  // 3 - 1 + 2, on the outgoing side
  EXPECT_EQ(card["CikanTutar"], "160.0");
  EXPECT_EQ(card["GirenMik"], "1.0");
  EXPECT_EQ(card["KalanA"], "3.0");
  EXPECT_EQ(Ledger("L2", "C001")["Borc"], "60.0");
  EXPECT_EQ(Ledger("L2", "C001")["Alacak"], "50.0");
  EXPECT_EQ(Balance("C001"), "210.0|50.0|160.0|Borç");
}

TEST_F(CorrectionBook, a_purchase_is_corrected_as_a_sale) {
  PutLine({.id = "L1", .mode = "Alış", .quantity = 5});
  Correct("L1", 50, 6);
  EXPECT_EQ(Day("L1")["Durum"], "Alış");
  Fields card = Card("1001");
  EXPECT_EQ(card["GirenMik"], "5.0");
  EXPECT_EQ(card["CikanMik"], "1.0");  // 0 - 5 + 6
  EXPECT_EQ(card["CikanTutar"], "50.0");
  EXPECT_EQ(card["KalanB"], "4.0");
  EXPECT_EQ(Balance("C001"), "300.0|250.0|50.0|Borç");
}

TEST_F(CorrectionBook, a_money_line_has_no_movement_and_takes_nobody_elses) {
  PutSale("L1", 3);
  PutCollection("L2", "C001", 60);
  const Fields movement = Movement("L1"), card = Card("1001");
  Correct("L2", 10, 2);
  EXPECT_EQ(One("Karvel.mdb", "SELECT Tutar, Tahsilat, Durum FROM Datam WHERE DigerId='L2'"), "20.0|60.0|Nakit");
  EXPECT_EQ(Movement("L1"), movement);
  EXPECT_EQ(Card("1001"), card);
}

TEST_F(CorrectionBook, of_the_two_rows_of_a_money_line_the_customers_own_is_rewritten) {
  PutSale("L1", 3);
  PutCollection("L2", "C001", 60);
  const Fields account = Ledger("L2", "=100");
  Correct("L2", 10, 2);
  EXPECT_EQ(Ledger("L2", "C001")["Borc"], "20.0");
  EXPECT_EQ(Ledger("L2", "C001")["Alacak"], "60.0");
  EXPECT_EQ(Ledger("L2", "=100"), account);
  EXPECT_EQ(Balance("C001"), "170.0|60.0|110.0|Borç");
  EXPECT_EQ(Balance("=100"), "60.0|0.0|60.0|Borç");
}

TEST_F(CorrectionBook, an_item_whose_card_is_gone_has_its_movement_rewritten_and_no_other_card) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 40, .cost = 12});
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1002'");
  const Texts cards = Rows("Stok.mdb", "SELECT * FROM StokKartlar");
  Correct("L1", 18, 4);
  EXPECT_EQ(One("Stok.mdb", "SELECT Miktar, Tutar, Kar FROM StokHareket"), "4.0|72.0|0.0");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT * FROM StokKartlar"), cards);
  EXPECT_EQ(Balance("C001"), "72.0|0.0|72.0|Borç");
}

TEST_F(CorrectionBook, a_line_whose_ledger_row_is_gone_leaves_the_customers_card) {
  PutSale("L1");
  PutSale("L2");
  Sql("Cari.mdb", "DELETE FROM CariHareket WHERE DigerId='L1'");
  const Fields other = Ledger("L2", "C001");
  Correct("L1", 30, 1);
  EXPECT_EQ(Day("L1")["Tutar"], "30.0");
  EXPECT_EQ(Movement("L1")["Tutar"], "30.0");
  EXPECT_EQ(Ledger("L2", "C001"), other);
  EXPECT_EQ(Balance("C001"), "200.0|0.0|200.0|Borç");
}

TEST_F(CorrectionBook, a_customer_whose_card_is_gone_has_his_row_rewritten_and_no_other_card) {
  PutSale("L1");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  const Texts cards = Rows("Cari.mdb", "SELECT * FROM CariKartlar");
  Correct("L1", 30, 1);
  EXPECT_EQ(Ledger("L1", "C001")["Borc"], "30.0");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM CariKartlar"), cards);
}

TEST_F(CorrectionBook, a_row_that_is_gone_is_not_corrected) {
  PutSale("L1");
  PutSale("L2");
  Correction correction = Of("L1", 30, 1);
  Sql("Karvel.mdb", "DELETE FROM Datam WHERE DigerId='L1'");
  ExpectNoRecord(correction);
  correction.dayBookRow = 0;
  ExpectNoRecord(correction);
}

TEST_F(CorrectionBook, a_row_that_bears_another_id_is_not_corrected) {
  PutSale("L1");
  PutSale("L2");
  Correction correction = Of("L1", 30, 1);
  correction.dayBookRow = DayKey("L2");
  ExpectNoRecord(correction);
}

TEST_F(CorrectionBook, a_line_without_an_id_is_nobodys_to_correct) {
  PutSale("");
  ExpectNoRecord(Of("", 30, 1));
}

TEST_F(CorrectionBook, a_line_that_was_cancelled_meanwhile_is_not_corrected) {
  PutSale("L1");
  Sql("Karvel.mdb", "UPDATE Datam SET Durum='Iptal'");
  ExpectNoRecord(Of("L1", 30, 1));
}

TEST_F(CorrectionBook, a_line_that_was_listed_as_cancelled_has_only_its_own_row_left) {
  PutSale("L1");
  PutSale("L2");
  Sql("Karvel.mdb", "UPDATE Datam SET Durum='Iptal' WHERE DigerId='L1'");
  Sql("Stok.mdb", "DELETE FROM StokHareket WHERE DigerId='L1'");
  Sql("Cari.mdb", "DELETE FROM CariHareket WHERE DigerId='L1'");
  const Texts goods = Rows("Stok.mdb", "SELECT * FROM StokKartlar"), cards = Rows("Cari.mdb", "SELECT * FROM CariKartlar");
  Correction correction = Of("L1", 30, 1);
  correction.listedAsCancelled = true;
  EXPECT_TRUE(CorrectLine(shop, correction).Ok());
  EXPECT_EQ(One("Karvel.mdb", "SELECT Fiyat, Tutar, Durum FROM Datam WHERE DigerId='L1'"), "30.0|30.0|Iptal");
  EXPECT_EQ(Movement("L2")["Tutar"], "100.0");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT * FROM StokKartlar"), goods);
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM CariKartlar"), cards);
}

TEST_F(CorrectionBook, another_terminals_correction_is_the_figure_that_is_taken_off) {
  PutSale("L1");
  Sql("Stok.mdb", "UPDATE StokHareket SET Miktar=3, Tutar=150");
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=3, CikanTutar=150 WHERE StokKod='1001'");
  Correct("L1", 50, 1);
  EXPECT_EQ(Card("1001")["CikanMik"], "1.0");
  EXPECT_EQ(Card("1001")["CikanTutar"], "50.0");
}

TEST_F(CorrectionBook, hidden_items_and_wholesalers_are_found_too) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET StokGizle=1 WHERE StokKod='1001'");
  PutLine({.id = "L1", .customer = "T001"});
  Correct("L1", 50, 3);
  EXPECT_EQ(Card("1001")["CikanMik"], "3.0");
  EXPECT_EQ(Balance("T001"), "150.0|0.0|150.0|Borç");
}

TEST_F(CorrectionBook, of_two_cards_with_one_code_the_one_that_the_list_shows_first_is_meant) {
  for (const char* const name : {"Zeytin", "Ay çekirdeği", "Açma"}) AddStock("9", name, "CikanMik=2, CikanTutar=100");
  Sql("Stok.mdb", "UPDATE StokKartlar SET StokGizle=1 WHERE StokAdi='Açma'");
  Sql("Stok.mdb", "INSERT INTO StokHareket(StokHarKod, Miktar, Tutar, DigerId) VALUES('9',2,100,'L1')");
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, StokKod, DigerId, yeni) VALUES('C001','9','L1',1)");
  Correct("L1", 50, 3);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT StokAdi, CikanMik FROM StokKartlar WHERE StokKod='9' ORDER BY rowid"),
            (Texts{"Zeytin|2.0", "Ay çekirdeği|3.0", "Açma|2.0"}));
}

TEST_F(CorrectionBook, codes_with_a_quote_in_them_are_found) {
  AddCustomer("O''1", "Oya''nın yeri");
  AddStock("S''1", "Taze ''Kaşar''");
  PutLine({.id = "L1", .customer = "O'1", .item = "S'1"});
  Correct("L1", 45, 3);
  EXPECT_EQ(Day("L1")["Tutar"], "135.0");
  EXPECT_EQ(Card("S''1")["CikanMik"], "3.0");
  EXPECT_EQ(Card("S''1")["CikanTutar"], "135.0");
  EXPECT_EQ(Ledger("L1", "O''1")["Borc"], "135.0");
  EXPECT_EQ(Balance("O''1"), "135.0|0.0|135.0|Borç");
}

TEST_F(CorrectionBook, the_side_of_the_stock_follows_the_new_quantity_rounded_to_three_places) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=10, KalanB=10 WHERE StokKod='1001'");
  PutSale("L1", 12);
  ASSERT_EQ(Card("1001")["KalanA"], "2.0");
  Correct("L1", 50, 9.9994);
  EXPECT_EQ(Card("1001")["KalanA"], "0.0");
  EXPECT_EQ(Card("1001")["KalanB"], "0.001");
}

TEST_F(CorrectionBook, the_customers_side_follows_the_new_amount) {
  Raise("C001", 0, 60);
  PutSale("L1");
  ASSERT_EQ(Balance("C001"), "100.0|60.0|40.0|Borç");
  Correct("L1", 50, 1);
  EXPECT_EQ(Balance("C001"), "50.0|60.0|10.0|Alacak");
}

TEST_F(CorrectionBook, the_amount_of_before_goes_off_before_the_new_one_comes_on) {
  PutSale("L1", 1);
  Sql("Cari.mdb", "UPDATE CariHareket SET Borc=100.1");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=100.1 WHERE CariKod='C001'");
  Correct("L1", 72.3, 1);
  EXPECT_EQ(Customer("C001")["Borc"], "72.3");  // to the last digit
}

TEST_F(CorrectionBook, a_fault_of_the_stores_corrects_nothing_and_says_what_it_was) {
  PutLine({.id = "L1", .item = "1002", .price = 20, .quantity = 5, .profit = 40, .cost = 12});
  const Correction correction = Of("L1", 18, 4);
  FailsWholeOrWorks([&] { return CorrectLine(shop, correction); });
  EXPECT_EQ(Balance("C001"), "72.0|0.0|72.0|Borç");
}

TEST_F(CorrectionBook, stores_that_are_not_open_say_so) {
  PutSale("L1");
  const Correction correction = Of("L1", 18, 4);
  stores.Close();
  EXPECT_EQ(CorrectLine(shop, correction).Kind(), ErrorKind::NotOpen);
}

}  // namespace
}  // namespace karvel
