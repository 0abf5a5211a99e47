#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class MainButtonTest : public AccountsFixture {};

TEST_F(MainButtonTest, it_is_off_and_says_wait_under_a_busy_pointer_while_a_sale_is_posted) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  bool waiting = false;
  desk->cursors.StokHarData.repositioned.Connect([&] {
    waiting = desk->screen.Busy() && At("Command2").Caption() == "Bekleyin" && !At("Command2").Enabled() && !scanner.enabled;
  });
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

TEST_F(MainButtonTest, the_slip_number_runs_on_from_the_kept_one_in_six_digits) {
  settings.Save("Velmora Karvel", "Size", "DökNo", "000041");
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(Day(LastId())["SeriNo"], "000042");
  EXPECT_EQ(desk->form.SlipNo, "000042");
  EXPECT_EQ(settings.Get("Velmora Karvel", "Size", "DökNo", ""), "000042");
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

TEST_F(MainButtonTest, an_item_that_the_screen_does_not_name_is_not_sold) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  At("Text1(1)").SetText("Şek");
  Set("Text2(1)", "2");
  Click("Command2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam"), "0");
  EXPECT_TRUE(At("Text1(1)").HasFocus());
}

}  // namespace
}  // namespace karvel
