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
    EXPECT_EQ(desk->form.RepositionGuard, 0);
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

}  // namespace
}  // namespace karvel
