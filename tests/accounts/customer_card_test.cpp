#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class CustomerCardTest : public AccountsFixture {
 protected:
  void Open(const std::string& name) {
    Set("Text1(0)", name);
    Key("Text1(0)", key::kEnter);
    ASSERT_TRUE(At("CariFrm").Visible());
  }
  std::string Count() { return One("Cari.mdb", "SELECT count(*) FROM CariKartlar"); }
};

TEST_F(CustomerCardTest, an_unknown_name_opens_the_panel_and_makes_a_card_with_every_field) {
  Open("Zeynep Ak");
  EXPECT_EQ(At("CariNew(0)").Text(), "Zeynep Ak");
  EXPECT_EQ(At("CariNew(1)").Text(), "Zeynep Ak");
  const char* const values[]{"Z01", "zeynep ak", "cadde 1", "izmir", "", "konak", "123", "0232", "0532", "K77"};
  for (int i = 0; i < 10; ++i) At("CariNew(" + std::to_string(i) + ")").SetText(values[i]);
  At("CariNew(4)").SetText("ZEYNEP@KARVEL.TR");
  Click("CariNewCmd(1)");
  EXPECT_TRUE(messages.shown.empty());
  Fields card = Customer("Z01");
  EXPECT_EQ(card["Unvan"], "zeynep ak");
  EXPECT_EQ(card["Adres1"], "cadde 1");
  EXPECT_EQ(card["Adres2"], "izmir");
  EXPECT_EQ(card["Email"], "zeynep@karvel.tr");
  EXPECT_EQ(card["VergiDa"], "konak");
  EXPECT_EQ(card["VergiNo"], "123");
  EXPECT_EQ(card["Telefon"], "0232");
  EXPECT_EQ(card["Gsm"], "0532");
  EXPECT_EQ(card["KartNo"], "K77");
  EXPECT_EQ(card["Hes"], "C");
  EXPECT_EQ(card["Hesap"], "Borç");
  EXPECT_EQ(card["Gurup"], "Müşteri");
  EXPECT_EQ(card["yeni"], "1.0");
  EXPECT_EQ(card["Borc"], "0.0");
  EXPECT_EQ(card["Bakiye"], "0.0");
}

TEST_F(CustomerCardTest, afterwards_the_panel_is_empty_and_closed_and_the_customer_field_waits) {
  Open("zeynep");
  Click("CariNewCmd(1)");
  EXPECT_FALSE(At("CariFrm").Visible());
  for (int i = 0; i < 10; ++i) EXPECT_EQ(desk->screen.CariNew(i).Text(), "");
  EXPECT_TRUE(At("Text1(0)").HasFocus());
  EXPECT_EQ(At("Text1(0)").Text(), desk->cursors.CariData.Text("Unvan"));  // an empty field shows the list's first
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_EQ(Customer("zeynep")["Unvan"], "zeynep");
}

TEST_F(CustomerCardTest, cancel_writes_nothing) {
  const std::string before = Count();
  Open("zeynep");
  desk->form.KeyboardOpen = true;
  Click("CariNewCmd(0)");
  EXPECT_EQ(Count(), before);
  EXPECT_FALSE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(1)").Text(), "");
  EXPECT_TRUE(At("Text1(0)").HasFocus());
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(CustomerCardTest, the_group_is_the_wholesalers_or_the_chosen_one) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1)");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Bayi");
  Open("bayi bir");
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("bayi bir")["Gurup"], "Bayi");
  Open("toptancı bir");
  At("CariChk").SetChecked(true);
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("toptancı bir")["Gurup"], "Toptan");
}

TEST_F(CustomerCardTest, save_is_off_while_code_or_name_is_empty) {
  EXPECT_FALSE(At("CariNewCmd(1)").Enabled());
  Open("zeynep");
  EXPECT_TRUE(At("CariNewCmd(1)").Enabled());
  At("CariNew(0)").SetText("");
  EXPECT_FALSE(At("CariNewCmd(1)").Enabled());
  At("CariNew(0)").SetText("Z");
  EXPECT_TRUE(At("CariNewCmd(1)").Enabled());
  At("CariNew(1)").SetText("");
  EXPECT_FALSE(At("CariNewCmd(1)").Enabled());
}

