#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;
class MoneyConfirmationTest : public AccountsFixture {};

TEST_F(MoneyConfirmationTest, a_collection_writes_every_field_of_every_row) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Pay("Ayşe Yılmaz", "60");
  ASSERT_EQ(LastId(), "10000000262");

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
                       {"DigerId", LastId()},
                       {"Nerde", "C"},
                       {"Miktar", "0.0"},
                       {"Fiyat", "0.0"},
                       {"yeni", "1.0"},
                       {"Gurup", ""}};
  EXPECT_EQ(Ledger(LastId(), "=100"), account);
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
                        {"DigerId", LastId()},
                        {"Nerde", "C"},
                        {"Miktar", "0.0"},
                        {"Fiyat", "0.0"},
                        {"yeni", "1.0"},
                        {"Gurup", ""}};
  EXPECT_EQ(Ledger(LastId(), "C001"), customer);
  const Fields day{{"CariKod", "C001"},
                   {"StokKod", ""},
                   {"CariAd", "Ayşe Yılmaz"},
                   {"StokAd", "Nakit Tahsilat"},
                   {"Fiyat", "0.0"},
                   {"Miktar", "0.0"},
                   {"Tutar", "0.0"},
                   {"Tarih", "2026-03-01 10:15:00"},
                   {"DigerId", LastId()},
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
  EXPECT_EQ(Day(LastId()), day);
  EXPECT_EQ(Balance("=100"), "60.0|0.0|60.0|Borç");
  EXPECT_EQ(Balance("C001"), "150.0|60.0|90.0|Borç");
  EXPECT_EQ(Due("C001"), Lines{"90.0"});
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokHareket"), "1");
}

TEST_F(MoneyConfirmationTest, the_ledger_takes_the_account_first) {
  Pay("Ayşe Yılmaz", "60");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT cariharkod FROM CariHareket ORDER BY rowid"), (Lines{"=100", "C001"}));
}

TEST_F(MoneyConfirmationTest, a_payment_out_turns_the_sides_and_keeps_the_day_book_positive) {
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_EQ(At("Label1(5)").Caption(), " Ödeme");
  Pay("Toptan Gıda", "75,5");
  EXPECT_EQ(Ledger(LastId(), "=100")["Alacak"], "75.5");
  EXPECT_EQ(Ledger(LastId(), "=100")["Borc"], "0.0");
  EXPECT_EQ(Ledger(LastId(), "=100")["Aciklama"], "Nakit Ödeme");
  EXPECT_EQ(Ledger(LastId(), "T001")["Borc"], "75.5");
  EXPECT_EQ(Ledger(LastId(), "T001")["Alacak"], "0.0");
  EXPECT_EQ(Ledger(LastId(), "T001")["Aciklama"], "Toptan Gıda Ödeme İle");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "75.5");
  EXPECT_EQ(Day(LastId())["StokAd"], "Nakit Ödeme");
  EXPECT_EQ(Balance("=100"), "0.0|75.5|75.5|Alacak");
  EXPECT_EQ(Balance("T001"), "75.5|0.0|75.5|Borç");
}

TEST_F(MoneyConfirmationTest, the_wholesalers_list_that_a_start_brings_back_is_paid_out_to) {
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  Pay("Toptan Gıda", "10");
  EXPECT_EQ(Ledger(LastId(), "T001")["Borc"], "10.0");
}

TEST_F(MoneyConfirmationTest, each_form_of_payment_has_its_account_and_its_name_in_the_day_book) {
  struct Case {
    const char* instrument;
    const char* account;
    const char* state;
  };
  for (const Case& one : {Case{"Nakit", "=100", "Nakit"}, Case{"Kredi Kartı", "=150", "K.Kartı"}, Case{"Çek", "=600", "Çek"},
                          Case{"Senet", "=500", "Senet"}, Case{"Havale", "=100", "Havale"}}) {
    At("Label3").SetCaption(one.instrument);
    Pay("Ayşe Yılmaz", "10");
    EXPECT_EQ(Ledger(LastId(), one.account)["Borc"], "10.0") << one.instrument;
    EXPECT_EQ(Ledger(LastId(), one.account)["Aciklama"], std::string(one.instrument) + " Tahsilat");
    EXPECT_EQ(Day(LastId())["Durum"], one.state);
    EXPECT_EQ(Day(LastId())["StokAd"], std::string(one.instrument) + " Tahsilat");
  }
  EXPECT_EQ(Balance("=100"), "20.0|0.0|20.0|Borç");
  EXPECT_EQ(Balance("C001"), "0.0|50.0|50.0|Alacak");
}

