#include "desk/main_machine.h"

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

constexpr const char* kLost = "Ana makineye ulaşılamıyor: yazdıklarınız duruyor, bağlantı gelince kendiliğinden sürer";

class MainMachineTest : public AccountsFixture {
 protected:
  void SetUp() override {
    Save("Online", "kasa");
    Save("Firma", "01");
    AccountsFixture::SetUp();
  }
  [[nodiscard]] std::string DataFolder() const override { return folder.Path() + "/net/kasa/MuhasebeData/01"; }
  void Save(const std::string& key, const std::string& value) { settings.Save("Velmora Karvel1", "Size", key, value).Ignore(); }
  // Time passes at rest: the timer ticks so often.
  void Pass(int ticks) {
    for (int tick = 0; tick < ticks; ++tick) {
      ASSERT_TRUE(loop.timer);
      const auto look = loop.timer;
      look();
    }
  }
  std::string Message() { return At("Durum").Caption(); }
};

TEST_F(MainMachineTest, the_terminal_works_on_the_main_machines_stores) {
  EXPECT_TRUE(At("OnLine").Checked());
  EXPECT_EQ(desk->form.DataDir, "\\\\kasa\\MuhasebeData\\01");
  EXPECT_EQ(connection.watched, "kasa:5432");
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT CariKod, Tutar FROM Datam"), "C001|100.0");
  EXPECT_FALSE(files.Exists("C:\\KarvelData\\Karvel.mdb"));
}

TEST_F(MainMachineTest, its_layouts_lie_in_the_folder_that_stands_for_the_share) {
  EXPECT_TRUE(files.Exists("\\\\kasa\\MuhasebeData\\01\\CariGrid.dat"));
  EXPECT_FALSE(files.IsFolder("C:\\KarvelData"));
}

TEST_F(MainMachineTest, what_others_wrote_is_shown_and_the_row_in_front_stays) {
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  Set("Text2(2)", "12");
  int shown = 0, moved = 0;
  connections += desk->cursors.CariData.shown.Connect([&] { ++shown; });
  connections += desk->cursors.CariData.repositioned.Connect([&] { ++moved; });
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=777 WHERE CariKod='C001'");
  Pass(1);
  EXPECT_EQ(shown, 0);
  server.foreign = {"cari/CariKartlar"};
  Pass(1);
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(moved, 0);
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C001");
  EXPECT_EQ(desk->cursors.CariData.Number("Bakiye"), 777);
  EXPECT_EQ(At("Text2(2)").Text(), "12");
  Pass(2);
  EXPECT_EQ(shown, 1);
}

TEST_F(MainMachineTest, tables_that_nobody_wrote_are_not_shown_anew) {
  int shown = 0;
  connections += desk->cursors.CariData.shown.Connect([&] { ++shown; });
  server.foreign = {"stok/StokKartlar"};
  Pass(1);
  EXPECT_EQ(shown, 0);
}

TEST_F(MainMachineTest, a_server_that_goes_leaves_the_fields_and_refuses_in_plain_words) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "3");
  server.away = true;
  Click("Command2");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Ana makineye ulaşılamıyor. Kayıt yapılmadı; yazdıklarınız duruyor, bağlantı gelince yeniden deneyin.");
  EXPECT_EQ(At("Text2(1)").Text(), "3");
  // Nothing more is asked of it, however often it is tried.
  const int asked = server.asked;
  messages.shown.clear();
  Click("Command2");
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(server.asked, asked);

  server.away = false;
  Pass(2);
  EXPECT_EQ(Message(), "Ana makineyle bağlantı geldi");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT CariKod, Miktar FROM Datam"), "C001|3.0");
}

TEST_F(MainMachineTest, the_large_balance_follows_what_others_wrote_at_rest) {
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=777 WHERE CariKod='C001'");
  server.foreign = {"cari/CariKartlar"};
  Pass(1);
  EXPECT_EQ(At("Label5").Caption(), "777,00");
  EXPECT_EQ(At("Label8").Caption(), "C001");
  // In a sale it is the sum of what he bought.
  EnterSale("Ayşe Yılmaz");
  const std::string bought = At("Label5").Caption();
  Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=888 WHERE CariKod='C001'");
  server.foreign = {"cari/CariKartlar"};
  Pass(1);
  EXPECT_EQ(At("Label5").Caption(), bought);
}

