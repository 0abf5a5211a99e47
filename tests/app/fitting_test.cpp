#include <algorithm>
#include <filesystem>
#include <ostream>

#include "app/element_binding.h"
#include "app/qt_window.h"
#include "tests/support/temp_folder.h"
#include "window_fixture.h"

namespace karvel {
namespace {

// A screen in dots, and how many of them a pixel of the desk has.
struct ScreenKind {
  int width, height;
  double dots;
  [[nodiscard]] QSize Size() const { return {static_cast<int>(width / dots), static_cast<int>(height / dots)}; }
};

void PrintTo(const ScreenKind& kind, std::ostream* out) {
  *out << kind.width << 'x' << kind.height << " at " << kind.dots;
}

class FittingTest : public WindowTest, public testing::WithParamInterface<ScreenKind> {
 protected:
  FittingTest() { Fill(GetParam().Size()); }
  void Fill(const QSize& size) {
    window.resize(size);
    QCoreApplication::processEvents();
  }
  // Every element that is seen lies inside the window, with all of itself.
  void ExpectAllInside() {
    for (const Element* element : screen.elements.All()) {
      const QWidget* const widget = Of(*element);
      if (!widget || widget == &window || !widget->isVisible()) continue;
      const QRect place(widget->mapTo(&window, QPoint()), widget->size());
      EXPECT_TRUE(window.rect().contains(place))
          << element->Name() << " at " << place.left() << ',' << place.top() << ' ' << place.width() << 'x' << place.height();
      EXPECT_GE(widget->width(), widget->minimumWidth()) << element->Name();
      // Rows give way by a third at most: their letters have that much room.
      const int least = std::min(widget->minimumSizeHint().height(), widget->maximumHeight());
      EXPECT_GE(widget->height(), least * 65 / 100) << element->Name();
      EXPECT_GT(widget->width(), 20) << element->Name();
    }
  }
  void ShowSale() {
    screen.CariGrid.SetVisible(false);
    screen.Frame2.SetVisible(true);
    screen.Command3.SetVisible(true);
    QCoreApplication::processEvents();
  }
};

TEST_P(FittingTest, the_resting_desk_is_all_in_the_window) {
  EXPECT_EQ(window.size(), GetParam().Size());
  screen.Command3.SetVisible(true);
  QCoreApplication::processEvents();
  ExpectAllInside();
}

TEST_P(FittingTest, the_sale_is_all_in_the_window) {
  ShowSale();
  ExpectAllInside();
}

TEST_P(FittingTest, every_panel_is_all_in_the_window) {
  for (Element* const panel :
       {&screen.StokGiris, &screen.CariFrm, &screen.StokAl, &screen.TahsilatFrame, &screen.CariFrame, &screen.FatFrame, &screen.StkFrame,
        &screen.Frame1, &screen.Frame3, &screen.Frame4, &screen.Frame5, &screen.Vadefrm}) {
    SCOPED_TRACE(panel->Name());
    panel->SetVisible(true);
    QCoreApplication::processEvents();
    ExpectAllInside();
    panel->SetVisible(false);
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, FittingTest,
                         testing::Values(ScreenKind{1024, 768, 1}, ScreenKind{1366, 768, 1}, ScreenKind{1920, 1080, 1},
                                         ScreenKind{1024, 768, 1.25}, ScreenKind{1366, 768, 1.25}, ScreenKind{1920, 1080, 1.25},
                                         ScreenKind{1024, 768, 1.5}, ScreenKind{1366, 768, 1.5}, ScreenKind{1920, 1080, 1.5},
                                         ScreenKind{1024, 768, 2}, ScreenKind{1366, 768, 2}, ScreenKind{1920, 1080, 2},
                                         ScreenKind{960, 640, 1}, ScreenKind{1000, 700, 1}));

using ThemeScaleTest = WindowTest;

TEST_F(ThemeScaleTest, from_960_to_640_on_every_piece_has_its_own_size) {
  Theme theme;
  theme.FitTo(960, 640);
  EXPECT_EQ(theme.Px(100), 100);
}

TEST_F(ThemeScaleTest, a_smaller_window_is_drawn_smaller_by_its_tighter_side) {
  Theme theme;
  theme.FitTo(480, 640);
  EXPECT_EQ(theme.Px(100), 50);
  theme.FitTo(960, 320);
  EXPECT_EQ(theme.Px(100), 50);
}

TEST_F(ThemeScaleTest, rows_stand_closer_before_anything_is_drawn_smaller_and_no_target_is_too_low_for_a_finger) {
  for (const QSize& size : {QSize(960, 640), QSize(1000, 700)}) {
    window.resize(size);
    screen.CariGrid.SetVisible(false);
    screen.Frame2.SetVisible(true);
    QCoreApplication::processEvents();
    for (const Element* target :
         {&screen.Label1(0), &screen.Label1(2), &screen.Label3, &screen.Text2(0), &screen.Text2(3), &screen.Command1})
      EXPECT_GE(Of(*target)->height(), 48) << target->Name() << " " << size.height();
    EXPECT_GE(Of(screen.Command2)->height(), 64);
  }
}

TEST_F(ThemeScaleTest, a_larger_one_is_drawn_larger) {
  Theme theme;
  theme.FitTo(1920, 1080);
  EXPECT_EQ(theme.Px(100), 130);
}

TEST_F(ThemeScaleTest, back_at_its_own_size_nothing_is_left_of_the_smaller_one) {
  Theme theme;
  theme.FitTo(480, 320);
  theme.FitTo(1024, 768);
  EXPECT_EQ(theme.Px(100), 100);
}

class FirstFittingTest : public WindowTest {
 protected:
  FirstFittingTest() {
    window.hide();
    frame.Attach(&window);
  }
  void Show() {
    frame.Show();
    QCoreApplication::processEvents();
  }
  TempFolder folder;
  QtWindow frame{folder.Path()};
};

TEST_F(FirstFittingTest, a_window_that_was_never_kept_fills_its_screen) {
  frame.RestoreFitting("VelmoraKrv");
  Show();
  EXPECT_TRUE(window.isMaximized());
  EXPECT_EQ(window.frameGeometry(), window.screen()->availableGeometry());
}

TEST_F(FirstFittingTest, a_kept_place_comes_back) {
  window.setGeometry(10, 20, 700, 600);
  frame.SaveFitting("VelmoraKrv");
  window.setGeometry(0, 0, 650, 500);
  frame.RestoreFitting("VelmoraKrv");
  Show();
  EXPECT_FALSE(window.isMaximized());
  EXPECT_EQ(window.geometry(), QRect(10, 20, 700, 600));
}

TEST_F(FirstFittingTest, a_place_kept_on_a_larger_screen_is_brought_onto_this_one) {
  window.setGeometry(900, 700, 3000, 2000);
  frame.SaveFitting("VelmoraKrv");
  frame.RestoreFitting("VelmoraKrv");
  Show();
  const QRect place = window.frameGeometry();
  EXPECT_TRUE(window.screen()->availableGeometry().contains(place))
      << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
}

TEST_F(FirstFittingTest, a_window_that_filled_the_screen_fills_it_again) {
  Show();
  frame.SaveFitting("VelmoraKrv");
  window.showNormal();
  window.hide();
  frame.RestoreFitting("VelmoraKrv");
  Show();
  EXPECT_TRUE(window.isMaximized());
}

TEST_F(FirstFittingTest, a_window_that_is_fixed_still_fills_the_screen) {
  Show();
  frame.SetFixed(true);
  EXPECT_TRUE(window.isMaximized());
  EXPECT_EQ(window.frameGeometry(), window.screen()->availableGeometry());
}

}  // namespace
}  // namespace karvel