TEST_F(MoneyConfirmationTest, a_collection_of_exactly_the_balance_deletes_every_due_date_whatever_its_amount) {
  Sql("Cari.mdb",
      "INSERT INTO \"VadeGün\" VALUES('C001','2026-01-05 00:00:00',999),('C001','2026-02-05 00:00:00',-3),"
      "('C002','2026-02-05 00:00:00',7)");
  Sell("Ayşe Yılmaz", "1001", "3");
  Pay("Ayşe Yılmaz", "150");
  EXPECT_EQ(Balance("C001"), "150.0|150.0|0.0|Borç");
  EXPECT_EQ(Due("C001"), Lines{});
  EXPECT_EQ(Due("C002"), Lines{"7.0"});
}

TEST_F(MoneyConfirmationTest, a_partial_payment_lowers_the_earliest_due_date) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=300, Bakiye=300 WHERE CariKod='C001'");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-02-05 00:00:00',200),('C001','2026-01-05 00:00:00',100)");
  Pay("Ayşe Yılmaz", "30");
  EXPECT_EQ(Due("C001"), (Lines{"70.0", "200.0"}));
}

TEST_F(MoneyConfirmationTest, a_payment_of_exactly_one_due_amount_deletes_that_due_date) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=300, Bakiye=300 WHERE CariKod='C001'");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200)");
  Pay("Ayşe Yılmaz", "100");
  EXPECT_EQ(Due("C001"), Lines{"200.0"});
}

TEST_F(MoneyConfirmationTest, a_payment_over_two_due_dates_deletes_the_first_and_lowers_the_second) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=300, Bakiye=300 WHERE CariKod='C001'");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200)");
  Pay("Ayşe Yılmaz", "150");
  EXPECT_EQ(Due("C001"), Lines{"150.0"});
}

TEST_F(MoneyConfirmationTest, a_payment_over_three_due_dates_leaves_the_second_below_zero) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=300, Bakiye=300 WHERE CariKod='C001'");
  Sql("Cari.mdb",
      "INSERT INTO \"VadeGün\" VALUES('C001','2026-01-05 00:00:00',50),('C001','2026-02-05 00:00:00',100),"
      "('C001','2026-02-15 00:00:00',150)");
  Pay("Ayşe Yılmaz", "200");
  EXPECT_EQ(Due("C001"), (Lines{"-50.0", "150.0"}));
}

TEST_F(MoneyConfirmationTest, due_dates_are_the_customers_own_also_when_the_last_sale_was_left_in_purchase_mode) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=300, Bakiye=300 WHERE CariKod IN ('C001','C002')");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-01-05 00:00:00',300),('C002','2026-01-05 00:00:00',300)");
  EnterSale("Ayşe Yılmaz");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Pay("Burak Demir", "100");
  EXPECT_EQ(Due("C001"), Lines{"300.0"});
  EXPECT_EQ(Due("C002"), Lines{"200.0"});
}

TEST_F(MoneyConfirmationTest, any_amount_posts_as_it_stands) {
  Pay("Ayşe Yılmaz", "5");
  At("Text2(2)").SetText("-20");
  Click("Command2");
  EXPECT_EQ(Ledger(LastId(), "=100")["Borc"], "-20.0");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "-20.0");
  EXPECT_EQ(Balance("C001"), "0.0|-15.0|15.0|Borç");
}

TEST_F(MoneyConfirmationTest, amounts_read_with_groups_and_comma) {
  At("Text1(0)").SetFocus();
  Set("Text1(0)", "Ayşe Yılmaz");
  At("Text2(2)").SetText("1.250,75");
  Click("Command2");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "1250.75");
}

TEST_F(MoneyConfirmationTest, a_missing_account_stops_nothing_and_the_card_in_front_takes_its_place) {
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='=100'");
  const std::string first = One("Cari.mdb", "SELECT CariKod FROM CariKartlar ORDER BY rowid LIMIT 1");
  Pay("Ayşe Yılmaz", "10");
  EXPECT_EQ(Ledger(LastId(), "C001")["Alacak"], "10.0");
  EXPECT_EQ(Ledger(LastId(), first)["Borc"], "10.0");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "10.0");
}

TEST_F(MoneyConfirmationTest, afterwards_the_list_stands_on_the_customer_and_the_fields_are_ready) {
  Pay("Burak Demir", "10");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
  EXPECT_EQ(At("Label5").Caption(), "10,00");
  EXPECT_EQ(At("Text2(2)").Text(), "0");
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_FALSE(desk->screen.Busy());
  EXPECT_TRUE(desk->cursors.CariData.NoMatch() || desk->cursors.HareketData.Text("DigerId") == LastId());
  // The filtered list is back: no money account can be chosen in it.
  EXPECT_FALSE(desk->cursors.CariData.FindFirst("CariKod='=100'").Ok());
}

