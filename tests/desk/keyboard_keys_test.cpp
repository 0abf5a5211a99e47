#include "desk/keyboard_keys.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/memory_settings.h"
#include "text/turkish.h"

namespace karvel {
namespace {

class KeyboardKeysTest : public ::testing::Test {
 protected:
  Element& Key(int index) { return keyboard.Label1(index); }
  void Press(int index) {
    Key(index).mouseDown(MouseEvent{});
    Key(index).click();
  }
  const std::string& Text() { return keyboard.Text1.Text(); }

  static constexpr int kA = 0, kŞ = 22;
  MemorySettings store;
  Settings settings{store, "Velmora Karvel1"};
  KeyboardScreen keyboard;
  KeyboardKeys keys{keyboard, settings};
};

TEST_F(KeyboardKeysTest, the_letters_stand_in_the_order_of_the_alphabet) {
  const std::string alphabet = "ABCÇDEFGĞHIİJKLMNOÖPRSŞTUÜVYZ";
  Press(KeyboardScreen::kCase);
  for (int i = 0; i < KeyboardScreen::kLetters; ++i) EXPECT_EQ(Key(i).Caption(), MidLetters(alphabet, static_cast<std::size_t>(i), 1));
}

TEST_F(KeyboardKeysTest, at_first_they_are_small) {
  EXPECT_EQ(Key(kŞ).Caption(), "ş");
  EXPECT_EQ(Key(KeyboardScreen::kDotlessI).Caption(), "ı");
  EXPECT_EQ(Key(KeyboardScreen::kDottedI).Caption(), "i");
  EXPECT_EQ(Key(KeyboardScreen::kCase).Caption(), "ab");
}

TEST_F(KeyboardKeysTest, every_letter_is_written_in_both_cases) {
  std::string written;
  for (int i = 0; i < KeyboardScreen::kLetters; ++i) Press(i);
  EXPECT_EQ(Text(), "abcçdefgğhıijklmnoöprsştuüvyz");
  Press(KeyboardScreen::kClear);
  Press(KeyboardScreen::kCase);
  for (int i = 0; i < KeyboardScreen::kLetters; ++i) Press(i);
  EXPECT_EQ(Text(), "ABCÇDEFGĞHIİJKLMNOÖPRSŞTUÜVYZ");
}

TEST_F(KeyboardKeysTest, signs_digits_and_foreign_letters_are_written) {
  for (int i = KeyboardScreen::kFirstDigit; i <= KeyboardScreen::kLastDigit; ++i) Press(i);
  for (const int sign : {29, 30, 31, KeyboardScreen::kQ, KeyboardScreen::kW, KeyboardScreen::kX}) Press(sign);
  EXPECT_EQ(Text(), "0123456789.-/qwx");
}

TEST_F(KeyboardKeysTest, the_case_is_kept) {
  Press(KeyboardScreen::kCase);
  EXPECT_EQ(Key(KeyboardScreen::kCase).Caption(), "AB");
  KeyboardScreen other;
  KeyboardKeys next(other, settings);
  next.ReadCase();
  EXPECT_EQ(other.Label1(KeyboardScreen::kCase).Caption(), "AB");
  EXPECT_EQ(other.Label1(KeyboardScreen::kDottedI).Caption(), "İ");
  other.Label1(KeyboardScreen::kCase).click();
  EXPECT_FALSE(settings.GetBoolean(Setting::KeyboardCaps));
}

TEST_F(KeyboardKeysTest, a_blank_is_written_at_the_end_and_the_caret_goes_behind_it) {
  Press(kA);
  Press(KeyboardScreen::kSpace);
  EXPECT_EQ(Text(), "a ");
  EXPECT_EQ(keyboard.Text1.SelectionStart(), 2);
}

TEST_F(KeyboardKeysTest, the_last_letter_is_cut) {
  Press(kA);
  Press(kŞ);
  Press(KeyboardScreen::kBack);
  EXPECT_EQ(Text(), "a");
  EXPECT_EQ(keyboard.Text1.SelectionStart(), 1);
}

TEST_F(KeyboardKeysTest, in_an_empty_box_there_is_nothing_to_cut) {
  int changes = 0;
  const ScopedConnection heard = keyboard.Text1.changed.Connect([&changes] { ++changes; });
  Press(KeyboardScreen::kBack);
  EXPECT_EQ(Text(), "");
  EXPECT_EQ(changes, 0);
}

TEST_F(KeyboardKeysTest, the_box_is_cleared_by_way_of_a_blank) {
  Press(kA);
  std::string told;
  const ScopedConnection heard = keyboard.Text1.changed.Connect([&] { told += "[" + Text() + "]"; });
  Press(KeyboardScreen::kClear);
  EXPECT_EQ(told, "[ ][]");
}

TEST_F(KeyboardKeysTest, the_number_block_goes_and_comes) {
  EXPECT_EQ(Key(KeyboardScreen::kBlock).Caption(), "Num Off");
  Press(KeyboardScreen::kBlock);
  EXPECT_FALSE(keyboard.Frame1.Visible());
  EXPECT_EQ(Key(KeyboardScreen::kBlock).Caption(), "Num On");
  Press(KeyboardScreen::kBlock);
  EXPECT_TRUE(keyboard.Frame1.Visible());
  EXPECT_EQ(Text(), "");
}

TEST_F(KeyboardKeysTest, the_key_under_the_finger_is_yellow_and_the_one_before_is_not) {
  Press(kA);
  EXPECT_EQ(Key(kA).Color(), color::kYellow);
  Press(kŞ);
  EXPECT_EQ(Key(kA).Color(), color::kCyan);
  EXPECT_EQ(Key(kŞ).Color(), color::kYellow);
  keyboard.Command1.mouseDown(MouseEvent{});
  EXPECT_EQ(Key(kŞ).Color(), color::kCyan);
  EXPECT_EQ(keyboard.Command1.Color(), color::kYellow);
}

TEST_F(KeyboardKeysTest, a_letter_passes_the_rule_of_the_field) {
  keys.passes = [](char32_t letter) { return letter == U'b' ? char32_t{0} : U'Ö'; };
  Press(kA);
  Press(1);
  EXPECT_EQ(Text(), "Ö");
}

}  // namespace
}  // namespace karvel
