#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class StockReceiptTest : public AccountsFixture {
 protected:
  void Open() {
    At("GurupCombo").ChooseText("Toptan");
    ASSERT_EQ(desk->cursors.CariData.Text("CariKod"), "T001");
    At("StokChk").SetChecked(true);
    ASSERT_TRUE(At("StokAl").Visible());
  }
  void Search(const std::string& text) {
    Set("Text6(0)", text);
    Key("Text6(0)", key::kEnter);
  }
  void Fill(const std::string& rowPrice, const std::string& totalPrice, const std::string& quantity) {
    Set("Text6(1)", rowPrice);
    Set("Text6(2)", totalPrice);
    Set("Text6(3)", quantity);
  }
};

TEST_F(StockReceiptTest, a_new_product_writes_every_field_of_every_row) {
  Open();
  Search("Bulgur");
  EXPECT_TRUE(At("Text6(5)").HasFocus());
  Set("Text6(5)", "8690001");
  Fill("8", "10", "5");
  Set("Text6(4)", "18");
  EXPECT_EQ(At("Label12(5)").Caption(), "50,00");
  Click("StokAlCmd(1)");
  ASSERT_EQ(LastId(), "10000000261");

  Fields card = Card("Bulgur");
  EXPECT_EQ(card["StokAdi"], "Bulgur");
  EXPECT_EQ(card["Kdv"], "18.0");
  EXPECT_EQ(card["Barkod"], "8690001");
  EXPECT_EQ(card["Fiyat"], "10.0");
  EXPECT_EQ(card["gFiyat"], "8.0");
  EXPECT_EQ(card["GirenMik"], "5.0");
  EXPECT_EQ(card["GirenTutar"], "50.0");
  EXPECT_EQ(card["KalanB"], "5.0");
  EXPECT_EQ(card["KalanA"], "0.0");
  EXPECT_EQ(card["Maliyet"], "0.0");

  Fields movement = Movement(LastId());
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
                              {"DigerId", LastId()},
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
                      {"DigerId", LastId()},
                      {"Nerde", "S"},
                      {"Miktar", "5.0"},
                      {"Fiyat", "8.0"},
                      {"yeni", "1.0"},
                      {"Gurup", ""}};
  EXPECT_EQ(Ledger(LastId(), "T001"), ledger);

  const Fields day{{"CariKod", "T001"},
                   {"StokKod", "Bulgur"},
                   {"CariAd", "Toptan Gıda"},
                   {"StokAd", "Bulgur"},
                   {"Fiyat", "8.0"},
                   {"Miktar", "5.0"},
                   {"Tutar", "50.0"},
                   {"Tarih", "2026-03-01 10:15:00"},
                   {"DigerId", LastId()},
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
  EXPECT_EQ(Day(LastId()), day);
  EXPECT_EQ(Balance("T001"), "0.0|50.0|50.0|Alacak");
  EXPECT_EQ(Balance("=100"), "0.0|0.0|0.0|");
  EXPECT_EQ(Due("T001"), std::vector<std::string>{});
}

TEST_F(StockReceiptTest, afterwards_the_panel_is_empty_and_open_for_the_next_item) {
  Open();
  Search("Bulgur");
  Fill("8", "10", "5");
  Click("StokAlCmd(1)");
  EXPECT_TRUE(At("StokAl").Visible());
  for (const int i : {0, 1, 5}) EXPECT_EQ(desk->screen.Text6(i).Text(), "") << i;
  for (const int i : {2, 3, 4}) EXPECT_EQ(desk->screen.Text6(i).Text(), "0") << i;
  EXPECT_EQ(At("Label12(5)").Caption(), "0,00");
  EXPECT_FALSE(At("StokAlCmd(1)").Enabled());
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_FALSE(desk->screen.Busy());
}

TEST_F(StockReceiptTest, a_product_is_found_by_barcode_then_name_then_code_and_fills_the_fields) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=8 WHERE StokKod='1001'");
  Open();
  for (const char* const text : {"8691001", "Pir", "1001"}) {
    Search(text);
    EXPECT_EQ(At("Text6(0)").Text(), "Pirinç") << text;
    EXPECT_EQ(At("Text6(1)").Text(), "40,00");
    EXPECT_EQ(At("Text6(2)").Text(), "50,00");
    EXPECT_EQ(At("Text6(4)").Text(), "8");
    EXPECT_EQ(At("Text6(5)").Text(), "8691001");
    EXPECT_TRUE(At("Text6(3)").HasFocus());
    EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  }
}

