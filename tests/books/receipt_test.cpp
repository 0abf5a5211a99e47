#include "books/receipt.h"

#include <string>
#include <vector>

#include "tests/support/posted_lines.h"
#include "text/turkish.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;
const std::string kFirstId = "10000000261";

class ReceiptBook : public PostedLines {
 protected:
  // Of a new product: 5 for 8 each in the rows, 10 each in the total.
  static Receipt Bulgur() {
    Receipt receipt;
    receipt.supplierCode = "T001";
    receipt.name = "Bulgur";
    receipt.rowPrice = 8;
    receipt.cardPrice = 10;
    receipt.quantity = 5;
    receipt.tax = 18;
    receipt.barcode = "8690001";
    receipt.amount = 50;
    return receipt;
  }
  // Of the item in front.
  Receipt Of(const std::string& code, double rowPrice, double cardPrice, double quantity) {
    Receipt receipt = Bulgur();
    receipt.itemInFront = Item(code);
    receipt.name = Card(code)["StokAdi"];
    receipt.rowPrice = rowPrice;
    receipt.cardPrice = cardPrice;
    receipt.quantity = quantity;
    receipt.amount = cardPrice * quantity;
    return receipt;
  }
  BookedReceipt Receive(const Receipt& receipt) {
    const Outcome<BookedReceipt> booked = BookReceipt(shop, receipt);
    EXPECT_TRUE(booked.has_value());
    return booked.value_or(BookedReceipt{});
  }
  // "KalanA|KalanB".
  std::string Left(const std::string& code) {
    return One("Stok.mdb", "SELECT KalanA, KalanB FROM StokKartlar WHERE StokKod='" + code + "'");
  }
  std::string Count(const std::string& file, const std::string& from) { return One(file, "SELECT count(*) FROM " + from); }
};

