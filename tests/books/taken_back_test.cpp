// Lines that the books wrote themselves, corrected, cancelled and wiped: what one book writes another must find.
#include <string>
#include <vector>

#include "books/cancellation.h"
#include "books/correction.h"
#include "books/money_movement.h"
#include "books/receipt.h"
#include "books/wiping.h"
#include "tests/support/sale_lines.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class TakenBack : public SaleLineFixture {
 protected:
  std::string Pay(const std::string& customer, double amount, MoneyDirection direction) {
    MoneyMovement movement;
    movement.customerCode = customer;
    movement.customerName = Customer(customer)["Unvan"];
    movement.amount = amount;
    movement.instrument = "Nakit";
    movement.direction = direction;
    const auto booked = BookMoneyMovement(shop, movement);
    EXPECT_TRUE(booked.has_value());
    return booked ? booked->id : std::string();
  }
  BookedReceipt Receive(const std::string& name, RowKey itemInFront, double quantity) {
    Receipt receipt;
    receipt.supplierCode = "T001";
    receipt.itemInFront = itemInFront;
    receipt.name = name;
    receipt.rowPrice = 40;
    receipt.cardPrice = 50;
    receipt.quantity = quantity;
    receipt.tax = 8;
    receipt.amount = 50 * quantity;
    const auto booked = BookReceipt(shop, receipt);
    EXPECT_TRUE(booked.has_value());
    return booked.value_or(BookedReceipt{});
  }
  void Cancel(const std::string& id) { EXPECT_TRUE(CancelLine(shop, {DayKey(id), false, 0, id}).Ok()); }
  void Correct(const std::string& id, double price, double quantity) {
    EXPECT_TRUE(CorrectLine(shop, {DayKey(id), id, false, price, quantity, price * quantity}).Ok());
  }
  std::string Count(const std::string& file, const std::string& from) { return One(file, "SELECT count(*) FROM " + from); }
  // "CikanMik|CikanTutar|GirenMik|GirenTutar|KalanA|KalanB".
  std::string Stock(const std::string& code) {
    return One("Stok.mdb",
               "SELECT CikanMik, CikanTutar, GirenMik, GirenTutar, KalanA, KalanB FROM StokKartlar WHERE StokKod='" + code + "'");
  }
};

TEST_F(TakenBack, a_cancelled_sale_leaves_the_cards_as_they_were_but_for_its_profit) {
  Fields item = Card("1002");
  const std::string id = Book(Line("1002", 5, 20));
  ASSERT_EQ(Stock("1002"), "5.0|100.0|0.0|0.0|5.0|0.0");
  Cancel(id);
  item["Kar"] = "40.0";
  EXPECT_EQ(Card("1002"), item);
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Due("C001"), Texts{});
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
}

TEST_F(TakenBack, a_cancelled_sale_in_packs_gives_the_pieces_back) {
  SaleLine line = Line("1001", 2, 540);
  line.priceName = PriceName::Second;
  const std::string id = Book(line);
  ASSERT_EQ(Card("1001")["CikanMik"], "24.0");
  Cancel(id);
  EXPECT_EQ(Stock("1001"), "0.0|0.0|0.0|0.0|0.0|0.0");
}

TEST_F(TakenBack, a_cancelled_purchase_takes_its_serials_along_when_it_was_posted_last) {
  SaleLine line = LineOf(LineMode::Purchase, "1001", 2, 50);
  line.serials = {"S1", "S2"};
  const std::string id = Book(line);
  ASSERT_EQ(Count("SeriNo.mdb", "SeriNo"), "2");
  Cancel(id);
  EXPECT_EQ(Count("SeriNo.mdb", "SeriNo"), "0");
  EXPECT_EQ(Balance("C001"), "100.0|100.0|0.0|Borç");
}

