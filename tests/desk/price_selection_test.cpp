#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class PriceSelectionTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    AddCustomer("C002", "Bora Çetin");
    AddStock("1001", "Pirinç", "Fiyat=50, Fiyat2=540, Fiyat3=1000, Adet2=12, Adet3=24");
    AddStock("1002", "Şeker", "Fiyat=20");
    ASSERT_TRUE(Start());
  }
  void Special(const std::string& values) {
    Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\", \"1Fiyat\", \"2Fiyat\") VALUES('1001','C001'," + values + ")");
  }
  std::string Name() { return At("Label1(2)").Caption(); }
  std::string Price() { return At("Text2(0)").Text(); }
};

TEST_F(PriceSelectionTest, an_item_shows_the_cards_first_price) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(Name(), "1.Fiyat");
  EXPECT_EQ(Price(), "50,00");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
}

TEST_F(PriceSelectionTest, the_steps_go_through_the_prices_and_skip_a_missing_special_one) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "2.Fiyat 540,00");
  EXPECT_TRUE(At("Text2(0)").HasFocus());
  EXPECT_EQ(At("Text2(0)").SelectionLength(), 6);
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "3.Fiyat 1.000,00");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
}

TEST_F(PriceSelectionTest, a_price_of_zero_is_skipped_to_the_first) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 20,00");
}

TEST_F(PriceSelectionTest, a_price_of_zero_is_skipped_to_the_special_one) {
  Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('1002','C001',18)");
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "Özel 18,00");
  DoubleTap("Label1(2)");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 20,00");
}

TEST_F(PriceSelectionTest, a_customers_own_first_price_stands_beside_the_cards) {
  Special("45,0,0");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 50,00");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 45}));
}

TEST_F(PriceSelectionTest, a_customers_own_second_and_third_price_replace_the_cards) {
  Special("0,500,900");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 500, 900, 0}));
}

TEST_F(PriceSelectionTest, special_prices_are_the_customers_alone) {
  Special("45,500,900");
  EnterSale("Bora Çetin");
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots, (std::array<double, 4>{50, 540, 1000, 0}));
}

TEST_F(PriceSelectionTest, an_item_without_a_special_price_forgets_the_last_ones) {
  Special("45,0,0");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  PickItem("1002");
  EXPECT_EQ(desk->form.PriceSlots[3], 0);
}

TEST_F(PriceSelectionTest, the_discount_is_taken_off_the_slot) {
  EnterSale("Ayşe Yılmaz");
  Set("Text2(3)", "10");
  PickItem("1001");
  EXPECT_EQ(Price(), "45,00");
  EXPECT_EQ(At("Label2").Caption(), "45,00");
}

TEST_F(PriceSelectionTest, the_group_fatura_pays_the_second_price_when_the_option_is_on) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Fatura',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Fatura' WHERE CariKod='C001'");
  ASSERT_TRUE(Start());
  Click("Fiyat2");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FiyatSabit", "Fiyat2", ""), "True");
  EXPECT_EQ(desk->screen.StokGrid.Columns()[3].field, "Fiyat");
  At("GurupCombo").ChooseText("Fatura");
  EXPECT_EQ(desk->screen.StokGrid.Columns()[3].field, "Fiyat2");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(Name() + " " + Price(), "1.Fiyat 540,00");
}

TEST_F(PriceSelectionTest, a_card_price_above_the_second_wins_back_the_first_slot_beside_a_special_row) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Fatura',1)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Fatura' WHERE CariKod='C001'");
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat2=30 WHERE StokKod='1001'");
  Special("45,0,0");
  ASSERT_TRUE(Start());
  Click("Fiyat2");
  At("GurupCombo").ChooseText("Fatura");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  EXPECT_EQ(desk->form.PriceSlots[0], 50);
}

TEST_F(PriceSelectionTest, a_fixed_price_is_not_open_to_input) {
  Click("FiyatSabit");
  EXPECT_FALSE(At("Text2(0)").Enabled());
  Click("FiyatSabit");
  EXPECT_TRUE(At("Text2(0)").Enabled());
}

TEST_F(PriceSelectionTest, a_price_under_the_floor_becomes_the_floor) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetText("44,99");
  EXPECT_EQ(Price(), "45,00");
  At("Text2(0)").SetText("45");
  EXPECT_EQ(Price(), "45");
}

TEST_F(PriceSelectionTest, a_percent_of_zero_turns_the_floor_off) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetText("1");
  EXPECT_EQ(Price(), "1");
}

TEST_F(PriceSelectionTest, a_price_above_the_cards_is_never_touched_by_the_floor) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text2(0)").SetText("60");
  EXPECT_EQ(Price(), "60");
}

TEST_F(PriceSelectionTest, the_floor_looks_at_the_first_price_whichever_is_shown) {
  desk->form.MinSalePercent = 10;
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label1(2)");
  At("Text2(0)").SetText("46");
  EXPECT_EQ(Price(), "46");
  At("Text2(0)").SetText("40");
  EXPECT_EQ(Price(), "45,00");
}

TEST_F(PriceSelectionTest, the_percent_is_asked_for_behind_the_use_password) {
  settings.Save("Velmora Karvel1", "Size", "aSif", "1234");
  messages.answers = {"0000"};
  Click("Yuzde");
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(desk->form.MinSalePercent, 0);
  messages.answers = {"1234", "7,5"};
  Click("Yuzde");
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[1].text, "Lütfen Kullanım Şifresi Girin");
  EXPECT_EQ(messages.shown[1].title, "Kullanım Şifresi");
  EXPECT_EQ(messages.shown[2].text, "Lütfen Satış Yüzdesi Girin");
  EXPECT_EQ(messages.shown[2].title, "Min.Satış Yüzdesi");
  EXPECT_EQ(desk->form.MinSalePercent, 7.5F);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "Yuzdem", ""), "7,5");
}

}  // namespace
}  // namespace karvel
