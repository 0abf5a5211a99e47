#include <QAction>

#include "window_fixture.h"

namespace karvel {
namespace {

class DeskMenusTest : public WindowTest {};

TEST_F(DeskMenusTest, a_menu_entry_tells_its_tap_and_mirrors_the_check_mark) {
  QAction* const entry = window.ActionOf(screen.Stoklu);
  ASSERT_NE(entry, nullptr);
  int clicks = 0;
  connections += screen.Stoklu.click.Connect([&] { ++clicks; });
  entry->trigger();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(entry->isChecked());  // only the element decides
  screen.Stoklu.SetChecked(true);
  EXPECT_TRUE(entry->isChecked());
  EXPECT_EQ(clicks, 1);
  screen.CarSil.SetCaption("Cari Hareketleri Sil");
  EXPECT_EQ(window.ActionOf(screen.CarSil)->text(), "Cari Hareketleri Sil");
  EXPECT_EQ(window.WidgetOf(screen.Stoklu), nullptr);
}

TEST_F(DeskMenusTest, a_pop_up_opens_when_the_desk_asks) {
  screen.popUp(screen.PopBrk);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(QApplication::activePopupWidget(), window.MenuOf(screen.PopBrk));
  QApplication::activePopupWidget()->close();
}

TEST_F(DeskMenusTest, what_is_no_switch_shows_no_box_for_a_mark) {
  for (const Element* entry : {&screen.Form3.MikMenu(0), &screen.Form3.MikMenu(1), &screen.Form3.MikMenu(2), &screen.Yedek}) {
    ASSERT_NE(window.ActionOf(*entry), nullptr);
    EXPECT_FALSE(window.ActionOf(*entry)->isCheckable()) << entry->Name();
  }
  EXPECT_TRUE(window.ActionOf(screen.Stoklu)->isCheckable());
}

}  // namespace
}  // namespace karvel
