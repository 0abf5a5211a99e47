#include <fmt/format.h>

#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"
#include "tests/support/faulty_files.h"
#include "text/format.h"

namespace karvel {
namespace {

class SaleConfirmationTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    AddStock("1001", "Pirinç", "Birim2='Koli', Adet2=12, Adet3=24, Fiyat=50, Fiyat2=540, Fiyat3=1000, gFiyat=40");
    AddStock("1002", "Şeker", "Maliyet=1, Fiyat=20, gFiyat=12");
    ASSERT_TRUE(Start());  // the list is read anew
  }
  // The rows of one line, which its id ties together.
  Fields Day(const std::string& id) { return RowOf("Karvel.mdb", "Datam", "DigerId='" + id + "'"); }
  Fields Movement(const std::string& id) { return RowOf("Stok.mdb", "StokHareket", "DigerId='" + id + "'"); }
  Fields Ledger(const std::string& id) { return RowOf("Cari.mdb", "CariHareket", "DigerId='" + id + "'"); }
  Fields Card(const std::string& code) { return RowOf("Stok.mdb", "StokKartlar", "StokKod='" + code + "'"); }
  Fields Customer(const std::string& code) { return RowOf("Cari.mdb", "CariKartlar", "CariKod='" + code + "'"); }
  std::string LastId() { return desk->form.CurrentLineId; }
};

TEST_F(SaleConfirmationTest, a_sale_writes_every_field_of_every_row) {
  Sell("Ayşe Yılmaz", "1001", "3");
  ASSERT_EQ(LastId(), "10000000261");

  const Fields movement{{"StokHarKod", "1001"},
                        {"Tarih", "2026-03-01 00:00:00"},
                        {"Aciklama", "Pirinç Satış İle"},
                        {"Tutar", "150.0"},
                        {"Birim", "Adet"},
                        {"Miktar", "3.0"},
                        {"Fiyat", "50.0"},
                        {"GirisCikis", "Satış"},
                        {"Carisi", "C001"},
                        {"DigerId", "10000000261"},
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
  EXPECT_EQ(Movement(LastId()), movement);

  const Fields day{{"CariKod", "C001"},
                   {"StokKod", "1001"},
                   {"CariAd", "Ayşe Yılmaz"},
                   {"StokAd", "Pirinç"},
                   {"Fiyat", "50.0"},
                   {"Miktar", "3.0"},
                   {"Tutar", "150.0"},
                   {"Tarih", "2026-03-01 10:15:00"},
                   {"DigerId", LastId()},
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
  EXPECT_EQ(Day(LastId()), day);

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
                      {"DigerId", LastId()},
                      {"Nerde", "S"},
                      {"Miktar", "3.0"},
                      {"Fiyat", "50.0"},
                      {"yeni", "1.0"},
                      {"Gurup", ""}};
  EXPECT_EQ(Ledger(LastId()), ledger);

  Fields card = Card("1001");
  EXPECT_EQ(card["CikanMik"], "3.0");
  EXPECT_EQ(card["CikanTutar"], "150.0");
  EXPECT_EQ(card["GirenMik"], "0.0");
  EXPECT_EQ(card["KalanA"], "3.0");
  EXPECT_EQ(card["KalanB"], "0.0");
  EXPECT_EQ(card["Kar"], "0.0");

  Fields customer = Customer("C001");
  EXPECT_EQ(customer["Borc"], "150.0");
  EXPECT_EQ(customer["Alacak"], "0.0");
  EXPECT_EQ(customer["Bakiye"], "150.0");
  EXPECT_EQ(customer["Hesap"], "Borç");

  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM \"VadeGün\""), std::vector<std::string>{"C001|2026-03-01 00:00:00|150.0"});
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), std::vector<std::string>{});
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT * FROM SeriNo"), std::vector<std::string>{});
  EXPECT_EQ(Rows("Index.mdb", "SELECT Tarih, Serino, Indexi FROM Mdbindex"), std::vector<std::string>{"2026|260|261"});
  EXPECT_EQ(Rows("Index.mdb", "SELECT * FROM Tarih"), std::vector<std::string>{"2026"});
}

