#include "app/start_notice.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "app/qt_text.h"

namespace karvel {
namespace {

const QLabel* Shown() {
  for (const QWidget* const widget : QApplication::topLevelWidgets())
    if (const auto* const label = qobject_cast<const QLabel*>(widget); label && label->isVisible()) return label;
  return nullptr;
}

TEST(StartNotice, says_why_a_start_waits_and_goes_with_the_wait) {
  Screen screen;
  const StartNotice notice(screen);
  EXPECT_EQ(Shown(), nullptr);
  screen.Label16.SetCaption("Başka bir terminal kayıt yapıyor, bekleniyor…");
  screen.Frame5.SetVisible(true);
  ASSERT_NE(Shown(), nullptr);
  EXPECT_EQ(ToUtf8(Shown()->text()), "Başka bir terminal kayıt yapıyor, bekleniyor…");
  screen.Frame5.SetVisible(false);
  EXPECT_EQ(Shown(), nullptr);
}

}  // namespace
}  // namespace karvel