TEST_F(TakenBack, a_corrected_sale_is_cancelled_as_it_is_now) {
  const std::string id = Book(Line("1002", 5, 20));
  Correct(id, 18, 4);
  EXPECT_EQ(Stock("1002"), "4.0|72.0|0.0|0.0|4.0|0.0");
  EXPECT_EQ(Balance("C001"), "72.0|0.0|72.0|Borç");
  EXPECT_EQ(Due("C001"), Texts{"100.0"});
  Cancel(id);
  EXPECT_EQ(Stock("1002"), "0.0|0.0|0.0|0.0|0.0|0.0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Due("C001"), Texts{"28.0"});  // what was due stays with the amount of before
}

TEST_F(TakenBack, a_cancelled_collection_and_a_cancelled_payment_cross_the_totals_over) {
  Cancel(Pay("C001", 60, MoneyDirection::Collection));
  EXPECT_EQ(Balance("C001"), "60.0|60.0|0.0|Borç");
  EXPECT_EQ(Balance("=100"), "60.0|60.0|0.0|Borç");
  Cancel(Pay("T001", 75, MoneyDirection::Payment));
  EXPECT_EQ(Balance("T001"), "75.0|75.0|0.0|Borç");
  EXPECT_EQ(Balance("=100"), "135.0|135.0|0.0|Borç");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
}

TEST_F(TakenBack, a_cancelled_receipt_lowers_the_incoming_side_and_grows_the_suppliers_debit) {
  const BookedReceipt booked = Receive("Pirinç", Item("1001"), 2);
  ASSERT_EQ(Stock("1001"), "0.0|0.0|2.0|100.0|0.0|2.0");
  Cancel(booked.id);
  EXPECT_EQ(Day(booked.id)["Durum"], "Iptal");
  EXPECT_EQ(Stock("1001"), "0.0|0.0|0.0|0.0|0.0|0.0");
  EXPECT_EQ(Balance("T001"), "100.0|100.0|0.0|Borç");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
}

TEST_F(TakenBack, a_cancelled_receipt_of_a_new_product_leaves_its_card_empty) {
  const BookedReceipt booked = Receive("Bulgur", 0, 5);
  Cancel(booked.id);
  EXPECT_EQ(Stock("Bulgur"), "0.0|0.0|0.0|0.0|0.0|0.0");
}

TEST_F(TakenBack, a_receipt_of_a_known_product_is_corrected_on_that_products_card) {
  const BookedReceipt booked = Receive("Pirinç", Item("1001"), 2);
  Correct(booked.id, 50, 3);  // as a sale: on the outgoing side
  EXPECT_EQ(Stock("1001"), "1.0|50.0|2.0|100.0|0.0|1.0");
  EXPECT_EQ(Balance("T001"), "150.0|100.0|50.0|Borç");
}

TEST_F(TakenBack, a_wiped_customer_leaves_returns_and_purchases_in_the_stock) {
  Book(Line("1001", 3, 50));
  const std::string returned = Book(LineOf(LineMode::Return, "1001", 1, 50));
  const std::string bought = Book(LineOf(LineMode::Purchase, "1001", 4, 50));
  Pay("C001", 60, MoneyDirection::Collection);
  const std::string stock = Stock("1001");
  EXPECT_TRUE(WipeCustomer(shop, "C001").Ok());
  EXPECT_EQ(Rows("Stok.mdb", "SELECT DigerId FROM StokHareket ORDER BY rowid"), (Texts{returned, bought}));
  EXPECT_EQ(Stock("1001"), stock);
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Balance("=100"), "60.0|0.0|60.0|Borç");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod FROM CariHareket"), Texts{"=100"});
}

TEST_F(TakenBack, a_wiped_supplier_leaves_what_he_delivered) {
  const BookedReceipt booked = Receive("Bulgur", 0, 5);
  EXPECT_TRUE(WipeCustomer(shop, "T001").Ok());
  EXPECT_EQ(Movement(booked.id)["Miktar"], "5.0");
  EXPECT_EQ(Card("Bulgur")["GirenMik"], "5.0");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
}

}  // namespace
}  // namespace karvel