TEST_F(SaleConfirmationTest, an_amount_keeps_its_kurus) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat=162.05 WHERE StokKod='1001'");
  Sell("Ayşe Yılmaz", "1001", "1,5");
  EXPECT_EQ(Movement(LastId())["Tutar"], "243.08");
  EXPECT_EQ(Day(LastId())["Tutar"], "243.08");
  EXPECT_EQ(Ledger(LastId())["Borc"], "243.08");
  EXPECT_EQ(Card("1001")["CikanTutar"], "243.08");
  EXPECT_EQ(Customer("C001")["Bakiye"], "243.08");
  EXPECT_EQ(One("Cari.mdb", "SELECT Tutar FROM \"VadeGün\""), "243.08");
}

TEST_F(SaleConfirmationTest, a_return_moves_the_other_side_and_books_no_price_due_date_or_profit) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label4");
  ASSERT_EQ(At("Label4").Caption(), "İade");
  Set("Text2(0)", "25");
  Post("2");
  EXPECT_EQ(Movement(LastId())["GirisCikis"], "İade");
  EXPECT_EQ(Movement(LastId())["Aciklama"], "Şeker İade İle");
  EXPECT_EQ(Movement(LastId())["Plasiyer"], "WinKarvel01");
  EXPECT_EQ(Day(LastId())["Durum"], "İade");
  EXPECT_EQ(Ledger(LastId())["Aciklama"], "Şeker İade");
  EXPECT_EQ(Ledger(LastId())["Borc"], "0.0");
  EXPECT_EQ(Ledger(LastId())["Alacak"], "50.0");
  EXPECT_EQ(Card("1002")["GirenMik"], "2.0");
  EXPECT_EQ(Card("1002")["GirenTutar"], "50.0");
  EXPECT_EQ(Card("1002")["CikanMik"], "0.0");
  EXPECT_EQ(Card("1002")["KalanB"], "2.0");
  EXPECT_EQ(Card("1002")["Kar"], "0.0");
  EXPECT_EQ(Customer("C001")["Alacak"], "50.0");
  EXPECT_EQ(Customer("C001")["Hesap"], "Alacak");
  EXPECT_EQ(At("Label5").Color(), color::kRed);
  EXPECT_EQ(At("Label5").Caption(), "50,00");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM Cari"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM \"VadeGün\""), "0");
}

TEST_F(SaleConfirmationTest, a_purchase_books_price_and_due_date_with_the_same_sign) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label4");
  DoubleTap("Label4");
  ASSERT_EQ(At("Label4").Caption(), "Alış");
  Set("Text2(0)", "11");
  Post("4");
  EXPECT_EQ(Movement(LastId())["GirisCikis"], "Alış");
  EXPECT_EQ(Movement(LastId())["Kar"], "0.0");  // 44 - 4 x 12 is a loss
  EXPECT_EQ(Day(LastId())["Durum"], "Alış");
  EXPECT_EQ(Ledger(LastId())["Alacak"], "44.0");
  EXPECT_EQ(Card("1002")["GirenMik"], "4.0");
  EXPECT_EQ(Card("1002")["GirenTutar"], "44.0");
  EXPECT_EQ(Customer("C001")["Alacak"], "44.0");
  EXPECT_EQ(One("Cari.mdb", "SELECT \"0Fiyat\" FROM Cari WHERE StokKod='1002' AND CariKod='C001'"), "11.0");
  EXPECT_EQ(One("Cari.mdb", "SELECT Tutar FROM \"VadeGün\""), "44.0");
}

TEST_F(SaleConfirmationTest, a_purchase_with_a_margin_books_a_profit_on_the_movement_but_not_on_the_card) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Post("2");
  EXPECT_EQ(Movement(LastId())["Kar"], "16.0");  // 40 - 2 x 12
  EXPECT_EQ(Day(LastId())["Kar"], "16.0");
  EXPECT_EQ(Card("1002")["Kar"], "0.0");
}

TEST_F(SaleConfirmationTest, profit_is_booked_on_movement_day_book_and_card) {
  Sell("Ayşe Yılmaz", "1002", "5");
  EXPECT_EQ(Movement(LastId())["Kar"], "40.0");  // 100 - 5 x 12
  EXPECT_EQ(Day(LastId())["Kar"], "40.0");
  EXPECT_EQ(Card("1002")["Kar"], "40.0");
}