TEST_F(ReceiptBook, a_new_product_writes_every_field_of_every_row) {
  const BookedReceipt booked = Receive(Bulgur());
  EXPECT_EQ(booked.id, kFirstId);
  EXPECT_EQ(booked.item, Item("Bulgur"));
  EXPECT_EQ(booked.balance.amount, 50);
  EXPECT_EQ(booked.balance.side, "Alacak");

  const Fields card{{"StokKod", "Bulgur"}, {"StokAdi", "Bulgur"},  {"Kdv", "18.0"},     {"Birim", ""},         {"Birim2", ""},
                    {"Adet2", "0.0"},      {"Adet3", "0.0"},       {"Gurup", ""},       {"Kar", "0.0"},        {"Maliyet", "0.0"},
                    {"Yeri", ""},          {"StokGizle", "0"},     {"Yedek1", ""},      {"Yedek2", ""},        {"Yedek3", ""},
                    {"Barkod", "8690001"}, {"Fiyat", "10.0"},      {"Fiyat2", "0.0"},   {"Fiyat3", "0.0"},     {"gFiyat", "8.0"},
                    {"GirenMik", "5.0"},   {"GirenTutar", "50.0"}, {"CikanMik", "0.0"}, {"CikanTutar", "0.0"}, {"KalanA", "0.0"},
                    {"KalanB", "5.0"}};
  EXPECT_EQ(Card("Bulgur"), card);

  Fields movement = Movement(booked.id);
  movement.erase("SatTar");
  const Fields movementWanted{{"StokHarKod", "Bulgur"},
                              {"Tarih", "2026-03-01 10:15:00"},
                              {"Aciklama", "Bulgur Alış"},
                              {"Tutar", "50.0"},
                              {"Birim", ""},
                              {"Miktar", "5.0"},
                              {"Fiyat", "8.0"},
                              {"GirisCikis", "Alış"},
                              {"Carisi", ""},
                              {"DigerId", kFirstId},
                              {"Nerde", "C"},
                              {"StokAd", "Bulgur"},
                              {"Unvan", ""},
                              {"Barkod", ""},
                              {"Maliyet", "0.0"},
                              {"SeriNo", ""},
                              {"Gurup", ""},
                              {"yeni", "1.0"},
                              {"Plasiyer", ""},
                              {"tGurup", ""},
                              {"Kar", "0.0"},
                              {"Kdv", "18.0"}};
  EXPECT_EQ(movement, movementWanted);

  const Fields ledger{{"cariharkod", "T001"},
                      {"Tarih", "2026-03-01 10:15:00"},
                      {"Aciklama", "Bulgur Alış"},
                      {"Bilgi1", "Bulgur"},
                      {"Bilgi2", "Bulgur"},
                      {"Birim", ""},
                      {"Borc", "0.0"},
                      {"Alacak", "50.0"},
                      {"Carisi", "Bulgur"},
                      {"Unvan", "Bulgur"},
                      {"DigerId", kFirstId},
                      {"Nerde", "S"},
                      {"Miktar", "5.0"},
                      {"Fiyat", "8.0"},
                      {"yeni", "1.0"},
                      {"Gurup", ""}};
  EXPECT_EQ(RowOf("Cari.mdb", "CariHareket"), ledger);

  const Fields day{{"CariKod", "T001"},
                   {"StokKod", "Bulgur"},
                   {"CariAd", "Toptan Gıda"},
                   {"StokAd", "Bulgur"},
                   {"Fiyat", "8.0"},
                   {"Miktar", "5.0"},
                   {"Tutar", "50.0"},
                   {"Tarih", "2026-03-01 10:15:00"},
                   {"DigerId", kFirstId},
                   {"Birim", ""},
                   {"yeni", "1.0"},
                   {"Durum", "Alış"},
                   {"Gurup", ""},
                   {"Plasiyer", "WinKarvel0"},
                   {"tGurup", "WinKarvel0"},
                   {"SeriNo", ""},
                   {"Kar", "0.0"},
                   {"Tahsilat", "0.0"},
                   {"Sec", ""},
                   {"Secc", ""},
                   {"Eksik", "0.0"},
                   {"Aciklama", ""},
                   {"Sube", ""}};
  EXPECT_EQ(Day(booked.id), day);
  EXPECT_EQ(Balance("T001"), "0.0|50.0|50.0|Alacak");
  EXPECT_EQ(Balance("=100"), "0.0|0.0|0.0|");
  EXPECT_EQ(Due("T001"), Texts{});
}

TEST_F(ReceiptBook, a_known_product_is_raised_and_takes_the_new_prices) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=2.5, GirenTutar=100, Maliyet=33, Fiyat3=44 WHERE StokKod='1001'");
  Fields card = Card("1001");
  const BookedReceipt booked = Receive(Of("1001", 42.5, 55, 3.5));
  card["Kdv"] = "18.0";
  card["Barkod"] = "8690001";
  card["Fiyat"] = "55.0";
  card["gFiyat"] = "42.5";
  card["GirenMik"] = card["KalanB"] = "6.0";
  card["GirenTutar"] = "292.5";
  EXPECT_EQ(Card("1001"), card);
  EXPECT_EQ(booked.item, Item("1001"));
  EXPECT_EQ(Count("Stok.mdb", "StokKartlar"), "3");
}

TEST_F(ReceiptBook, the_rows_of_a_known_product_name_its_code_unit_and_group) {
  const BookedReceipt booked = Receive(Of("1001", 40, 50, 2));
  EXPECT_EQ(Movement(booked.id)["StokHarKod"], "1001");
  EXPECT_EQ(Movement(booked.id)["StokAd"], "Pirinç");
  EXPECT_EQ(Movement(booked.id)["Aciklama"], "Pirinç Alış");
  Fields ledger = Ledger(booked.id, "T001");
  EXPECT_EQ(ledger["Bilgi1"], "1001");
  EXPECT_EQ(ledger["Bilgi2"], "Pirinç");
  EXPECT_EQ(ledger["Carisi"], "1001");
  EXPECT_EQ(ledger["Birim"], "Adet");
  Fields day = Day(booked.id);
  EXPECT_EQ(day["StokKod"], "1001");
  EXPECT_EQ(day["Birim"], "Adet");
  EXPECT_EQ(day["Gurup"], "Gıda");
}

