#include "books/money_movement.h"

#include <string>
#include <vector>

#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class MoneyMovementTest : public BooksFixture {
 protected:
  static MoneyMovement Cash(double amount) {
    MoneyMovement movement;
    movement.customerCode = "C001";
    movement.customerName = "Ayşe Yılmaz";
    movement.amount = amount;
    movement.instrument = "Nakit";
    return movement;
  }
  static MoneyMovement Payout(double amount) {
    MoneyMovement movement = Cash(amount);
    movement.customerCode = "T001";
    movement.customerName = "Toptan Gıda";
    movement.direction = MoneyDirection::Payment;
    return movement;
  }
  // Its id; the movement must go through.
  std::string Book(const MoneyMovement& movement) {
    const auto booked = BookMoneyMovement(shop, movement);
    if (booked) return booked->id;
    ADD_FAILURE() << booked.error().Message();
    return {};
  }
  ErrorKind Refusal(const MoneyMovement& movement) {
    const auto booked = BookMoneyMovement(shop, movement);
    EXPECT_FALSE(booked);
    EXPECT_FALSE(stores.InAction());
    return booked ? ErrorKind::None : booked.error().Kind();
  }
  void Owe(const std::string& code, const std::string& amount) {
    Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=" + amount + ", Bakiye=" + amount + ", Hesap='Borç' WHERE CariKod='" + code + "'");
  }
  void PutDue(const std::string& rows) { Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES" + rows); }
};

TEST_F(MoneyMovementTest, a_collection_writes_every_field_of_every_row) {
  Owe("C001", "150");
  PutDue("('C001','2026-02-05 00:00:00',150)");
  Fields accountCard = Customer("=100"), customerCard = Customer("C001");
  const auto booked = BookMoneyMovement(shop, Cash(60));
  ASSERT_TRUE(booked);
  const std::string id = "10000000261";
  EXPECT_EQ(booked->id, id);
  EXPECT_EQ(booked->balance.amount, 90);
  EXPECT_EQ(booked->balance.side, "Borç");

  const Fields account{{"cariharkod", "=100"},
                       {"Tarih", "2026-03-01 10:15:00"},
                       {"Aciklama", "Nakit Tahsilat"},
                       {"Bilgi1", ""},
                       {"Bilgi2", ""},
                       {"Birim", ""},
                       {"Borc", "60.0"},
                       {"Alacak", "0.0"},
                       {"Carisi", "=100"},
                       {"Unvan", "Ayşe Yılmaz"},
                       {"DigerId", id},
                       {"Nerde", "C"},
                       {"Miktar", "0.0"},
                       {"Fiyat", "0.0"},
                       {"yeni", "1.0"},
                       {"Gurup", ""}};
  EXPECT_EQ(Ledger(id, "=100"), account);
  const Fields customer{{"cariharkod", "C001"},
                        {"Tarih", "2026-03-01 10:15:00"},
                        {"Aciklama", "Ayşe Yılmaz Tahsilat İle"},
                        {"Bilgi1", ""},
                        {"Bilgi2", ""},
                        {"Birim", ""},
                        {"Borc", "0.0"},
                        {"Alacak", "60.0"},
                        {"Carisi", "C001"},
                        {"Unvan", "Ayşe Yılmaz"},
                        {"DigerId", id},
                        {"Nerde", "C"},
                        {"Miktar", "0.0"},
                        {"Fiyat", "0.0"},
                        {"yeni", "1.0"},
                        {"Gurup", ""}};
  EXPECT_EQ(Ledger(id, "C001"), customer);
  const Fields day{{"CariKod", "C001"},
                   {"StokKod", ""},
                   {"CariAd", "Ayşe Yılmaz"},
                   {"StokAd", "Nakit Tahsilat"},
                   {"Fiyat", "0.0"},
                   {"Miktar", "0.0"},
                   {"Tutar", "0.0"},
                   {"Tarih", "2026-03-01 10:15:00"},
                   {"DigerId", id},
                   {"Birim", ""},
                   {"yeni", "1.0"},
                   {"Durum", "Nakit"},
                   {"Gurup", "Müşteri"},
                   {"Plasiyer", "WinKarvel0"},
                   {"tGurup", ""},
                   {"SeriNo", ""},
                   {"Kar", "0.0"},
                   {"Tahsilat", "60.0"},
                   {"Sec", ""},
                   {"Secc", ""},
                   {"Eksik", "0.0"},
                   {"Aciklama", ""},
                   {"Sube", ""}};
  EXPECT_EQ(Day(id), day);
  accountCard.insert_or_assign("Borc", "60.0");
  accountCard.insert_or_assign("Bakiye", "60.0");
  accountCard.insert_or_assign("Hesap", "Borç");
  EXPECT_EQ(Customer("=100"), accountCard);
  customerCard.insert_or_assign("Alacak", "60.0");
  customerCard.insert_or_assign("Bakiye", "90.0");
  EXPECT_EQ(Customer("C001"), customerCard);
  EXPECT_EQ(Due("C001"), Lines{"90.0"});
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "0");
}

