#include "books/sale_line.h"

#include <string>
#include <utility>
#include <vector>

#include "tests/support/sale_lines.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;
class SaleLineTest : public SaleLineFixture {};

TEST_F(SaleLineTest, a_sale_writes_every_field_of_every_row) {
  Fields card = Card("1001"), customer = Customer("C001");
  const auto booked = BookSaleLine(shop, Line("1001", 3, 50));
  ASSERT_TRUE(booked);
  const std::string id = "10000000261";
  EXPECT_EQ(booked->id, id);
  EXPECT_EQ(booked->customerCode, "C001");
  EXPECT_EQ(booked->balance.amount, 150);
  EXPECT_EQ(booked->balance.side, "Borç");

  const Fields movement{{"StokHarKod", "1001"},
                        {"Tarih", "2026-03-01 00:00:00"},
                        {"Aciklama", "Pirinç Satış İle"},
                        {"Tutar", "150.0"},
                        {"Birim", "Adet"},
                        {"Miktar", "3.0"},
                        {"Fiyat", "50.0"},
                        {"GirisCikis", "Satış"},
                        {"Carisi", "C001"},
                        {"DigerId", id},
                        {"Nerde", "C"},
                        {"SatTar", "2026-03-01 00:00:00"},
                        {"StokAd", "Pirinç"},
                        {"Unvan", "Ayşe Yılmaz"},
                        {"Barkod", "8691001"},
                        {"Maliyet", "40.0"},
                        {"SeriNo", ""},
                        {"Gurup", "Gıda"},
                        {"yeni", "1.0"},
                        {"Plasiyer", "WinKarvel01"},
                        {"tGurup", "WinKarvel01"},
                        {"Kar", "0.0"},
                        {"Kdv", "0.0"}};
  EXPECT_EQ(Movement(id), movement);
  const Fields day{{"CariKod", "C001"},
                   {"StokKod", "1001"},
                   {"CariAd", "Ayşe Yılmaz"},
                   {"StokAd", "Pirinç"},
                   {"Fiyat", "50.0"},
                   {"Miktar", "3.0"},
                   {"Tutar", "150.0"},
                   {"Tarih", "2026-03-01 10:15:00"},
                   {"DigerId", id},
                   {"Birim", "Adet"},
                   {"yeni", "1.0"},
                   {"Durum", "Satış"},
                   {"Gurup", "Gıda"},
                   {"Plasiyer", "WinKarvel0"},
                   {"tGurup", "WinKarvel0"},
                   {"SeriNo", "000001"},
                   {"Kar", "0.0"},
                   {"Tahsilat", "0.0"},
                   {"Sec", ""},
                   {"Secc", ""},
                   {"Eksik", "0.0"},
                   {"Aciklama", ""},
                   {"Sube", ""}};
  EXPECT_EQ(Day(id), day);
  const Fields ledger{{"cariharkod", "C001"},
                      {"Tarih", "2026-03-01 10:15:00"},
                      {"Aciklama", "Pirinç Satış"},
                      {"Bilgi1", "1001"},
                      {"Bilgi2", "Pirinç"},
                      {"Birim", "Adet"},
                      {"Borc", "150.0"},
                      {"Alacak", "0.0"},
                      {"Carisi", "1001"},
                      {"Unvan", "Pirinç"},
                      {"DigerId", id},
                      {"Nerde", "S"},
                      {"Miktar", "3.0"},
                      {"Fiyat", "50.0"},
                      {"yeni", "1.0"},
                      {"Gurup", ""}};
  EXPECT_EQ(LedgerRow(id), ledger);

  card.insert_or_assign("CikanMik", "3.0");
  card.insert_or_assign("CikanTutar", "150.0");
  card.insert_or_assign("KalanA", "3.0");
  EXPECT_EQ(Card("1001"), card);
  customer.insert_or_assign("Borc", "150.0");
  customer.insert_or_assign("Bakiye", "150.0");
  customer.insert_or_assign("Hesap", "Borç");
  EXPECT_EQ(Customer("C001"), customer);
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM \"VadeGün\""), Lines{"C001|2026-03-01 00:00:00|150.0"});
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), Lines{});
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT * FROM SeriNo"), Lines{});
  EXPECT_EQ(Rows("Index.mdb", "SELECT Tarih, Serino, Indexi FROM Mdbindex"), Lines{"2026|260|261"});
}

