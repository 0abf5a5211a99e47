#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

using Names = std::vector<std::string>;

class StockListTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=75.5, Borc=75.5, Hesap='Borç'");
    AddCustomer("P001", "Plasiyer Can", "Gurup='plasiyer'");
    AddCustomer("T001", "Toptan Gıda", "Gurup='Toptan'");
    AddCustomer("=KASA", "Kasa");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Müşteri',1),('Toptan',1)");
    Sql("Stok.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Gıda',1),('Temizlik',1)");
    AddStock("1", "Pirinç", "KalanB=5, GirenMik=5");
    AddStock("2", "Sabun", "Gurup='Temizlik', KalanA=2, CikanMik=2");
    AddStock("3", "Şeker", "KalanB=1.5, GirenMik=2, CikanMik=0.5");
    AddStock("4", "Gizli", "StokGizle=1, KalanB=9");
    ASSERT_TRUE(Start());
  }
  Names Listed(const char* field = "StokAdi") {
    const Cursor& list = desk->cursors.CariData;
    Names names;
    if (!list.SourceTable()) return names;
    for (const GridRow& row : list.RowsFromStart(100))
      names.push_back(AsText(row.values[static_cast<std::size_t>(list.SourceTable()->Position(field))]));
    return names;
  }
  void Tick(bool on = true) { At("StokChk").SetChecked(on); }
};

TEST_F(StockListTest, the_tick_turns_the_customer_list_over_to_the_cards) {
  Tick();
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Sabun", "Şeker"}));
  const auto& columns = desk->screen.CariGrid.Columns();
  ASSERT_EQ(columns.size(), 5U);
  const char* const captions[] = {"Stok Adı", "Giren", "Çıkan", "+Kalan", "-Kalan"};
  const char* const fields[] = {"StokAdi", "GirenMik", "CikanMik", "KalanB", "KalanA"};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(Trim(columns[i].caption), captions[i]);
    EXPECT_EQ(columns[i].field, fields[i]);
    EXPECT_TRUE(columns[i].visible);
    EXPECT_EQ(columns[i].format, i == 0 ? "" : desk->form.QuantityFormat);
  }
  EXPECT_EQ(columns[3].align, Align::Right);
}

TEST_F(StockListTest, with_the_tick_nothing_can_be_posted_or_left) {
  Tick();
  EXPECT_FALSE(At("Command2").Enabled());
  EXPECT_FALSE(At("Command3").Enabled());
  EXPECT_FALSE(At("Command4").Enabled());
  EXPECT_FALSE(At("SilinenChk").Enabled());
  EXPECT_TRUE(At("StokFrm").Visible());
  EXPECT_FALSE(At("Label5").Visible());
  EXPECT_FALSE(At("Label1(7)").Visible());
  Set("Text2(2)", "50");
  EXPECT_FALSE(At("Command2").Enabled()) << "a payment typed over the stock list has no customer";
  Tick(false);
  EXPECT_TRUE(At("Command2").Enabled());
  EXPECT_TRUE(At("Command3").Enabled());
  EXPECT_TRUE(At("Command4").Enabled());
  EXPECT_TRUE(At("SilinenChk").Enabled());
  EXPECT_FALSE(At("StokFrm").Visible());
  EXPECT_TRUE(At("Label5").Visible());
  EXPECT_TRUE(At("Label1(7)").Visible());
}

TEST_F(StockListTest, the_customers_that_come_back_include_salesmen) {
  Tick();
  Tick(false);
  EXPECT_EQ(Listed("Unvan"), (Names{"Ayşe Yılmaz", "Muhtelif Müşteri", "Plasiyer Can"}));
  const auto& columns = desk->screen.CariGrid.Columns();
  EXPECT_EQ(Trim(columns[0].caption), "Ünvan");
  EXPECT_FALSE(columns[1].visible);
  EXPECT_EQ(Trim(columns[2].caption), "Bakiye");
  EXPECT_EQ(columns[2].field, "Bakiye");
  EXPECT_EQ(columns[3].field, "Hesap");
  EXPECT_FALSE(columns[4].visible);
}

TEST_F(StockListTest, the_screen_follows_to_the_customer_that_comes_back) {
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("Unvan='Muhtelif Müşteri'").Ok());
  Tick();
  Tick(false);
  EXPECT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StockListTest, in_the_wholesale_branch_the_tick_opens_the_receipt) {
  At("GurupCombo").ChooseText("Toptan");
  ASSERT_EQ(At("Label1(0)").Caption(), " Toptan");
  Tick();
  EXPECT_FALSE(At("StokChk").Checked());
  EXPECT_TRUE(At("StokAl").Visible());
  EXPECT_TRUE(At("Text6(0)").HasFocus());
  EXPECT_FALSE(At("StokFrm").Visible());
  EXPECT_EQ(Listed("Unvan"), Names{"Toptan Gıda"});
}

TEST_F(StockListTest, a_sale_keeps_its_customer_list) {
  EnterSale("Ayşe Yılmaz");
  Tick();
  EXPECT_FALSE(At("StokChk").Checked());
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C001");
}

