#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class InvoiceOptionsTest : public DeskFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  Settings& Kept() { return desk->Parts().settings; }
};

TEST_F(InvoiceOptionsTest, a_mark_is_one_character_of_the_string_of_marks) {
  Click("MnPop(0)");
  Click("MnPop(9)");
  EXPECT_TRUE(At("MnPop(0)").Checked());
  EXPECT_EQ(Kept().Get(Setting::InvoiceMarks), "1000000001");
  Click("MnPop(0)");
  EXPECT_FALSE(At("MnPop(0)").Checked());
  EXPECT_EQ(Kept().Get(Setting::InvoiceMarks), "0000000001");
}

TEST_F(InvoiceOptionsTest, a_string_that_is_too_short_is_filled_up) {
  Kept().Save(Setting::InvoiceMarks, "1");
  ASSERT_TRUE(Start());
  Click("MnPop(4)");
  EXPECT_EQ(Kept().Get(Setting::InvoiceMarks), "1000100000");
}

TEST_F(InvoiceOptionsTest, marks_are_there_again_after_a_start) {
  Click("MnPop(6)");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(At("MnPop(6)").Checked());
  EXPECT_FALSE(At("MnPop(5)").Checked());
}

TEST_F(InvoiceOptionsTest, the_number_of_lines_is_asked_for_with_the_present_one) {
  messages.answers = {"20"};
  Click("MnPop(11)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Fatura Satır Sayısı Giriniz");
  EXPECT_EQ(messages.shown[0].title, "Fatura Satır Sayısı");
  EXPECT_EQ(messages.shown[0].preset, "15");
  EXPECT_EQ(Kept().Get(Setting::InvoiceLines), "20");
}

TEST_F(InvoiceOptionsTest, a_cancelled_or_senseless_number_of_lines_changes_nothing) {
  Click("MnPop(11)");
  EXPECT_EQ(Kept().Get(Setting::InvoiceLines), "15");
  messages.answers = {"çok"};
  Click("MnPop(11)");
  EXPECT_EQ(Kept().Get(Setting::InvoiceLines), "15");
  EXPECT_EQ(At("Durum").Caption(), "çok satır sayısı değil, eskisi kaldı");
}

TEST_F(InvoiceOptionsTest, only_whole_lines_above_none_are_a_number_of_lines) {
  for (const char* const typed : {"2,5", "0", "-3", "0,5", "1000", "1e9"}) {
    messages.answers = {typed};
    Click("MnPop(11)");
    EXPECT_EQ(Kept().Get(Setting::InvoiceLines), "15") << typed;
    EXPECT_EQ(At("Durum").Caption(), std::string(typed) + " satır sayısı değil, eskisi kaldı");
  }
  messages.answers = {" "};
  Click("MnPop(11)");
  EXPECT_EQ(Kept().Get(Setting::InvoiceLines), "15");
  EXPECT_EQ(At("Durum").Caption(), "Satır sayısı yazılmadı, eskisi kaldı");
}

TEST_F(InvoiceOptionsTest, the_font_is_chosen_from_the_one_in_use) {
  messages.chosenFont = FontChoice{"Tahoma", 9.5};
  Click("MnPop(12)");
  EXPECT_EQ(messages.offeredFont.name, "");
  EXPECT_EQ(Kept().Get(Setting::PrintFontName), "Tahoma");
  EXPECT_EQ(Kept().GetNumber(Setting::PrintFontSize), 9.5);
  messages.chosenFont.reset();
  Click("MnPop(12)");
  EXPECT_EQ(messages.offeredFont.name, "Tahoma");
  EXPECT_EQ(messages.offeredFont.size, 9.5);
  EXPECT_EQ(Kept().Get(Setting::PrintFontName), "Tahoma");
}

TEST_F(InvoiceOptionsTest, tax_turns_between_included_and_not) {
  EXPECT_EQ(At("MnPop(13)").Caption(), "Kdv Hariç");
  Click("MnPop(13)");
  EXPECT_EQ(At("MnPop(13)").Caption(), "Kdv Dahil");
  EXPECT_EQ(Kept().Get(Setting::TaxMode), "Dahil");
  Click("MnPop(13)");
  EXPECT_EQ(Kept().Get(Setting::TaxMode), "Hariç");
}

}  // namespace
}  // namespace karvel
