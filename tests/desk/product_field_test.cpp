#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class ProductFieldTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    AddStock("1001", "Pirinç Baldo", "Fiyat=50");
    AddStock("1002", "Pirinç Osmancık", "Fiyat=40");
    AddStock("1003", "Şeker", "Fiyat=20");
    Sql("SeriNo.mdb", "INSERT INTO SeriNo(StokKod, barcode) VALUES('1003','SN-77'),('1003','8691001')");
    ASSERT_TRUE(Start());
    EnterSale("Ayşe Yılmaz");
  }
  void Enter(const std::string& text) {
    At("Text1(1)").SetFocus();
    At("Text1(1)").SetText(text);
    Key("Text1(1)", key::kEnter);
  }
  // Puts a text into the field as the keys did, without a key that completes it.
  void Put(const std::string& text) {
    At("Text1(1)").SetFocus();
    At("Text1(1)").SetText(text);
  }
  std::vector<std::string> Posted() { return Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam ORDER BY DigerId"); }
  std::string Item() { return desk->cursors.StokData.Text("StokKod"); }
};

TEST_F(ProductFieldTest, enter_finds_by_barcode_code_and_name) {
  for (const char* text : {"8691002", "1002", "Pirinç Osmancık", "PİRİNÇ OSMANCıK"}) {
    Enter("1003");
    Enter(text);
    if (std::string(text) == "PİRİNÇ OSMANCıK") {
      EXPECT_EQ(At("Text1(1)").Text(), "");  // a dotted capital is only itself
      continue;
    }
    EXPECT_EQ(Item(), "1002") << text;
    EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
    EXPECT_EQ(At("Text2(0)").Text(), "40,00");
    EXPECT_TRUE(At("Text2(1)").HasFocus());
    EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  }
}

TEST_F(ProductFieldTest, a_code_read_into_the_serials_sells_its_item) {
  Enter("SN-77");
  EXPECT_EQ(Item(), "1003");
  EXPECT_EQ(desk->form.ScannedSerial, "SN-77");
}

TEST_F(ProductFieldTest, a_barcode_that_is_also_a_serial_sells_by_barcode_and_leaves_the_serial) {
  desk->form.ScannedSerial = "before";
  Enter("8691001");
  EXPECT_EQ(Item(), "1001");
  EXPECT_EQ(desk->form.ScannedSerial, "before");
}

TEST_F(ProductFieldTest, an_unknown_code_empties_the_field_and_leaves_the_item) {
  Enter("1002");
  Enter("404");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_EQ(Item(), "1002");
}

TEST_F(ProductFieldTest, typing_completes_the_name_and_selects_the_rest) {
  Set("Text1(1)", "şe");
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
  EXPECT_EQ(At("Text1(1)").SelectionStart(), 2);
  EXPECT_EQ(At("Text1(1)").SelectionLength(), 3);
  EXPECT_EQ(Item(), "1003");
  EXPECT_EQ(At("Text2(0)").Text(), "20,00");
}

TEST_F(ProductFieldTest, what_matches_no_name_stays_as_typed) {
  Set("Text1(1)", "zey.k");
  EXPECT_EQ(At("Text1(1)").Text(), "Zey.K");  // but for the capitals of a name
}

TEST_F(ProductFieldTest, signs_of_the_dialect_never_break_the_field) {
  for (const char* text : {"*", "?", "'", "\"", "[", "#", "a'b", "'; DELETE FROM StokKartlar; --", "x' Or 'a'='a"}) {
    At("Text1(1)").SetText("");
    Set("Text1(1)", text);
    Key("Text1(1)", key::kEnter);
  }
  Enter(std::string(10000, 'x'));
  Enter("\x01\x02\t");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "3");
  Enter("1002");
  EXPECT_EQ(Item(), "1002");
}

TEST_F(ProductFieldTest, a_scan_is_a_delayed_typed_code) {
  scanner.codeRead("8691003");
  EXPECT_EQ(Item(), "1003");
  EXPECT_EQ(At("Label11").Caption(), "8691003");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  EXPECT_EQ(At("Text2(1)").Text(), "1");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
}

