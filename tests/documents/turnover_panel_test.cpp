#include "documents/turnover_panel.h"

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class TurnoverPanelTest : public AccountsFixture {
 protected:
  void SetUp() override {
    AccountsFixture::SetUp();
    At("Command9").SetCaption("Yazıcı Yok");
  }
  void AddLine(const std::string& kind, const std::string& amount, const std::string& paid, const std::string& group = "Müşteri",
               const std::string& date = "2026-03-01 09:00:00") {
    Sql("Karvel.mdb", "INSERT INTO Datam(CariAd,StokAd,Tutar,Tahsilat,Tarih,Durum,Gurup) VALUES('Ali','" + kind + "'," + amount + "," +
                          paid + ",'" + date + "','" + kind + "','" + group + "')");
  }
  void Tick(bool on) { At("CiroChk").SetChecked(on); }
  std::string Figure(int slot) { return At("Label9(" + std::to_string(slot) + ")").Caption(); }
  Lines Listed() {
    Lines lines;
    const Cursor& list = desk->cursors.CariData;
    const int position = list.SourceTable()->Position("Durum");
    for (const GridRow& row : list.RowsFromStart(100)) lines.push_back(AsText(row.values[static_cast<std::size_t>(position)]));
    return lines;
  }
};

TEST_F(TurnoverPanelTest, opens_with_the_collections_by_what_was_collected) {
  AddLine("Satış", "100", "0");
  AddLine("Nakit", "1", "10");
  AddLine("K.Kartı", "1", "20");
  AddLine("Çek", "1", "30");
  AddLine("Senet", "1", "40");
  AddLine("İade", "5", "0");
  AddLine("Satış", "1000", "0", "Müşteri", "2026-02-28 09:00:00");
  Tick(true);
  EXPECT_TRUE(At("CiroFrm").Visible());
  EXPECT_EQ(Figure(2), "100,00");
  EXPECT_EQ(Figure(3), "10,00");
  EXPECT_EQ(Figure(4), "20,00");
  EXPECT_EQ(Figure(6), "30,00");
  EXPECT_EQ(Figure(8), "40,00");
  EXPECT_EQ(Figure(10), "5,00");
  EXPECT_EQ(Listed(), (Lines{"Çek", "İade", "K.Kartı", "Nakit", "Satış", "Senet"}));
  EXPECT_EQ(At("DTPicker2(0)").Date(), (DateTime{2026, 3, 1}));
  EXPECT_EQ(At("DTPicker2(1)").Date(), (DateTime{2026, 3, 1}));
}

TEST_F(TurnoverPanelTest, a_change_of_date_sums_amounts_instead) {
  AddLine("Nakit", "1", "10");
  Tick(true);
  EXPECT_EQ(Figure(3), "10,00");
  At("DTPicker2(0)").SetDate({2026, 2, 1});
  EXPECT_EQ(Figure(3), "1,00");
}

TEST_F(TurnoverPanelTest, a_span_takes_both_of_its_days_whole) {
  AddLine("Satış", "1", "0", "Müşteri", "2026-02-09 23:59:59");
  AddLine("Satış", "10", "0", "Müşteri", "2026-02-10 00:00:00");
  AddLine("Satış", "100", "0", "Müşteri", "2026-02-20 23:59:59");
  AddLine("Satış", "1000", "0", "Müşteri", "2026-02-21 00:00:00");
  Tick(true);
  At("DTPicker2(0)").SetDate({2026, 2, 10});
  At("DTPicker2(1)").SetDate({2026, 2, 20});
  EXPECT_EQ(Figure(2), "110,00");
  EXPECT_EQ(Listed().size(), 2U);
}

TEST_F(TurnoverPanelTest, the_first_date_never_lies_behind_the_last) {
  Tick(true);
  At("DTPicker2(1)").SetDate({2026, 2, 10});
  EXPECT_EQ(At("DTPicker2(0)").Date(), (DateTime{2026, 2, 10}));
  At("DTPicker2(0)").SetDate({2026, 2, 15});
  EXPECT_EQ(At("DTPicker2(0)").Date(), (DateTime{2026, 2, 10}));
}

TEST_F(TurnoverPanelTest, a_kind_without_a_line_is_blank) {
  AddLine("Satış", "100", "0");
  Tick(true);
  EXPECT_EQ(Figure(3), "");
  EXPECT_EQ(Figure(2), "100,00");
}