TEST_F(CustomerCardTest, a_code_that_differs_only_in_the_kind_of_an_i_is_refused) {
  AddCustomer("ıspartalı", "Başka Ad");
  const std::string before = Count();
  Open("yeni biri");
  At("CariNew(0)").SetText("İSPARTALI");
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Dikkat Bu Cari Kodu Kayıtlı..!");
  EXPECT_EQ(messages.shown[0].title, "Dikkat...");
  EXPECT_EQ(messages.shown[0].icon, MessageIcon::Information);
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(Count(), before);
}

TEST_F(CustomerCardTest, a_refused_card_waits_for_a_change_of_a_field) {
  Open("zeynep");
  At("CariNew(0)").SetText("c001");
  Click("CariNewCmd(1)");
  EXPECT_FALSE(At("CariNewCmd(1)").Enabled());
  At("CariNew(0)").SetText("c009");
  EXPECT_TRUE(At("CariNewCmd(1)").Enabled());
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("c009")["Unvan"], "zeynep");
}

TEST_F(CustomerCardTest, a_name_that_is_taken_is_refused) {
  Open("zeynep");
  At("CariNew(1)").SetText("AYŞE YİLMAZ");
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Dikkat Bu Unvan Kayıtlı..!");
  EXPECT_TRUE(At("CariNew(0)").HasFocus());
}

TEST_F(CustomerCardTest, a_card_number_in_use_is_refused_and_emptied) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET KartNo='K1' WHERE CariKod='C002'");
  Open("zeynep");
  At("CariNew(9)").SetText("K1");
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Bu Kart Numarası Kullanılmış...?");
  EXPECT_EQ(At("CariNew(9)").Text(), "");
  EXPECT_TRUE(At("CariNew(9)").HasFocus());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='zeynep'"), "0");
}

TEST_F(CustomerCardTest, keys_come_in_lower_case_and_wildcards_are_dropped_where_they_would_search) {
  Open("zeynep");
  Set("CariNew(0)", "A*B?C!");
  EXPECT_EQ(At("CariNew(0)").Text(), "abc");
  Set("CariNew(1)", "İPEK ŞAHIN");
  EXPECT_EQ(At("CariNew(1)").Text(), "ipek şahın");
  Set("CariNew(2)", "CADDE 5*");
  EXPECT_EQ(At("CariNew(2)").Text(), "cadde 5*");
}

TEST_F(CustomerCardTest, enter_goes_on_to_the_next_field_and_focus_selects_all) {
  Open("zeynep");
  Key("CariNew(0)", key::kEnter);
  EXPECT_TRUE(At("CariNew(1)").HasFocus());
  EXPECT_EQ(At("CariNew(1)").SelectionLength(), 6);
  EXPECT_EQ(desk->form.ActiveFieldCode, 1);
}

TEST_F(CustomerCardTest, a_tap_hands_the_text_to_the_keyboards_echo_and_leaves_the_list_whole) {
  Open("zeynep");
  const std::string list = desk->cursors.CariData.RecordSource();
  At("CariNew(1)").click();
  EXPECT_EQ(At("Text5").Text(), "zeynep");
  EXPECT_EQ(desk->cursors.CariData.RecordSource(), list);
}

TEST_F(CustomerCardTest, a_store_that_refuses_keeps_what_was_typed) {
  Open("zeynep");
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_TRUE(At("CariFrm").Visible());
  EXPECT_EQ(At("CariNew(1)").Text(), "zeynep");
  engine.commitFault = {};
  Click("CariNewCmd(1)");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='zeynep'"), "1");
}

TEST_F(CustomerCardTest, an_address_is_lower_cased_by_the_ordinary_rule_with_a_dot_on_every_i) {
  Open("zeynep");
  At("CariNew(4)").SetText("İLETİŞİM@ALI.COM");
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("zeynep")["Email"], "iletişim@ali.com");
}

