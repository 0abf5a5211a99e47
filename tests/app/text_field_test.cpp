#include <QLineEdit>

#include "app/qt_text.h"
#include "text/turkish.h"
#include "window_fixture.h"

namespace karvel {
namespace {

class TextFieldTest : public WindowTest {
 protected:
  QLineEdit* Line(const Element& element) { return qobject_cast<QLineEdit*>(Of(element)); }
};

TEST_F(TextFieldTest, what_the_element_holds_is_shown) {
  screen.Text1(0).SetText("Gülşah İnce");
  EXPECT_EQ(Line(screen.Text1(0))->text(), "Gülşah İnce");
  screen.Text1(0).Select(0, 6);
  EXPECT_EQ(Line(screen.Text1(0))->selectedText(), "Gülşah");
  screen.Text1(0).SetLocked(true);
  EXPECT_TRUE(Line(screen.Text1(0))->isReadOnly());
}

TEST_F(TextFieldTest, turkish_letters_typed_reach_the_element) {
  Focus(screen.Text1(0));
  Type(Of(screen.Text1(0)), "şğİıçöü");
  EXPECT_EQ(screen.Text1(0).Text(), "şğİıçöü");
  EXPECT_EQ(screen.Text1(0).SelectionStart(), 7);
}

TEST_F(TextFieldTest, one_key_goes_down_character_change_up) {
  std::string order;
  Element& text = screen.Text1(0);
  connections += text.keyDown.Connect([&](KeyEvent& event) { order += "down" + std::to_string(event.code) + " "; });
  connections +=
      text.character.Connect([&](CharacterEvent& event) { order += "char" + std::to_string(static_cast<int>(event.character)) + " "; });
  connections += text.changed.Connect([&] { order += "change "; });
  connections += text.keyUp.Connect([&](KeyEvent&) { order += "up "; });
  Focus(text);
  Strike(Of(text), Qt::Key_A, "a");
  EXPECT_EQ(order, "down65 char97 change up ");
  order.clear();
  Strike(Of(text), Qt::Key_Return, "\r");
  EXPECT_EQ(order, "down13 char13 up ");
  order.clear();
  Strike(Of(text), Qt::Key_Backspace, "\b");
  EXPECT_EQ(order, "down8 char8 change up ");
  EXPECT_EQ(text.Text(), "");
}

TEST_F(TextFieldTest, a_handler_alters_the_letter) {
  connections += screen.Text2(0).character.Connect([](CharacterEvent& event) {
    if (event.character == U'.') event.character = U',';
    if (event.character == U'i') event.character = U'İ';
  });
  screen.Frame2.SetVisible(true);
  screen.Text2(0).SetText("");
  Focus(screen.Text2(0));
  Type(Of(screen.Text2(0)), "1.i");
  EXPECT_EQ(screen.Text2(0).Text(), "1,İ");
}

TEST_F(TextFieldTest, a_dropped_letter_changes_nothing_and_the_key_still_comes_up) {
  int ups = 0;
  connections += screen.Text1(0).character.Connect([](CharacterEvent& event) { event.character = 0; });
  connections += screen.Text1(0).keyUp.Connect([&](KeyEvent&) { ++ups; });
  Focus(screen.Text1(0));
  Type(Of(screen.Text1(0)), "ş");
  EXPECT_EQ(screen.Text1(0).Text(), "");
  EXPECT_EQ(Line(screen.Text1(0))->text(), "");
  EXPECT_EQ(ups, 1);
}

TEST_F(TextFieldTest, a_dropped_key_has_no_character_and_no_edit) {
  int characters = 0;
  screen.Text1(0).SetText("ab");
  connections += screen.Text1(0).keyDown.Connect([](KeyEvent& event) { event.dropped = true; });
  connections += screen.Text1(0).character.Connect([&](CharacterEvent&) { ++characters; });
  Focus(screen.Text1(0));
  Type(Of(screen.Text1(0)), "x");
  Strike(Of(screen.Text1(0)), Qt::Key_Delete);
  EXPECT_EQ(characters, 0);
  EXPECT_EQ(screen.Text1(0).Text(), "ab");
}

TEST_F(TextFieldTest, the_caret_follows_the_edit) {
  Element& text = screen.Text1(0);
  text.SetText("abcd");
  Focus(text);
  text.Select(2, 0);
  Type(Of(text), "ğ");
  EXPECT_EQ(text.Text(), "abğcd");
  EXPECT_EQ(text.SelectionStart(), 3);
  EXPECT_EQ(Line(text)->cursorPosition(), 3);
  Strike(Of(text), Qt::Key_Home);
  EXPECT_EQ(text.SelectionStart(), 0);
  Strike(Of(text), Qt::Key_End, {}, Qt::ShiftModifier);
  EXPECT_EQ(text.SelectionLength(), 5);
}

TEST_F(TextFieldTest, a_change_handler_may_rewrite_the_text_and_place_the_caret) {
  Element& text = screen.Text1(0);
  connections += text.changed.Connect([&] {
    if (text.Text() == "a") text.SetText("a0,00");
    text.CaretToEnd();
  });
  Focus(text);
  Type(Of(text), "a");
  EXPECT_EQ(Line(text)->text(), "a0,00");
  EXPECT_EQ(Line(text)->cursorPosition(), 5);
}

TEST_F(TextFieldTest, the_field_completes_itself_at_key_up) {
  Element& text = screen.Text1(0);
  connections += text.keyUp.Connect([&](KeyEvent&) {
    const int caret = text.SelectionStart();
    text.SetText("Çaykaya Tereyağı");
    text.Select(caret, 16 - caret);
  });
  Focus(text);
  Type(Of(text), "Ç");
  EXPECT_EQ(Line(text)->selectedText(), "aykaya Tereyağı");
  Type(Of(text), "a");
  EXPECT_EQ(Line(text)->selectedText(), "ykaya Tereyağı");
  EXPECT_EQ(text.SelectionStart(), 2);
}

TEST_F(TextFieldTest, letters_outside_the_basic_plane_count_as_one) {
  Element& text = screen.Text1(0);
  text.SetText("a😀b");
  text.Select(1, 1);
  EXPECT_EQ(Line(text)->selectedText(), "😀");
  text.CaretToEnd();
  EXPECT_EQ(Line(text)->cursorPosition(), 4);
  Focus(text);
  Strike(Of(text), Qt::Key_Backspace, "\b");
  EXPECT_EQ(text.Text(), "a😀");
  EXPECT_EQ(text.SelectionStart(), 2);
}

TEST_F(TextFieldTest, a_locked_field_takes_focus_and_keys_but_no_letters) {
  int characters = 0;
  screen.Text1(0).SetText("12");
  screen.Text1(0).SetLocked(true);
  connections += screen.Text1(0).character.Connect([&](CharacterEvent&) { ++characters; });
  Focus(screen.Text1(0));
  Type(Of(screen.Text1(0)), "3");
  EXPECT_EQ(characters, 1);
  EXPECT_EQ(screen.Text1(0).Text(), "12");
}

TEST_F(TextFieldTest, ctrl_with_a_letter_is_no_character) {
  int characters = 0;
  screen.Text1(0).SetText("abc");
  connections += screen.Text1(0).character.Connect([&](CharacterEvent&) { ++characters; });
  Focus(screen.Text1(0));
  Strike(Of(screen.Text1(0)), Qt::Key_A, "\x01", Qt::ControlModifier);
  EXPECT_EQ(characters, 0);
  EXPECT_EQ(screen.Text1(0).SelectionLength(), 3);
}

TEST_F(TextFieldTest, a_tap_that_brings_the_focus_leaves_the_caret_where_the_desk_put_it) {
  Element& amount = screen.Text2(2);
  connections += amount.gotFocus.Connect([&amount] { amount.CaretToEnd(); });
  amount.SetText("0");
  QTest::mouseClick(Of(amount), Qt::LeftButton, {}, QPoint(6, Of(amount)->height() / 2));
  ASSERT_TRUE(Of(amount)->hasFocus());
  Type(Of(amount), "5");
  EXPECT_EQ(amount.Text(), "05");
  // In a field that has it, a tap places the caret.
  QTest::mouseClick(Of(amount), Qt::LeftButton, {}, QPoint(6, Of(amount)->height() / 2));
  Type(Of(amount), "7");
  EXPECT_EQ(amount.Text(), "705");
  Element& name = screen.Text1(0);
  connections += name.gotFocus.Connect([&name] { name.SelectAll(); });
  name.SetText("Ayşe");
  QTest::mouseClick(Of(name), Qt::LeftButton, {}, QPoint(20, Of(name)->height() / 2));
  EXPECT_EQ(Line(name)->selectedText(), "Ayşe");
}

TEST_F(TextFieldTest, a_long_amount_is_written_smaller_and_a_short_one_large_again) {
  Element& amount = screen.Text2(2);
  amount.SetText("0");
  const int usual = Of(amount)->font().pixelSize();
  amount.SetText("999.999.999,99");
  const QFont small = Of(amount)->font();
  EXPECT_LT(small.pixelSize(), usual);
  EXPECT_LE(QFontMetrics(small).horizontalAdvance("999.999.999,99"), Of(amount)->width());
  amount.SetText("12,50");
  EXPECT_EQ(Of(amount)->font().pixelSize(), usual);
}

TEST_F(TextFieldTest, a_field_takes_255_letters_however_they_come) {
  Element& name = screen.Text1(0);
  int changes = 0;
  connections += name.changed.Connect([&changes] { ++changes; });
  name.SetFocus();
  Line(name)->insert(QString(10000, QChar(0x015F)));
  EXPECT_EQ(LetterCount(name.Text()), 255U);
  EXPECT_EQ(changes, 1);
  Type(Of(name), "abc");
  EXPECT_EQ(LetterCount(name.Text()), 255U);
  EXPECT_EQ(changes, 1);
  name.SetText(std::string(1 << 20, 'x'));  // what another program left in a store
  EXPECT_EQ(Line(name)->text().size(), 255);
  EXPECT_EQ(name.Text(), std::string(255, 'x'));
}

}  // namespace
}  // namespace karvel
