// The cards that a line stands on: the customer's, also one that the line makes, and the item's.
#include <string>
#include <vector>

#include "tests/support/sale_lines.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class SaleLineCardsTest : public SaleLineFixture {
 protected:
  std::string Stock(const std::string& code) {
    return One("Stok.mdb", "SELECT GirenMik, CikanMik, KalanA, KalanB FROM StokKartlar WHERE StokKod='" + code + "'");
  }
};

TEST_F(SaleLineCardsTest, a_line_makes_its_own_customer_once) {
  SaleLine line = Line("1001", 1, 50);
  line.customerCode = "C099";
  line.customerName = "Çok Uzun Adlı Müşteri Ticaret";
  const auto booked = BookSaleLine(shop, line);
  ASSERT_TRUE(booked);
  EXPECT_EQ(booked->customerCode, "Çok Uzun Adlı Müşter");
  Fields customer = Customer("Çok Uzun Adlı Müşter");
  EXPECT_EQ(customer["Unvan"], "Çok Uzun Adlı Müşteri Ticaret");
  EXPECT_EQ(customer["Borc"], "50.0");
  EXPECT_EQ(customer["Gurup"], "");
  EXPECT_EQ(customer["yeni"], "1.0");
  EXPECT_EQ(Day(booked->id)["CariKod"], "Çok Uzun Adlı Müşter");
  EXPECT_EQ(Day(booked->id)["CariAd"], "Çok Uzun Adlı Müşteri Ticaret");
  EXPECT_EQ(Movement(booked->id)["Carisi"], "Çok Uzun Adlı Müşter");
  EXPECT_EQ(LedgerRow(booked->id)["cariharkod"], "Çok Uzun Adlı Müşter");
  EXPECT_EQ(Due("Çok Uzun Adlı Müşter"), Lines{"50.0"});
  line.customerCode = booked->customerCode;
  Book(line);
  EXPECT_EQ(Customer("Çok Uzun Adlı Müşter")["Borc"], "100.0");
}

TEST_F(SaleLineCardsTest, a_customer_whom_another_terminals_line_made_is_not_made_again) {
  SaleLine line = Line("1001", 1, 50);
  line.customerCode = "C099";
  line.customerName = "Ali Kaya";
  Book(line);
  const auto second = BookSaleLine(shop, line);  // still under the code that is gone
  ASSERT_TRUE(second);
  EXPECT_EQ(second->customerCode, "Ali Kaya");
  EXPECT_EQ(second->balance.amount, 100);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE Unvan='Ali Kaya'"), "1");
}

TEST_F(SaleLineCardsTest, a_customer_is_found_among_all_cards) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET HesKullan=1 WHERE CariKod='C001'");
  Book(Line("1001", 1, 50));
  SaleLine line = Line("1001", 1, 50);
  line.customerCode = "T001";
  Book(line);
  EXPECT_EQ(Customer("C001")["Borc"], "50.0");
  EXPECT_EQ(Customer("T001")["Borc"], "50.0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "8");
}

TEST_F(SaleLineCardsTest, the_rows_bear_the_cards_names_and_not_the_screens) {
  SaleLine line = Line("1001", 1, 50);
  line.customerCode = "c001";
  line.customerName = "Ayşe";
  const auto booked = BookSaleLine(shop, line);
  ASSERT_TRUE(booked);
  EXPECT_EQ(booked->customerCode, "C001");
  EXPECT_EQ(Day(booked->id)["CariKod"], "C001");
  EXPECT_EQ(Day(booked->id)["CariAd"], "Ayşe Yılmaz");
}

TEST_F(SaleLineCardsTest, of_two_items_with_one_code_the_one_in_front_is_sold) {
  Sql("Stok.mdb", "INSERT INTO StokKartlar(StokKod, StokAdi, Birim) VALUES('1001','Pirinç (Baldo)','Kg')");
  SaleLine line = Line("1002", 1, 50);
  line.itemInFront = std::stoll(One("Stok.mdb", "SELECT rowid FROM StokKartlar WHERE Birim='Kg'"));
  const std::string id = Book(line);
  EXPECT_EQ(Day(id)["StokAd"], "Pirinç (Baldo)");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT CikanMik FROM StokKartlar WHERE StokKod='1001' ORDER BY rowid"), (Lines{"0.0", "1.0"}));
}