TEST_F(ProductFieldTest, with_posting_on_choice_a_scan_posts_one_piece_at_once) {
  Click("SecimTamam");
  scanner.codeRead("8691003");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar, Fiyat, Tutar, Durum FROM Datam"),
            std::vector<std::string>{"1003|1.0|20.0|20.0|Satış"});
  scanner.codeRead("8691001");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "2");
}

TEST_F(ProductFieldTest, the_same_code_scanned_twice_posts_twice) {
  Click("SecimTamam");
  scanner.codeRead("8691003");
  scanner.codeRead("8691003");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "2");
  EXPECT_EQ(One("Stok.mdb", "SELECT CikanMik FROM StokKartlar WHERE StokKod='1003'"), "2.0");
}

TEST_F(ProductFieldTest, a_scan_at_rest_touches_no_field) {
  DoubleTap("Label1(0)");
  Set("Text2(2)", "50");
  scanner.codeRead("8691003");
  scanner.codeRead("8691003");
  EXPECT_EQ(At("Text2(2)").Text(), "50");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariHareket"), "0");
}

TEST_F(ProductFieldTest, codes_that_come_while_one_is_entered_wait_in_line) {
  Click("SecimTamam");
  int inside = 0;
  loop.duringWait = [&] {
    if (++inside == 1) {
      scanner.codeRead("8691001");
      scanner.codeRead("8691002");
    }
  };
  scanner.codeRead("8691003");
  loop.duringWait = nullptr;
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam ORDER BY DigerId"),
            (std::vector<std::string>{"1003|1.0", "1001|1.0", "1002|1.0"}));
}

TEST_F(ProductFieldTest, of_two_cards_with_one_name_the_code_sells_its_own) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  Enter("8691005");
  EXPECT_EQ(Item(), "1005");
  EXPECT_EQ(At("Text2(0)").Text(), "2,00");
}

TEST_F(ProductFieldTest, an_item_with_a_quote_in_its_name_sells_by_its_code) {
  Sql("Stok.mdb", "INSERT INTO StokKartlar(StokKod, StokAdi, Barkod, Fiyat) VALUES('L''S','Lay''s Klasik','777',15)");
  Click("SecimTamam");
  scanner.codeRead("777");
  scanner.codeRead("777");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, StokAd, Tutar FROM Datam"),
            (std::vector<std::string>{"L'S|Lay's Klasik|15.0", "L'S|Lay's Klasik|15.0"}));
}

TEST_F(ProductFieldTest, enter_on_an_empty_field_sells_nothing) {
  Sql("Stok.mdb", "INSERT INTO StokKartlar(StokKod, StokAdi, Fiyat) VALUES('9','Barkodsuz',99)");
  Click("SecimTamam");
  Enter("");
  Enter("  ");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
}

TEST_F(ProductFieldTest, with_posting_on_choice_codes_and_serials_post_one_piece_too) {
  Click("SecimTamam");
  Enter("1002");
  Enter("SN-77");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar FROM Datam ORDER BY DigerId"), (std::vector<std::string>{"1002|1.0", "1003|1.0"}));
  EXPECT_EQ(One("Stok.mdb", "SELECT SeriNo FROM StokHareket WHERE StokHarKod='1003'"), "SN-77");
}

TEST_F(ProductFieldTest, a_scan_ends_a_correction_that_was_begun) {
  At("Command3").SetCaption("Düzeltme");
  desk->form.EditLineId = "10000000261";
  Click("SecimTamam");
  scanner.codeRead("8691003");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_EQ(desk->form.EditLineId, "");
  EXPECT_EQ(One("Karvel.mdb", "SELECT StokKod FROM Datam"), "1003");
}

// The order of the columns.

TEST_F(ProductFieldTest, a_barcode_comes_before_a_code_and_a_name) {
  AddStock("2001", "Kahve", "Barkod='777', Fiyat=7");
  AddStock("777", "Çay", "Fiyat=8");
  AddStock("2003", "777", "Fiyat=9");
  Enter("777");
  EXPECT_EQ(Item(), "2001");
  EXPECT_EQ(At("Text2(0)").Text(), "7,00");
}

TEST_F(ProductFieldTest, a_code_comes_before_a_name) {
  AddStock("777", "Çay", "Fiyat=8");
  AddStock("2003", "777", "Fiyat=9");
  Enter("777");
  EXPECT_EQ(Item(), "777");
  EXPECT_EQ(At("Text1(1)").Text(), "Çay");
  EXPECT_EQ(At("Text2(0)").Text(), "8,00");
}