TEST_F(SaleLineTest, the_books_are_written_in_one_order) {
  SaleLine line = LineOf(LineMode::Purchase, "1001", 1, 45);
  line.serials = {"SN-1"};
  Book(line);
  EXPECT_EQ(engine.written,
            (Lines{"Cari", "VadeGün", "Tarih", "Mdbindex", "Datam", "StokHareket", "SeriNo", "StokKartlar", "CariHareket", "CariKartlar"}));
}

TEST_F(SaleLineTest, a_return_moves_the_other_side_and_books_no_price_due_date_or_profit) {
  const std::string id = Book(LineOf(LineMode::Return, "1002", 2, 25));
  EXPECT_EQ(Movement(id)["GirisCikis"], "İade");
  EXPECT_EQ(Movement(id)["Aciklama"], "Şeker İade İle");
  EXPECT_EQ(Movement(id)["Kar"], "0.0");
  EXPECT_EQ(Day(id)["Durum"], "İade");
  EXPECT_EQ(Day(id)["Kar"], "0.0");
  EXPECT_EQ(LedgerRow(id)["Aciklama"], "Şeker İade");
  EXPECT_EQ(LedgerRow(id)["Borc"], "0.0");
  EXPECT_EQ(LedgerRow(id)["Alacak"], "50.0");
  EXPECT_EQ(One("Stok.mdb", "SELECT GirenMik, GirenTutar, CikanMik, CikanTutar, KalanA, KalanB, Kar FROM StokKartlar WHERE StokKod='1002'"),
            "2.0|50.0|0.0|0.0|0.0|2.0|0.0");
  EXPECT_EQ(Balance("C001"), "0.0|50.0|50.0|Alacak");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM Cari"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM \"VadeGün\""), "0");
}

TEST_F(SaleLineTest, a_purchase_books_price_and_due_date_with_the_same_sign) {
  const std::string id = Book(LineOf(LineMode::Purchase, "1002", 4, 11));
  EXPECT_EQ(Movement(id)["GirisCikis"], "Alış");
  EXPECT_EQ(Movement(id)["Aciklama"], "Şeker Alış İle");
  EXPECT_EQ(Movement(id)["Kar"], "0.0");  // 44 - 4 x 12 is a loss
  EXPECT_EQ(Day(id)["Durum"], "Alış");
  EXPECT_EQ(LedgerRow(id)["Alacak"], "44.0");
  EXPECT_EQ(LedgerRow(id)["Aciklama"], "Şeker Alış");
  EXPECT_EQ(One("Stok.mdb", "SELECT GirenMik, GirenTutar, CikanMik, CikanTutar, KalanA, KalanB FROM StokKartlar WHERE StokKod='1002'"),
            "4.0|44.0|0.0|0.0|0.0|4.0");
  EXPECT_EQ(Balance("C001"), "0.0|44.0|44.0|Alacak");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), Lines{"1002|C001|11.0|0.0|0.0"});
  EXPECT_EQ(Due("C001"), Lines{"44.0"});
}

TEST_F(SaleLineTest, a_purchase_with_a_margin_books_a_profit_on_the_movement_but_not_on_the_card) {
  const std::string id = Book(LineOf(LineMode::Purchase, "1002", 2, 20));
  EXPECT_EQ(Movement(id)["Kar"], "16.0");  // 40 - 2 x 12
  EXPECT_EQ(Day(id)["Kar"], "16.0");
  EXPECT_EQ(Card("1002")["Kar"], "0.0");
}

TEST_F(SaleLineTest, profit_is_booked_on_movement_day_book_and_card) {
  const std::string id = Book(Line("1002", 5, 20));
  EXPECT_EQ(Movement(id)["Kar"], "40.0");  // 100 - 5 x 12
  EXPECT_EQ(Day(id)["Kar"], "40.0");
  EXPECT_EQ(Card("1002")["Kar"], "40.0");
  Book(Line("1002", 1, 20));
  EXPECT_EQ(Card("1002")["Kar"], "48.0");
}

TEST_F(SaleLineTest, a_loss_is_booked_as_profit_zero) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Kar=7 WHERE StokKod='1002'");
  const std::string id = Book(Line("1002", 3, 5));
  EXPECT_EQ(Movement(id)["Kar"], "0.0");
  EXPECT_EQ(Day(id)["Kar"], "0.0");
  EXPECT_EQ(Card("1002")["Kar"], "7.0");
}