TEST_F(ReceiptBook, the_amount_follows_the_cards_price_and_the_rows_bear_the_other) {
  const BookedReceipt booked = Receive(Of("1001", 40, 50, 2));
  EXPECT_EQ(Day(booked.id)["Fiyat"], "40.0");
  EXPECT_EQ(Day(booked.id)["Tutar"], "100.0");
  EXPECT_EQ(Movement(booked.id)["Fiyat"], "40.0");
  EXPECT_EQ(Ledger(booked.id, "T001")["Fiyat"], "40.0");
  EXPECT_EQ(Ledger(booked.id, "T001")["Alacak"], "100.0");
}

TEST_F(ReceiptBook, the_amount_is_the_one_that_the_clerk_saw) {
  Receipt receipt = Bulgur();
  receipt.cardPrice = 2.5;
  receipt.quantity = 3;
  receipt.amount = 8;  // prices without kuruş
  const BookedReceipt booked = Receive(receipt);
  EXPECT_EQ(Card("Bulgur")["Fiyat"], "2.5");
  EXPECT_EQ(Card("Bulgur")["GirenTutar"], "8.0");
  EXPECT_EQ(Day(booked.id)["Tutar"], "8.0");
  EXPECT_EQ(Movement(booked.id)["Tutar"], "8.0");
  EXPECT_EQ(Balance("T001"), "0.0|8.0|8.0|Alacak");
}

TEST_F(ReceiptBook, a_name_that_differs_by_case_or_a_blank_makes_a_new_card) {
  for (const char* const name : {"pirinç", "Pirinç "}) {
    Receipt receipt = Of("1001", 1, 1, 1);
    receipt.name = name;
    const BookedReceipt booked = Receive(receipt);
    EXPECT_EQ(Card(name)["StokAdi"], name);
    EXPECT_EQ(Day(booked.id)["StokKod"], name);
  }
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
}

TEST_F(ReceiptBook, a_card_of_that_name_that_is_not_in_front_is_left_and_the_rows_name_the_new_one) {
  Receipt receipt = Of("1001", 1, 2, 3);
  receipt.name = "Şeker";  // the name of another card, with Pirinç still in front
  const BookedReceipt booked = Receive(receipt);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT StokKod, GirenMik FROM StokKartlar WHERE StokAdi='Şeker' ORDER BY StokKod"),
            (Texts{"1002|0.0", "Şeker|3.0"}));
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
  EXPECT_EQ(booked.item, Item("Şeker"));
  EXPECT_EQ(Movement(booked.id)["StokHarKod"], "Şeker");
  EXPECT_EQ(Ledger(booked.id, "T001")["Carisi"], "Şeker");
  EXPECT_EQ(Day(booked.id)["StokKod"], "Şeker");
  EXPECT_EQ(Day(booked.id)["Birim"], "");
}

TEST_F(ReceiptBook, a_long_name_gets_a_cut_code_and_two_of_them_collide) {
  for (const char* const name : {"Çok Uzun Adlı Bir Ürün A", "Çok Uzun Adlı Bir Ürün B"}) {
    Receipt receipt = Bulgur();
    receipt.name = name;
    const BookedReceipt booked = Receive(receipt);
    EXPECT_EQ(Movement(booked.id)["StokHarKod"], "Çok Uzun Adlı Bir Ür");
    EXPECT_EQ(Movement(booked.id)["StokAd"], name);
    EXPECT_EQ(Day(booked.id)["StokKod"], "Çok Uzun Adlı Bir Ür");
    EXPECT_EQ(Day(booked.id)["StokAd"], name);
  }
  EXPECT_EQ(Count("Stok.mdb", "StokKartlar WHERE StokKod='Çok Uzun Adlı Bir Ür'"), "2");
}