TEST_F(SaleConfirmationTest, a_loss_is_booked_as_profit_zero) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  Set("Text2(0)", "5");
  Post("3");
  EXPECT_EQ(Movement(LastId())["Tutar"], "15.0");
  EXPECT_EQ(Movement(LastId())["Kar"], "0.0");
  EXPECT_EQ(Card("1002")["Kar"], "0.0");
}

TEST_F(SaleConfirmationTest, the_second_price_counts_in_first_units_and_keeps_the_amount_of_the_second) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  ASSERT_EQ(At("Label1(2)").Caption(), "2.Fiyat");
  Post("2");
  EXPECT_EQ(Movement(LastId())["Miktar"], "24.0");
  EXPECT_EQ(Movement(LastId())["Birim"], "Koli");
  EXPECT_EQ(Movement(LastId())["Tutar"], "1080.0");
  EXPECT_EQ(Day(LastId())["Miktar"], "24.0");
  EXPECT_EQ(Day(LastId())["Birim"], "Koli");
  EXPECT_EQ(Day(LastId())["Fiyat"], "540.0");
  EXPECT_EQ(Ledger(LastId())["Miktar"], "24.0");
  EXPECT_EQ(Ledger(LastId())["Birim"], "Adet");  // the ledger names the card's first unit
  EXPECT_EQ(Ledger(LastId())["Borc"], "1080.0");
  EXPECT_EQ(Card("1001")["CikanMik"], "24.0");
  EXPECT_EQ(Card("1001")["CikanTutar"], "1080.0");
}

TEST_F(SaleConfirmationTest, the_second_price_without_pieces_leaves_the_quantity) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Adet2=0 WHERE StokKod='1001'");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  Post("2");
  EXPECT_EQ(Movement(LastId())["Miktar"], "2.0");
  EXPECT_EQ(Movement(LastId())["Birim"], "Koli");
}

TEST_F(SaleConfirmationTest, the_third_price_keeps_the_first_unit) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  DoubleTap("Label1(2)");
  ASSERT_EQ(At("Label1(2)").Caption(), "3.Fiyat");
  Post("2");
  EXPECT_EQ(Movement(LastId())["Miktar"], "2.0");
  EXPECT_EQ(Movement(LastId())["Birim"], "Adet");
  EXPECT_EQ(Movement(LastId())["Tutar"], "2000.0");
}

TEST_F(SaleConfirmationTest, a_price_typed_over_is_remembered_under_its_name) {
  const std::vector<std::pair<int, std::string>> names{{0, "0Fiyat"}, {1, "1Fiyat"}, {2, "2Fiyat"}};
  for (const auto& [steps, field] : names) {
    Sql("Cari.mdb", "DELETE FROM Cari");
    EnterSale("Ayşe Yılmaz");
    PickItem("1001");
    for (int i = 0; i < steps; ++i) DoubleTap("Label1(2)");
    Set("Text2(0)", "77");
    Post("1");
    Fields special = RowOf("Cari.mdb", "Cari");
    EXPECT_EQ(special["StokKod"], "1001");
    EXPECT_EQ(special["CariKod"], "C001");
    for (const auto& [other, name] : names) EXPECT_EQ(special[name], name == field ? "77.0" : "0.0") << name << " at " << field;
    DoubleTap("Label1(0)");
  }
}

TEST_F(SaleConfirmationTest, the_special_price_is_remembered_as_the_first) {
  Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('1001','C001',45)");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  for (int i = 0; i < 3; ++i) DoubleTap("Label1(2)");
  ASSERT_EQ(At("Label1(2)").Caption(), "Özel");
  ASSERT_EQ(At("Text2(0)").Text(), "45,00");
  Set("Text2(0)", "44");
  Post("1");
  EXPECT_EQ(RowOf("Cari.mdb", "Cari")["0Fiyat"], "44.0");
}

TEST_F(SaleConfirmationTest, a_price_equal_to_the_cards_leaves_the_customer_prices_unchanged) {
  Sell("Ayşe Yılmaz", "1001", "1");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM Cari"), "0");
  Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('1001','C001',45)");
  PickItem("1001");
  Post("1");
  EXPECT_EQ(RowOf("Cari.mdb", "Cari")["0Fiyat"], "45.0");
}

TEST_F(SaleConfirmationTest, the_due_date_of_a_day_gathers_its_amounts) {
  Sell("Ayşe Yılmaz", "1001", "1");
  PickItem("1002");
  Post("2");
  clock.now = {2026, 3, 2, 9, 0, 0};
  PickItem("1002");
  Post("1");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT VadeTarih, Tutar FROM \"VadeGün\" ORDER BY 1"),
            (std::vector<std::string>{"2026-03-01 00:00:00|90.0", "2026-03-02 00:00:00|20.0"}));
}

