#include <string>
#include <vector>

#include "tests/accounts/deleted_lines_fixture.h"

namespace karvel {
namespace {

class UsePasswordsTest : public DeletedLinesFixture {};

TEST_F(UsePasswordsTest, the_first_use_sets_the_password_of_the_deleted_lines_and_keeps_them_closed) {
  messages.answers = {"gizli"};
  Tick();
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Lütfen Kullanım Şifresi Girin");
  EXPECT_EQ(messages.shown[0].title, "Kullanım Şifresi");
  EXPECT_EQ(Kept("iSif"), "gizli");
  EXPECT_FALSE(At("SilinenChk").Checked());
  EXPECT_TRUE(At("CariGrid").Visible());
}

TEST_F(UsePasswordsTest, cancelling_the_first_use_saves_nothing_and_clears_the_tick) {
  Tick();
  EXPECT_EQ(Kept("iSif"), "");
  EXPECT_FALSE(At("SilinenChk").Checked());
  messages.answers = {""};
  Tick();
  EXPECT_EQ(Kept("iSif"), "");
  EXPECT_FALSE(At("SilinenChk").Checked());
}

TEST_F(UsePasswordsTest, the_right_password_opens_the_deleted_lines) {
  Keep("iSif", "gizli");
  messages.answers = {"gizli"};
  Tick();
  EXPECT_TRUE(At("SilinenChk").Checked());
  EXPECT_FALSE(At("CariGrid").Visible());
  EXPECT_TRUE(At("HareketGrid").Visible());
  EXPECT_FALSE(At("StokGrid").Visible());
  EXPECT_FALSE(At("StokChk").Enabled());
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where Durum='Iptal' Order By Tarih Desc");
  EXPECT_EQ(Lines(), (std::vector<std::string>{"Yeni", "Eski"}));
  EXPECT_EQ(window.ends, 0);
}

TEST_F(UsePasswordsTest, a_wrong_password_ends_the_program_at_once) {
  Keep("iSif", "gizli");
  for (const char* const wrong : {"GİZLİ", "Gizli", "gizli ", ""}) {
    messages.shown.clear();
    messages.answers = {wrong, ""};
    window.ends = 0;
    Tick();
    ASSERT_EQ(messages.shown.size(), 2U) << wrong;
    EXPECT_EQ(messages.shown[1].text, "Key is invalid.");
    EXPECT_EQ(messages.shown[1].title, "SecureKey");
    EXPECT_EQ(messages.shown[1].icon, MessageIcon::Stop);
    EXPECT_EQ(window.ends, 1);
    EXPECT_EQ(window.closes, 0);
    EXPECT_FALSE(At("SilinenChk").Checked());
    EXPECT_TRUE(At("CariGrid").Visible());
    desk->screen.Form1.SetEnabled(true);
  }
}

TEST_F(UsePasswordsTest, the_menu_of_a_customer_with_rows_offers_to_wipe_them) {
  Keep("aSif", "anahtar");
  messages.answers = {"anahtar"};
  RightPress();
  EXPECT_EQ(At("CarSil").Caption(), "Cari Hareketleri Sil");
  EXPECT_EQ(popUps, std::vector<std::string>{"PopMenu"});
}

TEST_F(UsePasswordsTest, the_menu_of_a_customer_without_rows_offers_to_delete_the_card) {
  Keep("aSif", "anahtar");
  messages.answers = {"anahtar"};
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C002'").Ok());
  RightPress();
  EXPECT_EQ(At("CarSil").Caption(), "Cari Kartı Sil");
}

TEST_F(UsePasswordsTest, without_the_password_the_menu_stays_closed) {
  Keep("aSif", "anahtar");
  messages.answers = {"Anahtar"};
  RightPress();
  RightPress();  // cancelled
  EXPECT_TRUE(popUps.empty());
  EXPECT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(window.ends, 0);
}

TEST_F(UsePasswordsTest, the_first_use_of_the_menu_asks_twice_and_keeps_the_second_entry) {
  messages.answers = {"anah", "anahtar"};
  RightPress();
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].text, "Lütfen Kullanım Şifresi Girin");
  EXPECT_TRUE(messages.shown[1].text.ends_with("Yada Yeni Şifre Girin"));
  EXPECT_EQ(messages.shown[1].title, "Kullanım Şifresi");
  EXPECT_EQ(Kept("aSif"), "anahtar");
  EXPECT_EQ(popUps.size(), 1U);
}

TEST_F(UsePasswordsTest, a_first_use_that_is_cancelled_keeps_nothing) {
  RightPress();
  messages.answers = {"anah"};
  RightPress();
  EXPECT_EQ(Kept("aSif"), "");
  EXPECT_TRUE(popUps.empty());
}

TEST_F(UsePasswordsTest, only_the_right_button_on_customers_opens_the_menu) {
  Keep("aSif", "anahtar");
  messages.answers = {"anahtar"};
  desk->screen.CariGrid.mouseDown(MouseEvent{.button = 1});
  At("StokChk").SetChecked(true);
  RightPress();
  EXPECT_TRUE(popUps.empty());
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(UsePasswordsTest, cancelling_with_a_password_set_clears_the_tick_and_the_program_goes_on) {
  Keep("iSif", "gizli");
  Tick();  // no answer: the box is cancelled
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(window.ends, 0);
  EXPECT_FALSE(At("SilinenChk").Checked());
  EXPECT_TRUE(At("CariGrid").Visible());
  EXPECT_TRUE(At("Form1").Enabled());
  EXPECT_EQ(Kept("iSif"), "gizli");
}

TEST_F(UsePasswordsTest, the_second_prompt_of_the_menu_offers_what_was_typed_at_the_first) {
  messages.answers = {"anah", "anahtar"};
  RightPress();
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].preset, "");
  EXPECT_EQ(messages.shown[1].preset, "anah");
}

TEST_F(UsePasswordsTest, no_password_is_ever_offered) {
  Keep("iSif", "gizli");
  Keep("aSif", "anahtar");
  RightPress();
  Tick();
  ASSERT_EQ(messages.shown.size(), 2U);
  for (const auto& box : messages.shown) EXPECT_EQ(box.preset, "");
}

TEST_F(UsePasswordsTest, the_menu_of_a_customer_with_a_quote_in_his_code_finds_his_rows) {
  AddCustomer("O''1", "O''Neil");
  Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Borc) VALUES('O''1', 30)");
  Keep("aSif", "anahtar");
  ASSERT_TRUE(Start());
  messages.answers = {"anahtar"};
  ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='O''1'").Ok());
  RightPress();
  EXPECT_EQ(At("CarSil").Caption(), "Cari Hareketleri Sil");
}

TEST_F(UsePasswordsTest, the_password_of_the_percent_is_exact_and_its_box_offers_zero) {
  Keep("aSif", "anahtar");
  messages.answers = {"Anahtar"};
  Click("Yuzde");
  EXPECT_EQ(messages.shown.size(), 1U);
  messages.answers = {"anahtar", "10"};
  Click("Yuzde");
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[2].preset, "0");
  EXPECT_EQ(desk->form.MinSalePercent, 10);
}

}  // namespace
}  // namespace karvel
