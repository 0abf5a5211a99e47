#include "app/scanner_keys.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "app/code_scanner.h"
#include "app/qt_event_loop.h"
#include "app/qt_keyboard.h"
#include "tests/support/logged_lines.h"
#include "window_fixture.h"

namespace karvel {
namespace {

using Codes = std::vector<std::string>;

class ScannerKeysTest : public WindowTest {
 protected:
  ScannerKeysTest() {
    connections += scanner.codeRead.Connect([this](const std::string& code) {
      codes.push_back(code);
      if (handler) handler(code);
    });
    for (Element* const element : {static_cast<Element*>(&screen.StokGrid), &screen.Command1, &screen.Text2(1)}) {
      connections += element->keyDown.Connect([this](KeyEvent& event) { Note('+', event); });
      connections += element->keyUp.Connect([this](KeyEvent& event) { Note('-', event); });
    }
    connections += screen.Command1.click.Connect([this] { seen += "click "; });
    screen.CariGrid.SetVisible(false);
    screen.Frame2.SetVisible(true);
    screen.StokGrid.SetVisible(true);
    QTest::qWait(20);
  }

  void Note(char way, const KeyEvent& event) {
    const bool letter = event.code >= '0' && event.code <= 'Z';
    seen += way + (letter ? std::string(1, static_cast<char>(event.code)) : std::to_string(event.code)) + " ";
  }

  // Keys as the window system reports them: each with the moment at which it was struck.
  void Send(QEvent::Type type, int key, const QString& text, Qt::KeyboardModifiers held = Qt::NoModifier, bool repeated = false) {
    QWidget* const focused = QApplication::focusWidget();
    QKeyEvent event(type, key, held, text, repeated);
    event.setTimestamp(now);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(focused ? focused : &window, &event);
  }
  void Strike(int key, const QString& text = {}, Qt::KeyboardModifiers held = Qt::NoModifier) {
    Send(QEvent::KeyPress, key, text, held);
    Send(QEvent::KeyRelease, key, text, held);
  }
  void Letter(QChar letter) { Strike(letter.unicode() < 128 ? letter.toUpper().unicode() : int{Qt::Key_unknown}, QString(letter)); }
  void Enter() { Strike(Qt::Key_Return, "\r"); }
  void Fast(const QString& letters) {
    for (const QChar letter : letters) {
      now += 5;
      Letter(letter);
    }
  }
  void Scan(const QString& code) {
    Fast(code);
    now += 5;
    Enter();
  }
  void Pause() { now += 1000; }
  // Longer than a letter is held back.
  void Rest() { QTest::qWait(250); }