TEST_F(TurnoverPanelTest, a_figure_that_cannot_be_read_is_not_blank_and_goes_on_no_paper) {
  AddLine("Satış", "100", "0");
  engine.readFault = {ErrorKind::Busy, "kept"};
  Tick(true);
  engine.readFault = {};
  EXPECT_EQ(Figure(2), "?");
  Click("ZRaporu");
  EXPECT_EQ(At("Durum").Caption(), "Z raporu yazdırılmadı: ciro toplamları okunamadı, tarihi yeniden seçin");
  Click("Command1");
  EXPECT_EQ(At("Durum").Caption(), "Ciro yazdırılmadı: toplamları okunamadı, tarihi yeniden seçin");
  EXPECT_TRUE(printer.jobs.empty());
  At("DTPicker2(0)").SetDate({2026, 2, 28});
  EXPECT_EQ(Figure(2), "100,00");
  Click("ZRaporu");
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(TurnoverPanelTest, wholesale_is_in_no_figure_though_its_list_can_be_seen) {
  AddLine("Satış", "100", "0", "Toptan");
  ASSERT_TRUE(At("GurupCombo").ChooseText("Toptan"));
  Tick(true);
  EXPECT_EQ(Figure(2), "");
  EXPECT_EQ(Listed(), Lines{"Satış"});
}

TEST_F(TurnoverPanelTest, without_a_group_the_list_leaves_wholesale_out) {
  AddLine("Satış", "100", "0", "Toptan");
  AddLine("İade", "100", "0");
  Tick(true);
  EXPECT_EQ(Listed(), Lines{"İade"});
}

TEST_F(TurnoverPanelTest, a_group_chosen_meanwhile_narrows_the_list_and_holds_when_it_closes) {
  AddLine("Satış", "100", "0", "Toptan");
  AddLine("İade", "100", "0");
  Tick(true);
  ASSERT_TRUE(At("GurupCombo").ChooseText("Toptan"));
  EXPECT_EQ(Listed(), Lines{"Satış"});
  Tick(false);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "T001");
  EXPECT_EQ(At("Label1(0)").Caption(), " Toptan");
}

TEST_F(TurnoverPanelTest, says_whom_the_list_holds_behind_it) {
  Tick(true);
  Tick(false);
  EXPECT_EQ(At("Durum").Caption(), "Listede Müşteri gurubu var");
  ASSERT_TRUE(At("GurupCombo").ChooseText("Toptan"));
  Tick(true);
  At("Durum").SetCaption("");
  Tick(false);
  EXPECT_EQ(At("Durum").Caption(), "");
}

TEST_F(TurnoverPanelTest, nothing_is_posted_over_it) {
  Set("Text2(2)", "50");
  ASSERT_TRUE(At("Command2").Enabled());
  At("Frame3").SetVisible(true);
  Tick(true);
  for (const char* const name : {"Command2", "Command4", "CarSil"}) EXPECT_FALSE(At(name).Enabled()) << name;
  EXPECT_FALSE(At("Frame3").Visible());
  Set("Text2(2)", "60");  // an amount typed meanwhile
  EXPECT_FALSE(At("Command2").Enabled());
  Tick(false);
  for (const char* const name : {"Command2", "Command4", "CarSil"}) EXPECT_TRUE(At(name).Enabled()) << name;
  EXPECT_FALSE(At("CiroFrm").Visible());
}

TEST_F(TurnoverPanelTest, the_customers_come_back_with_their_columns) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Gurup='Müşteri' WHERE CariKod IN ('C001','C002')");
  const auto before = desk->screen.CariGrid.Columns();
  Tick(true);
  EXPECT_EQ(desk->screen.CariGrid.Columns()[1].field, "StokAd");
  EXPECT_EQ(desk->screen.CariGrid.Columns()[4].field, "Durum");
  Tick(false);
  const auto after = desk->screen.CariGrid.Columns();
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(after[i].field, before[i].field);
    EXPECT_EQ(after[i].visible, before[i].visible);
  }
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C001");
  EXPECT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz");
}

TEST_F(TurnoverPanelTest, the_two_ticks_exclude_each_other) {
  Tick(true);
  At("StokChk").SetChecked(true);
  EXPECT_FALSE(At("CiroChk").Checked());
  EXPECT_FALSE(At("CiroFrm").Visible());
  EXPECT_EQ(desk->cursors.CariData.SourceTable()->name, "StokKartlar");
  Tick(true);
  EXPECT_FALSE(At("StokChk").Checked());
  EXPECT_EQ(desk->cursors.CariData.SourceTable()->name, "Datam");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(TurnoverPanelTest, does_not_open_in_a_sale) {
  EnterSale("Ayşe Yılmaz");
  Tick(true);
  EXPECT_FALSE(At("CiroChk").Checked());
  EXPECT_FALSE(At("CiroFrm").Visible());
}

TEST_F(TurnoverPanelTest, the_walk_in_customer_in_front_does_not_collect_over_it) {
  Front("Muhtelif Müşteri");
  ASSERT_EQ(At("Command1").Caption(), "Tahsilat");
  Tick(true);
  EXPECT_EQ(At("Command1").Caption(), "Yazdır");
}

TEST_F(TurnoverPanelTest, the_menu_chooses_the_report) {
  At("CiroYaz(1)").click();
  EXPECT_EQ(At("CiroYazCmd").Caption(), "Sipariş Yazdır");
  EXPECT_TRUE(At("CiroYaz(1)").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "CiroYaz", "CiroYaz", ""), "1");
  At("CiroYaz(0)").click();
  EXPECT_FALSE(At("CiroYaz(1)").Checked());
  EXPECT_EQ(At("CiroYazCmd").Caption(), "Ciro Yazdır");
}

TEST_F(TurnoverPanelTest, its_menu_opens_by_a_right_press) {
  Element* opened = nullptr;
  connections += desk->screen.popUp.Connect([&](Element& menu) { opened = &menu; });
  At("CiroYazCmd").mouseDown(MouseEvent{.button = 2});
  EXPECT_EQ(opened, &desk->screen.PopSip);
}

}  // namespace
}  // namespace karvel
