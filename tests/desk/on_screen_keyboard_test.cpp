#include "desk/on_screen_keyboard.h"

#include "desk/entry_fields.h"
#include "tests/desk/tapped_search_fixture.h"

namespace karvel {
namespace {

class OnScreenKeyboardTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık", "Bakiye=75.5, Borc=75.5, Hesap='Borç'");
    AddCustomer("C002", "Iğdır Şarküteri", "Bakiye=30, Alacak=30, Hesap='Alacak'");
    AddStock("1001", "Pirinç Baldo", "Fiyat=50");
    AddStock("1003", "İrmik", "Fiyat=20");
    ASSERT_TRUE(Start());
    desk->Activate();
  }
  KeyboardScreen& Keyboard() { return desk->screen.Form2; }
  bool IsOpen() { return Keyboard().Form2.Visible(); }
  // Taps the keys of a text, one after another.
  void Keys(const std::string& text) {
    for (std::size_t i = 0; i < LetterCount(text); ++i) {
      const std::string letter = MidLetters(text, i, 1);
      if (letter == " ") {
        Keyboard().Label1(KeyboardScreen::kSpace).click();
        continue;
      }
      const bool capital = TurkishUpper(letter) == letter && TurkishLower(letter) != letter;
      if (capital != (Keyboard().Label1(KeyboardScreen::kCase).Caption() == "AB")) Keyboard().Label1(KeyboardScreen::kCase).click();
      for (int key = 0; key < Keyboard().Label1.Count(); ++key)
        if (Keyboard().Label1(key).Caption() == letter) Keyboard().Label1(key).click();
    }
  }
  void OpenCard() {
    At("CariFrm").SetVisible(true);
    Tap("CariNew(2)");
  }
};

TEST_F(OnScreenKeyboardTest, focus_alone_does_not_open_it) {
  At("Text1(0)").SetFocus();
  EXPECT_FALSE(IsOpen());
  At("CariFrm").SetVisible(true);
  At("CariNew(0)").SetFocus();
  EXPECT_FALSE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, a_tap_opens_it_on_the_field) {
  Tap("Text1(0)");
  EXPECT_TRUE(IsOpen());
  EXPECT_TRUE(desk->form.KeyboardOpen);
  EXPECT_EQ(Keyboard().frame.Served(), &At("Text1(0)"));
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(Keyboard().Text1.Text(), "");
}

TEST_F(OnScreenKeyboardTest, a_tap_on_any_other_field_of_letters_keeps_its_text) {
  At("CariFrm").SetVisible(true);
  At("CariNew(3)").SetText("Kadıköy");
  Tap("CariNew(3)");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(At("CariNew(3)").Text(), "Kadıköy");
  EXPECT_EQ(Keyboard().Text1.Text(), "Kadıköy");
  EXPECT_EQ(Keyboard().Text1.SelectionStart(), 7);
}

TEST_F(OnScreenKeyboardTest, fields_of_figures_are_not_its) {
  EnterSale("Ahmet Işık");
  for (const char* name : {"Text2(0)", "Text2(1)", "Text2(2)", "Text2(3)"}) {
    Tap(name);
    EXPECT_FALSE(IsOpen()) << name;
  }
}

TEST_F(OnScreenKeyboardTest, a_locked_field_does_not_open_it) {
  At("CariFrm").SetVisible(true);
  At("CariNew(3)").SetLocked(true);
  Tap("CariNew(3)");
  EXPECT_FALSE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, what_its_keys_write_stands_in_the_field_at_once) {
  OpenCard();
  Keys("şişli");
  EXPECT_EQ(At("CariNew(2)").Text(), "şişli");
  EXPECT_EQ(At("CariNew(2)").SelectionStart(), 5);
  Keyboard().Label1(KeyboardScreen::kBack).click();
  EXPECT_EQ(At("CariNew(2)").Text(), "şişl");
  Keyboard().Label1(KeyboardScreen::kClear).click();
  EXPECT_EQ(At("CariNew(2)").Text(), "");
}

