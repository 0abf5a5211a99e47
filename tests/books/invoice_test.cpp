#include "books/invoice.h"

#include <string>
#include <vector>

#include "tests/support/invoice_shop.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class InvoiceBook : public InvoiceShop {
 protected:
  std::string Sums(const std::string& number) {
    return One("Fatura.mdb", "SELECT FatTop, FatKdvTut, Toplam FROM Faturalar WHERE FaturaNo='" + number + "'");
  }
  Texts Marks() { return Rows("Karvel.mdb", "SELECT DigerId || ' ' || Aciklama FROM Datam ORDER BY DigerId"); }
};

TEST_F(InvoiceBook, one_line_writes_every_field_of_every_row) {
  Put({"L1"});
  const Invoice booked = Book(Order());
  const Fields line{{"FatHarNo", "S000001"},
                    {"FatGirisCikis", "0.0"},
                    {"Tarih", "2026-03-01 10:15:00"},
                    {"FatCari", "C001"},
                    {"FatStok", "1001"},
                    {"FatAciklama", "Pirinç"},
                    {"FatKdv", "18.0"},
                    {"Nerde", "F"},
                    {"DigerId", "10000000261"},
                    {"SeriNoDiger", "100000000261"},
                    {"Birim", "Adet"},
                    {"FatMiktar", "2.0"},
                    {"Fiyat", "0.0"},
                    {"FatFiyat", "50.0"},
                    {"Kdvsi", "18.0"},
                    {"FatTutar", "100.0"},
                    {"FatTotal", "100.0"},
                    {"Maliyet", "0.0"},
                    {"FatKar", "100.0"},
                    {"yeni", "1.0"}};
  EXPECT_EQ(RowOf("Fatura.mdb", "FatHareket"), line);

  const Fields sums{{"FaturaNo", "S000001"},  {"FatTarih", "2026-03-01 10:15:00"},
                    {"FatCari", "C001"},      {"FatGirisCikis", "0.0"},
                    {"Nakit", "1.0"},         {"DigerId", "10000000261"},
                    {"Unvan", "Ayşe Yılmaz"}, {"yeni", "1.0"},
                    {"FatTop", "100.0"},      {"FatKdvTut", "18.0"},
                    {"Toplam", "118.0"},      {"Gurup", "Müşteri"},
                    {"FatKar", "100.0"}};
  EXPECT_EQ(RowOf("Fatura.mdb", "Faturalar"), sums);

  const Fields ledger{{"cariharkod", "=110"},
                      {"Tarih", "2026-03-01 10:15:00"},
                      {"Aciklama", "S000001 Fatura ile"},
                      {"Bilgi1", ""},
                      {"Bilgi2", ""},
                      {"Birim", ""},
                      {"Borc", "18.0"},
                      {"Alacak", "0.0"},
                      {"Carisi", ""},
                      {"Unvan", ""},
                      {"DigerId", "10000000261"},
                      {"Nerde", "F"},
                      {"Miktar", "0.0"},
                      {"Fiyat", "0.0"},
                      {"yeni", "1.0"},
                      {"Gurup", ""}};
  EXPECT_EQ(RowOf("Cari.mdb", "CariHareket"), ledger);
  EXPECT_EQ(Balance("=110"), "18.0|0.0|18.0|Borç");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|");
  Fields day = Day("L1");
  EXPECT_EQ(day["Aciklama"], "FatNo S000001");
  EXPECT_EQ(day["Sec"], "X");

  EXPECT_EQ(booked.number, "S000001");
  EXPECT_EQ(booked.id, "10000000261");
  EXPECT_EQ(booked.customerName, "Ayşe Yılmaz");
  EXPECT_EQ(booked.lines.size(), 1U);
  EXPECT_EQ(booked.total, 118);
}

TEST_F(InvoiceBook, prices_with_their_tax_have_it_taken_out) {
  Put({"L1"});
  Put({.id = "L2", .item = "1002", .price = 10.8, .quantity = 1});
  const Invoice booked = Book(Order("S000001", TaxMode::Included));
  EXPECT_EQ(Sums("S000001"), "110.8|16.05|110.8");
  EXPECT_EQ(booked.taxes.Entries()[0].tax, 15.25);  // 100 less 100 / 1,18 = 84,7457…
  EXPECT_EQ(booked.taxes.Entries()[1].tax, 0.8);
  EXPECT_EQ(Balance("=110"), "16.05|0.0|16.05|Borç");
}

