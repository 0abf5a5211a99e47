#include <string>
#include <vector>

#include "tests/accounts/deleted_lines_fixture.h"
#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class DeletedLinesTest : public DeletedLinesFixture {};

TEST_F(DeletedLinesTest, nothing_can_be_posted_over_the_deleted_lines) {
  Keep("iSif", "gizli");
  messages.answers = {"gizli"};
  Tick();
  EXPECT_FALSE(At("Command2").Enabled());
  EXPECT_FALSE(At("Command4").Enabled());
  EXPECT_FALSE(At("Label1(0)").Enabled());
  Set("Text2(2)", "5");
  EXPECT_FALSE(At("Command2").Enabled());
}

TEST_F(DeletedLinesTest, clearing_the_tick_brings_the_customers_back) {
  Keep("iSif", "gizli");
  messages.answers = {"gizli"};
  const std::string before = desk->cursors.HareketData.RecordSource();
  Tick();
  desk->screen.HareketGrid.TapCell(2);
  Tick(false);
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), before);
  EXPECT_EQ(Lines(), (std::vector<std::string>{"Eski", "Pirinç"}));
  EXPECT_TRUE(At("StokChk").Enabled());
  EXPECT_FALSE(At("Command2").Enabled());  // nothing to post
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
  EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(DeletedLinesTest, in_a_sale_the_deleted_lines_stay_closed) {
  Keep("iSif", "gizli");
  messages.answers = {"gizli"};
  EnterSale("Ayşe Yılmaz");
  Tick();
  EXPECT_FALSE(At("SilinenChk").Checked());
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_TRUE(messages.shown.empty());
}

// A line that was cancelled a moment ago, with another customer in front.
class DeletedLineTapsTest : public AccountsFixture {
 protected:
  void SetUp() override {
    AccountsFixture::SetUp();
    Sell("Ayşe Yılmaz", "1001", "2");
    id = LastId();
    Cancel(id);
    LeaveSale();
    settings.Save("Velmora Karvel1", "Size", "iSif", "gizli").Ignore();
    Front("C002");
    messages.answers = {"gizli"};
    At("SilinenChk").SetChecked(true);
    ASSERT_EQ(desk->cursors.HareketData.Text("DigerId"), id);
  }
  // Every text, colour and switch that a tap on a line moves elsewhere.
  std::vector<std::string> Column() {
    std::vector<std::string> all;
    for (const char* const name : {"Command2", "Command3", "Label5", "Label1(0)", "Label1(5)", "Label1(7)", "Text1(0)", "Text1(1)",
                                   "Text2(0)", "Text2(1)", "Text2(2)"}) {
      const Element& element = At(name);
      all.push_back(element.Name() + "=" + element.Caption() + "|" + std::to_string(element.Color()) +
                    (element.Enabled() ? "|on" : "|off"));
    }
    return all;
  }
  std::string id;
};

TEST_F(DeletedLineTapsTest, a_tap_a_double_tap_and_a_release_change_nothing_but_the_marker) {
  At("Silme").SetChecked(true);
  desk->screen.HareketGrid.SetMarker(false);
  const auto before = Column();
  desk->screen.HareketGrid.mouseUp(MouseEvent{});
  desk->screen.HareketGrid.TapCell(2);
  desk->screen.HareketGrid.DoubleTapCell(2);
  EXPECT_EQ(Column(), before);
  EXPECT_TRUE(desk->screen.HareketGrid.Marker());
  EXPECT_EQ(desk->form.EditLineId, "");
}

TEST_F(DeletedLineTapsTest, they_close_with_the_customer_in_front_as_he_was) {
  desk->screen.HareketGrid.TapCell(2);
  At("SilinenChk").SetChecked(false);
  EXPECT_EQ(At("Label5").Color(), color::kWhite);
  EXPECT_FALSE(At("HareketGrid").Visible());
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C002' Order By Tarih Desc");
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_EQ(At("Command3").Caption(), "Çıkış");
  EXPECT_EQ(At("Label1(7)").Caption(), "Bakiye");
}

TEST_F(DeletedLineTapsTest, the_delete_key_wipes_one_as_it_stands) {
  At("Silme").SetChecked(true);
  KeyEvent event{key::kDelete};
  desk->screen.HareketGrid.keyDown(event);
  EXPECT_TRUE(event.dropped);
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_EQ(shell.sounds.size(), 1U);
}

}  // namespace
}  // namespace karvel