  CodeScanner scanner;
  ScannerKeys keys{scanner};
  Codes codes;
  std::function<void(const std::string&)> handler;
  std::string seen;  // what the grid, the button and the quantity heard
  quint64 now = 5'000'000;
};

TEST_F(ScannerKeysTest, a_burst_at_a_grid_is_a_code_of_which_the_grid_hears_nothing) {
  Focus(screen.StokGrid);
  Scan("8690001");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
  EXPECT_EQ(seen, "");
}

TEST_F(ScannerKeysTest, a_burst_at_a_button_does_not_press_it) {
  Focus(screen.Command1);
  Scan("8690001");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
  EXPECT_EQ(seen, "");
}

TEST_F(ScannerKeysTest, a_burst_is_a_code_where_nothing_has_the_focus_and_at_a_choice) {
  window.setFocus();
  Scan("8690001");
  screen.Frame3.SetVisible(true);
  for (Element* const element : {static_cast<Element*>(&screen.GurupCombo), &screen.StokChk}) {
    element->SetVisible(true);
    Of(*element)->setFocus();
    ASSERT_TRUE(Of(*element)->hasFocus()) << element->Name();
    Scan("8690002");
  }
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001", "8690002", "8690002"}));
  EXPECT_FALSE(screen.StokChk.Checked());
}

TEST_F(ScannerKeysTest, letters_outside_ascii_and_capitals_belong_to_a_code) {
  Focus(screen.StokGrid);
  Fast("ab");
  Send(QEvent::KeyPress, Qt::Key_Shift, {}, Qt::ShiftModifier);
  Strike(Qt::Key_C, "C", Qt::ShiftModifier);
  Send(QEvent::KeyRelease, Qt::Key_Shift, {});
  Scan("-ş 1");
  Rest();
  EXPECT_EQ(codes, (Codes{"abC-ş 1"}));
}

TEST_F(ScannerKeysTest, an_entry_field_gets_a_burst_as_typing_at_once) {
  std::string order;
  connections +=
      screen.Text1(1).character.Connect([&](CharacterEvent& event) { order += std::to_string(static_cast<int>(event.character)) + " "; });
  Focus(screen.Text1(1));
  Scan("8690");
  EXPECT_EQ(order, "56 54 57 48 13 ");
  EXPECT_EQ(screen.Text1(1).Text(), "8690");
  Rest();
  EXPECT_EQ(screen.Text1(1).Text(), "8690");
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, an_amount_never_keeps_a_code) {
  screen.Text2(1).SetText("3");
  Focus(screen.Text2(1));
  screen.Text2(1).SelectAll();
  Fast("8690001234567");
  now += 5;
  Enter();
  QTest::qWait(20);
  EXPECT_EQ(codes, (Codes{"8690001234567"}));
  EXPECT_EQ(screen.Text2(1).Text(), "3");
  EXPECT_EQ(seen.find("+13 "), std::string::npos) << seen;  // and its Enter confirms nothing
}

TEST_F(ScannerKeysTest, an_amount_typed_quickly_or_of_many_digits_stays_an_amount) {
  screen.Text2(1).SetText("0");
  Focus(screen.Text2(1));
  screen.Text2(1).SelectAll();
  Fast("1250000");  // seven digits are no barcode
  now += 5;
  Enter();
  EXPECT_EQ(screen.Text2(1).Text(), "1250000");
  now += 1000;
  screen.Text2(1).SelectAll();
  for (const QChar digit : QString("123456789")) {
    now += 60;  // by a hand
    Letter(digit);
  }
  now += 60;
  Enter();
  QTest::qWait(20);
  EXPECT_EQ(screen.Text2(1).Text(), "123456789");
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, a_field_that_is_closed_to_typing_is_no_entry_field) {
  screen.Text1(1).SetText("Pirinç");
  screen.Text1(1).SetLocked(true);
  Focus(screen.Text1(1));
  Scan("8690001");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
}

TEST_F(ScannerKeysTest, slow_typing_arrives_letter_by_letter_untouched) {
  Focus(screen.StokGrid);
  for (const QChar letter : QStringLiteral("86")) {
    Pause();
    Letter(letter);
    Rest();
  }
  EXPECT_EQ(seen, "+8 -8 +6 -6 ");
  Pause();
  Enter();
  EXPECT_EQ(seen, "+8 -8 +6 -6 +13 -13 ");
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, a_letter_held_down_arrives_at_once_and_its_release_when_it_comes) {
  Focus(screen.StokGrid);
  Send(QEvent::KeyPress, Qt::Key_A, "a");
  EXPECT_EQ(seen, "");
  now += 25;
  Send(QEvent::KeyPress, Qt::Key_A, "a", Qt::NoModifier, true);
  EXPECT_EQ(seen, "+A +A ");
  now += 25;
  Send(QEvent::KeyRelease, Qt::Key_A, "a");
  EXPECT_EQ(seen, "+A +A -A ");
  Rest();
  EXPECT_EQ(seen, "+A +A -A ");
}

TEST_F(ScannerKeysTest, a_burst_without_enter_arrives_whole_in_order_and_once) {
  Focus(screen.StokGrid);
  Fast("8690");
  EXPECT_EQ(seen, "");
  Rest();
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +0 -0 ");
  Pause();
  Enter();
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +0 -0 +13 -13 ");
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, enter_that_comes_late_ends_no_code) {
  Focus(screen.Command1);
  Fast("8690001");
  now += 60;
  Enter();
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +0 -0 +0 -0 +0 -0 +1 -1 +13 click -13 ");
  Rest();
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, three_letters_and_enter_are_typed_by_hand) {
  Focus(screen.Command1);
  Scan("869");
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +13 click -13 ");
  Rest();
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, other_keys_arrive_at_once_behind_what_was_typed_before) {
  Focus(screen.StokGrid);
  Strike(Qt::Key_Down);
  EXPECT_EQ(seen, "+40 -40 ");
  seen.clear();
  now += 5;
  Letter('a');
  now += 5;
  Strike(Qt::Key_Delete, "\x7f");
  EXPECT_EQ(seen, "+A -A +46 -46 ");
  Rest();
  EXPECT_EQ(seen, "+A -A +46 -46 ");
}

TEST_F(ScannerKeysTest, a_blank_presses_a_button_at_once) {
  Focus(screen.Command1);
  Strike(Qt::Key_Space, " ");
  EXPECT_EQ(seen, "+32 click -32 ");
}

TEST_F(ScannerKeysTest, a_tap_first_brings_what_was_typed) {
  Focus(screen.StokGrid);
  Letter('a');
  // As the window system reports it: to the window, which gives the focus to what lies there.
  QWidget* const button = Of(screen.Command1);
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->mapTo(&window, button->rect().center()));
  EXPECT_EQ(seen, "+A -A click ");
}

TEST_F(ScannerKeysTest, keys_of_the_window_system_make_a_code) {
  Focus(screen.Command1);
  // Struck in real time: on a machine that is busy elsewhere a burst may well break off.
  for (int attempt = 0; codes.empty() && attempt < 5; ++attempt) {
    QTest::qWait(600);
    seen.clear();
    for (const char digit : std::string("8690001")) QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(digit));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    Rest();
  }
  EXPECT_EQ(codes, (Codes{"8690001"}));
  EXPECT_EQ(seen, "");
}