TEST_F(ProductFieldTest, a_name_comes_before_a_serial) {
  AddStock("2003", "SN-77", "Fiyat=9");
  Enter("SN-77");
  EXPECT_EQ(Item(), "2003");
  EXPECT_EQ(desk->form.ScannedSerial, "");
}

TEST_F(ProductFieldTest, an_item_confirmed_by_its_name_goes_back_to_its_first_price) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat2=540, Adet2=12 WHERE StokKod='1001'");
  PickItem("1001");
  DoubleTap("Label1(2)");
  ASSERT_EQ(At("Label1(2)").Caption(), "2.Fiyat");
  Key("Text1(1)", key::kEnter);
  EXPECT_EQ(At("Label1(2)").Caption() + " " + At("Text2(0)").Text(), "1.Fiyat 50,00");
  Post("1");
  EXPECT_EQ(Rows("Cari.mdb", "SELECT * FROM Cari"), std::vector<std::string>{});
}

TEST_F(ProductFieldTest, a_name_of_two_cards_takes_the_one_in_front) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  PickItem("1005");
  Enter("Su");
  EXPECT_EQ(Item(), "1005");
  EXPECT_EQ(At("Text2(0)").Text(), "2,00");
}

TEST_F(ProductFieldTest, a_card_that_is_hidden_is_not_sold) {
  AddStock("1004", "Eski", "StokGizle=1");
  Enter("1004");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_NE(Item(), "1004");
}

TEST_F(ProductFieldTest, an_unknown_code_leaves_a_price_of_zero_and_no_guard) {
  Enter("1002");
  Enter("404");
  EXPECT_EQ(At("Text2(0)").Text(), "0");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_EQ(Item(), "1002");
}

TEST_F(ProductFieldTest, a_serial_whose_card_is_gone_is_an_unknown_code) {
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(StokKod, barcode) VALUES('9999','SN-88')");
  Enter("1002");
  Enter("SN-88");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_EQ(Item(), "1002");
}

TEST_F(ProductFieldTest, enter_by_barcode_or_name_sets_one_piece) {
  for (const char* text : {"8691002", "Pirinç Osmancık"}) {
    Set("Text2(1)", "7");
    Enter(text);
    EXPECT_EQ(At("Text2(1)").Text(), "1") << text;
  }
}

TEST_F(ProductFieldTest, with_posting_on_choice_a_code_posts_one_piece_whatever_quantity_stood_there) {
  Click("SecimTamam");
  for (const char* text : {"8691001", "1002", "Şeker", "SN-77"}) {
    Set("Text2(1)", "7");
    Enter(text);
  }
  EXPECT_EQ(Posted(), (std::vector<std::string>{"1001|1.0", "1002|1.0", "1003|1.0", "1003|1.0"}));
}

TEST_F(ProductFieldTest, a_code_outside_the_narrowed_list_is_sold) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Gurup='Bakkaliye' WHERE StokKod='1003'");
  Sql("Stok.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Gıda',1)");
  Click("ComboCmd");
  At("GurupCombo").ChooseText("Gıda");
  ASSERT_EQ(desk->cursors.StokData.RecordCount(), 2);
  Click("SecimTamam");
  scanner.codeRead("8691003");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, StokAd, Tutar FROM Datam"), std::vector<std::string>{"1003|Şeker|20.0"});
}

TEST_F(ProductFieldTest, a_code_inside_the_narrowed_list_leaves_the_list_narrow) {
  Set("Text5", "pir");
  const std::string narrow = desk->cursors.StokData.RecordSource();
  Enter("1002");
  EXPECT_EQ(Item(), "1002");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(), narrow);
}

TEST_F(ProductFieldTest, an_unknown_code_leaves_the_list_narrow) {
  Set("Text5", "pir");
  const std::string narrow = desk->cursors.StokData.RecordSource();
  Enter("404");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(), narrow);
  EXPECT_EQ(Item(), "1001");
}

TEST_F(ProductFieldTest, the_special_price_of_the_customer_is_in_the_slots_of_an_entered_item) {
  Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('1002','C001',35)");
  Enter("1002");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
  EXPECT_EQ(desk->form.PriceSlots[3], 35);
}