TEST_F(SaleConfirmationTest, serial_numbers_of_the_list_are_written_in_order_and_the_list_is_emptied) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("List1").AddItem("SN-1");
  At("List1").AddItem("SN-2");
  Post("2");
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT StokKod, CariKod, StokAd, CariAd, Tarih, alsat, yeni, DigerId, AlFiyat, barcode FROM SeriNo"),
            (std::vector<std::string>{"1001|C001|Pirinç|Ayşe Yılmaz|2026-03-01 10:15:00|Alış|1.0|10000000261|50.0|SN-1",
                                      "1001|C001|Pirinç|Ayşe Yılmaz|2026-03-01 10:15:00|Alış|1.0|10000000261|50.0|SN-2"}));
  EXPECT_TRUE(At("List1").Items().empty());
}

TEST_F(SaleConfirmationTest, the_scanned_serial_stands_on_the_movement_and_survives_the_line) {
  EnterSale("Ayşe Yılmaz");
  desk->form.ScannedSerial = "SER-9";
  PickItem("1001");
  Post("1");
  EXPECT_EQ(Movement(LastId())["SeriNo"], "SER-9");
  EXPECT_EQ(Day(LastId())["SeriNo"], "000001");
  EXPECT_EQ(desk->form.ScannedSerial, "SER-9");
}

TEST_F(SaleConfirmationTest, a_line_makes_its_own_customer_once) {
  EnterSale("Ayşe Yılmaz");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  At("Text1(0)").SetText("Çok Uzun Adlı Müşteri Ticaret");
  PickItem("1001");
  Post("1");
  Fields customer = Customer("Çok Uzun Adlı Müşter");
  EXPECT_EQ(customer["Unvan"], "Çok Uzun Adlı Müşteri Ticaret");
  EXPECT_EQ(customer["Borc"], "50.0");
  EXPECT_EQ(Day(LastId())["CariKod"], "Çok Uzun Adlı Müşter");
  EXPECT_EQ(Day(LastId())["CariAd"], "Çok Uzun Adlı Müşteri Ticaret");
  EXPECT_EQ(desk->cursors.HareketData.Text("DigerId"), LastId());  // his day book is in front
  PickItem("1002");
  Post("1");
  EXPECT_EQ(Customer("Çok Uzun Adlı Müşter")["Borc"], "70.0");
}

TEST_F(SaleConfirmationTest, a_customer_whom_another_terminal_moved_out_of_the_list_keeps_the_sale) {
  EnterSale("Ayşe Yılmaz");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Toptan' WHERE CariKod='C001'");
  const std::string list = desk->cursors.CariData.RecordSource();
  PickItem("1001");
  Post("1");
  EXPECT_EQ(Day(LastId())["CariKod"], "C001");
  EXPECT_EQ(Customer("C001")["Borc"], "50.0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "2");  // he and the walk-in customer
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
}

TEST_F(SaleConfirmationTest, of_two_customers_with_one_name_the_chosen_one_pays) {
  AddCustomer("C002", "Ayşe Yılmaz");
  ASSERT_TRUE(Start());
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C002'").Ok());
  DoubleTap("Label1(0)");
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C002");
  PickItem("1001");
  Post("1");
  EXPECT_EQ(Customer("C002")["Borc"], "50.0");
  EXPECT_EQ(Customer("C001")["Borc"], "0.0");
}

TEST_F(SaleConfirmationTest, a_customer_with_a_quote_in_code_and_name_buys_as_any_other) {
  Sql("Cari.mdb", "INSERT INTO CariKartlar(CariKod, Unvan, Gurup) VALUES('A''1','Ali''nin Yeri','Müşteri')");
  ASSERT_TRUE(Start());
  while (desk->cursors.CariData.Text("CariKod") != "A'1") ASSERT_TRUE(desk->cursors.CariData.MoveNext().Ok());
  DoubleTap("Label1(0)");
  PickItem("1001");
  Set("Text2(0)", "45");
  Post("1");
  PickItem("1001");
  Set("Text2(0)", "44");
  Post("1");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, CariAd FROM Datam"), (std::vector<std::string>{"A'1|Ali'nin Yeri", "A'1|Ali'nin Yeri"}));
  EXPECT_EQ(Rows("Cari.mdb", "SELECT CariKod, \"0Fiyat\" FROM Cari"), std::vector<std::string>{"A'1|44.0"});
  EXPECT_EQ(Rows("Cari.mdb", "SELECT CariKod, Tutar FROM \"VadeGün\""), std::vector<std::string>{"A'1|89.0"});
}

TEST_F(SaleConfirmationTest, a_group_chosen_in_a_sale_leaves_the_customer_in_front) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1)");
  AddCustomer("B001", "Bayi Bir", "Gurup='Bayi'");
  ASSERT_TRUE(Start());
  EnterSale("Ayşe Yılmaz");
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(At("GurupCombo").Text(), "Bayi");
  PickItem("1001");
  Post("1");
  EXPECT_EQ(Customer("C001")["Borc"], "50.0");
  EXPECT_EQ(Customer("B001")["Borc"], "0.0");
}