TEST_F(MoneyConfirmationTest, after_a_line_was_tapped_in_a_sale_the_button_takes_payments_again_at_rest) {
  Sell("Ayşe Yılmaz", "1001", "3");
  TapLine(LastId());
  Pay("Ayşe Yılmaz", "10");
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(Day(LastId())["Tahsilat"], "10.0");
}

TEST_F(MoneyConfirmationTest, terminal_two_writes_its_digits) {
  ASSERT_TRUE(Start("Velmora Karvel2"));
  Pay("Ayşe Yılmaz", "10");
  EXPECT_EQ(LastId(), "20000000261");
  EXPECT_EQ(Day(LastId())["Plasiyer"], "WinKarvel1");
}

TEST_F(MoneyConfirmationTest, a_store_that_is_closed_leaves_the_amount_for_another_try) {
  Set("Text1(0)", "Ayşe Yılmaz");
  Set("Text2(2)", "40");
  stores->Close();
  Click("Command2");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_EQ(At("Text2(2)").Text(), "40");
  EXPECT_TRUE(At("Command2").Enabled());
  ASSERT_TRUE(stores->Open(files.RealPath("C:\\KarvelData\\")).Ok());
  Set("Text1(0)", "Ayşe Yılmaz");
  Click("Command2");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "40.0");
}

TEST_F(MoneyConfirmationTest, a_store_that_fails_at_the_end_leaves_nothing_of_the_movement) {
  Sell("Ayşe Yılmaz", "1001", "1");
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Pay("Ayşe Yılmaz", "20");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_FALSE(stores->InAction());
  EXPECT_EQ(At("Text2(2)").Text(), "20");
  EXPECT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz");
  EXPECT_EQ(LastId(), "10000000261");
  EXPECT_EQ(Balance("C001"), "50.0|0.0|50.0|Borç");
  EXPECT_EQ(Balance("=100"), "0.0|0.0|0.0|");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "1");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "1");
  engine.commitFault = {};
  Click("Command2");
  EXPECT_EQ(Balance("C001"), "50.0|20.0|30.0|Borç");
  EXPECT_EQ(Due("C001"), Lines{"30.0"});
}

TEST_F(MoneyConfirmationTest, the_button_is_off_and_busy_while_it_posts) {
  bool seen = false;
  connections += desk->cursors.HareketData.repositioned.Connect([&] {
    if (desk->screen.Busy() && At("Command2").Caption() == "Bekleyin" && !At("Command2").Enabled()) seen = true;
  });
  Pay("Ayşe Yılmaz", "10");
  EXPECT_TRUE(seen);
}

TEST_F(MoneyConfirmationTest, a_customer_with_a_quote_in_code_and_name_pays_as_any_other) {
  AddQuotedCards();
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=100, Bakiye=100, Hesap='Borç' WHERE CariKod='O''1'");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('O''1','2026-01-05 00:00:00',100)");
  Front("O'1");
  PayInFront("40");
  EXPECT_EQ(Ledger(LastId(), "=100")["Unvan"], "O'Neil");
  EXPECT_EQ(Ledger(LastId(), "O''1")["Aciklama"], "O'Neil Tahsilat İle");
  EXPECT_EQ(Day(LastId())["CariKod"], "O'1");
  EXPECT_EQ(Balance("O''1"), "100.0|40.0|60.0|Borç");
  EXPECT_EQ(Due("O''1"), Lines{"60.0"});
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "O'1");
  PayInFront("60");
  EXPECT_EQ(Due("O''1"), Lines{});
}

TEST_F(MoneyConfirmationTest, the_wholesalers_list_is_back_afterwards) {
  At("GurupCombo").ChooseText("Toptan");
  const std::string list = desk->cursors.CariData.RecordSource();
  Pay("Toptan Gıda", "10");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
  EXPECT_EQ(desk->cursors.CariData.RecordCount(), 1);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "T001");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
}

TEST_F(MoneyConfirmationTest, the_list_of_a_group_is_back_afterwards) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi''ler',1)");
  AddCustomer("B001", "Bayi Bir", "Gurup='Bayi''ler'");
  AddCustomer("B002", "Bayi İki", "Gurup='Bayi''ler'");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Bayi'ler");
  const std::string list = desk->cursors.CariData.RecordSource();
  Front("B002");
  PayInFront("10");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
  EXPECT_EQ(desk->cursors.CariData.RecordCount(), 2);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "B002");
  EXPECT_EQ(Day(LastId())["Gurup"], "Bayi'ler");
}

