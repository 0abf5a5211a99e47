#include "app/box_keyboard.h"

#include <gtest/gtest.h>

#include <QInputDialog>
#include <QTest>

#include "app/floating_key.h"
#include "tests/support/memory_settings.h"

namespace karvel {
namespace {

class BoxKeyboardTest : public ::testing::Test {
 protected:
  BoxKeyboardTest() {
    box.setLabelText("Yüzde");
    box.setTextValue("5");
    line = box.findChild<QLineEdit*>();
    keyboard = new BoxKeyboard(box, *line, settings);
    box.show();
    (void)QTest::qWaitForWindowActive(&box);
  }
  void Tap() { QTest::mouseClick(line, Qt::LeftButton); }
  QWidget* Card() { return box.findChild<KeyCard*>(); }

  MemorySettings store;
  Settings settings{store, "Velmora Karvel1"};
  QInputDialog box;
  QLineEdit* line = nullptr;
  BoxKeyboard* keyboard = nullptr;
};

TEST_F(BoxKeyboardTest, a_box_opens_without_it) {
  EXPECT_EQ(Card(), nullptr);
}

TEST_F(BoxKeyboardTest, its_keys_write_behind_the_text_of_the_line) {
  Tap();
  ASSERT_NE(Card(), nullptr);
  EXPECT_TRUE(Card()->isVisible());
  for (FloatingKey* key : Card()->findChildren<FloatingKey*>())
    if (key->objectName() == "Label1(42)") QTest::mousePress(key, Qt::LeftButton);
  EXPECT_EQ(box.textValue(), "57");
  EXPECT_TRUE(line->hasFocus());
}

TEST_F(BoxKeyboardTest, a_key_is_high_enough_for_a_finger) {
  Tap();
  ASSERT_NE(Card(), nullptr);
  QCoreApplication::processEvents();
  for (int key = 0; key < keyboard->Keys().Label1.Count(); ++key) {
    const QWidget* const shown = Card()->findChild<FloatingKey*>(QString("Label1(%1)").arg(key));
    ASSERT_NE(shown, nullptr) << key;
    EXPECT_GE(shown->height(), 56) << key;
  }
}

TEST_F(BoxKeyboardTest, it_closes_and_comes_again) {
  Tap();
  ASSERT_NE(Card(), nullptr);
  keyboard->Keys().Command1.click();
  EXPECT_FALSE(Card()->isVisible());
  Tap();
  EXPECT_TRUE(Card()->isVisible());
}

TEST_F(BoxKeyboardTest, a_real_keyboard_needs_none) {
  QTest::keyClick(line, Qt::Key_7);
  Tap();
  EXPECT_EQ(Card(), nullptr);
}

TEST_F(BoxKeyboardTest, who_wants_none_has_the_text_selected_by_a_tap) {
  settings.SaveNumber(Setting::ScreenKeyboard, 2);
  line->deselect();
  Tap();
  EXPECT_EQ(Card(), nullptr);
  EXPECT_EQ(line->selectedText(), "5");
}

}  // namespace
}  // namespace karvel