TEST_F(InvoiceBook, lines_of_one_rate_are_summed_and_rates_stand_in_the_order_of_the_lines) {
  Put({.id = "L1", .item = "1002", .price = 0.99, .quantity = 1, .time = "2026-03-01 09:00:00"});
  Put({.id = "L2", .time = "2026-03-01 09:01:00"});
  Put({.id = "L3", .item = "1002", .price = 0.99, .quantity = 1, .time = "2026-03-01 09:02:00"});
  const Invoice booked = Book(Order());
  EXPECT_EQ(booked.taxes.Entries()[0].rate, 8);
  EXPECT_EQ(booked.taxes.Entries()[0].tax, 0.16);
  EXPECT_EQ(booked.taxes.Entries()[1].rate, 18);
  EXPECT_EQ(Sums("S000001"), "101.98|18.16|120.14");
  EXPECT_EQ(Rows("Fatura.mdb", "SELECT FatStok, Kdvsi FROM FatHareket ORDER BY rowid"), (Texts{"1002|0.08", "1001|18.0", "1002|0.08"}));
}

TEST_F(InvoiceBook, a_line_without_tax_takes_no_rates_place) {
  Put({.id = "L1", .item = "1003", .price = 8, .quantity = 1, .time = "2026-03-01 09:00:00"});
  Put({.id = "L2", .time = "2026-03-01 09:01:00"});
  const Invoice booked = Book(Order());
  EXPECT_EQ(booked.taxes.Entries()[0].rate, 18);
  EXPECT_EQ(booked.taxes.Entries()[0].tax, 18);
  EXPECT_EQ(Sums("S000001"), "108.0|18.0|126.0");
}

TEST_F(InvoiceBook, six_rates_have_their_places_and_a_seventh_is_refused_before_anything_is_written) {
  for (int i = 1; i <= 7; ++i) {
    const std::string code = fmt::format("R{}", i);
    AddStock(code, code, fmt::format("Kdv={}", i));
    Put({.id = fmt::format("L{}", i), .item = code, .price = 100, .quantity = 1, .tick = i == 7 ? "" : "X"});
  }
  EXPECT_EQ(Book(Order()).taxes.Entries()[5].tax, 6);
  Sql("Karvel.mdb", "UPDATE Datam SET Sec='X', Aciklama=''");
  const Texts before = AllRows();
  const Outcome<Invoice> refused = BookInvoice(shop, Order("S000002"));
  ASSERT_FALSE(refused.has_value());
  EXPECT_EQ(refused.error().Kind(), ErrorKind::BadText);
  EXPECT_EQ(AllRows(), before);
  EXPECT_FALSE(stores.InAction());
}

TEST_F(InvoiceBook, only_the_ticked_sales_of_the_customers_day_go_on_it) {
  Put({"A1"});
  Put({.id = "A2", .tick = ""});
  Put({.id = "A3", .customer = "C002"});
  Put({.id = "A4", .time = "2026-02-28 23:59:59"});
  Put({.id = "A5", .state = "İade"});
  Put({.id = "A6", .state = "Iptal"});
  Put({.id = "A7", .time = "2026-03-01 23:59:59"});
  Put({.id = "A8", .description = "FatNo S000000"});
  EXPECT_EQ(Book(Order()).lines.size(), 2U);
  EXPECT_EQ(Marks(), (Texts{"A1 FatNo S000001", "A2 ", "A3 ", "A4 ", "A5 ", "A6 ", "A7 FatNo S000001", "A8 FatNo S000000"}));
}

TEST_F(InvoiceBook, no_line_goes_on_two_invoices) {
  Put({"L1"});
  Book(Order());
  const Texts before = AllRows();
  EXPECT_TRUE(Book(Order("S000002")).lines.empty());
  EXPECT_EQ(AllRows(), before);
}

TEST_F(InvoiceBook, without_a_ticked_line_nothing_is_written_and_no_number_is_taken) {
  Put({.id = "L1", .tick = ""});
  const Texts before = AllRows();
  const Invoice booked = Book(Order());
  EXPECT_TRUE(booked.lines.empty());
  EXPECT_EQ(booked.id, "");
  EXPECT_EQ(AllRows(), before);
}

TEST_F(InvoiceBook, a_number_that_an_invoice_bears_is_counted_on) {
  Sql("Fatura.mdb", "INSERT INTO Faturalar(FaturaNo) VALUES('S000001'),('S000002')");
  Put({"L1"});
  EXPECT_EQ(Book(Order()).number, "S000003");
  EXPECT_EQ(Day("L1")["Aciklama"], "FatNo S000003");
  EXPECT_EQ(RowOf("Fatura.mdb", "FatHareket")["FatHarNo"], "S000003");
  EXPECT_EQ(RowOf("Cari.mdb", "CariHareket")["Aciklama"], "S000003 Fatura ile");
}

TEST_F(InvoiceBook, two_terminals_with_one_number_in_sight_get_two) {
  Put({"L1"});
  EXPECT_EQ(Book(Order()).number, "S000001");
  Put({"L2"});
  terminalNo = "02";
  const Invoice booked = Book(Order());
  EXPECT_EQ(booked.number, "S000002");
  EXPECT_EQ(booked.id, "20000000262");
}

