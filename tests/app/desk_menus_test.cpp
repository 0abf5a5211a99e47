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

}  // namespace
}  // namespace karvel