TEST_F(MainMachineTest, groups_that_were_asked_for_while_it_was_away_come_with_it) {
  const std::vector<std::string> groups = At("GurupCombo").Items();
  ASSERT_GT(groups.size(), 1U);
  server.away = true;
  Pass(4);
  Click("ComboCmd");
  const std::vector<std::string> unread = At("GurupCombo").Items();
  Click("ComboCmd");
  EXPECT_EQ(At("GurupCombo").Items().size(), 1U);
  server.away = false;
  Pass(2);
  EXPECT_EQ(At("GurupCombo").Items(), groups);
  EXPECT_EQ(unread.size(), 1U);
}

TEST_F(MainMachineTest, one_that_goes_during_the_start_leaves_nothing_unfilled) {
  const std::vector<std::string> groups = At("GurupCombo").Items(), stockGroups = At("GrpCombo").Items();
  const std::string name = At("Text1(0)").Text(), code = At("Label8").Caption();
  for (int reads = 1;; ++reads) {
    SCOPED_TRACE(reads);
    server.asksBeforeAway = reads;
    ASSERT_TRUE(Start());
    const bool went = server.asksBeforeAway == 0;
    server.asksBeforeAway = -1;
    server.away = false;
    Pass(4);
    messages.shown.clear();
    EXPECT_EQ(At("GurupCombo").Items(), groups);
    EXPECT_EQ(At("GrpCombo").Items(), stockGroups);
    EXPECT_EQ(At("Text1(0)").Text(), name);
    EXPECT_EQ(At("Label8").Caption(), code);
    if (!went) break;
  }
}

TEST_F(MainMachineTest, a_payment_in_a_list_that_could_not_be_read_is_refused_in_words) {
  server.away = true;
  Pass(4);
  At("GurupCombo").ChooseText("Toptan");
  Set("Text1(0)", "Toptan Gıda");
  Set("Text2(2)", "5");
  Click("Command2");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Ana makineye ulaşılamıyor. Kayıt yapılmadı; yazdıklarınız duruyor, bağlantı gelince yeniden deneyin.");
  EXPECT_EQ(At("Text2(2)").Text(), "5");
  server.away = false;
  Pass(2);
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT CariAd, Tahsilat FROM Datam"), "Toptan Gıda|5.0");
}

TEST_F(MainMachineTest, a_sale_that_begins_as_it_goes_has_its_stock_when_it_is_back) {
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  for (int reads = 1;; ++reads) {
    SCOPED_TRACE(reads);
    server.asksBeforeAway = reads;
    At("Label1(0)").dblClick();
    const bool went = server.asksBeforeAway == 0;
    server.asksBeforeAway = -1;
    server.away = false;
    Pass(2);
    if (At("Frame2").Visible()) {
      EXPECT_TRUE(At("StokGrid").Visible());
      At("Label1(0)").dblClick();
    }
    if (!went) break;
  }
}

TEST_F(MainMachineTest, what_became_of_a_line_stays_to_be_read_when_it_goes_and_comes_again) {
  constexpr const char* kOutcome = "3 × Pirinç 150,00 kaydedildi";
  desk->form.ToldOutcome = kOutcome;
  At("Durum").SetCaption(kOutcome);
  server.away = true;
  Pass(4);
  EXPECT_EQ(Message(), std::string(kOutcome) + "; " + kLost);
  server.away = false;
  Pass(2);
  EXPECT_EQ(Message(), std::string(kOutcome) + "; Ana makineyle bağlantı geldi");
  // Once something else was told, it has been read.
  At("Durum").SetCaption("Satılmadı");
  server.away = true;
  Pass(4);
  EXPECT_EQ(Message(), kLost);
}