TEST_F(MoneyMovementTest, the_account_comes_first_and_the_day_book_before_the_customers_row) {
  PutDue("('C001','2026-02-05 00:00:00',150)");
  Book(Cash(60));
  EXPECT_EQ(engine.written, (Lines{"Tarih", "Mdbindex", "CariHareket", "CariKartlar", "Datam", "CariHareket", "CariKartlar", "VadeGün"}));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod FROM CariHareket ORDER BY rowid"), (Lines{"=100", "C001"}));
}

TEST_F(MoneyMovementTest, a_payment_turns_the_sides_and_keeps_the_day_book_positive) {
  const std::string id = Book(Payout(75.5));
  EXPECT_EQ(Ledger(id, "=100")["Alacak"], "75.5");
  EXPECT_EQ(Ledger(id, "=100")["Borc"], "0.0");
  EXPECT_EQ(Ledger(id, "=100")["Aciklama"], "Nakit Ödeme");
  EXPECT_EQ(Ledger(id, "T001")["Borc"], "75.5");
  EXPECT_EQ(Ledger(id, "T001")["Alacak"], "0.0");
  EXPECT_EQ(Ledger(id, "T001")["Aciklama"], "Toptan Gıda Ödeme İle");
  EXPECT_EQ(Day(id)["Tahsilat"], "75.5");
  EXPECT_EQ(Day(id)["StokAd"], "Nakit Ödeme");
  EXPECT_EQ(Day(id)["Gurup"], "Toptan");
  EXPECT_EQ(Balance("=100"), "0.0|75.5|75.5|Alacak");
  EXPECT_EQ(Balance("T001"), "75.5|0.0|75.5|Borç");
}

TEST_F(MoneyMovementTest, each_instrument_has_its_account_and_its_name_in_the_day_book) {
  struct Case {
    std::string instrument, account, state;
  };
  for (const Case& one : {Case{"Nakit", "=100", "Nakit"}, Case{"Kredi Kartı", "=150", "K.Kartı"}, Case{"Çek", "=600", "Çek"},
                          Case{"Senet", "=500", "Senet"}, Case{"Havale", "=100", "Havale"}, Case{"", "=100", ""}}) {
    MoneyMovement movement = Cash(10);
    movement.instrument = one.instrument;
    const std::string id = Book(movement);
    EXPECT_EQ(Ledger(id, one.account)["Borc"], "10.0") << one.instrument;
    EXPECT_EQ(Ledger(id, one.account)["Aciklama"], one.instrument + " Tahsilat");
    EXPECT_EQ(Day(id)["Durum"], one.state);
    EXPECT_EQ(Day(id)["StokAd"], one.instrument + " Tahsilat");
  }
  EXPECT_EQ(Balance("=100"), "30.0|0.0|30.0|Borç");
  EXPECT_EQ(Balance("=110"), "0.0|0.0|0.0|");
  EXPECT_EQ(Balance("C001"), "0.0|60.0|60.0|Alacak");
}

