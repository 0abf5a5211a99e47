#include "desk/tapped_search_fixture.h"

namespace karvel {
namespace {

class TappedSearchProductTest : public TappedSearchFixture {};

// The product's field.

TEST_F(TappedSearchProductTest, the_first_tap_on_the_product_empties_it_over_the_whole_list) {
  EnterSale("Ahmet Işık");
  Set("Text5", "şe");
  ASSERT_EQ(Items(), Names{"Şeker"});
  Tap("Text1(1)");
  EXPECT_TRUE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{"Text1(1)"});
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_EQ(Items(), (Names{"Pirinç Baldo", "Pirinç Osmancık", "Şeker"}));
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(TappedSearchProductTest, the_second_tap_takes_the_item_and_narrows_the_list_to_the_name) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "pirinç o");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
  EXPECT_EQ(Item(), "1002");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
  EXPECT_TRUE(At("Text2(1)").HasFocus());
  EXPECT_EQ(desk->form.LastStokSearch, "pirinç o");
  EXPECT_EQ(desk->cursors.StokData.RecordSource(),
            "Select * From StokKartlar Where StokGizle=False And StokAdi Like 'pirinç o*' Order By StokAdi ASC");
  EXPECT_EQ(Items(), Names{"Pirinç Osmancık"});
}

TEST_F(TappedSearchProductTest, an_item_that_was_taken_is_sold_with_the_quantity_typed_next) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "şe");
  Post("3");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT StokKod, Miktar, Fiyat, Tutar FROM Datam"), Names{"1003|3.0|20.0|60.0"});
}

TEST_F(TappedSearchProductTest, an_unknown_item_is_a_new_card_with_the_text_as_its_name) {
  OpenNewCard();
  EXPECT_EQ(At("StokNew(1)").Text(), "Zeytin");
  EXPECT_TRUE(At("StokNew(0)").HasFocus());
  EXPECT_EQ(wanted, (Names{"Text1(1)", "StokNew(0)"}));
  EXPECT_EQ(desk->form.LastStokSearch, "Zeytin");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(TappedSearchProductTest, after_an_unknown_item_the_whole_list_is_there_for_the_scanner) {
  OpenNewCard();
  EXPECT_EQ(Items().size(), 3U);
}

TEST_F(TappedSearchProductTest, while_codes_are_scanned_a_tap_on_the_product_opens_nothing) {
  EnterSale("Ahmet Işık");
  PickItem("1002");
  At("Label1(1)").SetCaption(" Barkod");
  Tap("Text1(1)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(wanted, Names{});
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
}

TEST_F(TappedSearchProductTest, leaving_an_empty_product_field_brings_the_item_from_before_back_unsold) {
  EnterSale("Ahmet Işık");
  PickItem("1003");
  Tap("Text1(1)");
  At("Text2(0)").SetFocus();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text(), "Şeker");
  EXPECT_EQ(At("Text2(0)").Text(), "20,00");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(TappedSearchProductTest, who_goes_from_the_empty_field_to_the_button_is_told_that_nothing_is_sold) {
  EnterSale("Ahmet Işık");
  PickItem("1003");
  At("Text2(1)").SetText("2");
  Tap("Text1(1)");
  At("Durum").SetCaption("1 × Şeker 20,00 kaydedildi");
  At("Command2").SetFocus();
  EXPECT_EQ(At("Durum").Caption(), "Satılmadı: ürünü seçin");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
}

TEST_F(TappedSearchProductTest, leaving_a_written_name_completes_it_with_the_customers_own_prices) {
  Special("1002", "35");
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Tap("Text1(1)");
  Write("Text1(1)", "pirinç o");
  At("Text2(1)").SetFocus();
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Osmancık");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{40, 0, 0, 35}));
  DoubleTap("Label1(2)");
  EXPECT_EQ(At("Label1(2)").Caption() + " " + At("Text2(0)").Text(), "Özel 35,00");
}

TEST_F(TappedSearchProductTest, the_second_tap_brings_the_customers_own_prices) {
  Special("1002", "35");
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Search("Text1(1)", "pirinç o");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{40, 0, 0, 35}));
}

