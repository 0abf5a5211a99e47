#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class CollectionPanelTest : public AccountsFixture {
 protected:
  void SetUp() override {
    AccountsFixture::SetUp();
    At("Command9").SetCaption("Yazıcı Yok");
    Sell("Muhtelif Müşteri", "1001", "2");
  }
};

TEST_F(CollectionPanelTest, the_walk_in_customer_pays_at_once) {
  ASSERT_EQ(At("Command1").Caption(), "Tahsilat");
  Click("Command1");
  ASSERT_TRUE(At("TahsilatFrame").Visible());
  EXPECT_EQ(At("Text2(2)").Text(), "100");
  Click("Command7(1)");
  EXPECT_FALSE(At("TahsilatFrame").Visible());
  EXPECT_EQ(Day(LastId())["StokAd"], "Nakit Tahsilat");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "100.0");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "100.0|100.0|0.0|Borç");
}

TEST_F(CollectionPanelTest, behind_a_sale_the_accounts_row_also_names_the_item_in_front) {
  PickItem("1001");
  Click("Command1");
  Click("Command7(1)");
  Fields account = Ledger(LastId(), "=100");
  EXPECT_EQ(account["Bilgi1"], "1001");
  EXPECT_EQ(account["Bilgi2"], "Pirinç");
  EXPECT_EQ(account["Birim"], "Adet");
  EXPECT_EQ(account["Gurup"], "Kasa");
  EXPECT_EQ(account["Aciklama"], "Nakit Tahsilat");
  EXPECT_EQ(Ledger(LastId(), "Muhtelif Müşteri")["Bilgi1"], "");
}

TEST_F(CollectionPanelTest, a_customer_at_zero_does_not_open_it) {
  Click("Command1");
  Click("Command7(1)");
  Click("Command1");
  EXPECT_FALSE(At("TahsilatFrame").Visible());
}

TEST_F(CollectionPanelTest, with_another_caption_the_button_opens_nothing_here) {
  At("Command1").SetCaption("Yazdır");
  Click("Command1");
  EXPECT_FALSE(At("TahsilatFrame").Visible());
}

TEST_F(CollectionPanelTest, cancel_only_hides_it) {
  Click("Command1");
  const std::string id = LastId();
  Click("Command7(0)");
  EXPECT_FALSE(At("TahsilatFrame").Visible());
  EXPECT_EQ(LastId(), id);
  EXPECT_EQ(At("Text2(2)").Text(), "100");
}

TEST_F(CollectionPanelTest, nothing_is_paid_out_through_it) {
  Click("Command1");
  At("Label1(5)").SetCaption(" Ödeme");
  Click("Command7(1)");
  EXPECT_EQ(At("Label1(5)").Caption(), " Tahsilat");
  EXPECT_EQ(Ledger(LastId(), "=100")["Borc"], "100.0");
}

TEST_F(CollectionPanelTest, the_two_buttons_choose_the_form_of_payment) {
  Click("Command1");
  Click("Command8(1)");
  EXPECT_EQ(At("Command8(1)").Color(), color::kGreen);
  EXPECT_EQ(At("Command8(0)").Color(), color::kYellow);
  EXPECT_EQ(At("TahsilatFrame").Caption(), " Kredi Kartı Tahsilat ");
  EXPECT_EQ(At("Label3").Caption(), "Kredi Kartı");
  EXPECT_TRUE(At("Command7(1)").HasFocus());
  Click("Command8(0)");
  EXPECT_EQ(At("Command8(0)").Color(), color::kGreen);
  EXPECT_EQ(At("Command8(1)").Color(), color::kYellow);
  EXPECT_EQ(At("TahsilatFrame").Caption(), " Nakit Tahsilat ");
  EXPECT_EQ(At("Label3").Caption(), "Nakit");
}

TEST_F(CollectionPanelTest, the_form_of_payment_stays_for_the_next_collection) {
  Click("Command1");
  Click("Command8(1)");
  Click("Command7(1)");
  EXPECT_EQ(Day(LastId())["Durum"], "K.Kartı");
  EXPECT_EQ(At("Label3").Caption(), "Kredi Kartı");
}

TEST_F(CollectionPanelTest, a_tap_on_the_form_of_payment_goes_round) {
  for (const char* const next : {"Kredi Kartı", "Çek", "Senet", "Nakit"}) {
    Click("Label3");
    EXPECT_EQ(At("Label3").Caption(), next);
  }
}