TEST_F(MoneyMovementTest, money_behind_a_sale_is_for_the_item_in_front) {
  for (const MoneyDirection direction : {MoneyDirection::Collection, MoneyDirection::Payment}) {
    MoneyMovement movement = Cash(10);
    movement.direction = direction;
    movement.itemInFront = PaidItem{"1001", "Pirinç", "Adet"};
    const std::string id = Book(movement);
    Fields account = Ledger(id, "=100");
    EXPECT_EQ(account["Aciklama"], "Pirinç");
    EXPECT_EQ(account["Bilgi1"], "1001");
    EXPECT_EQ(account["Bilgi2"], "Pirinç");
    EXPECT_EQ(account["Birim"], "Adet");
    EXPECT_EQ(account["Gurup"], "Kasa");
    EXPECT_EQ(Ledger(id, "C001")["Bilgi1"], "");
    EXPECT_EQ(Ledger(id, "C001")["Gurup"], "");
    EXPECT_EQ(Ledger(id, "C001")["Aciklama"], "Ayşe Yılmaz" + std::string(NameOf(direction)) + " İle");
    EXPECT_EQ(Day(id)["StokAd"], "Pirinç");
    EXPECT_EQ(Day(id)["StokKod"], "");
  }
}

TEST_F(MoneyMovementTest, the_panel_behind_a_sale_collects_and_names_the_item_too) {
  MoneyMovement movement = Cash(10);
  movement.instrument = "Kredi Kartı";
  movement.itemInFront = PaidItem{"1001", "Pirinç", "Adet"};
  movement.inPanel = true;
  const std::string id = Book(movement);
  EXPECT_EQ(Ledger(id, "=150")["Aciklama"], "Kredi Kartı Tahsilat");
  EXPECT_EQ(Ledger(id, "=150")["Bilgi1"], "1001");
  EXPECT_EQ(Ledger(id, "=150")["Gurup"], "Kasa");
  EXPECT_EQ(Day(id)["StokAd"], "Kredi Kartı Tahsilat");
}

TEST_F(MoneyMovementTest, the_account_bears_the_name_of_the_screen_and_the_customer_his_cards) {
  MoneyMovement movement = Cash(10);
  movement.customerName = "Ayşe";
  const std::string id = Book(movement);
  EXPECT_EQ(Ledger(id, "=100")["Unvan"], "Ayşe");
  EXPECT_EQ(Ledger(id, "C001")["Unvan"], "Ayşe Yılmaz");
  EXPECT_EQ(Ledger(id, "C001")["Aciklama"], "Ayşe Tahsilat İle");
  EXPECT_EQ(Day(id)["CariAd"], "Ayşe Yılmaz");
}

TEST_F(MoneyMovementTest, a_collection_of_exactly_the_balance_clears_every_due_date_whatever_its_amount) {
  Owe("C001", "150");
  PutDue("('C001','2026-01-05 00:00:00',999),('C001','2026-02-05 00:00:00',-3),('C002','2026-02-05 00:00:00',7)");
  Book(Cash(150));
  EXPECT_EQ(Balance("C001"), "150.0|150.0|0.0|Borç");
  EXPECT_EQ(Due("C001"), Lines{});
  EXPECT_EQ(Due("C002"), Lines{"7.0"});
}

TEST_F(MoneyMovementTest, a_payment_over_three_due_dates_leaves_the_second_below_zero) {
  Owe("C001", "300");
  PutDue("('C001','2026-01-05 00:00:00',50),('C001','2026-02-05 00:00:00',100),('C001','2026-02-15 00:00:00',150)");
  Book(Cash(200));
  EXPECT_EQ(Due("C001"), (Lines{"-50.0", "150.0"}));
}