TEST_F(CustomerCardTest, keys_of_an_address_take_the_ordinary_rule_too) {
  Open("zeynep");
  Set("CariNew(4)", "INFO@ALİ.TR");
  EXPECT_EQ(At("CariNew(4)").Text(), "info@ali.tr");
}

TEST_F(CustomerCardTest, every_refusal_has_the_same_icon_and_title) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET KartNo='K1' WHERE CariKod='C002'");
  Open("zeynep");
  At("CariNew(1)").SetText("burak demir");
  Click("CariNewCmd(1)");
  At("CariNew(1)").SetText("zeynep");
  At("CariNew(9)").SetText("K1");
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].text, "Dikkat Bu Unvan Kayıtlı..!");
  EXPECT_EQ(messages.shown[1].text, "Bu Kart Numarası Kullanılmış...?");
  for (const auto& box : messages.shown) {
    EXPECT_EQ(box.title, "Dikkat...");
    EXPECT_EQ(box.icon, MessageIcon::Information);
  }
}

TEST_F(CustomerCardTest, after_a_refused_card_number_save_waits_for_a_change_of_the_clerks_own) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET KartNo='K1' WHERE CariKod='C002'");
  Open("zeynep");
  At("CariNew(9)").SetText("K1");
  Click("CariNewCmd(1)");
  EXPECT_FALSE(At("CariNewCmd(1)").Enabled());
  EXPECT_TRUE(At("CariFrm").Visible());
  At("CariNew(9)").SetText("K2");
  EXPECT_TRUE(At("CariNewCmd(1)").Enabled());
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("zeynep")["KartNo"], "K2");
}

TEST_F(CustomerCardTest, the_first_test_that_fails_is_the_one_told) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET KartNo='K1' WHERE CariKod='C002'");
  Open("zeynep");
  At("CariNew(0)").SetText("c001");
  At("CariNew(1)").SetText("burak demir");
  At("CariNew(9)").SetText("K1");
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Dikkat Bu Cari Kodu Kayıtlı..!");
  EXPECT_EQ(At("CariNew(9)").Text(), "K1");
}

TEST_F(CustomerCardTest, an_empty_card_number_stands_in_nobodys_way) {
  ASSERT_EQ(Customer("C001")["KartNo"], "");
  Open("zeynep");
  Click("CariNewCmd(1)");
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(Customer("zeynep")["KartNo"], "");
}

TEST_F(CustomerCardTest, a_refusal_keeps_the_row_in_front_and_mutes_nothing_afterwards) {
  Front("C002");
  Open("zeynep");
  ASSERT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  At("CariNew(0)").SetText("c001");
  Click("CariNewCmd(1)");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_EQ(At("CariNew(1)").Text(), "zeynep");
}

TEST_F(CustomerCardTest, cancel_mutes_nothing_afterwards) {
  Open("zeynep");
  Click("CariNewCmd(0)");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  Front("C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Burak Demir");
}

TEST_F(CustomerCardTest, after_cancel_and_save_the_whole_screen_shows_the_customer_in_front) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=100, Bakiye=100, Hesap='Borç' WHERE CariKod='C001'");
  Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES('C001','2026-02-20 00:00:00',100)");
  for (const char* const button : {"CariNewCmd(0)", "CariNewCmd(1)"}) {
    Front("C002");
    ASSERT_FALSE(At("Vadefrm").Visible());
    Open("zeynep");
    Click(button);
    EXPECT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz") << button;
    EXPECT_EQ(At("Label5").Caption(), "100,00") << button;
    EXPECT_TRUE(At("Vadefrm").Visible()) << button;
    EXPECT_EQ(At("Label15").Caption(), "9 Gün") << button;
    EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc") << button;
  }
}

