#include "tests/support/desk_fixture.h"
#include "text/format.h"

namespace karvel {
namespace {

class PrintChoiceTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "");
    ASSERT_TRUE(Start());
  }
  bool IsOpen() { return At("Frame3").Visible(); }
  void OpenAltered() {
    Click("Command1");
    At("DTPicker1").SetDate({2026, 1, 5});
    At("Command5(2)").SetCaption("Yazdır");
    At("Command5(1)").SetVisible(false);
    At("Command5(1)").SetEnabled(false);
  }
  void ExpectAsAtFirst() {
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(At("Command5(2)").Caption(), "Tümünü Yazdır");
    EXPECT_TRUE(At("Command5(1)").Visible());
    EXPECT_TRUE(At("Command5(1)").Enabled());
    EXPECT_EQ(At("DTPicker1").Date(), clock.Now().Date());
  }
};

TEST_F(PrintChoiceTest, opens_at_rest_and_closes_at_the_second_press) {
  Click("Command1");
  EXPECT_TRUE(IsOpen());
  Click("Command1");
  EXPECT_FALSE(IsOpen());
}

TEST_F(PrintChoiceTest, opens_in_a_sale) {
  EnterSale("Ayşe Yılmaz");
  Click("Command1");
  EXPECT_TRUE(IsOpen());
}

TEST_F(PrintChoiceTest, stays_shut_where_the_walk_in_customer_collects) {
  EnterSale("Muhtelif Müşteri");
  ASSERT_EQ(At("Command1").Caption(), "Tahsilat");
  Click("Command1");
  EXPECT_FALSE(IsOpen());
}

TEST_F(PrintChoiceTest, every_way_out_leaves_it_as_it_was_at_first) {
  for (const char* const out : {"VzgCmd", "Command5(0)", "Command1", "Command4"}) {
    SCOPED_TRACE(out);
    OpenAltered();
    Click(out);
    ExpectAsAtFirst();
    if (At("FatFrame").Visible()) Click("FatCmd(0)");
  }
}

TEST_F(PrintChoiceTest, escape_closes_it) {
  OpenAltered();
  Key("Form1", key::kEscape);
  ExpectAsAtFirst();
}

TEST_F(PrintChoiceTest, the_turnover_closes_it) {
  OpenAltered();
  At("CiroChk").SetChecked(true);
  ExpectAsAtFirst();
}

TEST_F(PrintChoiceTest, a_new_day_brings_the_date_to_today) {
  Click("Command1");
  At("DTPicker1").SetDate({2026, 1, 5});
  Click("Command5(1)");
  EXPECT_EQ(At("DTPicker1").Date(), (DateTime{2026, 1, 5}));
  clock.now = clock.now.PlusDays(1);
  Click("Command5(1)");
  EXPECT_EQ(At("DTPicker1").Date(), clock.Now().Date());
}

TEST_F(PrintChoiceTest, a_turnover_that_is_opened_on_a_new_day_begins_with_it) {
  clock.now = clock.now.PlusDays(1);
  At("CiroChk").SetChecked(true);
  EXPECT_EQ(At("DTPicker1").Date(), clock.Now().Date());
  EXPECT_EQ(desk->form.CriteriaText, "Tarih>=#" + Format(clock.Now(), "mm/dd/yyyy") + "#");
}

}  // namespace
}  // namespace karvel
