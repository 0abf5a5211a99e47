#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class MainButtonTest : public AccountsFixture {
 protected:
  Lines Booked() { return Rows("Karvel.mdb", "SELECT CariKod, StokKod, Miktar, Tutar, Tahsilat, Durum FROM Datam ORDER BY DigerId"); }
  // A press on the button, however it stands.
  void Press() {
    At("Command2").SetEnabled(true);
    Click("Command2");
  }
  // Caption and pointer while the button works, as often as they change.
  void Watch() {
    connections += At("Command2").changed.Connect([this] { seen.push_back(At("Command2").Caption()); });
    connections += desk->screen.pointerChanged.Connect([this](bool busy) { seen.push_back(busy ? "busy" : "normal"); });
  }
  Lines seen;
};

TEST_F(MainButtonTest, it_is_off_and_says_wait_under_a_busy_pointer_while_a_sale_is_posted) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  bool waiting = false;
  connections += desk->cursors.HareketData.repositioned.Connect(
      [&] { waiting = desk->screen.Busy() && At("Command2").Caption() == "Bekleyin" && !At("Command2").Enabled() && !scanner.enabled; });
  Post("1");
  EXPECT_TRUE(waiting);
  EXPECT_FALSE(desk->screen.Busy());
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_TRUE(scanner.enabled);
}

TEST_F(MainButtonTest, a_tapped_line_is_deleted_even_while_a_correction_is_marked) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  desk->screen.HareketGrid.DoubleTapCell(2);
  ASSERT_EQ(At("Command3").Caption(), "Düzeltme");
  messages.answers.push_back("Yes");
  Click("Command2");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Satır Silinecek Emimisiniz..?");
  EXPECT_EQ(Day(LastId())["Durum"], "Iptal");
}

TEST_F(MainButtonTest, a_correction_takes_no_slip_number_and_no_new_id) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  const std::string kept = settings.Get("Velmora Karvel", "Size", "DökNo", "");
  desk->form.SlipNo.clear();
  Correct(id, "45", "2");
  EXPECT_EQ(LastId(), id);
  EXPECT_EQ(desk->form.SlipNo, "");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), kept);
}

TEST_F(MainButtonTest, a_payment_takes_no_slip_number) {
  Pay("Ayşe Yılmaz", "10");
  EXPECT_EQ(desk->form.SlipNo, "");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "");
}

TEST_F(MainButtonTest, with_codes_the_product_field_waits_for_the_next_one) {
  At("Label1(1)").SetCaption(" Barkod");
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Post("1");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
}

TEST_F(MainButtonTest, after_a_deletion_or_its_refusal_by_the_clerk_only_the_list_opens_it_again) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  messages.answers.push_back("No");
  Click("Command2");
  EXPECT_FALSE(At("Command2").Enabled());
  EXPECT_EQ(At("Command2").Caption(), "Satır Sil");
  TapLine(LastId());
  EXPECT_TRUE(At("Command2").Enabled());
}

TEST_F(MainButtonTest, names_that_hold_signs_of_a_search_are_sold_and_paid_as_any_other) {
  AddStock("2001", "Kutu #5 [mavi]?");
  AddCustomer("H001", "Hanımeli [no 1] #2");
  ASSERT_TRUE(Start());
  Front("H001");
  SellInFront("2001", "2");
  EXPECT_EQ(Day(LastId())["StokAd"], "Kutu #5 [mavi]?");
  LeaveSale();
  PayInFront("5");
  EXPECT_EQ(Day(LastId())["CariAd"], "Hanımeli [no 1] #2");
}

// What a press means.

TEST_F(MainButtonTest, a_deletion_comes_before_a_payment) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  At("CariGrid").SetVisible(true);
  Set("Text2(2)", "40");
  At("Command2").SetCaption("Satır Sil");
  messages.answers = {"No"};
  Press();
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(Booked(), Lines{"C001|1001|2.0|100.0|0.0|Satış"});
}