TEST_F(SaleLineTest, the_second_price_counts_in_first_units_and_keeps_the_amount_of_the_second) {
  SaleLine line = Line("1001", 2, 540);
  line.priceName = PriceName::Second;
  const std::string id = Book(line);
  EXPECT_EQ(Movement(id)["Miktar"], "24.0");
  EXPECT_EQ(Movement(id)["Birim"], "Koli");
  EXPECT_EQ(Movement(id)["Fiyat"], "540.0");
  EXPECT_EQ(Movement(id)["Tutar"], "1080.0");
  EXPECT_EQ(Day(id)["Miktar"], "24.0");
  EXPECT_EQ(Day(id)["Birim"], "Koli");
  EXPECT_EQ(Day(id)["Fiyat"], "540.0");
  EXPECT_EQ(Day(id)["Tutar"], "1080.0");
  EXPECT_EQ(LedgerRow(id)["Miktar"], "24.0");
  EXPECT_EQ(LedgerRow(id)["Birim"], "Adet");
  EXPECT_EQ(LedgerRow(id)["Borc"], "1080.0");
  EXPECT_EQ(Card("1001")["CikanMik"], "24.0");
  EXPECT_EQ(Card("1001")["CikanTutar"], "1080.0");
}

TEST_F(SaleLineTest, profit_counts_the_pieces_of_a_pack) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Maliyet=1 WHERE StokKod='1001'");
  SaleLine line = Line("1001", 2, 540);
  line.priceName = PriceName::Second;
  EXPECT_EQ(Movement(Book(line))["Kar"], "120.0");  // 1080 - 24 x 40
}

TEST_F(SaleLineTest, the_second_price_without_pieces_leaves_the_quantity) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Adet2=0 WHERE StokKod='1001'");
  SaleLine line = Line("1001", 2, 540);
  line.priceName = PriceName::Second;
  const std::string id = Book(line);
  EXPECT_EQ(Movement(id)["Miktar"], "2.0");
  EXPECT_EQ(Movement(id)["Birim"], "Koli");
  EXPECT_EQ(Card("1001")["CikanMik"], "2.0");
}

TEST_F(SaleLineTest, every_other_price_counts_in_the_first_unit) {
  for (const PriceName name : {PriceName::First, PriceName::Third, PriceName::Special}) {
    SaleLine line = Line("1001", 2, 50);
    line.priceName = name;
    const std::string id = Book(line);
    EXPECT_EQ(Movement(id)["Miktar"], "2.0") << NameOf(name);
    EXPECT_EQ(Movement(id)["Birim"], "Adet") << NameOf(name);
  }
}

TEST_F(SaleLineTest, the_pieces_of_a_pack_are_counted_without_binary_dust) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Adet2=3 WHERE StokKod='1001'");
  SaleLine line = Line("1001", 0.1, 540);  // 0.1 x 3 is 0.30000000000000004
  line.priceName = PriceName::Second;
  const std::string id = Book(line);
  EXPECT_EQ(One("Stok.mdb", "SELECT Miktar=0.3 FROM StokHareket"), "1");
  EXPECT_EQ(One("Karvel.mdb", "SELECT Miktar=0.3 FROM Datam"), "1");
  EXPECT_EQ(One("Cari.mdb", "SELECT Miktar=0.3 FROM CariHareket"), "1");
  EXPECT_EQ(One("Stok.mdb", "SELECT CikanMik=0.3 FROM StokKartlar WHERE StokKod='1001'"), "1");
}

TEST_F(SaleLineTest, the_amount_is_the_one_that_the_clerk_saw) {
  SaleLine line = Line("1001", 1.5, 162.05);  // 243.075
  line.amount = 243.08;
  const std::string id = Book(line);
  EXPECT_EQ(Movement(id)["Tutar"], "243.08");
  EXPECT_EQ(Day(id)["Tutar"], "243.08");
  EXPECT_EQ(LedgerRow(id)["Borc"], "243.08");
  EXPECT_EQ(Card("1001")["CikanTutar"], "243.08");
  EXPECT_EQ(Customer("C001")["Bakiye"], "243.08");
  EXPECT_EQ(Due("C001"), Lines{"243.08"});
}