TEST_F(ReceiptBook, a_card_that_was_deleted_meanwhile_is_made_anew_by_its_name) {
  const Receipt receipt = Of("1001", 40, 50, 2);
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  const BookedReceipt booked = Receive(receipt);
  EXPECT_EQ(Card("Pirinç")["GirenMik"], "2.0");
  EXPECT_EQ(Day(booked.id)["StokKod"], "Pirinç");
}

TEST_F(ReceiptBook, a_hidden_card_in_front_is_raised_too) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET StokGizle=1 WHERE StokKod='1001'");
  Receive(Of("1001", 40, 50, 2));
  EXPECT_EQ(Card("1001")["GirenMik"], "2.0");
}

TEST_F(ReceiptBook, the_side_that_is_not_written_keeps_its_old_value) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=10, KalanA=10 WHERE StokKod='1001'");
  Receive(Of("1001", 40, 50, 15));
  EXPECT_EQ(Left("1001"), "10.0|5.0");
}

TEST_F(ReceiptBook, an_oversold_card_counts_down_unrounded) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=10, KalanA=10, KalanB=3 WHERE StokKod='1001'");
  Receive(Of("1001", 40, 50, 0.0625));
  EXPECT_EQ(Left("1001"), "9.9375|3.0");
}

TEST_F(ReceiptBook, as_much_in_as_out_writes_the_on_hand_side_with_zero) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=10, KalanA=10, KalanB=7 WHERE StokKod='1001'");
  Receive(Of("1001", 40, 50, 10));
  EXPECT_EQ(Left("1001"), "10.0|0.0");
}

TEST_F(ReceiptBook, goods_that_go_back_are_booked_with_their_minus) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=5, KalanB=5 WHERE StokKod='1001'");
  Receive(Of("1001", 40, 50, -2));
  EXPECT_EQ(Card("1001")["GirenMik"], "3.0");
  EXPECT_EQ(Left("1001"), "0.0|3.0");
  EXPECT_EQ(Balance("T001"), "0.0|-100.0|100.0|Borç");
}

TEST_F(ReceiptBook, a_price_or_tax_that_is_no_number_leaves_the_cards_own_and_the_rows_without) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=8 WHERE StokKod='1001'");
  Receipt receipt = Of("1001", 0, 50, 2);
  receipt.rowPrice = {};
  receipt.tax = {};
  const BookedReceipt booked = Receive(receipt);
  EXPECT_EQ(Card("1001")["gFiyat"], "40.0");
  EXPECT_EQ(Card("1001")["Kdv"], "8.0");
  EXPECT_EQ(Movement(booked.id)["Kdv"], "0.0");
  for (Fields row : {Movement(booked.id), Ledger(booked.id, "T001"), Day(booked.id)}) EXPECT_EQ(row["Fiyat"], "0.0");
}

TEST_F(ReceiptBook, what_is_owed_to_the_supplier_comes_off_what_he_owes) {
  Raise("T001", 80.25, 0);
  const BookedReceipt booked = Receive(Bulgur());
  EXPECT_EQ(booked.balance.amount, 30.25);
  EXPECT_EQ(booked.balance.side, "Borç");
  EXPECT_EQ(Balance("T001"), "80.25|50.0|30.25|Borç");
}

TEST_F(ReceiptBook, terminal_two_writes_its_digits_into_the_id_and_both_tags) {
  terminalNo = "02";
  const BookedReceipt booked = Receive(Bulgur());
  EXPECT_EQ(booked.id, "20000000261");
  EXPECT_EQ(Day(booked.id)["Plasiyer"], "WinKarvel1");
  EXPECT_EQ(Day(booked.id)["tGurup"], "WinKarvel1");
}

