#include "books/wiping.h"

#include <string>
#include <vector>

#include "tests/support/posted_lines.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class WipingBook : public PostedLines {
 protected:
  void Wipe(const std::string& code) {
    const Status wiped = WipeCustomer(shop, code);
    EXPECT_TRUE(wiped.Ok()) << wiped.Message();
  }
  std::string Count(const std::string& file, const std::string& from) { return One(file, "SELECT count(*) FROM " + from); }
  // "CikanMik|CikanTutar|KalanA|KalanB".
  std::string Stock(const std::string& code) {
    return One("Stok.mdb", "SELECT CikanMik, CikanTutar, KalanA, KalanB FROM StokKartlar WHERE StokKod='" + code + "'");
  }
};

TEST_F(WipingBook, a_history_goes_and_the_card_stays_with_no_balance) {
  PutSale("L1", 3);
  PutCollection("L2", "C001", 60);
  PutLine({.id = "L3", .customer = "C002", .quantity = 1});
  Sql("Cari.mdb", "UPDATE CariKartlar SET dBorc=1, eBorc=2, dBakiye=3, eBakiye=4, Telefon='0232' WHERE CariKod='C001'");
  Fields card = Customer("C001");
  Wipe("C001");
  for (const char* const field : {"Borc", "Alacak", "dBorc", "eBorc", "Bakiye", "dBakiye", "eBakiye"}) card[field] = "0.0";
  card["Hesap"] = "Borç";
  EXPECT_EQ(Customer("C001"), card);
  // The others keep theirs.
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod, DigerId FROM CariHareket ORDER BY rowid"), (Texts{"=100|L2", "C002|L3"}));
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT DigerId FROM Datam"), Texts{"L3"});
  EXPECT_EQ(Rows("Stok.mdb", "SELECT DigerId FROM StokHareket"), Texts{"L3"});
  EXPECT_EQ(Balance("C002"), "50.0|0.0|50.0|Borç");
}

TEST_F(WipingBook, a_credit_is_gone_too_and_reads_debit) {
  PutCollection("L1", "C001", 60);
  ASSERT_EQ(Balance("C001"), "0.0|60.0|60.0|Alacak");
  Wipe("C001");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
}

TEST_F(WipingBook, due_dates_and_the_money_accounts_stay_as_they_were) {
  PutSale("L1", 3);
  PutCollection("L2", "C001", 60);
  PutDue("C001", "2026-03-01", 90);
  const Fields account = Customer("=100"), row = Ledger("L2", "=100");
  Wipe("C001");
  EXPECT_EQ(Due("C001"), Texts{"90.0"});
  EXPECT_EQ(Customer("=100"), account);
  EXPECT_EQ(Ledger("L2", "=100"), row);
}

TEST_F(WipingBook, the_stock_is_not_taken_back_for_his_code_is_no_items_code) {
  PutSale("L1", 3);
  const Texts cards = Rows("Stok.mdb", "SELECT * FROM StokKartlar");
  Wipe("C001");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT * FROM StokKartlar"), cards);
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
}

TEST_F(WipingBook, an_item_with_his_code_takes_the_goods_back_unrounded) {
  AddStock("C001", "Aynı Kod", "CikanMik=10.0625, CikanTutar=900, GirenMik=9, KalanA=1.063, Kar=7");
  PutSale("L1", 3);
  Wipe("C001");
  EXPECT_EQ(Stock("C001"), "7.0625|750.0|0.0|1.9375");
  EXPECT_EQ(Card("C001")["Kar"], "7.0");
  EXPECT_EQ(Card("1001")["CikanMik"], "3.0");
}

TEST_F(WipingBook, an_item_with_his_code_that_stays_oversold_counts_so_unrounded) {
  AddStock("C001", "Aynı Kod", "CikanMik=10.0625, GirenMik=2, KalanA=8.063, KalanB=4");
  PutSale("L1", 3);
  Wipe("C001");
  EXPECT_EQ(Stock("C001"), "7.0625|-150.0|5.0625|0.0");
}

TEST_F(WipingBook, as_much_in_as_out_leaves_both_sides_at_zero) {
  AddStock("C001", "Aynı Kod", "CikanMik=10, GirenMik=7, KalanA=3, KalanB=4");
  PutSale("L1", 3);
  Wipe("C001");
  EXPECT_EQ(Stock("C001"), "7.0|-150.0|0.0|0.0");
}

TEST_F(WipingBook, each_sale_goes_back_on_the_item_with_his_code_also_when_it_is_hidden) {
  AddStock("c001", "Aynı Kod", "CikanMik=20, StokGizle=1");
  for (int i = 0; i < 12; ++i) PutSale("L" + std::to_string(i), 1);
  Wipe("C001");
  EXPECT_EQ(Card("c001")["CikanMik"], "8.0");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
}