TEST_F(ScannerKeysTest, keys_that_the_desk_sends_are_not_held_back) {
  Focus(screen.StokGrid);
  QtKeyboard().Send('A');
  QTest::qWait(5);
  EXPECT_EQ(seen, "+A -A ");
}

TEST_F(ScannerKeysTest, letters_follow_the_focus_that_the_first_of_them_moved) {
  connections += screen.StokGrid.keyDown.Connect([this](KeyEvent&) { screen.Text2(1).SetFocus(); });
  screen.Text2(1).SetText("");
  Focus(screen.StokGrid);
  Fast("12");
  Rest();
  EXPECT_EQ(seen, "+1 -1 +2 -2 ");
  EXPECT_EQ(screen.Text2(1).Text(), "2");
}

TEST_F(ScannerKeysTest, letters_for_a_grid_that_lost_the_focus_become_no_amount) {
  screen.Text2(1).SetText("1");
  Focus(screen.StokGrid);
  Fast("86");
  screen.Text2(1).SetFocus();
  now += 60;
  Letter('5');
  EXPECT_EQ(screen.Text2(1).Text().find_first_of("86"), std::string::npos);
  Rest();
  EXPECT_EQ(seen, "+5 -5 ");
  EXPECT_EQ(codes, Codes{});
}

TEST_F(ScannerKeysTest, a_focus_that_moves_under_a_burst_makes_no_amount_of_its_rest) {
  screen.Text2(1).SetText("1");
  Focus(screen.StokGrid);
  Fast("86");
  screen.Text2(1).SetFocus();
  Scan("90001");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
  EXPECT_EQ(screen.Text2(1).Text(), "1");
  EXPECT_EQ(seen, "");
}

TEST_F(ScannerKeysTest, what_is_typed_while_a_letter_arrives_comes_behind_it) {
  QtEventLoop loop;
  connections += screen.StokGrid.keyDown.Connect([&](KeyEvent& event) {
    if (event.code == 'A') loop.Wait(120);
  });
  Focus(screen.StokGrid);
  QTimer::singleShot(100, &window, [&] {
    Pause();
    Strike(Qt::Key_Down);
  });
  Fast("ab");
  QTest::qWait(300);
  EXPECT_EQ(seen, "+A -A +B -B +40 -40 ");
}

TEST_F(ScannerKeysTest, two_bursts_are_two_codes_also_when_the_second_comes_while_the_first_is_entered) {
  QtEventLoop loop;
  handler = [&](const std::string& code) {
    screen.Text1(1).SetFocus();
    if (code == "8690001") Scan("8690002");
    if (code == "8690001") QTimer::singleShot(20, &window, [this] { Fast("8690"); });
    if (code == "8690001") QTimer::singleShot(40, &window, [this] { Scan("003"); });
    loop.Wait(200);
    screen.Text1(1).SetText(code);
  };
  Focus(screen.StokGrid);
  Scan("8690001");
  (void)QTest::qWaitFor([this] { return codes.size() >= 3 && !scanner.Reporting(); });
  EXPECT_EQ(codes, (Codes{"8690001", "8690002", "8690003"}));
  EXPECT_EQ(screen.Text1(1).Text(), "8690003");
  Rest();
  EXPECT_EQ(codes.size(), 3U);
}

TEST_F(ScannerKeysTest, codes_without_a_pause_between_them_are_apart) {
  Focus(screen.StokGrid);
  Scan("8690001");
  Scan("8690002");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001", "8690002"}));
}