TEST_F(StockListTest, a_customer_group_leads_back_to_customers) {
  Tick();
  At("GurupCombo").ChooseText("Müşteri");
  EXPECT_FALSE(At("StokChk").Checked());
  EXPECT_EQ(Listed("Unvan"), (Names{"Ayşe Yılmaz", "Kasa", "Muhtelif Müşteri"}));
}

TEST_F(StockListTest, the_customer_fields_leave_the_cards_alone) {
  Tick();
  At("Text5").SetText("a");
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Sabun", "Şeker"}));
  Set("Text1(0)", "Yeni Ad");
  Key("Text1(0)", key::kEnter);
  EXPECT_FALSE(At("CariFrm").Visible());
}

TEST_F(StockListTest, a_group_narrows_the_cards) {
  Tick();
  At("GrpCombo").ChooseText("Temizlik");
  EXPECT_EQ(Listed(), Names{"Sabun"});
  EXPECT_EQ(desk->cursors.CariData.RecordSource(),
            "Select * From StokKartlar Where StokGizle=False  And Gurup='Temizlik' Order By StokAdi ASC");
  At("GrpCombo").Choose(0);
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Sabun", "Şeker"}));
}

TEST_F(StockListTest, what_is_on_hand_leaves_out_the_oversold) {
  Tick();
  At("Stoktxt").SetText("Pir");
  At("StokCek").SetChecked(true);
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Şeker"}));
  EXPECT_EQ(At("Stoktxt").Text(), "");
  EXPECT_TRUE(At("Stoktxt").HasFocus());
  At("GrpCombo").ChooseText("Temizlik");
  EXPECT_EQ(Listed(), Names{});
}

TEST_F(StockListTest, the_tick_shows_all_cards_again) {
  Tick();
  At("GrpCombo").ChooseText("Temizlik");
  At("StokCek").SetChecked(true);
  Tick(false);
  Tick();
  EXPECT_EQ(At("GrpCombo").ListIndex(), 0);
  EXPECT_FALSE(At("StokCek").Checked());
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Sabun", "Şeker"}));
}

TEST_F(StockListTest, the_strip_does_nothing_to_customers) {
  const std::string before = desk->cursors.CariData.RecordSource();
  At("GrpCombo").ChooseText("Temizlik");
  At("StokCek").SetChecked(true);
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), before);
}

TEST_F(StockListTest, a_typed_name_is_found_and_blanks_move_nothing) {
  Tick();
  At("Stoktxt").SetText("şe");
  EXPECT_EQ(desk->cursors.CariData.Text("StokAdi"), "Şeker");
  At("Stoktxt").SetText("   ");
  EXPECT_EQ(desk->cursors.CariData.Text("StokAdi"), "Şeker");
  At("Stoktxt").SetText("yok");
  EXPECT_EQ(desk->cursors.CariData.Text("StokAdi"), "Şeker");
}

TEST_F(StockListTest, the_first_tap_opens_the_keyboard_over_all_cards) {
  Element* wanted = nullptr;
  connections += desk->screen.keyboardWanted.Connect([&wanted](KeyboardWish& wish) {
    wanted = &wish.field;
    wish.shown = true;
  });
  Tick();
  At("GrpCombo").ChooseText("Temizlik");
  At("Stoktxt").SetText("Sab");
  Click("Stoktxt");
  EXPECT_EQ(wanted, &At("Stoktxt"));
  EXPECT_TRUE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Stoktxt").Text(), "");
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Sabun", "Şeker"}));
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StockListTest, the_second_tap_takes_the_name) {
  int done = 0;
  connections += desk->screen.keyboardWanted.Connect([](KeyboardWish& wish) { wish.shown = true; });
  connections += desk->screen.keyboardDone.Connect([&done] { ++done; });
  Tick();
  Click("Stoktxt");
  At("Stoktxt").SetText("şe");
  Click("Stoktxt");
  EXPECT_EQ(done, 1);
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(desk->form.LastStokSearch, "şe");
  EXPECT_EQ(Listed(), Names{"Şeker"});
  EXPECT_EQ(At("Stoktxt").Text(), "Şeker");
  EXPECT_TRUE(At("CariGrid").HasFocus());
}

TEST_F(StockListTest, a_name_without_a_card_stays_as_typed) {
  Tick();
  Click("Stoktxt");
  At("Stoktxt").SetText("yok");
  Click("Stoktxt");
  EXPECT_EQ(Listed(), Names{});
  EXPECT_EQ(At("Stoktxt").Text(), "yok");
}

TEST_F(StockListTest, leaving_the_cards_puts_the_keyboard_away) {
  Tick();
  Click("Stoktxt");
  Tick(false);
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz");
}

TEST_F(StockListTest, entering_the_search_selects_its_text) {
  Tick();
  At("Stoktxt").SetText("Pir");
  At("Stoktxt").SetFocus();
  EXPECT_EQ(At("Stoktxt").SelectionLength(), 3);
}