TEST_F(StockReceiptTest, an_unknown_product_keeps_its_name_and_clears_prices_quantity_and_barcode) {
  Open();
  Search("Pir");
  Set("Text6(3)", "4");
  Search("Bulgur");
  EXPECT_EQ(At("Text6(0)").Text(), "Bulgur");
  EXPECT_EQ(At("Text6(5)").Text(), "");
  for (const int i : {1, 2, 3}) EXPECT_EQ(desk->screen.Text6(i).Text(), "0") << i;
}

TEST_F(StockReceiptTest, a_known_product_is_raised_and_takes_the_new_prices) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=2.5, GirenTutar=100 WHERE StokKod='1001'");
  Open();
  Search("Pir");
  Fill("42,5", "55", "3,5");
  Click("StokAlCmd(1)");
  Fields card = Card("1001");
  EXPECT_EQ(card["GirenMik"], "6.0");
  EXPECT_EQ(card["GirenTutar"], "292.5");
  EXPECT_EQ(card["KalanB"], "6.0");
  EXPECT_EQ(card["Fiyat"], "55.0");
  EXPECT_EQ(card["gFiyat"], "42.5");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "2");
  EXPECT_EQ(Day(LastId())["StokKod"], "1001");
  EXPECT_EQ(Day(LastId())["Gurup"], "Gıda");
  EXPECT_EQ(Ledger(LastId(), "T001")["Birim"], "Adet");
  // The movement goes under the name, as it does for a product that the receipt makes.
  EXPECT_EQ(Movement(LastId())["StokHarKod"], "1001");
}

TEST_F(StockReceiptTest, the_total_follows_the_second_price_and_the_rows_the_first_on_purpose) {
  Open();
  Search("Pir");
  Fill("40", "50", "2");
  EXPECT_EQ(At("Label12(5)").Caption(), "100,00");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Day(LastId())["Fiyat"], "40.0");
  EXPECT_EQ(Day(LastId())["Tutar"], "100.0");
}

TEST_F(StockReceiptTest, a_name_that_differs_by_case_or_a_blank_makes_a_new_card) {
  Open();
  for (const char* const name : {"pirinç", "Pirinç "}) {
    Search("Pir");
    Set("Text6(0)", name);
    Fill("1", "1", "1");
    Click("StokAlCmd(1)");
    EXPECT_EQ(Card(name)["StokAdi"], name);
  }
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
}

TEST_F(StockReceiptTest, a_long_name_gets_a_cut_code_and_two_of_them_collide) {
  Open();
  for (const char* const name : {"Çok Uzun Adlı Bir Ürün A", "Çok Uzun Adlı Bir Ürün B"}) {
    Search(name);
    Fill("1", "1", "1");
    Click("StokAlCmd(1)");
    EXPECT_EQ(Movement(LastId())["StokHarKod"], "Çok Uzun Adlı Bir Ür");
    EXPECT_EQ(Day(LastId())["StokAd"], name);
  }
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar WHERE StokKod='Çok Uzun Adlı Bir Ür'"), "2");
}

TEST_F(StockReceiptTest, the_side_not_written_keeps_its_old_value_that_is_how_it_stands) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=10, KalanA=10 WHERE StokKod='1001'");
  Open();
  Search("Pir");
  Fill("40", "50", "15");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("1001")["KalanB"], "5.0");
  EXPECT_EQ(Card("1001")["KalanA"], "10.0");
}

TEST_F(StockReceiptTest, an_oversold_card_counts_down_unrounded) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=10, KalanA=10, KalanB=3 WHERE StokKod='1001'");
  Open();
  Search("Pir");
  Fill("40", "50", "0,0625");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("1001")["KalanA"], "9.9375");
  EXPECT_EQ(Card("1001")["KalanB"], "3.0");
}