TEST_F(SaleLineCardsTest, a_hidden_item_is_sold_as_any_other) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET StokGizle=1 WHERE StokKod='1001'");
  Book(Line("1001", 1, 50));
  EXPECT_EQ(Card("1001")["CikanMik"], "1.0");
}

TEST_F(SaleLineCardsTest, quotes_in_codes_and_names_change_nothing) {
  AddCustomer("O''1", "O''Neil");
  AddStock("S''1", "Taze ''Kaşar''", "Gurup='Süt''lük', Birim='Kg''', Barkod='8''6'");
  SaleLine line = LineOf(LineMode::Purchase, "S''1", 2, 45);
  line.customerCode = "O'1";
  line.customerName = "O'Neil";
  line.salesmanGroup = "Bayi'ler";
  line.itemSerial = "SER'9";
  line.serials = {"SN'1"};
  const std::string first = Book(line);
  line.price = 44;
  Book(line);
  EXPECT_EQ(Movement(first)["StokHarKod"], "S'1");
  EXPECT_EQ(Movement(first)["Aciklama"], "Taze 'Kaşar' Alış İle");
  EXPECT_EQ(Movement(first)["Plasiyer"], "Bayi'ler");
  EXPECT_EQ(Movement(first)["Barkod"], "8'6");
  EXPECT_EQ(Movement(first)["SeriNo"], "SER'9");
  EXPECT_EQ(Day(first)["CariAd"], "O'Neil");
  EXPECT_EQ(Day(first)["Gurup"], "Süt'lük");
  EXPECT_EQ(LedgerRow(first)["Birim"], "Kg'");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), Lines{"S'1|O'1|44.0|0.0|0.0"});
  EXPECT_EQ(Due("O''1"), Lines{"180.0"});
  EXPECT_EQ(Balance("O''1"), "0.0|180.0|180.0|Alacak");
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT barcode FROM SeriNo"), (Lines{"SN'1", "SN'1"}));
  EXPECT_EQ(Stock("S''1"), "4.0|0.0|0.0|4.0");
}

TEST_F(SaleLineCardsTest, a_customer_with_a_quote_in_his_name_is_made_too) {
  SaleLine line = Line("1001", 1, 50);
  line.customerCode = "'";
  line.customerName = "Ali'nin Yeri";
  Book(line);
  EXPECT_EQ(Balance("Ali''nin Yeri"), "50.0|0.0|50.0|Borç");
}

TEST_F(SaleLineCardsTest, stock_is_on_hand_or_oversold) {
  Book(LineOf(LineMode::Purchase, "1003", 5, 6));
  EXPECT_EQ(Stock("1003"), "5.0|0.0|0.0|5.0");
  Book(Line("1003", 5, 8));
  EXPECT_EQ(Stock("1003"), "5.0|5.0|0.0|0.0");
  Book(Line("1003", 0.5, 8));
  EXPECT_EQ(Stock("1003"), "5.0|5.5|0.5|0.0");
  Book(LineOf(LineMode::Return, "1003", 0.75, 8));
  EXPECT_EQ(Stock("1003"), "5.75|5.5|0.0|0.25");
}

TEST_F(SaleLineCardsTest, stock_figures_keep_six_places_and_the_rest_three) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=1.00000049, CikanMik=0.1234567 WHERE StokKod='1003'");
  Book(Line("1003", 0.3, 8));
  EXPECT_EQ(Stock("1003"), "1.00000049|0.423457|0.0|0.577");
}

TEST_F(SaleLineCardsTest, a_balance_of_nothing_is_nobodys_credit) {
  Book(Line("1001", 1, 50));
  Book(LineOf(LineMode::Return, "1001", 1, 50));
  EXPECT_EQ(Balance("C001"), "50.0|50.0|0.0|Borç");
  Book(LineOf(LineMode::Return, "1001", 1, 0.01));
  EXPECT_EQ(Balance("C001"), "50.0|50.01|0.01|Alacak");
}

TEST_F(SaleLineCardsTest, a_balance_is_rounded_to_kurus_and_its_sums_are_not) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=10.004 WHERE CariKod='C001'");
  const auto booked = BookSaleLine(shop, LineOf(LineMode::Return, "1001", 1, 0.5));
  ASSERT_TRUE(booked);
  EXPECT_EQ(booked->balance.amount, 9.5);
  EXPECT_EQ(Balance("C001"), "10.004|0.5|9.5|Borç");
}

}  // namespace
}  // namespace karvel