TEST_F(SaleConfirmationTest, nothing_is_sold_without_a_quantity) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "0");
  Set("Text2(2)", "25");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
}

TEST_F(SaleConfirmationTest, a_barcode_typed_into_an_amount_is_no_amount) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "8690504123456");
  EXPECT_EQ(At("Text2(1)").Text(), "869050412");
}

TEST_F(SaleConfirmationTest, a_chosen_group_gets_the_movement_and_all_groups_does_not) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('WinKarvel7',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Bayi' WHERE CariKod='C001'");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("GurupCombo").Items(), (std::vector<std::string>{"Tüm Guruplar", "Bayi"}));
  At("GurupCombo").ChooseText("Bayi");
  Sell("Ayşe Yılmaz", "1001", "1");
  EXPECT_EQ(Movement(LastId())["Plasiyer"], "Bayi");
  EXPECT_EQ(Movement(LastId())["tGurup"], "WinKarvel01");
  EXPECT_EQ(Day(LastId())["Plasiyer"], "WinKarvel0");
}

TEST_F(SaleConfirmationTest, one_slip_number_serves_all_lines_and_the_next_sale_takes_another) {
  Sell("Ayşe Yılmaz", "1001", "1");
  PickItem("1002");
  Post("1");
  DoubleTap("Label1(0)");
  Sell("Ayşe Yılmaz", "1001", "1");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT SeriNo FROM Datam ORDER BY DigerId"), (std::vector<std::string>{"000001", "000001", "000002"}));
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "000002");
}

TEST_F(SaleConfirmationTest, the_slip_number_runs_on_from_the_kept_one_in_six_digits) {
  settings.Save("Velmora Karvel", "Size", "DökNo", "000041").Ignore();
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(Day(LastId())["SeriNo"], "000042");
  EXPECT_EQ(desk->form.SlipNo, "000042");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "000042");
}

TEST_F(SaleConfirmationTest, the_lines_of_a_slip_have_one_number_that_all_terminals_count) {
  settings.Save("Velmora Karvel", "Size", "DökNo", "000041").Ignore();
  Sell("Ayşe Yılmaz", "1001", "2");
  PickItem("1002");
  Post("1");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT SeriNo FROM Datam"), (std::vector<std::string>{"000042", "000042"}));
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "000042");
}

TEST_F(SaleConfirmationTest, a_press_that_sells_nothing_takes_no_number) {
  EnterSale("Ayşe Yılmaz");
  At("Command2").SetEnabled(true);
  Click("Command2");
  EXPECT_EQ(desk->form.SlipNo, "");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", "none"), "none");
}

TEST_F(SaleConfirmationTest, a_purchase_that_is_booked_closes_the_serial_panel) {
  desk->form.SerialEntryOn = true;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Set("Text2(1)", "2");
  At("Command2").SetFocus();
  EXPECT_TRUE(At("Frame4").Visible());
  Click("Command2");
  EXPECT_FALSE(At("Frame4").Visible());
}

TEST_F(SaleConfirmationTest, after_a_line_the_fields_stand_ready_for_the_next) {
  Sell("Ayşe Yılmaz", "1001", "3");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_EQ(At("Label1(2)").Caption(), "1.Fiyat");
  EXPECT_EQ(At("Text2(0)").Text(), "50");
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_TRUE(At("StokGrid").HasFocus());
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_EQ(At("Label5").Caption(), "150,00");
  EXPECT_EQ(At("Label5").Color(), color::kBlack);
  EXPECT_FALSE(desk->screen.Busy());
}