TEST_F(MainMachineTest, a_server_that_goes_at_rest_is_told_once) {
  server.away = true;
  Pass(4);
  EXPECT_EQ(Message(), kLost);
  At("Durum").SetCaption("");
  Pass(8);
  EXPECT_EQ(Message(), "");
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(MainMachineTest, a_tap_in_vain_is_told) {
  server.away = true;
  desk->cursors.CariData.Refresh().Ignore();
  EXPECT_FALSE(desk->cursors.CariData.HasCurrent());
  At("Durum").SetCaption("");
  EXPECT_FALSE(desk->cursors.StokData.FindFirst("StokKod='1001'").Ok());
  EXPECT_EQ(Message(), "Ana makineye ulaşılamıyor, listeler eksik olabilir. Bağlantı gelince kendiliğinden okunur.");
}

TEST_F(MainMachineTest, it_is_asked_only_where_somebody_listens_at_its_place) {
  server.away = true;
  connection.serverAnswers = false;
  desk->cursors.CariData.Refresh().Ignore();
  EXPECT_FALSE(desk->cursors.CariData.HasCurrent());
  const int asked = server.asked;
  Pass(10);
  EXPECT_EQ(server.asked, asked);
  connection.serverAnswers = true;
  Pass(10);
  EXPECT_EQ(server.asked, asked + 10);
}

TEST_F(MainMachineTest, a_desk_whose_server_is_down_starts_and_goes_on_when_it_comes) {
  server.away = true;
  messages.shown.clear();
  ASSERT_TRUE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Ana Makine");
  EXPECT_EQ(messages.shown[0].text.substr(0, messages.shown[0].text.find("\n")),
            "Ana makineye ulaşılamıyor. Açık ve ağa bağlı olduğunu denetleyin; bağlantı gelince terminal kendiliğinden devam eder.");
  EXPECT_TRUE(At("Command3").Visible());
  EXPECT_TRUE(At("OnLine").Checked());
  EXPECT_FALSE(desk->cursors.CariData.HasRows());
  Pass(4);
  EXPECT_EQ(messages.shown.size(), 1U);

  server.away = false;
  Pass(2);
  EXPECT_EQ(Message(), "Ana makineyle bağlantı geldi");
  EXPECT_TRUE(desk->cursors.CariData.HasRows());
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT CariKod, Tutar FROM Datam"), "C001|100.0");
}

TEST_F(MainMachineTest, a_desk_whose_server_is_down_lets_the_clerk_work_alone) {
  server.away = true;
  ASSERT_TRUE(Start());
  Click("OnLine");
  EXPECT_FALSE(At("OnLine").Checked());
  EXPECT_EQ(desk->form.DataDir, "C:\\KarvelData\\");
  EXPECT_TRUE(desk->cursors.CariData.HasRows());
  EXPECT_FALSE(loop.timer);
}

TEST_F(MainMachineTest, a_server_that_opens_nothing_is_told_and_not_asked_again) {
  server.shut = Status(ErrorKind::NoRights, "password authentication failed");
  messages.shown.clear();
  ASSERT_TRUE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Ana Makine");
  const int asked = server.asked;
  Pass(10);
  EXPECT_EQ(server.asked, asked);
}

TEST_F(MainMachineTest, the_purge_waits_for_a_start_with_the_server) {
  clock.now = {2026, 3, 2, 8, 0, 0};
  settings.Save("Velmora Karvel1", "AySil", "AySil", "True").Ignore();
  server.away = true;
  messages.shown.clear();
  ASSERT_TRUE(Start());
  EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(MainMachineTest, a_terminal_on_its_own_stores_looks_after_nothing) {
  Save("Online", "");
  ASSERT_TRUE(Start());
  EXPECT_FALSE(loop.timer);
}

TEST_F(MainMachineTest, the_balance_view_is_built_in_this_terminals_own_scratch_file) {
  Cursor scratch(*stores, "test");
  scratch.SetDatabaseName("DataTemp.Mdb");
  ASSERT_TRUE(scratch.Open("CariHareket").Ok());
  ASSERT_TRUE(scratch.AddNew().Ok());
  scratch.Set("Aciklama", "Veresiye");
  ASSERT_TRUE(scratch.Update().Ok());
  EXPECT_EQ(scratch.RecordCount(), 1);
  std::string bytes;
  ASSERT_TRUE(files.Read(files.ProgramFolder() + "/DataTemp.Mdb", bytes).Ok());
  EXPECT_NE(bytes.find("Veresiye"), std::string::npos);
}

}  // namespace
}  // namespace karvel