TEST_F(OnScreenKeyboardTest, what_a_real_keyboard_writes_in_the_field_stands_in_its_box) {
  OpenCard();
  Type("CariNew(2)", "çarşı");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Keyboard().Text1.Text(), "çarşı");
  Keys("x");
  EXPECT_EQ(At("CariNew(2)").Text(), "çarşıx");
}

TEST_F(OnScreenKeyboardTest, what_a_real_keyboard_writes_in_its_box_stands_in_the_field) {
  OpenCard();
  Keyboard().Text1.SetText("Moda");
  EXPECT_EQ(At("CariNew(2)").Text(), "Moda");
}

TEST_F(OnScreenKeyboardTest, a_letter_passes_the_fields_own_rule_in_both_boxes) {
  OpenCard();
  Tap("CariNew(0)");
  Keys("A");  // a card is written small
  EXPECT_EQ(At("CariNew(0)").Text(), "a");
  EXPECT_EQ(Keyboard().Text1.Text(), "a");
  CharacterEvent star{U'*'};
  Keyboard().Text1.character(star);  // it would stand for any letter in a search
  EXPECT_EQ(star.character, char32_t{0});
}

TEST_F(OnScreenKeyboardTest, the_name_of_an_item_begins_with_a_capital) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  Keys("i");
  EXPECT_EQ(At("Text1(1)").Text(), "İ");
  EXPECT_EQ(Keyboard().Text1.Text(), "İ");
}

TEST_F(OnScreenKeyboardTest, the_list_follows_the_letters_and_the_second_tap_takes_them) {
  Tap("Text1(0)");
  Keys("Iğdır");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
  EXPECT_EQ(At("Text1(0)").Text(), "Iğdır");
  Tap("Text1(0)");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(At("Text1(0)").Text(), "Iğdır Şarküteri");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
}

TEST_F(OnScreenKeyboardTest, an_item_is_found_whatever_i_was_typed_before_a_card_is_offered) {
  EnterSale("Ahmet Işık");
  Tap("Text1(1)");
  Keyboard().Text1.SetText("irmık");
  Tap("Text1(1)");
  EXPECT_FALSE(At("StokGiris").Visible());
  EXPECT_EQ(At("Text1(1)").Text(), "İrmik");
  EXPECT_EQ(At("Text2(0)").Text(), "20,00");
}

TEST_F(OnScreenKeyboardTest, the_close_key_runs_what_the_field_does_when_it_is_left) {
  Tap("Text1(0)");
  Keys("Iğ");
  Keyboard().Command1.click();
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(desk->form.KeyboardOpen);
  EXPECT_EQ(At("Text1(0)").Text(), "Iğdır Şarküteri");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
}

TEST_F(OnScreenKeyboardTest, closed_with_nothing_typed_the_row_from_before_comes_back) {
  At("Text1(0)").SetFocus();
  const std::string before = At("Text1(0)").Text();
  Tap("Text1(0)");
  Keyboard().Command1.click();
  EXPECT_EQ(At("Text1(0)").Text(), before);
}

TEST_F(OnScreenKeyboardTest, closing_it_leaves_filter_and_cards_alone) {
  Tap("Text5");
  Keys("ığ");
  EXPECT_EQ(Keyboard().Text1.Text(), "ığ");
  Keyboard().Command1.click();
  EXPECT_EQ(At("Text5").Text(), "ığ");
  EXPECT_EQ(Keyboard().code, KeyboardScreen::kHeldOff);
  EXPECT_NE(desk->form.ActiveFieldCode, 999);
}

TEST_F(OnScreenKeyboardTest, the_fields_follow_the_filter_when_it_closes) {
  Tap("Text5");
  Keys("Iğ");
  Keyboard().Command1.click();
  EXPECT_EQ(At("Text1(0)").Text(), "Iğdır Şarküteri");
  EXPECT_EQ(At("Label5").Caption(), "30,00");
}