TEST_F(TappedSearchProductTest, enter_on_a_written_name_brings_the_customers_own_prices) {
  Special("1002", "35");
  EnterSale("Ahmet Işık");
  PickItem("1001");
  Tap("Text1(1)");
  Write("Text1(1)", "Pirinç Osmancık");
  Key("Text1(1)", key::kEnter);
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(Item(), "1002");
  EXPECT_EQ(At("Text2(0)").Text(), "40,00");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{40, 0, 0, 35}));
}

TEST_F(TappedSearchProductTest, enter_on_a_written_name_drops_the_serials_of_the_item_before) {
  EnterSale("Ahmet Işık");
  PickItem("1001");
  At("List1").AddItem("SN-1");
  Tap("Text1(1)");
  Write("Text1(1)", "Pirinç Osmancık");
  Key("Text1(1)", key::kEnter);
  EXPECT_TRUE(At("List1").Items().empty());
}

// The next of a name, by a double tap on Label1(1).

TEST_F(TappedSearchProductTest, a_double_tap_goes_round_the_cards_of_the_name_searched_for) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "Su");
  Names seen{Item()};
  for (int i = 0; i < 2; ++i) {
    DoubleTap("Label1(1)");
    seen.push_back(Item());
  }
  EXPECT_EQ(seen, (Names{"1004", "1005", "1004"}));
  EXPECT_EQ(At("Label1(1)").Caption(), " Ürün");
  EXPECT_EQ(desk->form.LastStokSearch, "Su");
}

TEST_F(TappedSearchProductTest, the_fields_show_the_next_card_of_the_name) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "Su");
  DoubleTap("Label1(1)");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Su 2,00");
}

TEST_F(TappedSearchProductTest, a_name_with_a_wild_card_goes_round_all_its_cards) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "pir*");
  ASSERT_EQ(Item(), "1001");
  DoubleTap("Label1(1)");
  EXPECT_EQ(Item(), "1002");
  DoubleTap("Label1(1)");
  EXPECT_EQ(Item(), "1001");
}

TEST_F(TappedSearchProductTest, a_name_that_no_card_has_is_forgotten_and_names_and_codes_change_places) {
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "pir");  // the beginning of a name, not a whole one
  DoubleTap("Label1(1)");
  EXPECT_EQ(desk->form.LastStokSearch, "");
  EXPECT_EQ(At("Label1(1)").Caption(), " Barkod");
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
}

// The keyboard is never left open behind the clerk's back.

TEST_F(TappedSearchProductTest, a_tap_on_the_stock_list_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  PickItem("1003");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(done, 1);
}

TEST_F(TappedSearchProductTest, enter_on_an_unknown_code_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  Write("Text1(1)", "404");
  Key("Text1(1)", key::kEnter);
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchProductTest, a_scan_closes_the_keyboard_and_finds_its_item) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  scanner.codeRead("8691003");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(Item(), "1003");
  EXPECT_EQ(At("Text2(0)").Text(), "20,00");
}

TEST_F(TappedSearchProductTest, entering_a_sale_closes_the_keyboard) {
  Tap("Text1(0)");
  Write("Text1(0)", "Çetin Öz");
  DoubleTap("Label1(0)");
  ASSERT_FALSE(At("CariGrid").Visible());
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(desk->form.CurrentCustomerCode, "C002");
  EXPECT_EQ(At("Text1(1)").Text(), "Pirinç Baldo");
}

TEST_F(TappedSearchProductTest, a_sale_entered_from_the_keyboard_sells_what_it_shows) {
  EnterSale("Ahmet Işık");
  PickItem("1003");
  DoubleTap("Label1(0)");
  Tap("Text1(0)");
  Write("Text1(0)", "Çetin Öz");
  DoubleTap("Label1(0)");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Pirinç Baldo 50,00");
  Post("2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, StokKod, Tutar FROM Datam"), Names{"C002|1001|100.0"});
}