// Completion.

TEST_F(ProductFieldTest, keys_that_only_take_away_or_move_do_not_complete) {
  Put("Şe");
  for (const int code : {key::kBackspace, key::kDelete, key::kF1, key::kF8, key::kLeft, key::kRight, key::kHome, key::kEnd, key::kTab, 16,
                         17, 18, 20, 33, 34, 45}) {
    KeyEvent event{code};
    At("Text1(1)").keyUp(event);
    EXPECT_EQ(At("Text1(1)").Text(), "Şe") << code;
  }
  KeyEvent letter{'E'};
  At("Text1(1)").keyUp(letter);
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
}

TEST_F(ProductFieldTest, a_key_with_ctrl_does_not_complete) {
  Put("Şe");
  KeyEvent event{.code = 'C', .ctrl = true};
  At("Text1(1)").keyUp(event);
  EXPECT_EQ(At("Text1(1)").Text(), "Şe");
}

TEST_F(ProductFieldTest, backspace_takes_the_completed_rest_away) {
  Set("Text1(1)", "şe");
  ASSERT_EQ(At("Text1(1)").Text(), "Şeker");
  Erase("Text1(1)");
  EXPECT_EQ(At("Text1(1)").Text(), "Şe");
  Erase("Text1(1)");
  EXPECT_EQ(At("Text1(1)").Text(), "Ş");
}

TEST_F(ProductFieldTest, the_next_letter_takes_the_place_of_the_completed_rest) {
  Set("Text1(1)", "pirinç o");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
  EXPECT_EQ(At("Text1(1)").SelectionStart(), 8);
  EXPECT_EQ(At("Text1(1)").SelectionLength(), 7);
  EXPECT_EQ(Item(), "1002");
}

TEST_F(ProductFieldTest, a_star_alone_searches_nothing) {
  PickItem("1002");
  Set("Text1(1)", "*");
  EXPECT_EQ(At("Text1(1)").Text(), "*");
  EXPECT_EQ(Item(), "1002");
}

TEST_F(ProductFieldTest, the_wild_card_searches_inside_names) {
  PickItem("1003");
  Put("*man");
  EXPECT_EQ(Item(), "1002");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
}

TEST_F(ProductFieldTest, a_change_moves_the_list_only_while_names_are_typed) {
  PickItem("1001");
  At("Label1(1)").SetCaption(" Barkod");
  Put("Şek");
  EXPECT_EQ(Item(), "1001");
  EXPECT_EQ(At("Text2(0)").Text(), "50,00");
  At("Label1(1)").SetCaption(" Ürün");
  Put("Şe");
  EXPECT_EQ(Item(), "1003");
  EXPECT_EQ(At("Text2(0)").Text(), "20,00");
}

TEST_F(ProductFieldTest, blanks_search_nothing) {
  PickItem("1003");
  Put("  ");
  EXPECT_EQ(Item(), "1003");
}

TEST_F(ProductFieldTest, a_search_by_letters_leaves_the_quantity) {
  PickItem("1001");
  Set("Text2(1)", "4");
  Set("Text1(1)", "şe");
  EXPECT_EQ(At("Text2(1)").Text(), "4");
  EXPECT_EQ(At("Label2").Caption(), "80,00");
}

// Focus.

TEST_F(ProductFieldTest, an_empty_field_takes_the_name_of_the_row_when_it_gets_the_focus) {
  PickItem("1002");
  At("Text1(1)").SetText("");
  At("Text1(1)").SetFocus();
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
  EXPECT_EQ(At("Text1(1)").SelectionLength(), 15);
  EXPECT_EQ(desk->form.ActiveFieldCode, 1);
}

TEST_F(ProductFieldTest, with_codes_an_empty_field_stays_empty_for_the_next_one) {
  PickItem("1002");
  At("Label1(1)").SetCaption(" Barkod");
  At("Text1(1)").SetText("");
  At("Text1(1)").SetFocus();
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_EQ(desk->form.ActiveFieldCode, 1);
}

TEST_F(ProductFieldTest, a_field_with_a_name_in_it_keeps_the_name) {
  PickItem("1002");
  At("Text1(1)").SetText("Şeker");
  At("Text1(1)").SetFocus();
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
}