TEST_F(MoneyMovementTest, a_payment_out_consumes_the_suppliers_due_dates) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=300, Bakiye=300, Hesap='Alacak' WHERE CariKod='T001'");
  PutDue("('T001','2026-01-05 00:00:00',100),('T001','2026-02-05 00:00:00',100),('T001','2026-02-15 00:00:00',500)");
  Book(Payout(150));
  EXPECT_EQ(Due("T001"), (Lines{"50.0", "500.0"}));
  Book(Payout(150));
  EXPECT_EQ(Balance("T001"), "300.0|300.0|0.0|Borç");
  EXPECT_EQ(Due("T001"), Lines{});
}

TEST_F(MoneyMovementTest, any_amount_posts_as_it_stands) {
  const std::string nothing = Book(Cash(0));
  EXPECT_EQ(Day(nothing)["Tahsilat"], "0.0");
  const std::string back = Book(Cash(-20));
  EXPECT_EQ(Ledger(back, "=100")["Borc"], "-20.0");
  EXPECT_EQ(Ledger(back, "C001")["Alacak"], "-20.0");
  EXPECT_EQ(Day(back)["Tahsilat"], "-20.0");
  EXPECT_EQ(Balance("C001"), "0.0|-20.0|20.0|Borç");
  EXPECT_EQ(Balance("=100"), "-20.0|0.0|20.0|Alacak");
}

TEST_F(MoneyMovementTest, a_balance_of_nothing_is_nobodys_credit) {
  Owe("C001", "3.3");
  Book(Cash(1.1));
  Book(Cash(2.2));
  EXPECT_EQ(One("Cari.mdb", "SELECT Bakiye, Hesap FROM CariKartlar WHERE CariKod='C001'"), "0.0|Borç");
}

TEST_F(MoneyMovementTest, a_missing_account_stops_nothing_and_the_first_card_takes_its_place) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='=150'");
  MoneyMovement movement = Cash(10);
  movement.instrument = "Kredi Kartı";
  const std::string id = Book(movement);
  EXPECT_EQ(Ledger(id, "=100")["Borc"], "10.0");
  EXPECT_EQ(Ledger(id, "=100")["Carisi"], "=100");
  EXPECT_EQ(Ledger(id, "C001")["Alacak"], "10.0");
  EXPECT_EQ(Balance("=100"), "10.0|0.0|10.0|Borç");
  EXPECT_EQ(Balance("C001"), "0.0|10.0|10.0|Alacak");
}

TEST_F(MoneyMovementTest, a_customer_who_is_the_first_card_himself_keeps_both_sides) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod LIKE '=%'");
  const auto booked = BookMoneyMovement(shop, Cash(10));
  ASSERT_TRUE(booked);
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod, Borc, Alacak FROM CariHareket ORDER BY rowid"), (Lines{"C001|10.0|0.0", "C001|0.0|10.0"}));
  EXPECT_EQ(Balance("C001"), "10.0|10.0|0.0|Borç");
  EXPECT_EQ(booked->balance.amount, 0);
}

TEST_F(MoneyMovementTest, terminal_two_writes_its_digits) {
  terminalNo = "02";
  const std::string id = Book(Cash(10));
  EXPECT_EQ(id, "20000000261");
  EXPECT_EQ(Day(id)["Plasiyer"], "WinKarvel1");
}