TEST_F(StockReceiptTest, cancelling_it_lowers_the_incoming_side_and_grows_the_suppliers_debit) {
  Open();
  Search("Pir");
  Fill("40", "50", "2");
  Click("StokAlCmd(1)");
  const std::string id = LastId();
  Cancel(id);
  EXPECT_EQ(Day(id)["Durum"], "Iptal");
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
  EXPECT_EQ(Card("1001")["GirenTutar"], "0.0");
  EXPECT_EQ(Balance("T001"), "100.0|100.0|0.0|Borç");
}

TEST_F(StockReceiptTest, close_and_a_zero_quantity_only_hide_the_panel) {
  Open();
  Search("Pir");
  Fill("40", "50", "2");
  Click("StokAlCmd(0)");
  EXPECT_FALSE(At("StokAl").Visible());
  At("StokAl").SetVisible(true);
  Set("Text6(3)", "0");
  EXPECT_FALSE(At("StokAlCmd(1)").Enabled());
  At("StokAlCmd(1)").SetEnabled(true);
  Click("StokAlCmd(1)");
  EXPECT_FALSE(At("StokAl").Visible());
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
}

TEST_F(StockReceiptTest, a_quantity_that_is_no_number_posts_nothing_and_keeps_the_panel) {
  Open();
  Search("Pir");
  At("Text6(3)").SetText("iki");
  At("StokAlCmd(1)").SetEnabled(true);
  Click("StokAlCmd(1)");
  EXPECT_TRUE(At("StokAl").Visible());
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
}

TEST_F(StockReceiptTest, emptied_numbers_read_zero_and_a_dot_is_the_comma) {
  Open();
  Set("Text6(2)", "2.5");
  EXPECT_EQ(At("Text6(2)").Text(), "2,5");
  Set("Text6(3)", "4");
  EXPECT_EQ(At("Label12(5)").Caption(), "10,00");
  EXPECT_TRUE(At("StokAlCmd(1)").Enabled());
  At("Text6(3)").SetText("");
  EXPECT_EQ(At("Text6(3)").Text(), "0");
  Type("Text6(3)", "7");
  EXPECT_EQ(At("Text6(3)").Text(), "7");
}

TEST_F(StockReceiptTest, the_fields_tell_the_pad_which_of_them_is_meant) {
  Open();
  At("Text6(3)").SetFocus();
  EXPECT_EQ(desk->form.ActiveFieldCode, 103);
  At("Text6(0)").SetFocus();
  EXPECT_EQ(desk->form.ActiveFieldCode, 99);
}

TEST_F(StockReceiptTest, a_new_product_is_named_in_the_rows_also_when_the_list_is_narrowed) {
  Open();
  ASSERT_TRUE(desk->cursors.StokData.Open("Select * From StokKartlar Where StokGizle=False And Gurup='Gıda' Order By StokAdi Asc").Ok());
  Search("Bulgur");
  Fill("8", "10", "5");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Day(LastId())["StokKod"], "Bulgur");
  EXPECT_EQ(Ledger(LastId(), "T001")["Carisi"], "Bulgur");
}

TEST_F(StockReceiptTest, a_store_that_refuses_books_nothing_and_keeps_the_fields) {
  Open();
  Search("Pir");
  Fill("40", "50", "2");
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Click("StokAlCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_EQ(At("Text6(0)").Text(), "Pirinç");
  EXPECT_EQ(At("Text6(3)").Text(), "2");
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
  EXPECT_EQ(Balance("T001"), "0.0|0.0|0.0|");
  engine.commitFault = {};
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("1001")["GirenMik"], "2.0");
  EXPECT_EQ(Balance("T001"), "0.0|100.0|100.0|Alacak");
}

TEST_F(StockReceiptTest, supplier_item_and_group_with_a_quote_are_found) {
  AddQuotedCards();
  At("GurupCombo").ChooseText("Toptan");
  Front("T'1");
  At("StokChk").SetChecked(true);
  Search("S'1");  // a quote can't be searched for: the item is taken by its barcode
  Sql("Stok.mdb", "UPDATE StokKartlar SET Barkod='777' WHERE StokKod='S''1'");
  Search("777");
  ASSERT_EQ(At("Text6(0)").Text(), "Taze 'Kaşar'");
  Fill("40", "50", "2");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("S''1")["GirenMik"], "2.0");
  EXPECT_EQ(Balance("T''1"), "0.0|100.0|100.0|Alacak");
  EXPECT_EQ(Day(LastId())["CariKod"], "T'1");
  EXPECT_EQ(Day(LastId())["CariAd"], "Toptan'cı");
  EXPECT_EQ(Day(LastId())["StokKod"], "S'1");
  EXPECT_EQ(Day(LastId())["Gurup"], "Süt'lük");
  EXPECT_EQ(Ledger(LastId(), "T''1")["Carisi"], "S'1");
  EXPECT_EQ(Movement(LastId())["StokHarKod"], "S'1");
}

