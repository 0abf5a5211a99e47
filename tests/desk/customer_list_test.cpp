#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class CustomerListTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık", "Bakiye=75.5, Borc=75.5, Hesap='Borç', KartNo='9001'");
    AddCustomer("C002", "Çetin Öz", "Gurup='Bayi', Bakiye=30, Alacak=30, Hesap='Alacak'");
    AddCustomer("C003", "İsmail Şahin", "Gurup='Bayi'");
    AddCustomer("C004", "Gizli Kart", "HesKullan=1");
    AddCustomer("T001", "Toptancı Bey", "Gurup='Toptan'");
    AddCustomer("P001", "Plasiyer Can", "Gurup='PLASiYER'");
    AddCustomer("=100", "Nakit Kasa");
    AddCustomer("Merkez", "Merkez Depo");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('Müşteri',1),('Toptan',1),('Fatura',1)");
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum) VALUES('C002','Çetin Öz',5,'2026-03-01 09:00:00','Satış')");
    ASSERT_TRUE(Start());
  }
  std::vector<std::string> Shown() {
    std::vector<std::string> names;
    for (const GridRow& row : desk->cursors.CariData.RowsFromStart(100)) names.push_back(AsText(row.values[1]));
    return names;
  }
  void Choose(const std::string& name) { ASSERT_TRUE(desk->cursors.CariData.FindFirst("Unvan='" + name + "'").Ok()); }
};

TEST_F(CustomerListTest, the_standard_list_leaves_out_what_is_no_customer_and_orders_by_the_turkish_alphabet) {
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Ahmet Işık", "Çetin Öz", "İsmail Şahin", "Muhtelif Müşteri"}));
}

TEST_F(CustomerListTest, the_row_in_front_is_the_customer_of_the_desk) {
  Choose("Çetin Öz");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.CariHarData.RecordSource(), "Select * From CariHareket Where CariHarKod='C002' Order By Tarih Desc");
  EXPECT_EQ(desk->cursors.VadeData.RecordSource(), "Select * From VadeGün Where CariKod='C002' Order By VadeTarih Asc");
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 1);
}

TEST_F(CustomerListTest, in_purchase_mode_the_fields_stay_with_the_last_customer) {
  Choose("Çetin Öz");
  At("Label4").SetCaption("Alış");
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerListTest, the_walk_in_customer_turns_the_print_button_into_collection) {
  Choose("Muhtelif Müşteri");
  EXPECT_EQ(At("Command1").Caption(), "Tahsilat");
  Choose("Ahmet Işık");
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
}

TEST_F(CustomerListTest, all_groups_shows_more_than_the_standard_list) {
  At("GurupCombo").ChooseText("Bayi");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Çetin Öz", "İsmail Şahin"}));
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "CGurup", ""), "Bayi");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
  At("GurupCombo").ChooseText("Tüm Guruplar");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Ahmet Işık", "Çetin Öz", "İsmail Şahin", "Merkez Depo", "Muhtelif Müşteri", "Nakit Kasa",
                                               "Plasiyer Can", "Toptancı Bey"}));
}

TEST_F(CustomerListTest, a_chosen_group_is_there_after_a_restart) {
  At("GurupCombo").ChooseText("Bayi");
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("GurupCombo").Text(), "Bayi");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Çetin Öz", "İsmail Şahin"}));
}

TEST_F(CustomerListTest, the_group_toptan_pays_out) {
  At("GurupCombo").ChooseText("Toptan");
  EXPECT_EQ(At("Label1(5)").Caption(), " Ödeme");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Toptancı Bey"});
}

TEST_F(CustomerListTest, typing_moves_the_list_and_completes_the_name) {
  Set("Text1(0)", "çe");
  EXPECT_EQ(At("Text1(0)").Text(), "Çetin Öz");
  EXPECT_EQ(At("Text1(0)").SelectionStart(), 2);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(desk->form.RepositionGuard, 0);
}

TEST_F(CustomerListTest, enter_takes_the_customer_and_goes_to_the_list) {
  Set("Text1(0)", "çe");
  Key("Text1(0)", key::kEnter);
  EXPECT_TRUE(At("CariGrid").HasFocus());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
}

TEST_F(CustomerListTest, an_unknown_name_opens_a_new_card_with_the_name_in_it) {
  Set("Text1(0)", "Zeki Yeni");
  Key("Text1(0)", key::kEnter);
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(0)").Text(), "Zeki Yeni");
  EXPECT_EQ(At("CariNew(1)").Text(), "Zeki Yeni");
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
}

TEST_F(CustomerListTest, the_filter_finds_a_dotted_capital_by_a_small_i) {
  Set("Text5", "ism");
  EXPECT_EQ(Shown(), std::vector<std::string>{"İsmail Şahin"});
  Set("Text5", "a");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Ahmet Işık"});
  At("Text5").SetText("");
  EXPECT_EQ(Shown().size(), 4U);
}

TEST_F(CustomerListTest, the_filter_stays_inside_the_chosen_group) {
  At("GurupCombo").ChooseText("Bayi");
  Set("Text5", "a");
  EXPECT_EQ(Shown(), std::vector<std::string>{});
  Set("Text5", "ç");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Çetin Öz"});
}

TEST_F(CustomerListTest, signs_of_the_dialect_never_break_the_list) {
  for (const char* text : {"*", "?", "'", "\"", "[", "#", "%", "_", "a'b", "'; DELETE FROM CariKartlar; --"}) {
    Set("Text5", text);
    At("Text5").SetText("");
    Set("Text1(0)", text);
    At("Text1(0)").SetText("");
  }
  Set("Text5", std::string(10000, 'q'));
  At("Text5").SetText("");
  EXPECT_EQ(Shown().size(), 4U);
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar"), "9");
}

TEST_F(CustomerListTest, an_overdue_customer_is_noticed_and_the_notice_goes_with_a_tap) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-02-20 00:00:00',75.5)");
  Choose("Ahmet Işık");
  EXPECT_TRUE(At("Vadefrm").Visible());
  EXPECT_EQ(At("Label15").Caption(), "9 Gün");
  Click("Vadefrm");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

TEST_F(CustomerListTest, what_is_due_today_is_no_notice) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-03-01 00:00:00',75.5)");
  Choose("Ahmet Işık");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

}  // namespace
}  // namespace karvel
