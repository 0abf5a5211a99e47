#include "robot/key_names.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(KeyNames, a_named_key_writes_what_a_keyboard_writes) {
  const auto enter = KeyByName("Enter");
  ASSERT_TRUE(enter);
  EXPECT_EQ(enter->key, Qt::Key_Return);
  EXPECT_EQ(enter->text, "\r");
}

TEST(KeyNames, prefixes_hold_modifiers_and_write_nothing) {
  const auto left = KeyByName("Ctrl+Shift+Left");
  ASSERT_TRUE(left);
  EXPECT_EQ(left->key, Qt::Key_Left);
  EXPECT_EQ(left->modifiers, Qt::ControlModifier | Qt::ShiftModifier);
  const auto copy = KeyByName("Ctrl+c");
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->key, Qt::Key_C);
  EXPECT_TRUE(copy->text.isEmpty());
}

TEST(KeyNames, a_plus_alone_is_the_plus_key) {
  const auto plus = KeyByName("+");
  ASSERT_TRUE(plus);
  EXPECT_EQ(plus->text, "+");
}

TEST(KeyNames, function_keys_end_at_twelve) {
  EXPECT_EQ(KeyByName("F8")->key, Qt::Key_F8);
  EXPECT_EQ(KeyByName("F12")->key, Qt::Key_F12);
  EXPECT_FALSE(KeyByName("F13"));
  EXPECT_FALSE(KeyByName("F0"));
  EXPECT_EQ(KeyByName("F")->text, "F");
}

TEST(KeyNames, an_unknown_name_is_no_key) {
  EXPECT_FALSE(KeyByName(""));
  EXPECT_FALSE(KeyByName("Return to sender"));
  EXPECT_FALSE(KeyByName("Ctrl+"));
}

TEST(KeyNames, every_turkish_letter_is_one_key_with_its_text) {
  const auto keys = KeysOfText("şĞıİ₺");
  ASSERT_EQ(keys.size(), 5u);
  EXPECT_EQ(keys[0].text, QString::fromUtf8("ş"));
  EXPECT_EQ(keys[1].text, QString::fromUtf8("Ğ"));
  EXPECT_EQ(keys[1].modifiers, Qt::ShiftModifier);
  EXPECT_EQ(keys[2].modifiers, Qt::NoModifier);
  EXPECT_EQ(keys[4].text, QString::fromUtf8("₺"));
}

}  // namespace
}  // namespace karvel