TEST_F(StockReceiptTest, a_new_product_with_a_quote_in_its_name_is_named_in_the_rows) {
  Open();
  Search("Ali'nin Balı");
  Fill("8", "10", "5");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("Ali''nin Balı")["GirenMik"], "5.0");
  EXPECT_EQ(Day(LastId())["StokKod"], "Ali'nin Balı");
}

TEST_F(StockReceiptTest, only_the_card_in_front_is_raised_even_if_a_card_of_that_name_exists_elsewhere) {
  Open();
  Search("Pir");
  Set("Text6(0)", "Şeker");  // the name of another card, with Pirinç still in front
  Fill("1", "2", "3");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT StokKod, GirenMik FROM StokKartlar WHERE StokAdi='Şeker' ORDER BY StokKod"),
            (std::vector<std::string>{"1002|0.0", "Şeker|3.0"}));
  EXPECT_EQ(Card("1001")["GirenMik"], "0.0");
}

TEST_F(StockReceiptTest, the_total_is_rounded_as_the_shop_writes_its_prices_and_so_are_the_rows) {
  desk->form.PriceFormat = "#,##0";
  Open();
  Search("Bulgur");
  Fill("8", "2,5", "3");
  EXPECT_EQ(At("Label12(5)").Caption(), "8");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("Bulgur")["GirenTutar"], "8.0");
  EXPECT_EQ(Card("Bulgur")["Fiyat"], "2.5");
  EXPECT_EQ(Movement(LastId())["Tutar"], "8.0");
  EXPECT_EQ(Day(LastId())["Tutar"], "8.0");
  EXPECT_EQ(Balance("T001"), "0.0|8.0|8.0|Alacak");
}

TEST_F(StockReceiptTest, terminal_two_writes_its_digits_into_the_id_and_both_tags) {
  ASSERT_TRUE(Start("Velmora Karvel2"));
  Open();
  Search("Bulgur");
  Fill("8", "10", "5");
  Click("StokAlCmd(1)");
  EXPECT_EQ(LastId(), "20000000261");
  EXPECT_EQ(Day(LastId())["Plasiyer"], "WinKarvel1");
  EXPECT_EQ(Day(LastId())["tGurup"], "WinKarvel1");
  EXPECT_EQ(Ledger(LastId(), "T001")["Alacak"], "50.0");
  EXPECT_EQ(Movement(LastId())["Miktar"], "5.0");
}

TEST_F(StockReceiptTest, a_narrowed_stock_list_is_back_afterwards) {
  const std::string narrowed = "Select * From StokKartlar Where StokGizle=False And Gurup='Gıda' Order By StokAdi Asc";
  Open();
  ASSERT_TRUE(desk->cursors.StokData.Open(narrowed).Ok());
  Search("Bulgur");
  Fill("8", "10", "5");
  Click("StokAlCmd(1)");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(), narrowed);
  EXPECT_EQ(desk->cursors.StokData.RecordCount(), 2);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StockReceiptTest, goods_without_a_name_are_not_booked) {
  Open();
  for (const char* const name : {"", "   "}) {
    At("Text6(0)").SetText(name);
    Fill("8", "10", "5");
    Click("StokAlCmd(1)");
    EXPECT_TRUE(At("StokAl").Visible());
    EXPECT_TRUE(At("Text6(0)").HasFocus());
  }
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(LastId(), "");
}

TEST_F(StockReceiptTest, as_much_in_as_out_writes_the_on_hand_side_with_zero) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET CikanMik=10, KalanA=10, KalanB=7 WHERE StokKod='1001'");
  Open();
  Search("Pir");
  Fill("40", "50", "10");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("1001")["KalanB"], "0.0");
  EXPECT_EQ(Card("1001")["KalanA"], "10.0");
}

