// A window over the screen's elements alone: no stores, no features. What the tests say to an element is all that happens.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <string>
#include <vector>

#include "app/desk_window.h"

namespace karvel {

class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    window.resize(1024, 768);
    window.show();
    (void)QTest::qWaitForWindowActive(&window);
  }

  QWidget* Of(const Element& element) { return window.WidgetOf(element); }

  // One key as a person strikes it, letters outside ASCII included.
  void Strike(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(key), text, held);
  }
  void Type(QWidget* widget, const QString& text) {
    for (const QChar letter : text) Strike(widget, Qt::Key_unknown, QString(letter));
  }
  // Two quick taps, as the window system reports them: the second press comes as a double press.
  void DoubleTap(QWidget* widget, const QPoint& at = {}) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
  }
  void Focus(Element& element) {
    element.SetFocus();
    ASSERT_TRUE(Of(element)->hasFocus()) << element.Name();
  }

  Screen screen;
  Connections connections;  // what a test hears
  bool mayClose = true;
  std::vector<bool> closeRequests;
  int activations = 0;
  DeskWindow window{screen,
                    {"Velmora Karvel1", [this] { ++activations; },
                     [this](bool byProgram) {
                       closeRequests.push_back(byProgram);
                       return mayClose;
                     }}};
};

}  // namespace karvel