TEST_F(ScannerKeysTest, typing_while_a_code_is_entered_reaches_its_field) {
  QtEventLoop loop;
  handler = [&](const std::string&) {
    screen.Text1(1).SetFocus();
    Pause();
    Letter('x');
    loop.Wait(120);
  };
  Focus(screen.StokGrid);
  Scan("8690001");
  QTest::qWait(300);
  EXPECT_EQ(screen.Text1(1).Text(), "x");
}

TEST_F(ScannerKeysTest, the_second_enter_of_a_code_that_ends_with_two_signs_is_swallowed) {
  Focus(screen.Command1);
  Scan("8690001");
  now += 5;
  Enter();
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
  EXPECT_EQ(seen, "");
  Pause();
  Enter();
  EXPECT_EQ(seen, "+13 click -13 ");
}

TEST_F(ScannerKeysTest, keys_let_go_behind_the_code_reach_nobody) {
  handler = [this](const std::string&) { screen.Text2(1).SetFocus(); };
  Focus(screen.StokGrid);
  Fast("869000");
  now += 5;
  Send(QEvent::KeyPress, Qt::Key_1, "1");
  Send(QEvent::KeyPress, Qt::Key_Return, "\r");
  QTest::qWait(20);
  ASSERT_TRUE(Of(screen.Text2(1))->hasFocus());
  Send(QEvent::KeyRelease, Qt::Key_1, "1");
  Send(QEvent::KeyRelease, Qt::Key_Return, "\r");
  EXPECT_EQ(seen, "");
  EXPECT_EQ(codes, (Codes{"8690001"}));
}

TEST_F(ScannerKeysTest, a_code_that_broke_off_is_not_a_shorter_one_and_presses_nothing) {
  testing::LoggedLines log;
  Focus(screen.Command1);
  Fast("869000");
  Rest();
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +0 -0 +0 -0 +0 -0 ");
  now += 60;
  Scan("1234");
  Rest();
  EXPECT_EQ(codes, Codes{});
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +0 -0 +0 -0 +0 -0 ");
  EXPECT_TRUE(log.Holds("broke off"));
  Pause();
  Scan("8690001234");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001234"}));
}

TEST_F(ScannerKeysTest, keys_that_waited_behind_work_of_the_desk_are_still_a_burst) {
  Focus(screen.StokGrid);
  Fast("8690");
  QTest::qSleep(150);
  QCoreApplication::processEvents();  // the timer is late, and the rest still in the queue
  EXPECT_EQ(seen, "");
  Scan("001");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
  EXPECT_EQ(seen, "");
}

TEST_F(ScannerKeysTest, a_scanner_that_is_off_keeps_a_typed_code) {
  scanner.SetEnabled(false);
  Focus(screen.StokGrid);
  Scan("8690001");
  Rest();
  EXPECT_EQ(codes, Codes{});
  EXPECT_EQ(seen, "");
  scanner.SetEnabled(true);
  EXPECT_EQ(codes, (Codes{"8690001"}));
}

TEST_F(ScannerKeysTest, a_code_does_not_answer_a_box_and_is_entered_when_it_is_gone) {
  QMessageBox box(QMessageBox::Critical, "", "Satır Silinecek", QMessageBox::NoButton, &window);
  QPushButton* const yes = box.addButton("Evet", QMessageBox::YesRole);
  box.setModal(true);
  box.show();
  (void)QTest::qWaitForWindowActive(&box);
  yes->setFocus();
  Scan("8690001");
  Rest();
  EXPECT_TRUE(box.isVisible());
  EXPECT_EQ(codes, Codes{});
  QtKeyboard().Send(key::kEnter);
  Rest();
  EXPECT_TRUE(box.isVisible());
  box.close();
  (void)QTest::qWaitFor([this] { return !codes.empty(); });
  EXPECT_EQ(codes, (Codes{"8690001"}));
}

TEST_F(ScannerKeysTest, settling_brings_what_is_held_back_and_begins_anew) {
  Focus(screen.Command1);
  Fast("8690001");
  keys.Settle();
  EXPECT_EQ(seen, "+8 -8 +6 -6 +9 -9 +0 -0 +0 -0 +0 -0 +1 -1 ");
  seen.clear();
  Enter();
  EXPECT_EQ(seen, "+13 click -13 ");
  Scan("8690001");
  Rest();
  EXPECT_EQ(codes, (Codes{"8690001"}));
}

}  // namespace
}  // namespace karvel
