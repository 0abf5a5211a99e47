#include "tests/desk/customer_list_fixture.h"

namespace karvel {
namespace {

class CustomerInFrontTest : public CustomerListFixture {};

TEST_F(CustomerInFrontTest, the_standard_list_leaves_out_what_is_no_customer_and_orders_by_the_turkish_alphabet) {
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Ahmet Işık", "Çetin Öz", "İsmail Şahin", "Muhtelif Müşteri"}));
}

TEST_F(CustomerInFrontTest, the_row_in_front_is_the_customer_of_the_desk) {
  Choose("Çetin Öz");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.CariHarData.RecordSource(), "Select * From CariHareket Where CariHarKod='C002' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.VadeData.RecordSource(), "Select * From VadeGün Where CariKod='C002' Order By VadeTarih Asc");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 1);
}

TEST_F(CustomerInFrontTest, in_purchase_mode_the_fields_stay_with_the_last_customer) {
  Choose("Çetin Öz");
  At("Label4").SetCaption("Alış");
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerInFrontTest, the_walk_in_customer_turns_the_print_button_into_collection) {
  Choose("Muhtelif Müşteri");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
}

TEST_F(CustomerInFrontTest, with_the_fields_muted_a_move_leaves_the_fields_and_the_sources) {
  Choose("Çetin Öz");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerInFrontTest, with_the_fields_muted_a_move_reads_the_day_book_anew) {
  Choose("Çetin Öz");
  ASSERT_EQ(desk->cursors.HareketData.RecordCount(), 1);
  Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum) VALUES('C002','Çetin Öz',7,'2026-03-01 09:30:00','Satış')");
  desk->form.RepositionGuard.Keep(Mute::Fields);
  Choose("Ahmet Işık");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 2);
}

TEST_F(CustomerInFrontTest, with_the_customers_muted_a_move_changes_nothing) {
  Choose("Muhtelif Müşteri");
  ASSERT_EQ(At("Command1").Caption(), "Tahsilat");
  const std::string book = desk->cursors.HareketData.RecordSource();
  At("Text1(0)").SetText("Ahmet Işık");
  desk->form.RepositionGuard.Keep(Mute::Customers);
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), book);
}

TEST_F(CustomerInFrontTest, while_the_keyboard_is_open_a_move_changes_nothing) {
  Choose("Çetin Öz");
  desk->form.KeyboardOpen = true;
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerInFrontTest, in_a_sale_a_move_shows_the_total_of_the_day_and_leaves_the_name) {
  EnterSale("Çetin Öz");
  At("Label5").SetCaption("99");
  Choose("Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "5,00");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
}

TEST_F(CustomerInFrontTest, at_rest_a_move_shows_the_balance_without_its_side) {
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  Choose("İsmail Şahin");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
}

}  // namespace
}  // namespace karvel