TEST_F(StockListTest, the_delete_key_needs_the_open_deletion) {
  EnterSale("Ayşe Yılmaz");
  KeyEvent event{key::kDelete};
  desk->screen.StokGrid.keyDown(event);
  EXPECT_TRUE(event.dropped);
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "4");
  EXPECT_TRUE(shell.sounds.empty());
  KeyEvent other{key::kDown};
  desk->screen.StokGrid.keyDown(other);
  EXPECT_FALSE(other.dropped);
}

TEST_F(StockListTest, the_delete_key_removes_a_card_without_a_question) {
  Click("Silme");
  EnterSale("Ayşe Yılmaz");
  PickItem("2");
  KeyEvent event{key::kDelete};
  desk->screen.StokGrid.keyDown(event);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT StokKod FROM StokKartlar ORDER BY 1"), (Names{"1", "3", "4"}));
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "3");
  EXPECT_TRUE(messages.shown.empty());
  ASSERT_EQ(shell.sounds.size(), 1U);
  EXPECT_TRUE(shell.sounds[0].ends_with("/Recycle.wav"));
  desk->screen.StokGrid.keyDown(event);
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1") << "behind the last card the one before it is in front";
  desk->screen.StokGrid.keyDown(event);
  desk->screen.StokGrid.keyDown(event);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT StokKod FROM StokKartlar"), Names{"4"});
  EXPECT_EQ(shell.sounds.size(), 3U);
}

TEST_F(StockListTest, before_the_desk_has_opened_a_choice_narrows_nothing) {
  Tick();
  At("Command3").SetVisible(false);
  At("GrpCombo").ChooseText("Temizlik");
  At("StokCek").SetChecked(true);
  EXPECT_EQ(Listed(), (Names{"Pirinç", "Sabun", "Şeker"}));
}

TEST_F(StockListTest, a_group_with_stock_on_hand_needs_both) {
  AddStock("5", "Deterjan", "Gurup='Temizlik', KalanB=4");
  Tick();
  At("GrpCombo").ChooseText("Temizlik");
  EXPECT_EQ(Listed(), (Names{"Deterjan", "Sabun"}));
  At("StokCek").SetChecked(true);
  EXPECT_EQ(Listed(), Names{"Deterjan"});
  EXPECT_EQ(desk->cursors.CariData.RecordSource(),
            "Select * From StokKartlar Where StokGizle=False  And Gurup='Temizlik' And KalanB<>0 Order By StokAdi ASC");
  At("StokCek").SetChecked(false);
  EXPECT_EQ(Listed(), (Names{"Deterjan", "Sabun"}));
}

TEST_F(StockListTest, a_group_with_a_quote_in_its_name_narrows_the_cards) {
  Sql("Stok.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Süt''lük',1)");
  AddStock("5", "Kaşar", "Gurup='Süt''lük', KalanB=3");
  ASSERT_TRUE(Start());
  Tick();
  At("GrpCombo").ChooseText("Süt'lük");
  EXPECT_EQ(Listed(), Names{"Kaşar"});
  At("StokCek").SetChecked(true);
  EXPECT_EQ(Listed(), Names{"Kaşar"});
}

TEST_F(StockListTest, it_closes_the_panels_that_would_book_for_a_customer) {
  for (const char* const panel : {"TahsilatFrame", "CariFrm"}) {
    At(panel).SetVisible(true);
    Tick();
    EXPECT_FALSE(At(panel).Visible()) << panel;
    At(panel).SetVisible(true);
    Tick(false);
    EXPECT_FALSE(At(panel).Visible()) << panel;
  }
}

TEST_F(StockListTest, no_sale_is_entered_from_the_cards) {
  Tick();
  const std::string list = desk->cursors.CariData.RecordSource();
  DoubleTap("Label1(0)");
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(At("Frame2").Visible());
  EXPECT_EQ(At("Label1(0)").Caption(), " Satış");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
  EXPECT_TRUE(At("StokChk").Checked());
}

TEST_F(StockListTest, with_the_days_turnover_in_front_the_search_looks_for_the_lines_item) {
  Sql("Karvel.mdb",
      "INSERT INTO Datam(CariKod, StokAd, Tarih) VALUES('C001','Bal','2026-03-01 10:00:00'),('C001','Un','2026-03-01 09:00:00')");
  desk->form.RepositionGuard.Keep(Mute::Customers);
  At("CiroChk").SetChecked(true);
  desk->cursors.CariData.SetDatabaseName(desk->form.DataDir + "Karvel.Mdb");
  ASSERT_TRUE(desk->cursors.CariData.Open("Select * From Datam Order By Tarih Desc").Ok());
  At("Stoktxt").SetText("u");
  EXPECT_EQ(desk->cursors.CariData.Text("StokAd"), "Un");
}

TEST_F(StockListTest, the_switch_mutes_nothing_afterwards) {
  Tick();
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_TRUE(desk->cursors.CariData.DatabaseName().ends_with("Stok.Mdb"));
  Tick(false);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_TRUE(desk->cursors.CariData.DatabaseName().ends_with("Cari.Mdb"));
  EXPECT_EQ(desk->cursors.CariData.RecordSource(),
            "Select * From CariKartlar Where HesKullan=False And Gurup<>'Toptan' And Left(CariKod,1)<>'=' Order By Unvan Asc");
}

}  // namespace
}  // namespace karvel