TEST_F(OnScreenKeyboardTest, a_held_off_code_is_taken_note_of_at_the_next_opening) {
  OpenCard();
  Keyboard().Command1.click();
  ASSERT_EQ(Keyboard().code, KeyboardScreen::kHeldOff);
  Tap("CariNew(2)");
  EXPECT_EQ(Keyboard().code, 3);
  EXPECT_EQ(desk->form.ActiveFieldCode, 2);
}

TEST_F(OnScreenKeyboardTest, a_code_that_was_left_gives_the_field_in_use_its_value_less_one) {
  Keyboard().code = 4;
  At("Text1(0)").SetFocus();
  KeyboardWish wish{At("Text1(0)")};
  desk->screen.keyboardWanted(wish);
  EXPECT_EQ(desk->form.ActiveFieldCode, 3);
}

TEST_F(OnScreenKeyboardTest, it_goes_along_to_the_next_field_of_the_panel) {
  OpenCard();
  At("CariNew(3)").SetText("Bursa");
  At("CariNew(3)").SetFocus();
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Keyboard().Text1.Text(), "Bursa");
  Keys("b");
  EXPECT_EQ(At("CariNew(3)").Text(), "Bursab");
  EXPECT_EQ(At("CariNew(2)").Text(), "");
}

TEST_F(OnScreenKeyboardTest, it_closes_when_the_focus_goes_to_something_else) {
  OpenCard();
  At("CariNewCmd(0)").SetFocus();
  EXPECT_FALSE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, it_closes_with_the_panel_of_its_field) {
  OpenCard();
  At("CariFrm").SetVisible(false);
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(desk->form.KeyboardOpen);
}