TEST_F(SaleConfirmationTest, terminal_two_writes_its_digits_into_ids_and_tags) {
  ASSERT_TRUE(Start("Velmora Karvel2"));
  Sell("Ayşe Yılmaz", "1001", "1");
  EXPECT_EQ(LastId(), "20000000261");
  EXPECT_EQ(Movement(LastId())["Plasiyer"], "WinKarvel02");
  EXPECT_EQ(Day(LastId())["Plasiyer"], "WinKarvel1");
}

TEST_F(SaleConfirmationTest, ids_run_on_with_the_year_in_front) {
  EnterSale("Ayşe Yılmaz");
  std::vector<std::string> ids;
  for (int i = 0; i < 10; ++i) {
    PickItem("1001");
    Post("1");
    ids.push_back(LastId());
  }
  EXPECT_EQ(ids.front(), "10000000261");
  EXPECT_EQ(ids[8], "10000000269");
  EXPECT_EQ(ids[9], "10000002610");
  clock.now = {2027, 1, 1, 8, 0, 0};
  PickItem("1001");
  Post("1");
  EXPECT_EQ(LastId(), "10000000271");
}

TEST_F(SaleConfirmationTest, a_disk_that_fails_at_any_step_leaves_nothing_of_the_line_and_the_fields_for_another_try) {
  using testing_faults = karvel::testing::FileFaults;
  testing_faults& faults = karvel::testing::Faults();
  vfs = karvel::testing::FaultyFiles();
  faults.Reset();
  ASSERT_TRUE(Start());
  Sell("Ayşe Yılmaz", "1001", "1");  // the year's counters, the special prices and the due date stand from here on
  faults.Reset();
  PickItem("1001");
  Post("1");
  const int steps = faults.steps;
  ASSERT_GT(steps, 20);
  int lines = 2;
  for (int failing = 1; failing <= steps; failing += 3) {
    PickItem("1001");
    DoubleTap("Label1(2)");
    Set("Text2(1)", "2");
    messages.shown.clear();
    faults.Reset();
    faults.failFrom = failing;
    Click("Command2");
    faults.Reset();
    const int there = std::stoi(One("Karvel.mdb", "SELECT count(*) FROM Datam"));
    EXPECT_EQ(std::to_string(there), One("Cari.mdb", "SELECT count(*) FROM CariHareket")) << failing;
    EXPECT_EQ(std::to_string(there), One("Stok.mdb", "SELECT count(*) FROM StokHareket")) << failing;
    if (there > lines) {  // the line was whole before the disk failed
      lines = there;
      continue;
    }
    ASSERT_EQ(messages.shown.size(), 1U) << failing;
    if (messages.shown[0].title == "Kayıt Bilinmiyor") {  // what is half written can't be undone on a disk that takes nothing
      const auto look = loop.timer;
      look();
    } else {
      EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
    }
    EXPECT_EQ(At("Text2(1)").Text(), "2") << failing;
    EXPECT_EQ(At("Label2").Caption(), "1.080,00") << failing;
    EXPECT_EQ(At("Label1(2)").Caption(), "2.Fiyat");
    EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
    Click("Command2");
    ++lines;
    EXPECT_EQ(Day(LastId())["Miktar"], "24.0") << failing;
    EXPECT_EQ(Day(LastId())["Tutar"], "1080.0") << failing;
  }
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), std::to_string(lines));
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(DISTINCT DigerId) FROM Datam"), std::to_string(lines));
  EXPECT_EQ(One("Stok.mdb", "SELECT CikanMik FROM StokKartlar WHERE StokKod='1001'"),
            One("Stok.mdb", "SELECT sum(Miktar) FROM StokHareket"));
  EXPECT_EQ(One("Cari.mdb", "SELECT Borc FROM CariKartlar WHERE CariKod='C001'"), One("Cari.mdb", "SELECT sum(Borc) FROM CariHareket"));
  EXPECT_EQ(One("Cari.mdb", "SELECT Tutar FROM \"VadeGün\""), One("Cari.mdb", "SELECT sum(Borc) FROM CariHareket"));
}

}  // namespace
}  // namespace karvel
