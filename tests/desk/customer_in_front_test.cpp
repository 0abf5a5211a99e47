#include "desk/customer_in_front.h"

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

class ServedTest : public CustomerInFrontTest {
 protected:
  bool Bring() { return desk->Customer().BringServed(); }
  std::string Front() { return desk->cursors.CariData.Text("CariKod"); }
  // A name on the screen while the list stands elsewhere, as a handler that moved it quietly leaves them.
  void Name(const std::string& name) { At("Text1(0)").SetText(name); }
  std::string Said() { return At("Durum").Caption(); }
};

TEST_F(ServedTest, whoever_bears_the_name_comes_in_front_from_another_list) {
  At("GurupCombo").ChooseText("Bayi");
  Name("Ahmet Işık");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(Front(), "C001");
  EXPECT_EQ(At("Label8").Caption() + " " + At("Label5").Caption(), "C001 75,50");
  Name("Toptancı Bey");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(Front(), "T001");
  Name("Plasiyer Can");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(Front(), "P001");
}

TEST_F(ServedTest, the_row_in_front_is_meant_where_it_bears_the_name) {
  AddCustomer("C009", "Ahmet Işık");
  Choose("Çetin Öz");
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C009'").Ok());
  Name(" Ahmet Işık ");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(Front(), "C009");
}

TEST_F(ServedTest, a_beginning_means_the_row_in_front_unless_it_is_a_whole_name) {
  Choose("Ahmet Işık");
  Name("ahm");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(At("Text1(0)").Text(), "Ahmet Işık");
  AddCustomer("C010", "Ahm");
  Name("Ahm");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(Front(), "C010");
}

TEST_F(ServedTest, nobody_two_of_a_name_and_an_empty_field_bring_no_one) {
  AddCustomer("C009", "Ahmet Işık", "Gurup='Toptan'");
  Choose("Çetin Öz");
  for (const auto& [name, said] : {std::pair{"", "Müşteri adı yazılı değil"},
                                   {"Yok Böyle", "Böyle bir müşteri yok: Yok Böyle"},
                                   {"Gizli Kart", "Böyle bir müşteri yok: Gizli Kart"},
                                   {"Nakit Kasa", "Böyle bir müşteri yok: Nakit Kasa"},
                                   {"Ahmet Işık", "Birden çok müşteri var, listeden seçin: Ahmet Işık"}}) {
    Name(name);
    EXPECT_FALSE(Bring()) << name;
    EXPECT_EQ(Said(), said);
    EXPECT_EQ(Front(), "C002") << name;
  }
}

TEST_F(ServedTest, files_that_cant_be_read_bring_no_one_and_are_not_taken_for_nobody) {
  Choose("Çetin Öz");
  Name("Ahmet Işık");
  stores->Close();
  EXPECT_FALSE(Bring());
  EXPECT_EQ(Said().find("Böyle bir müşteri yok"), std::string::npos);
  EXPECT_NE(Said(), "");
}

TEST_F(ServedTest, in_a_sale_it_is_the_sales_customer_and_the_tapped_line_stays_in_front) {
  EnterSale("Çetin Öz");
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum, DigerId) VALUES('C002','Çetin Öz',7,'2026-03-01 09:30:00','Satış','9')");
  ASSERT_TRUE(desk->cursors.HareketData.Refresh().Ok());
  ASSERT_TRUE(desk->cursors.HareketData.FindFirst("Tutar=5").Ok());
  {
    const Muted muted(desk->form.RepositionGuard, Mute::Customers);
    ASSERT_TRUE(desk->cursors.CariData.Open("CariKartlar").Ok());
  }
  ASSERT_NE(Front(), "C002");
  EXPECT_TRUE(Bring());
  EXPECT_EQ(Front(), "C002");
  EXPECT_EQ(desk->cursors.HareketData.Number("Tutar"), 5);
  EXPECT_EQ(desk->cursors.CariHarData.RecordSource(), "Select * From CariHareket Where CariHarKod='C002' Order By Tarih Desc");
}

}  // namespace
}  // namespace karvel
