#include "tests/support/desk_fixture.h"
#include "text/format.h"

namespace karvel {
namespace {

class DeskFontTest : public DeskFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  void Choose(const FontChoice& font) {
    messages.chosenFont = font;
    Click("FontDialog");
  }
  static std::string Told(const FontChoice& font) { return font.name + " " + PlainNumber(font.size) + (font.bold ? " bold" : ""); }
  std::string Desk() { return Told(window.deskFont); }
  std::string Lists() { return Told(window.gridFont); }
};

TEST_F(DeskFontTest, without_a_choice_form_and_lists_keep_the_themes_own) {
  EXPECT_EQ(window.deskFont.name + window.gridFont.name, "");
}

TEST_F(DeskFontTest, a_chosen_font_goes_to_the_form_and_the_lists) {
  Choose({"Arial", 12, true});
  EXPECT_EQ(Desk(), "Arial 12 bold");
  EXPECT_EQ(Lists(), "Arial 12 bold");
}

TEST_F(DeskFontTest, it_survives_a_start_bold_as_it_was) {
  Choose({"Arial", 12, true});
  window.deskFont = window.gridFont = {};
  ASSERT_TRUE(Start());
  EXPECT_EQ(Desk(), "Arial 12 bold");
  EXPECT_EQ(Lists(), "Arial 12 bold");
  Click("FontDialog");
  EXPECT_EQ(Told(messages.offeredFont), "Arial 12 bold");
  Choose({"Arial", 12, false});
  ASSERT_TRUE(Start());
  EXPECT_EQ(Desk(), "Arial 12");
}

TEST_F(DeskFontTest, a_choice_that_is_cancelled_changes_nothing) {
  Choose({"Arial", 12, true});
  messages.chosenFont.reset();
  Click("FontDialog");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Desk(), "Arial 12 bold");
}

TEST_F(DeskFontTest, the_lists_may_have_a_font_of_their_own_until_the_next_choice) {
  settings.Save("Velmora Karvel1", "Font", "FontName", "Arial").Ignore();
  settings.Save("Velmora Karvel1", "Font", "FontSize", "12").Ignore();
  settings.Save("Velmora Karvel1", "EkrFont", "FontName", "Verdana").Ignore();
  settings.Save("Velmora Karvel1", "EkrFont", "FontSize", "16").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_EQ(Desk(), "Arial 12");
  EXPECT_EQ(Lists(), "Verdana 16");
  Choose({"Tahoma", 11, false});
  ASSERT_TRUE(Start());
  EXPECT_EQ(Lists(), "Tahoma 11");
}

}  // namespace
}  // namespace karvel