TEST_F(CollectionPanelTest, printer_and_cash_switches_flip) {
  Click("Command1");
  Click("Command9");
  EXPECT_EQ(At("Command9").Caption(), "Yazıcı Var");
  EXPECT_TRUE(At("Command7(1)").HasFocus());
  Click("Command9");
  EXPECT_EQ(At("Command9").Caption(), "Yazıcı Yok");
  Click("NakitCmd");
  EXPECT_EQ(At("NakitCmd").Caption(), "Nakit");
  Click("NakitCmd");
  EXPECT_EQ(At("NakitCmd").Caption(), "Cari Hesap");
}

TEST_F(CollectionPanelTest, with_a_printer_the_slip_is_pressed_once_after_the_posting) {
  At("Command9").SetCaption("Yazıcı Var");
  int pressed = 0;
  std::string lineThen;
  bool hidden = false, off = false;
  connections += At("Command5(1)").click.Connect([&] {
    ++pressed;
    lineThen = LastId();
    off = !At("DökNoYaz").Enabled();
  });
  connections += At("DökNoYaz").altered.Connect([&] { hidden = hidden || !At("DökNoYaz").Visible(); });
  Click("Command1");
  Click("Command7(1)");
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(lineThen, "10000000262");
  EXPECT_TRUE(hidden);
  EXPECT_TRUE(off);
}

TEST_F(CollectionPanelTest, without_a_printer_no_slip_is_pressed) {
  int pressed = 0;
  connections += At("Command5(1)").click.Connect([&] { ++pressed; });
  Click("Command1");
  Click("Command7(1)");
  EXPECT_EQ(pressed, 0);
}

TEST_F(CollectionPanelTest, a_store_that_refuses_keeps_the_panel_and_prints_nothing) {
  At("Command9").SetCaption("Yazıcı Var");
  int pressed = 0;
  connections += At("Command5(1)").click.Connect([&] { ++pressed; });
  Click("Command1");
  stores->Close();
  Click("Command7(1)");
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_TRUE(At("TahsilatFrame").Visible());
  EXPECT_TRUE(At("Command7(1)").Enabled());
  EXPECT_EQ(At("Text2(2)").Text(), "100");
  EXPECT_EQ(pressed, 0);
  EXPECT_FALSE(desk->screen.Busy());
}

TEST_F(CollectionPanelTest, an_amount_of_zero_posts_as_it_stands) {
  Click("Command1");
  At("Text2(2)").SetText("0");
  Click("Command7(1)");
  EXPECT_EQ(LastId(), "10000000262");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "0.0");
  EXPECT_EQ(Ledger(LastId(), "=100")["Borc"], "0.0");
  EXPECT_EQ(Ledger(LastId(), "Muhtelif Müşteri")["Alacak"], "0.0");
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "100.0|0.0|100.0|Borç");
  EXPECT_EQ(Due("Muhtelif Müşteri"), std::vector<std::string>{"100.0"});
}

TEST_F(CollectionPanelTest, an_amount_that_was_emptied_posts_as_zero) {
  Click("Command1");
  At("Text2(2)").SetText("");
  Click("Command7(1)");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "0.0");
}

TEST_F(CollectionPanelTest, an_amount_below_zero_posts_as_it_stands) {
  Click("Command1");
  At("Text2(2)").SetText("-20");
  Click("Command7(1)");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "-20.0");
  EXPECT_EQ(Ledger(LastId(), "=100")["Borc"], "-20.0");
  EXPECT_EQ(Balance("=100"), "-20.0|0.0|20.0|Alacak");
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "100.0|-20.0|120.0|Borç");
  EXPECT_EQ(Due("Muhtelif Müşteri"), std::vector<std::string>{"120.0"});
}

TEST_F(CollectionPanelTest, an_unknown_form_of_payment_is_cash) {
  Click("Command1");
  At("Label3").SetCaption("Havale");
  Click("Command7(1)");
  EXPECT_EQ(Ledger(LastId(), "=100")["Aciklama"], "Havale Tahsilat");
  EXPECT_EQ(Day(LastId())["Durum"], "Havale");
}