TEST_F(TappedSearchProductTest, changing_to_codes_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  DoubleTap("Label1(1)");
  EXPECT_EQ(At("Label1(1)").Caption(), " Barkod");
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchProductTest, the_next_of_a_name_is_shown_also_from_the_keyboard) {
  AddStock("1004", "Su", "Fiyat=1");
  AddStock("1005", "Su", "Fiyat=2");
  EnterSale("Ahmet Işık");
  Search("Text1(1)", "Su");
  Tap("Text1(1)");
  DoubleTap("Label1(1)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Su 1,00");  // the whole list began anew
}

TEST_F(TappedSearchProductTest, leaving_a_sale_closes_the_keyboard) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  DoubleTap("Label1(0)");
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchProductTest, a_new_item_given_up_closes_the_keyboard) {
  OpenNewCard();
  Click("StokNewCmd(0)");
  EXPECT_FALSE(At("StokGiris").Visible());
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_TRUE(At("Text1(1)").HasFocus());
  Click("Text1(1)");  // a first tap again
  EXPECT_EQ(At("Text1(1)").Text(), "");
  EXPECT_FALSE(At("StokGiris").Visible());
}

TEST_F(TappedSearchProductTest, a_sale_left_over_a_new_item_closes_the_panel_and_the_keyboard) {
  OpenNewCard();
  DoubleTap("Label1(0)");
  EXPECT_FALSE(At("StokGiris").Visible());
  EXPECT_FALSE(desk->form.KeyboardOpen);
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C002'").Ok());
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(TappedSearchProductTest, from_one_field_of_a_new_item_to_the_next_the_keyboard_stays) {
  OpenNewCard();
  At("StokNew(1)").SetFocus();
  EXPECT_TRUE(desk->form.KeyboardOpen);
}

TEST_F(TappedSearchProductTest, behind_a_new_item_the_list_sells_what_it_shows) {
  OpenNewCard();
  Set("Text5", "şe");
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Şeker 20,00");
}

TEST_F(TappedSearchProductTest, two_taps_with_nothing_written_leave_the_row_in_front) {
  Tap("Text1(0)");
  Tap("Text1(0)");
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  EnterSale("Ahmet Işık");
  PickItem("1003");
  Tap("Text1(1)");
  Tap("Text1(1)");
  EXPECT_EQ(At("Text1(1)").Text() + " " + At("Text2(0)").Text(), "Şeker 20,00");
}

// Whatever is written.

TEST_F(TappedSearchProductTest, signs_of_the_dialect_never_break_the_products_search) {
  EnterSale("Ahmet Işık");
  for (const std::string& text :
       {std::string("*"), std::string("?"), std::string("'"), std::string("\""), std::string("["), std::string("#"), std::string("a'b"),
        std::string("x' Or 'a'='a"), std::string("'; DELETE FROM StokKartlar; --"), std::string(10000, 'q'), std::string("\x01\x02\t")}) {
    Tap("Text1(1)");
    Write("Text1(1)", text);
    Tap("Text1(1)");
    EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
    At("StokGiris").SetVisible(false);
    At("StokGrid").SetFocus();
    PickItem("1001");
    EXPECT_FALSE(desk->form.KeyboardOpen);
  }
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "3");
  Search("Text1(1)", "şe");
  EXPECT_EQ(Item(), "1003");
}

TEST_F(TappedSearchProductTest, a_wild_card_finds_inside_names) {
  Search("Text1(0)", "*öz");
  EXPECT_EQ(Customer(), "C002");
  EnterSale("Çetin Öz");
  Search("Text1(1)", "*man");
  EXPECT_EQ(Item(), "1002");
}

TEST_F(TappedSearchProductTest, a_name_with_a_quote_is_found_by_what_stands_before_it) {
  AddCustomer("C030", "O''Neil Ltd");
  AddStock("1006", "Lay''s Klasik", "Fiyat=15");
  Search("Text1(0)", "o?ne");
  EXPECT_EQ(Customer(), "C030");
  EXPECT_EQ(At("Text1(0)").Text(), "O'Neil Ltd");
  DoubleTap("Label1(0)");
  ASSERT_FALSE(At("CariGrid").Visible());
  Search("Text1(1)", "lay");
  Post("2");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT CariKod, StokAd, Tutar FROM Datam"), Names{"C030|Lay's Klasik|30.0"});
}

}  // namespace
}  // namespace karvel