TEST_F(ProductFieldTest, under_guard_66_the_focus_is_not_noted) {
  At("Text2(3)").SetFocus();
  desk->form.RepositionGuard.Keep(Mute::Items);
  At("Text1(1)").SetFocus();
  EXPECT_EQ(desk->form.ActiveFieldCode, 3);
}

// The scanner.

TEST_F(ProductFieldTest, a_scan_empties_the_code_and_waits_a_second_over_the_field) {
  scanner.codeRead("8691003");
  ASSERT_EQ(At("Label11").Caption(), "8691003");
  At("Text2(1)").SetFocus();
  std::string code = "none";
  bool focused = false;
  loop.waits.clear();
  loop.duringWait = [&] {
    if (loop.waits.empty() || code != "none") return;
    code = At("Label11").Caption();
    focused = At("Text1(1)").HasFocus();
  };
  scanner.codeRead("8691001");
  loop.duringWait = nullptr;
  EXPECT_EQ(loop.waits, std::vector<int>{1000});
  EXPECT_EQ(code, "");
  EXPECT_TRUE(focused);
  EXPECT_EQ(At("Label11").Caption(), "8691001");
}

TEST_F(ProductFieldTest, the_scanner_is_off_during_a_double_tap) {
  for (const char* name : {"Label1(0)", "Label1(1)", "Label1(2)", "Label1(3)", "Label1(5)", "Label1(6)"}) {
    std::vector<bool> seen;
    loop.duringWait = [&] { seen.push_back(scanner.enabled); };
    DoubleTap(name);
    loop.duringWait = nullptr;
    ASSERT_FALSE(seen.empty());
    EXPECT_FALSE(seen.front()) << name;
    EXPECT_TRUE(scanner.enabled) << name;
  }
}

TEST_F(ProductFieldTest, the_scanner_is_off_while_a_line_is_posted) {
  PickItem("1001");
  std::vector<bool> seen;
  connections += At("Command2").changed.Connect([&] {
    if (At("Command2").Caption() == "Bekleyin") seen.push_back(scanner.enabled);
  });
  Post("2");
  EXPECT_EQ(seen, std::vector<bool>{false});
  EXPECT_TRUE(scanner.enabled);
}

TEST_F(ProductFieldTest, codes_behind_an_open_collection_wait_and_come_in_order) {
  Click("SecimTamam");
  At("TahsilatFrame").SetVisible(true);
  scanner.codeRead("8691003");
  scanner.codeRead("8691001");
  EXPECT_EQ(Posted(), std::vector<std::string>{});
  At("TahsilatFrame").SetVisible(false);
  EXPECT_EQ(Posted(), (std::vector<std::string>{"1003|1.0", "1001|1.0"}));
}

TEST_F(ProductFieldTest, a_code_that_waited_behind_a_collection_is_still_an_item_of_the_sale_that_is_left) {
  Click("SecimTamam");
  At("TahsilatFrame").SetVisible(true);
  scanner.codeRead("8691003");
  DoubleTap("Label1(0)");  // leaves the sale, and closes the panel
  EXPECT_FALSE(At("TahsilatFrame").Visible());
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, StokKod, Tutar FROM Datam"), std::vector<std::string>{"C001|1003|20.0"});
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(At("Frame2").Visible());
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
}

TEST_F(ProductFieldTest, a_code_read_behind_a_collection_at_rest_is_no_item_of_the_next_sale) {
  Click("SecimTamam");
  DoubleTap("Label1(0)");
  At("TahsilatFrame").SetVisible(true);
  scanner.codeRead("8691003");
  EnterSale("Ayşe Yılmaz");
  EXPECT_FALSE(At("TahsilatFrame").Visible());
  EXPECT_EQ(Posted(), std::vector<std::string>{});
}

TEST_F(ProductFieldTest, a_code_over_the_list_of_serials_is_a_serial) {
  Click("SecimTamam");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Set("Text2(1)", "2");
  At("Frame4").SetVisible(true);
  scanner.codeRead("SN-900");
  EXPECT_EQ(At("List1").Items(), std::vector<std::string>{"SN-900"});
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Baldo");
  EXPECT_EQ(Posted(), std::vector<std::string>{});
}