TEST_F(CollectionPanelTest, afterwards_the_payment_field_is_empty_and_the_sale_goes_on) {
  Click("Command1");
  Click("Command7(1)");
  EXPECT_EQ(At("Text2(2)").Text(), "0");
  EXPECT_EQ(At("Command2").Caption(), "Tamam");
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  PickItem("1001");
  Post("1");
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "150.0|100.0|50.0|Borç");
}

TEST_F(CollectionPanelTest, in_the_amount_enter_presses_the_form_of_payment_chosen_last_and_again_the_ok) {
  Click("Command1");
  Click("Command8(1)");
  Set("Text2(2)", "40");
  Key("Text2(2)", key::kEnter);
  EXPECT_EQ(At("Label3").Caption(), "Kredi Kartı");
  EXPECT_TRUE(At("Command7(1)").HasFocus());
  EXPECT_EQ(LastId(), "10000000261");
  Click("Command7(1)");
  EXPECT_EQ(Day(LastId())["Tahsilat"], "40.0");
}

TEST_F(CollectionPanelTest, without_a_choice_or_the_panel_enter_in_the_amount_goes_on_as_ever) {
  Click("Command1");
  Key("Text2(2)", key::kEnter);
  EXPECT_FALSE(At("Text2(2)").HasFocus());
  EXPECT_EQ(At("Label3").Caption(), "Nakit");
  Click("Command8(1)");
  Click("Command7(0)");
  At("Label3").SetCaption("Nakit");
  Key("Text2(2)", key::kEnter);
  EXPECT_FALSE(At("Text2(2)").HasFocus());
  EXPECT_EQ(At("Label3").Caption(), "Nakit");
}

TEST_F(CollectionPanelTest, money_taken_behind_a_sale_with_the_panel_already_away_is_for_the_item_in_front) {
  PickItem("1002");
  At("Command7(1)").click();
  EXPECT_EQ(Day(LastId())["StokAd"], "Şeker");
  EXPECT_EQ(Ledger(LastId(), "=100")["Aciklama"], "Şeker");
  EXPECT_EQ(Ledger(LastId(), "Muhtelif Müşteri")["Aciklama"], "Muhtelif Müşteri Tahsilat İle");
}

TEST_F(CollectionPanelTest, a_collection_of_the_whole_balance_deletes_every_due_date) {
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('Muhtelif Müşteri','2026-01-05 00:00:00',999)");
  Click("Command1");
  Click("Command7(1)");
  EXPECT_EQ(Due("Muhtelif Müşteri"), std::vector<std::string>{});
}

TEST_F(CollectionPanelTest, each_button_posts_to_its_own_account) {
  Click("Command1");
  Click("Command8(1)");
  At("Text2(2)").SetText("30");
  Click("Command7(1)");
  EXPECT_EQ(Ledger(LastId(), "=150")["Borc"], "30.0");
  EXPECT_EQ(Day(LastId())["StokAd"], "Kredi Kartı Tahsilat");
  Click("Command1");
  EXPECT_EQ(At("Text2(2)").Text(), "70");
  Click("Command8(0)");
  Click("Command7(1)");
  EXPECT_EQ(Ledger(LastId(), "=100")["Borc"], "70.0");
  EXPECT_EQ(Balance("Muhtelif Müşteri"), "100.0|100.0|0.0|Borç");
}

TEST_F(CollectionPanelTest, a_debt_that_another_terminal_has_taken_is_not_offered_again) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=60, Bakiye=40 WHERE CariKod='Muhtelif Müşteri'");
  Click("Command1");
  EXPECT_EQ(At("Text2(2)").Text(), "40");
  Click("Command7(0)");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Alacak=100, Bakiye=0 WHERE CariKod='Muhtelif Müşteri'");
  Click("Command1");
  EXPECT_FALSE(At("TahsilatFrame").Visible());
}

TEST_F(CollectionPanelTest, codes_that_came_meanwhile_are_entered_by_a_desk_that_takes_input_again) {
  Click("Command1");
  bool busy = true;
  connections += At("TahsilatFrame").altered.Connect([&] {
    if (!At("TahsilatFrame").Visible()) busy = desk->screen.Busy() || !At("Command7(1)").Enabled();
  });
  Click("Command7(1)");
  EXPECT_FALSE(busy);
}

}  // namespace
}  // namespace karvel