TEST_F(StockReceiptTest, the_cost_of_the_card_and_its_other_prices_stay) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Maliyet=33, Fiyat2=45, Fiyat3=44 WHERE StokKod='1001'");
  Open();
  Search("Pir");
  Fill("42", "55", "1");
  Click("StokAlCmd(1)");
  EXPECT_EQ(One("Stok.mdb", "SELECT Maliyet, Fiyat2, Fiyat3, gFiyat FROM StokKartlar WHERE StokKod='1001'"), "33.0|45.0|44.0|42.0");
}

TEST_F(StockReceiptTest, a_barcode_wins_over_a_name_and_a_name_over_a_code) {
  AddStock("9", "8691001 Kutu");
  AddStock("Pir", "Zeytin");
  ASSERT_TRUE(Start());
  Open();
  Search("8691001");
  EXPECT_EQ(At("Text6(0)").Text(), "Pirinç");
  Search("Pir");
  EXPECT_EQ(At("Text6(0)").Text(), "Pirinç");
  Search("8691001 K");
  EXPECT_EQ(At("Text6(0)").Text(), "8691001 Kutu");
}

TEST_F(StockReceiptTest, goods_that_go_back_are_booked_with_their_minus) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=5, KalanB=5 WHERE StokKod='1001'");
  Open();
  Search("Pir");
  At("Text6(3)").SetText("-2");
  EXPECT_EQ(At("Label12(5)").Caption(), "-100,00");
  Click("StokAlCmd(1)");
  EXPECT_EQ(Card("1001")["GirenMik"], "3.0");
  EXPECT_EQ(Card("1001")["KalanB"], "3.0");
  EXPECT_EQ(Balance("T001"), "0.0|-100.0|100.0|Borç");
}

TEST_F(StockReceiptTest, saving_is_off_while_the_total_is_zero) {
  Open();
  Search("Bulgur");
  EXPECT_FALSE(At("StokAlCmd(1)").Enabled());
  Set("Text6(3)", "5");
  EXPECT_FALSE(At("StokAlCmd(1)").Enabled());
  Set("Text6(1)", "8");  // the price of the rows is not the total's
  EXPECT_FALSE(At("StokAlCmd(1)").Enabled());
  Set("Text6(2)", "10");
  EXPECT_TRUE(At("StokAlCmd(1)").Enabled());
  At("Text6(2)").SetText("");
  EXPECT_EQ(At("Text6(2)").Text(), "0");
  EXPECT_FALSE(At("StokAlCmd(1)").Enabled());
  At("Text6(4)").SetText("");
  EXPECT_EQ(At("Text6(4)").Text(), "0");
}

TEST_F(StockReceiptTest, in_purchase_mode_it_can_not_be_marked_for_correction) {
  Open();
  Search("Pir");
  Fill("40", "50", "2");
  Click("StokAlCmd(1)");
  const std::string id = LastId();
  Click("StokAlCmd(0)");
  At("Label4").SetCaption("Alış");
  TapLine(id);
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
}

TEST_F(StockReceiptTest, the_next_receipt_takes_the_next_id) {
  Open();
  for (const char* const name : {"Bulgur", "Mercimek"}) {
    Search(name);
    Fill("8", "10", "5");
    Click("StokAlCmd(1)");
  }
  EXPECT_EQ(LastId(), "10000000262");
  EXPECT_EQ(Balance("T001"), "0.0|100.0|100.0|Alacak");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod FROM Datam ORDER BY DigerId"), (std::vector<std::string>{"Bulgur", "Mercimek"}));
}

TEST_F(StockReceiptTest, a_supplier_deleted_at_another_terminal_delivers_nothing) {
  const std::string before = One("Stok.mdb", "SELECT sum(GirenMik) FROM StokKartlar");
  Open();
  Search("Pirinç");
  Fill("9", "12", "4");
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='" + desk->cursors.CariData.Text("CariKod") + "'");
  Click("StokAlCmd(1)");
  EXPECT_EQ(One("Stok.mdb", "SELECT sum(GirenMik) FROM StokKartlar"), before);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_FALSE(At("StokAl").Visible());
}

}  // namespace
}  // namespace karvel