TEST_F(MainButtonTest, a_correction_comes_before_the_list_in_front) {
  Sell("Ayşe Yılmaz", "1001", "2");
  const std::string id = LastId();
  TapLine(id);
  desk->screen.HareketGrid.DoubleTapCell(2);
  Click("Command3");
  Set("Text2(0)", "50");
  Set("Text2(1)", "3");
  Set("Text2(2)", "40");
  At("CariGrid").SetVisible(true);
  Press();
  EXPECT_EQ(Booked(), Lines{"C001|1001|3.0|150.0|0.0|Satış"});
}

TEST_F(MainButtonTest, a_correction_comes_before_a_sale) {
  Sell("Ayşe Yılmaz", "1001", "2");
  Correct(LastId(), "50", "3");
  EXPECT_EQ(Booked(), Lines{"C001|1001|3.0|150.0|0.0|Satış"});
}

TEST_F(MainButtonTest, with_the_customers_in_front_it_takes_the_payment) {
  Pay("Burak Demir", "40");
  EXPECT_EQ(Booked(), Lines{"C002||0.0|0.0|40.0|Nakit"});
}

TEST_F(MainButtonTest, in_a_sale_it_posts_the_line_and_leaves_the_payment) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1002");
  Set("Text2(2)", "40");
  Post("2");
  EXPECT_EQ(Booked(), Lines{"C001|1002|2.0|40.0|0.0|Satış"});
}

TEST_F(MainButtonTest, after_no_a_tap_on_the_line_opens_the_button_again) {
  Sell("Ayşe Yılmaz", "1001", "2");
  TapLine(LastId());
  messages.answers = {"No", "Yes"};
  Click("Command2");
  TapLine(LastId());
  Click("Command2");
  EXPECT_EQ(Booked(), Lines{"C001|1001|2.0|100.0|0.0|Iptal"});
}

// While it works.

TEST_F(MainButtonTest, a_payment_shows_that_it_works) {
  Set("Text1(0)", "Burak Demir");
  Set("Text2(2)", "40");
  Watch();
  Click("Command2");
  EXPECT_EQ(seen, (Lines{"Bekleyin", "busy", "Tamam", "normal"}));
}

TEST_F(MainButtonTest, a_second_tap_while_a_line_is_posted_posts_nothing) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  Set("Text2(1)", "2");
  int taps = 0;
  connections += At("Command2").changed.Connect([&] {
    if (At("Command2").Caption() != "Bekleyin") return;
    ++taps;
    At("Command2").Press();  // nothing happens while the button is off
  });
  Click("Command2");
  EXPECT_EQ(taps, 1);
  EXPECT_EQ(Booked(), Lines{"C001|1001|2.0|100.0|0.0|Satış"});
}

TEST_F(MainButtonTest, after_a_sale_the_button_is_off_until_the_next_quantity) {
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(At("Text2(1)").Text(), "0");
  Set("Text2(1)", "1");
  EXPECT_TRUE(At("Command2").Enabled());
}

TEST_F(MainButtonTest, while_names_are_typed_the_stock_list_is_ready_after_a_line) {
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_TRUE(At("StokGrid").HasFocus());
}

// Refusals.

TEST_F(MainButtonTest, over_the_stock_list_the_button_is_off_and_pays_nothing) {
  At("StokChk").SetChecked(true);
  Set("Text2(2)", "40");
  EXPECT_FALSE(At("Command2").Enabled());
  Press();
  EXPECT_EQ(Booked(), Lines{});
}

TEST_F(MainButtonTest, after_a_refusal_the_scanner_reads_on) {
  EnterSale("Ayşe Yılmaz");
  Press();
  EXPECT_TRUE(scanner.enabled);
}

TEST_F(MainButtonTest, the_main_button_opens_for_a_quantity_or_a_payment) {
  EnterSale("Ayşe Yılmaz");
  EXPECT_FALSE(At("Command2").Enabled());
  Set("Text2(2)", "15");
  EXPECT_TRUE(At("Command2").Enabled());
  Set("Text2(2)", "0");
  EXPECT_FALSE(At("Command2").Enabled());
  Set("Text2(1)", "3");
  EXPECT_TRUE(At("Command2").Enabled());
}

}  // namespace
}  // namespace karvel