TEST_F(SaleLineTest, each_mode_but_a_return_remembers_a_price_that_was_typed_over) {
  const std::vector<std::pair<PriceName, std::string>> kept{{PriceName::First, "77.0|0.0|0.0"},
                                                            {PriceName::Second, "0.0|77.0|0.0"},
                                                            {PriceName::Third, "0.0|0.0|77.0"},
                                                            {PriceName::Special, "77.0|0.0|0.0"}};
  for (const LineMode mode : {LineMode::Sale, LineMode::Return, LineMode::Purchase}) {
    for (const auto& [name, prices] : kept) {
      Sql("Cari.mdb", "DELETE FROM Cari");
      SaleLine line = LineOf(mode, "1001", 1, 77);
      line.priceName = name;
      Book(line);
      EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), mode == LineMode::Return ? Lines{} : Lines{"1001|C001|" + prices})
          << NameOf(mode) << NameOf(name);
    }
  }
}

TEST_F(SaleLineTest, the_cards_price_leaves_the_customer_prices_unchanged_also_for_a_new_pair) {
  Book(Line("1001", 1, 50));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), Lines{});
  Sql("Cari.mdb", "INSERT INTO Cari VALUES('1001','C001',45,0,0)");
  Book(Line("1001", 1, 50));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), Lines{"1001|C001|45.0|0.0|0.0"});
}

TEST_F(SaleLineTest, the_due_date_of_a_day_gathers_its_lines) {
  Book(Line("1001", 1, 50));
  Book(LineOf(LineMode::Purchase, "1002", 2, 20));
  Book(LineOf(LineMode::Return, "1002", 1, 20));
  clock.now = {2026, 3, 2, 9, 0, 0};
  Book(Line("1002", 1, 20));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM \"VadeGün\" ORDER BY VadeTarih"),
            (Lines{"C001|2026-03-01 00:00:00|90.0", "C001|2026-03-02 00:00:00|20.0"}));
}

TEST_F(SaleLineTest, serial_numbers_are_written_in_order) {
  SaleLine line = LineOf(LineMode::Purchase, "1001", 2, 41);
  line.serials = {"SN-2", "SN-1"};
  Book(line);
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT * FROM SeriNo ORDER BY rowid"),
            (Lines{"1001|C001|Pirinç|Ayşe Yılmaz|2026-03-01 10:15:00|Alış|1.0|10000000261|41.0|SN-2|",
                   "1001|C001|Pirinç|Ayşe Yılmaz|2026-03-01 10:15:00|Alış|1.0|10000000261|41.0|SN-1|"}));
}

TEST_F(SaleLineTest, the_items_serial_stands_on_the_movement_and_the_slip_in_the_day_book) {
  SaleLine line = Line("1001", 1, 50);
  line.itemSerial = "SER-9";
  line.slipNo = "000042";
  const std::string id = Book(line);
  EXPECT_EQ(Movement(id)["SeriNo"], "SER-9");
  EXPECT_EQ(Day(id)["SeriNo"], "000042");
}

TEST_F(SaleLineTest, a_salesmans_group_gets_the_movement_but_not_what_comes_back) {
  for (const LineMode mode : {LineMode::Sale, LineMode::Return, LineMode::Purchase}) {
    SaleLine line = LineOf(mode, "1001", 1, 50);
    line.salesmanGroup = "Bayi";
    const std::string id = Book(line);
    EXPECT_EQ(Movement(id)["Plasiyer"], mode == LineMode::Return ? "WinKarvel01" : "Bayi") << NameOf(mode);
    EXPECT_EQ(Movement(id)["tGurup"], "WinKarvel01");
    EXPECT_EQ(Day(id)["Plasiyer"], "WinKarvel0");
    EXPECT_EQ(Day(id)["tGurup"], "WinKarvel0");
  }
}

TEST_F(SaleLineTest, terminal_two_writes_its_digits_into_ids_and_tags) {
  terminalNo = "02";
  const std::string id = Book(Line("1001", 1, 50));
  EXPECT_EQ(id, "20000000261");
  EXPECT_EQ(Movement(id)["Plasiyer"], "WinKarvel02");
  EXPECT_EQ(Day(id)["Plasiyer"], "WinKarvel1");
}

TEST_F(SaleLineTest, ids_run_on_with_the_year_in_front) {
  std::vector<std::string> ids(10);
  for (std::string& id : ids) id = Book(Line("1001", 1, 50));
  EXPECT_EQ(ids[0], "10000000261");
  EXPECT_EQ(ids[8], "10000000269");
  EXPECT_EQ(ids[9], "10000002610");
  clock.now = {2027, 1, 1, 8, 0, 0};
  EXPECT_EQ(Book(Line("1001", 1, 50)), "10000000271");
}

}  // namespace
}  // namespace karvel