TEST_F(MoneyConfirmationTest, a_filtered_list_is_back_afterwards) {
  At("Text5").SetText("Bur");
  ASSERT_EQ(desk->cursors.CariData.RecordCount(), 1);
  const std::string list = desk->cursors.CariData.RecordSource();
  PayInFront("10");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
  EXPECT_EQ(desk->cursors.CariData.RecordCount(), 1);
  EXPECT_EQ(Day(LastId())["CariKod"], "C002");
}

TEST_F(MoneyConfirmationTest, a_payment_out_consumes_the_suppliers_due_dates_and_balance_zero_deletes_them_all) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=300, Bakiye=300, Hesap='Alacak' WHERE CariKod='T001'");
  Sql("Cari.mdb",
      "INSERT INTO \"VadeGün\" VALUES('T001','2026-01-05 00:00:00',100),('T001','2026-02-05 00:00:00',100),"
      "('T001','2026-02-15 00:00:00',500)");
  At("GurupCombo").ChooseText("Toptan");
  Pay("Toptan Gıda", "150");
  EXPECT_EQ(Balance("T001"), "150.0|300.0|150.0|Alacak");
  EXPECT_EQ(Due("T001"), (Lines{"50.0", "500.0"}));
  Pay("Toptan Gıda", "150");
  EXPECT_EQ(Balance("T001"), "300.0|300.0|0.0|Borç");
  EXPECT_EQ(Due("T001"), Lines{});
}

TEST_F(MoneyConfirmationTest, a_name_that_no_customer_bears_posts_nothing) {
  Set("Text1(0)", "Kimse Yok");
  Set("Text2(2)", "10");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_TRUE(At("Text1(0)").HasFocus());
  EXPECT_EQ(At("Text2(2)").Text(), "10");
}

TEST_F(MoneyConfirmationTest, an_empty_list_posts_nothing) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Boş',1)");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Boş");
  ASSERT_FALSE(desk->cursors.CariData.HasRows());
  Set("Text2(2)", "10");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(LastId(), "");
}

TEST_F(MoneyConfirmationTest, every_row_carries_the_one_time_read_at_the_start) {
  Front("C001");
  Set("Text2(2)", "10");
  // The clock goes on while the rows are written.
  connections += desk->cursors.CariHarData.repositioned.Connect([this] { clock.now = clock.now.PlusSeconds(60); });
  Click("Command2");
  EXPECT_NE(clock.now, (DateTime{2026, 3, 1, 10, 15, 0}));
  EXPECT_EQ(Ledger(LastId(), "=100")["Tarih"], "2026-03-01 10:15:00");
  EXPECT_EQ(Ledger(LastId(), "C001")["Tarih"], "2026-03-01 10:15:00");
  EXPECT_EQ(Day(LastId())["Tarih"], "2026-03-01 10:15:00");
}

TEST_F(MoneyConfirmationTest, a_credit_that_outgrows_the_debit_turns_the_side_and_is_rounded) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=10.004, Bakiye=10, Hesap='Borç' WHERE CariKod='C001'");
  Pay("Ayşe Yılmaz", "10,01");
  EXPECT_EQ(One("Cari.mdb", "SELECT Bakiye, Hesap FROM CariKartlar WHERE CariKod='C001'"), "0.01|Alacak");
}

TEST_F(MoneyConfirmationTest, a_due_amount_that_is_paid_goes_whatever_hair_of_rounding_is_left) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=5.3, Bakiye=5.3, Hesap='Borç' WHERE CariKod='C001'");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-01-05 00:00:00',0.1+0.2),('C001','2026-02-05 00:00:00',5)");
  ASSERT_TRUE(Start());
  Front("C001");
  PayInFront("0,3");
  EXPECT_EQ(Due("C001"), std::vector<std::string>{"5.0"});
}

TEST_F(MoneyConfirmationTest, a_balance_of_nothing_is_nobodys_credit) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=3.3, Bakiye=3.3, Hesap='Borç' WHERE CariKod='C001'");
  ASSERT_TRUE(Start());
  Front("C001");
  PayInFront("1,1");
  PayInFront("2,2");
  EXPECT_EQ(Customer("C001")["Bakiye"], "0.0");
  EXPECT_EQ(Customer("C001")["Hesap"], "Borç");
}

}  // namespace
}  // namespace karvel