TEST_F(OnScreenKeyboardTest, escape_closes_it_before_the_panel) {
  OpenCard();
  KeyEvent escape{key::kEscape};
  At("Form1").keyDown(escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(At("CariFrm").Visible());
}

TEST_F(OnScreenKeyboardTest, by_itself_it_opens_until_a_real_keyboard_is_used_in_that_field) {
  OpenCard();
  Type("CariNew(2)", "a");
  EXPECT_TRUE(IsOpen());
  Keyboard().Command1.click();
  At("CariNewCmd(0)").SetFocus();
  Tap("CariNew(2)");
  EXPECT_FALSE(IsOpen());
  Tap("CariNew(4)");
  EXPECT_TRUE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, closed_with_nothing_typed_it_leaves_item_and_quantity_as_they_were) {
  EnterSale("Ahmet Işık");
  At("Text1(1)").SetText("İrmik");
  Key("Text1(1)", key::kEnter);
  At("Text2(1)").SetText("3");
  Tap("Text1(1)");
  ASSERT_TRUE(IsOpen());
  Keyboard().Command1.click();
  EXPECT_EQ(At("Text1(1)").Text(), "İrmik");
  EXPECT_EQ(At("Text2(1)").Text(), "3");
}

TEST_F(OnScreenKeyboardTest, no_key_is_yellow_when_it_opens_again) {
  OpenCard();
  Element& key = Keyboard().Label1(4);
  key.mouseDown(MouseEvent{.button = 1});
  EXPECT_EQ(key.Color(), color::kYellow);
  Keyboard().Command1.click();
  EXPECT_EQ(key.Color(), color::kCyan);
}

TEST_F(OnScreenKeyboardTest, keys_that_only_move_are_no_typing) {
  OpenCard();
  Key("CariNew(2)", key::kTab);
  Key("CariNew(2)", key::kEnter);
  Keyboard().Command1.click();
  At("CariNewCmd(0)").SetFocus();
  Tap("CariNew(2)");
  EXPECT_TRUE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, a_scanner_that_types_is_no_real_keyboard) {
  OpenCard();
  Type("CariNew(2)", "8693948606070");
  KeyEvent enter{key::kEnter};
  At("CariNew(2)").keyDown(enter);
  Keyboard().Command1.click();
  At("CariNewCmd(0)").SetFocus();
  Tap("CariNew(2)");
  EXPECT_TRUE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, always_opens_it_on_every_tap) {
  At("Klv(1)").click();
  OpenCard();
  Type("CariNew(2)", "a");
  Keyboard().Command1.click();
  At("CariNewCmd(0)").SetFocus();
  Tap("CariNew(2)");
  EXPECT_TRUE(IsOpen());
}

TEST_F(OnScreenKeyboardTest, never_opens_none_and_a_tap_selects_the_text) {
  At("Klv(2)").click();
  for (const char* name : {"CariNew(3)", "Text1(0)", "Text5"}) {
    At("CariFrm").SetVisible(true);
    At(name).SetText("Bursa");
    Tap(name);
    EXPECT_FALSE(IsOpen()) << name;
    EXPECT_EQ(At(name).Text(), "Bursa");
    EXPECT_EQ(At(name).SelectionLength(), 5) << name;
  }
}

TEST_F(OnScreenKeyboardTest, the_choice_is_kept) {
  EXPECT_TRUE(At("Klv(0)").Checked());
  At("Klv(1)").click();
  EXPECT_TRUE(At("Klv(1)").Checked());
  EXPECT_FALSE(At("Klv(0)").Checked());
  ASSERT_TRUE(Start());
  desk->Activate();
  EXPECT_TRUE(At("Klv(1)").Checked());
}

TEST_F(OnScreenKeyboardTest, place_and_size_are_kept_when_the_clerk_chose_them) {
  OpenCard();
  Keyboard().frame.LayAmong({.room = {1024, 768}});
  Keyboard().Command1.click();
  EXPECT_EQ(window.savedFitting, "");
  Tap("CariNew(2)");
  Keyboard().frame.MoveBy(20, -20);
  Keyboard().Command1.click();
  EXPECT_EQ(window.savedFitting, "VelmoraKlv");
}

TEST_F(OnScreenKeyboardTest, a_double_tap_on_its_ground_gives_it_the_width_of_the_window) {
  OpenCard();
  Keyboard().frame.LayAmong({.room = {1024, 768}});
  Keyboard().Form2.dblClick();
  EXPECT_EQ(Keyboard().frame.Box().width, 1022);
  EXPECT_EQ(Keyboard().frame.Box().left, 0);
}

TEST_F(OnScreenKeyboardTest, arrows_with_ctrl_and_alt_move_and_size_it_before_the_desk) {
  OpenCard();
  Keyboard().frame.LayAmong({.room = {1024, 768}});
  const WindowBox before = Keyboard().frame.Box();
  KeyEvent up{key::kUp, false, true};
  At("Form1").keyDown(up);
  EXPECT_EQ(Keyboard().frame.Box().top, before.top - 2);
  KeyEvent wider{key::kRight, false, false, true};
  At("Form1").keyDown(wider);
  EXPECT_EQ(Keyboard().frame.Box().width, before.width + 2);
  EXPECT_EQ(window.moved, 0);
  EXPECT_EQ(window.sized, 0);
}

TEST_F(OnScreenKeyboardTest, a_fixed_desk_fixes_it_too) {
  desk->form.Sabit = true;
  OpenCard();
  Keyboard().frame.LayAmong({.room = {1024, 768}});
  const WindowBox before = Keyboard().frame.Box();
  KeyEvent up{key::kUp, false, true};
  At("Form1").keyDown(up);
  EXPECT_EQ(Keyboard().frame.Box(), before);
}

TEST_F(OnScreenKeyboardTest, a_second_tap_enters_a_serial_number) {
  At("Frame4").SetVisible(true);
  Tap("Text4");
  Keys("a7");
  Tap("Text4");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(At("List1").Items(), std::vector<std::string>{"a7"});
}

TEST_F(OnScreenKeyboardTest, nothing_is_written_when_the_desk_closes) {
  Tap("Text1(0)");
  Keys("Iğ");
  EXPECT_TRUE(desk->CloseRequested(true));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(At("Text1(0)").Text(), "Iğ");
  EXPECT_EQ(At("Text1(1)").Text(), "");
}

}  // namespace
}  // namespace karvel