TEST_F(ProductFieldTest, a_code_over_a_delivery_finds_the_delivered_card) {
  Click("SecimTamam");
  At("StokAl").SetVisible(true);
  At("Text6(0)").SetFocus();
  scanner.codeRead("8691003");
  EXPECT_EQ(At("Text6(0)").Text(), "Şeker");
  EXPECT_EQ(At("Text6(5)").Text(), "8691003");
  EXPECT_EQ(Posted(), std::vector<std::string>{});
}

TEST_F(ProductFieldTest, a_code_over_a_new_item_is_its_barcode_and_sells_nothing) {
  Click("SecimTamam");
  Tap("Text1(1)");
  At("Text1(1)").SetText("Zeytin");
  Click("Text1(1)");
  ASSERT_TRUE(At("StokGiris").Visible());
  scanner.codeRead("8691003");
  EXPECT_EQ(At("StokNew(2)").Text(), "8691003");
  EXPECT_TRUE(At("StokNew(2)").HasFocus());
  scanner.codeRead("8691001");
  EXPECT_EQ(At("StokNew(2)").Text(), "8691001");
  EXPECT_EQ(At("StokNew(0)").Text() + At("StokNew(1)").Text(), "Zeytin");
  EXPECT_TRUE(At("StokGiris").Visible());
  EXPECT_EQ(Posted(), std::vector<std::string>{});
  Click("StokNewCmd(0)");
  scanner.codeRead("8691003");
  EXPECT_EQ(Posted(), std::vector<std::string>{"1003|1.0"});
}

TEST_F(ProductFieldTest, a_code_read_in_the_deliverys_barcode_field_stays_there) {
  At("StokAl").SetVisible(true);
  Set("Text6(0)", "Yeni Mal");
  At("Text6(5)").SetFocus();
  scanner.codeRead("8690009");
  EXPECT_EQ(At("Text6(5)").Text(), "8690009");
  EXPECT_EQ(At("Text6(0)").Text(), "Yeni Mal");
}

TEST_F(ProductFieldTest, the_codes_of_an_order_of_serials_come_in_their_order) {
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Set("Text2(1)", "3");
  At("Frame4").SetVisible(true);
  for (const char* serial : {"SN-901", "SN-902"}) scanner.codeRead(serial);
  EXPECT_EQ(At("List1").Items(), (std::vector<std::string>{"SN-901", "SN-902"}));
}

TEST_F(ProductFieldTest, behind_an_unknown_code_the_item_in_front_comes_back_with_its_price) {
  PickItem("1001");
  const std::string price = At("Text2(0)").Text();
  Set("Text1(1)", "4444444");
  Key("Text1(1)", key::kEnter);
  ASSERT_EQ(At("Text1(1)").Text(), "");
  ASSERT_EQ(At("Text2(0)").Text(), "0");
  At("StokGrid").SetFocus();
  Set("Text2(1)", "2");
  At("Text1(1)").SetFocus();
  EXPECT_EQ(At("Text1(1)").Text(), desk->cursors.StokData.Text("StokAdi"));
  EXPECT_EQ(At("Text2(0)").Text(), price);
  EXPECT_EQ(At("Text2(1)").Text(), "2");
}

TEST_F(ProductFieldTest, a_serial_of_an_item_outside_the_narrowed_list_sells_it) {
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(StokKod, barcode) VALUES('1001','SN77')");
  Sql("Stok.mdb", "UPDATE StokKartlar SET Gurup='Uzak' WHERE StokKod='1001'");
  ASSERT_TRUE(desk->cursors.StokData.Open("Select * From StokKartlar Where StokGizle=False And StokKod<>'1001' Order By StokAdi ASC").Ok());
  Set("Text1(1)", "SN77");
  Key("Text1(1)", key::kEnter);
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");
  EXPECT_EQ(desk->form.ScannedSerial, "SN77");
}

TEST_F(ProductFieldTest, a_serial_without_a_card_is_kept_for_no_other_item) {
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(StokKod, barcode) VALUES('yok','SN78')");
  Set("Text1(1)", "SN78");
  Key("Text1(1)", key::kEnter);
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_EQ(desk->form.ScannedSerial, "");
}

}  // namespace
}  // namespace karvel