TEST_F(WipingBook, a_movement_that_was_no_sale_stays_as_it_is_and_the_rest_goes_on) {
  AddStock("C001", "Aynı Kod", "GirenMik=10, KalanB=10");
  PutSale("L1", 3);
  PutLine({.id = "L2", .mode = "İade", .quantity = 1});
  PutLine({.id = "L3", .mode = "Alış", .quantity = 4});
  PutSale("L4", 1);
  const Fields returned = Movement("L2"), bought = Movement("L3");
  Wipe("C001");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT DigerId FROM StokHareket ORDER BY rowid"), (Texts{"L2", "L3"}));
  EXPECT_EQ(Movement("L2"), returned);
  EXPECT_EQ(Movement("L3"), bought);
  EXPECT_EQ(Stock("C001"), "-4.0|-200.0|0.0|14.0");
  EXPECT_EQ(Card("1001")["GirenMik"], "5.0");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
}

TEST_F(WipingBook, cancelled_lines_go_with_the_others) {
  PutSale("L1", 3);
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, DigerId, Durum) VALUES('C001','L2','Iptal')");
  Wipe("C001");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
}

TEST_F(WipingBook, a_customer_without_a_history_keeps_a_card_of_nothing) {
  Wipe("C001");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
}

TEST_F(WipingBook, a_customer_with_a_quote_in_his_code_is_wiped) {
  AddCustomer("O''1", "Oya''nın yeri");
  AddStock("O''1", "Aynı ''Kod''", "CikanMik=5");
  PutLine({.id = "L1", .customer = "O'1"});
  Wipe("O'1");
  EXPECT_EQ(Balance("O''1"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Card("O''1")["CikanMik"], "3.0");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
}

TEST_F(WipingBook, of_a_customer_whose_card_is_gone_nothing_is_wiped) {
  PutSale("L1", 3);
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  const Texts before = AllRows();
  EXPECT_EQ(WipeCustomer(shop, "C001").Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
  EXPECT_FALSE(stores.InAction());
}

TEST_F(WipingBook, a_fault_of_the_stores_wipes_nothing_and_says_what_it_was) {
  AddStock("C001", "Aynı Kod", "CikanMik=20");
  for (int i = 0; i < 3; ++i) PutSale("L" + std::to_string(i), 1);
  FailsWholeOrWorks([this] { return WipeCustomer(shop, "C001"); });
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Card("C001")["CikanMik"], "17.0");
}

TEST_F(WipingBook, a_card_that_another_terminal_has_posted_to_meanwhile_is_not_deleted) {
  const RowKey card = CustomerKey("C001");
  PutSale("L1", 3);
  const Texts before = AllRows();
  EXPECT_EQ(DeleteCustomerCard(shop, card).Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
  EXPECT_FALSE(stores.InAction());
}

TEST_F(WipingBook, a_clean_card_is_deleted_and_its_day_book_and_due_dates_stay) {
  PutSale("L1", 3);
  Sql("Cari.mdb", "DELETE FROM CariHareket");
  PutDue("C001", "2026-03-01", 90);
  const RowKey card = CustomerKey("C001");
  EXPECT_TRUE(DeleteCustomerCard(shop, card).Ok());
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='C001'"), "0");
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='C002'"), "1");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "1");
  EXPECT_EQ(Due("C001"), Texts{"90.0"});
}

TEST_F(WipingBook, of_two_cards_with_one_code_the_one_that_was_named_is_deleted) {
  AddCustomer("C002", "İkinci");
  const std::string key = One("Cari.mdb", "SELECT rowid FROM CariKartlar WHERE Unvan='İkinci'");
  EXPECT_TRUE(DeleteCustomerCard(shop, std::stoll(key)).Ok());
  EXPECT_EQ(Rows("Cari.mdb", "SELECT Unvan FROM CariKartlar WHERE CariKod='C002'"), Texts{"Burak Demir"});
}

TEST_F(WipingBook, a_card_that_is_gone_is_not_deleted_again) {
  const RowKey card = CustomerKey("C001");
  EXPECT_TRUE(DeleteCustomerCard(shop, card).Ok());
  const Texts before = AllRows();
  for (const RowKey gone : {card, RowKey{0}}) EXPECT_EQ(DeleteCustomerCard(shop, gone).Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(WipingBook, a_fault_of_the_stores_deletes_no_card_and_says_what_it_was) {
  const RowKey card = CustomerKey("C001");
  FailsWholeOrWorks([&] { return DeleteCustomerCard(shop, card); });
}

}  // namespace
}  // namespace karvel