TEST_F(InvoiceBook, a_missing_tax_account_is_made_and_no_other_card_takes_its_place) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='=110'");
  const std::string first = Balance("=100");
  Put({"L1"});
  Book(Order());
  EXPECT_EQ(Balance("=110"), "18.0|0.0|18.0|Borç");
  EXPECT_EQ(Balance("=100"), first);
  Put({"L2"});
  Book(Order("S000002"));
  EXPECT_EQ(Balance("=110"), "36.0|0.0|36.0|Borç");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='=110'"), "1");
}

TEST_F(InvoiceBook, the_tax_comes_off_what_the_account_is_owed) {
  Raise("=110", 0, 30.1);
  Put({"L1"});
  Book(Order());
  EXPECT_EQ(Balance("=110"), "18.0|30.1|12.1|Alacak");
}

TEST_F(InvoiceBook, the_card_of_a_hidden_item_is_found) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET StokGizle=1 WHERE StokKod='1001'");
  Put({"L1"});
  EXPECT_EQ(Book(Order()).lines.front().itemName, "Pirinç");
}

TEST_F(InvoiceBook, the_item_in_front_stands_in_for_a_card_that_is_gone) {
  Put({.id = "L1", .item = "9999"});
  InvoiceOrder order = Order();
  order.itemInFront = Item("1002");
  const Invoice booked = Book(order);
  EXPECT_EQ(booked.lines.front().itemCode, "1002");
  EXPECT_EQ(booked.tax, 8);
}

TEST_F(InvoiceBook, profit_is_what_the_price_brings_over_the_cards_cost) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Maliyet=42.5 WHERE StokKod='1001'");
  Put({"L1"});
  EXPECT_EQ(Book(Order()).profit, 15);
  EXPECT_EQ(One("Fatura.mdb", "SELECT FatKar FROM Faturalar"), "15.0");
}

TEST_F(InvoiceBook, customer_and_item_with_a_quote_are_found) {
  AddCustomer("O''1", "O''Neil");
  AddStock("S''1", "Taze ''Kaşar''", "Kdv=1");
  Put({.id = "L1", .item = "S'1", .customer = "O'1"});
  InvoiceOrder order = Order();
  order.day.customerCode = "O'1";
  const Invoice booked = Book(order);
  EXPECT_EQ(booked.customerName, "O'Neil");
  EXPECT_EQ(booked.lines.front().itemName, "Taze 'Kaşar'");
  EXPECT_EQ(booked.tax, 1);
}

TEST_F(InvoiceBook, a_customer_whose_card_is_gone_gets_none) {
  Put({"L1"});
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  const Texts before = AllRows();
  const Outcome<Invoice> booked = BookInvoice(shop, Order());
  ASSERT_FALSE(booked.has_value());
  EXPECT_EQ(booked.error().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(InvoiceBook, one_printed_once_more_is_worked_out_of_its_lines_and_written_nowhere) {
  Put({"L1"});
  Book(Order());
  Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=20 WHERE StokKod='1001'");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=75.5, Hesap='Borç' WHERE CariKod='C001'");
  clock.now = clock.now.PlusSeconds(60);
  const Texts before = AllRows();
  InvoiceOrder order = Order();
  order.day.withInvoiced = true;
  const Outcome<Invoice> again = WorkOutInvoice(shop, order);
  ASSERT_TRUE(again.has_value());
  EXPECT_EQ(again->number, "S000001");
  EXPECT_EQ(again->tax, 20);
  EXPECT_EQ(again->total, 120);
  EXPECT_EQ(again->time, clock.now);
  EXPECT_EQ(again->balance.amount, 75.5);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(InvoiceBook, a_line_that_cannot_be_read_is_not_missing_on_one_printed_once_more) {
  Put({"L1"});
  Put({"L2"});
  const int reads = engine.AllReads();
  ASSERT_TRUE(WorkOutInvoice(shop, Order()).has_value());
  const int all = engine.AllReads() - reads;
  ASSERT_GT(all, 3);
  engine.readFault = {ErrorKind::DiskFailed, "the disk is silent"};
  for (int i = 0; i < all; ++i) {
    engine.readsBeforeFault = i;
    EXPECT_FALSE(WorkOutInvoice(shop, Order()).has_value()) << i;
  }
  engine.readFault = {};
}

TEST_F(InvoiceBook, a_fault_of_the_stores_books_nothing_and_says_what_it_was) {
  Put({"L1"});
  Put({.id = "L2", .item = "1002"});
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='=110'");
  FailsWholeOrWorks([&] {
    const Outcome<Invoice> booked = BookInvoice(shop, Order());
    return booked ? Status() : Status(booked.error());
  });
  EXPECT_EQ(Sums("S000001"), "200.0|26.0|226.0");
}

}  // namespace
}  // namespace karvel