TEST_F(CustomerCardTest, the_stock_list_and_a_sale_close_the_panel_and_write_nothing) {
  const std::string before = Count();
  Open("zeynep");
  At("StokChk").SetChecked(true);
  EXPECT_FALSE(At("CariFrm").Visible());
  At("StokChk").SetChecked(false);
  Open("zeynep");
  At("Text1(0)").SetText("Burak Demir");
  DoubleTap("Label1(0)");
  EXPECT_FALSE(At("CariFrm").Visible());
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_EQ(Count(), before);
}

TEST_F(CustomerCardTest, the_wholesalers_tick_stays_for_the_next_card) {
  Open("toptancı bir");
  At("CariChk").SetChecked(true);
  Click("CariNewCmd(1)");
  EXPECT_TRUE(At("CariChk").Checked());
  Open("toptancı iki");
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("toptancı iki")["Gurup"], "Toptan");
}

TEST_F(CustomerCardTest, a_code_name_or_card_number_with_a_quote_is_kept_and_refused_a_second_time) {
  Open("veli'nin yeri");
  At("CariNew(9)").SetText("K'1");
  Click("CariNewCmd(1)");
  EXPECT_EQ(Customer("veli''nin yeri")["Unvan"], "veli'nin yeri");
  Open("zeynep");
  At("CariNew(0)").SetText("veli'nin yeri");
  Click("CariNewCmd(1)");
  At("CariNew(0)").SetText("zeynep");
  At("CariNew(1)").SetText("veli'nin yeri");
  Click("CariNewCmd(1)");
  At("CariNew(1)").SetText("zeynep");
  At("CariNew(9)").SetText("K'1");
  Click("CariNewCmd(1)");
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[0].text, "Dikkat Bu Cari Kodu Kayıtlı..!");
  EXPECT_EQ(messages.shown[1].text, "Dikkat Bu Unvan Kayıtlı..!");
  EXPECT_EQ(messages.shown[2].text, "Bu Kart Numarası Kullanılmış...?");
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='zeynep'"), "0");
}

TEST_F(CustomerCardTest, save_puts_the_keyboard_away) {
  Open("zeynep");
  desk->form.KeyboardOpen = true;
  Click("CariNewCmd(1)");
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(CustomerCardTest, a_name_typed_with_blanks_around_it_comes_trimmed) {
  Open("  zeynep ");
  EXPECT_EQ(At("CariNew(0)").Text(), "zeynep");
  EXPECT_EQ(At("CariNew(1)").Text(), "zeynep");
}

TEST_F(CustomerCardTest, a_code_in_capitals_is_refused_against_small_letters_with_either_i) {
  AddCustomer("ılık", "Bir");
  AddCustomer("dilim", "İki");
  Open("zeynep");
  for (const char* const code : {"ILIK", "İLİK", "ilik", "DILIM", "DİLİM", "dılım"}) {
    messages.shown.clear();
    At("CariNew(0)").SetText(code);
    Click("CariNewCmd(1)");
    ASSERT_EQ(messages.shown.size(), 1U) << code;
    EXPECT_EQ(messages.shown[0].text, "Dikkat Bu Cari Kodu Kayıtlı..!") << code;
  }
}

TEST_F(CustomerCardTest, a_card_with_one_more_letter_is_another) {
  Open("zeynep");
  At("CariNew(0)").SetText("C0011");
  Click("CariNewCmd(1)");
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(Customer("C0011")["Unvan"], "zeynep");
}

TEST_F(CustomerCardTest, a_code_is_refused_also_when_its_card_is_not_in_the_list) {
  const std::string before = Count();
  Open("yeni müşteri");
  for (const char* const taken : {"t001", "=100"}) {  // a wholesaler's, the till's
    Set("CariNew(0)", taken);
    Click("CariNewCmd(1)");
    ASSERT_FALSE(messages.shown.empty()) << taken;
    EXPECT_EQ(messages.shown.back().text, "Dikkat Bu Cari Kodu Kayıtlı..!");
    EXPECT_TRUE(At("CariNew(0)").HasFocus());
    EXPECT_TRUE(At("CariFrm").Visible());
  }
  EXPECT_EQ(Count(), before);
}

}  // namespace
}  // namespace karvel