TEST_F(MoneyMovementTest, quotes_in_codes_and_names_change_nothing) {
  AddCustomer("O''1", "O''Neil", "Gurup='Bayi''ler', Borc=100, Bakiye=100, Hesap='Borç'");
  PutDue("('O''1','2026-01-05 00:00:00',100)");
  MoneyMovement movement = Cash(40);
  movement.customerCode = "O'1";
  movement.customerName = "O'Neil";
  movement.itemInFront = PaidItem{"S'1", "Taze 'Kaşar'", "Kg'"};
  const std::string id = Book(movement);
  EXPECT_EQ(Ledger(id, "=100")["Unvan"], "O'Neil");
  EXPECT_EQ(Ledger(id, "=100")["Bilgi2"], "Taze 'Kaşar'");
  EXPECT_EQ(Ledger(id, "O''1")["Aciklama"], "O'Neil Tahsilat İle");
  EXPECT_EQ(Day(id)["CariKod"], "O'1");
  EXPECT_EQ(Day(id)["Gurup"], "Bayi'ler");
  EXPECT_EQ(Due("O''1"), Lines{"60.0"});
  movement.amount = 60;
  Book(movement);
  EXPECT_EQ(Balance("O''1"), "100.0|100.0|0.0|Borç");
  EXPECT_EQ(Due("O''1"), Lines{});
}

TEST_F(MoneyMovementTest, a_customer_whose_card_is_gone_is_told_and_nothing_is_written) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  const auto before = AllRows();
  EXPECT_EQ(Refusal(Cash(10)), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(MoneyMovementTest, an_account_that_cant_be_read_is_not_missing) {
  const auto before = AllRows();
  engine.readsBeforeFault = 1;  // the customer
  engine.readFault = {ErrorKind::Busy, "another program"};
  EXPECT_EQ(Refusal(Cash(10)), ErrorKind::Busy);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(MoneyMovementTest, a_store_that_fails_at_any_step_leaves_nothing_and_says_why) {
  Owe("C001", "300");
  PutDue("('C001','2026-01-05 00:00:00',50),('C001','2026-02-05 00:00:00',100)");
  const auto before = AllRows();
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  engine.writeFault = {ErrorKind::DiskFull, "no room"};
  constexpr int kReads = 9;
  for (int reads = 0; reads < kReads; ++reads) {
    engine.readsBeforeFault = reads;
    engine.writesBeforeFault = 100;
    EXPECT_EQ(Refusal(Cash(80)), ErrorKind::Other) << reads;
    ASSERT_EQ(AllRows(), before) << reads;
  }
  engine.readFault = {};
  // Year, counters, account's row and card, day book, customer's row and card, two due dates.
  for (int writes = 0; writes < 9; ++writes) {
    engine.writesBeforeFault = writes;
    EXPECT_EQ(Refusal(Cash(80)), ErrorKind::DiskFull) << writes;
    ASSERT_EQ(AllRows(), before) << writes;
  }
  engine.writesBeforeFault = 9;
  EXPECT_EQ(Book(Cash(80)), "10000000261");
  EXPECT_EQ(Due("C001"), Lines{"70.0"});
}

TEST_F(MoneyMovementTest, a_store_that_fails_at_the_commit_leaves_nothing_and_the_next_try_is_whole) {
  Owe("C001", "50");
  const auto before = AllRows();
  engine.commitFault = {ErrorKind::NoRights, "read only"};
  EXPECT_EQ(Refusal(Cash(20)), ErrorKind::NoRights);
  EXPECT_EQ(AllRows(), before);
  engine.commitFault = {};
  EXPECT_EQ(Book(Cash(20)), "10000000261");
  EXPECT_EQ(Balance("C001"), "50.0|20.0|30.0|Borç");
}

TEST_F(MoneyMovementTest, closed_stores_are_told) {
  stores.Close();
  EXPECT_EQ(Refusal(Cash(20)), ErrorKind::NotOpen);
}

TEST_F(MoneyMovementTest, a_movement_is_one_commit_and_joins_one_that_is_open) {
  Book(Cash(10));
  EXPECT_EQ(engine.commits, 1);
  const auto before = AllRows();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Action action(stores, "slip");
  EXPECT_TRUE(BookMoneyMovement(shop, Cash(10)));
  EXPECT_FALSE(action.Finish().Ok());
  EXPECT_EQ(engine.commits, 2);
  EXPECT_EQ(AllRows(), before);
}

}  // namespace
}  // namespace karvel