// A minute passes between any two looks at it.
class TickingClock final : public Clock {
 public:
  [[nodiscard]] DateTime Now() const override { return now_ = now_.PlusSeconds(60); }

 private:
  mutable DateTime now_{2026, 3, 1, 23, 57, 0};
};

TEST_F(ReceiptBook, each_row_reads_the_clock_anew) {
  const TickingClock ticking;
  const Outcome<BookedReceipt> booked = BookReceipt({stores, ticking, terminalNo}, Bulgur());
  ASSERT_TRUE(booked.has_value());
  const std::string movement = Movement(booked->id)["Tarih"], ledger = Ledger(booked->id, "T001")["Tarih"], day = Day(booked->id)["Tarih"];
  EXPECT_LT(movement, ledger);
  EXPECT_LT(ledger, day);
  EXPECT_EQ(day.substr(0, 10), "2026-03-02");
}

TEST_F(ReceiptBook, the_next_receipt_takes_the_next_id) {
  Receive(Bulgur());
  Receipt next = Bulgur();
  next.name = "Mercimek";
  EXPECT_EQ(Receive(next).id, "10000000262");
  EXPECT_EQ(Balance("T001"), "0.0|100.0|100.0|Alacak");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod FROM Datam ORDER BY DigerId"), (Texts{"Bulgur", "Mercimek"}));
}

TEST_F(ReceiptBook, supplier_item_and_group_with_a_quote_are_found) {
  AddCustomer("T''1", "Toptan''cı", "Gurup='Toptan'");
  AddStock("S''1", "Taze ''Kaşar''", "Gurup='Süt''lük'");
  Receipt receipt = Of("S''1", 40, 50, 2);
  receipt.supplierCode = "T'1";
  const BookedReceipt booked = Receive(receipt);
  EXPECT_EQ(Card("S''1")["GirenMik"], "2.0");
  EXPECT_EQ(Balance("T''1"), "0.0|100.0|100.0|Alacak");
  Fields day = Day(booked.id);
  EXPECT_EQ(day["CariKod"], "T'1");
  EXPECT_EQ(day["CariAd"], "Toptan'cı");
  EXPECT_EQ(day["StokKod"], "S'1");
  EXPECT_EQ(day["Gurup"], "Süt'lük");
  EXPECT_EQ(Ledger(booked.id, "T''1")["Carisi"], "S'1");
  EXPECT_EQ(Movement(booked.id)["StokHarKod"], "S'1");
}

TEST_F(ReceiptBook, a_new_product_with_a_quote_in_its_name_is_named_in_the_rows) {
  Receipt receipt = Bulgur();
  receipt.name = "Ali'nin Balı";
  const BookedReceipt booked = Receive(receipt);
  EXPECT_EQ(Card("Ali''nin Balı")["GirenMik"], "5.0");
  EXPECT_EQ(Day(booked.id)["StokKod"], "Ali'nin Balı");
}

TEST_F(ReceiptBook, a_supplier_whose_card_is_gone_delivers_nothing) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='T001'");
  const Texts before = AllRows();
  const Outcome<BookedReceipt> booked = BookReceipt(shop, Bulgur());
  ASSERT_FALSE(booked.has_value());
  EXPECT_EQ(booked.error().Kind(), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);  // nor is a number taken
  EXPECT_FALSE(stores.InAction());
}

TEST_F(ReceiptBook, a_fault_of_the_stores_books_nothing_and_says_what_it_was) {
  const Receipt known = Of("1001", 40, 50, 2);
  for (const Receipt& receipt : {Bulgur(), known})
    FailsWholeOrWorks([&] {
      const Outcome<BookedReceipt> booked = BookReceipt(shop, receipt);
      return booked ? Status() : Status(booked.error());
    });
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "2");
  EXPECT_EQ(Balance("T001"), "0.0|150.0|150.0|Alacak");
}

}  // namespace
}  // namespace karvel
