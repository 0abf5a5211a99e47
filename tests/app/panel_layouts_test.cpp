// Every panel finds its place on every size of window, with targets that a finger hits. KARVEL_SHOTS names a folder for pictures.
#include <QDir>
#include <QSize>

#include "app/panel_card.h"
#include "app/qt_text.h"
#include "window_fixture.h"

namespace karvel {
namespace {

const QSize kSizes[] = {{1024, 768}, {1366, 768}, {1920, 1080}};

class PanelLayout : public WindowTest {
 protected:
  void Shot(const std::string& name) {
    const QString folder = qEnvironmentVariable("KARVEL_SHOTS");
    if (folder.isEmpty()) return;
    QDir().mkpath(folder);
    window.grab().save(QDir(folder).filePath(ToQt(name) + QString("_%1.png").arg(window.width())));
  }

  void Settle() {
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
  }

  void InSale() {
    screen.CariGrid.SetVisible(false);
    screen.Frame2.SetVisible(true);
    screen.Command3.SetVisible(true);
  }

  static bool IsTarget(const Element& element) {
    switch (element.Kind()) {
      case ElementKind::TextBox:
      case ElementKind::Button:
      case ElementKind::CheckBox:
      case ElementKind::Combo:
      case ElementKind::DatePicker:
        return true;
      default:
        return element.Name().starts_with("Label1(");
    }
  }

  void ExpectReachable(const std::string& situation) {
    for (const Element* element : screen.elements.All()) {
      QWidget* const widget = Of(*element);
      if (!widget || widget == &window || !widget->isVisible() || !element->IsShown()) continue;
      const QRect place(widget->mapTo(&window, QPoint()), widget->size());
      EXPECT_TRUE(window.rect().contains(place)) << situation << ": " << element->Name() << " lies outside the window";
      const QRect holder(widget->parentWidget()->mapTo(&window, QPoint()), widget->parentWidget()->size());
      EXPECT_TRUE(holder.contains(place)) << situation << ": " << element->Name() << " is cut off";
      if (IsTarget(*element)) {
        EXPECT_GE(widget->height(), 48) << situation << ": " << element->Name();
      }
      if (element->Kind() == ElementKind::Grid) {
        EXPECT_GE(widget->height(), 44 + 3 * 42) << situation << ": " << element->Name();
      }
    }
  }
};

TEST_F(PanelLayout, the_desk_at_rest_fits_every_window) {
  screen.Command3.SetVisible(true);
  for (const QSize size : kSizes) {
    window.resize(size);
    Settle();
    ExpectReachable("at rest");
    Shot("rest");
  }
}

TEST_F(PanelLayout, the_sale_fits_every_window) {
  InSale();
  for (const QSize size : kSizes) {
    window.resize(size);
    Settle();
    ExpectReachable("in a sale");
    EXPECT_GE(Of(screen.Command2)->height(), 64);
    Shot("sale");
  }
}

TEST_F(PanelLayout, every_panel_fits_every_window_at_rest_and_in_a_sale) {
  screen.Command3.SetVisible(true);
  for (const bool inSale : {false, true}) {
    if (inSale) InSale();
    for (const QSize size : kSizes) {
      window.resize(size);
      for (Element* panel : screen.elements.All()) {
        if (panel->Kind() != ElementKind::Panel || panel == &screen.Frame2) continue;
        // The strips of the customer list are out with it during a sale.
        if (inSale && (panel == &screen.CiroFrm || panel == &screen.StokFrm)) continue;
        panel->SetVisible(true);
        panel->BringToFront();
        Settle();
        EXPECT_TRUE(Of(*panel)->isVisible()) << panel->Name();
        ExpectReachable(panel->Name());
        Shot((inSale ? "sale_" : "rest_") + panel->Name());
        panel->SetVisible(false);
        Settle();
      }
    }
  }
}

TEST_F(PanelLayout, elements_of_one_panel_do_not_overlap) {
  // The low ones: a 1366×768 screen at 125, 150 and 200 %, one of 1920×1080 and one of 1024×768 at 200 %.
  const QSize sizes[] = {{1024, 768}, {1366, 768}, {1092, 614}, {910, 512}, {683, 384}, {960, 540}, {512, 384}};
  for (const QSize size : sizes) {
    window.resize(size);
    for (Element* panel : screen.elements.All()) {
      if (panel->Kind() != ElementKind::Panel || panel == &screen.Frame2) continue;
      panel->SetVisible(true);
      Settle();
      std::vector<std::pair<std::string, QRect>> places;
      const auto expectFree = [&](const std::string& name, const QWidget& widget) {
        const QRect place(widget.mapTo(&window, QPoint()), widget.size());
        for (const auto& [other, taken] : places)
          EXPECT_FALSE(place.intersects(taken)) << size.width() << ": " << name << " over " << other;
        places.emplace_back(name, place);
      };
      for (const Element* element : screen.elements.All())
        if (element->Panel() == panel && Of(*element) && Of(*element)->isVisible()) expectFree(element->Name(), *Of(*element));
      // The names of the fields, and the title.
      for (const QLabel* label : Of(*panel)->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
        if (label->isVisible() && !label->text().isEmpty()) expectFree(label->text().toStdString(), *label);
      panel->SetVisible(false);
    }
  }
}

TEST_F(PanelLayout, a_panel_brought_to_the_front_lies_over_the_others) {
  screen.CariFrm.SetVisible(true);
  screen.StokGiris.SetVisible(true);
  screen.CariFrm.BringToFront();
  Settle();
  const QPoint middle = Of(screen.CariFrm)->geometry().center();
  QWidget* const top = Of(screen.CariFrm)->parentWidget()->childAt(middle);
  EXPECT_TRUE(top == Of(screen.CariFrm) || Of(screen.CariFrm)->isAncestorOf(top));
  screen.StokGiris.BringToFront();
  QWidget* const then = Of(screen.CariFrm)->parentWidget()->childAt(middle);
  EXPECT_TRUE(then == Of(screen.StokGiris) || Of(screen.StokGiris)->isAncestorOf(then));
}

TEST_F(PanelLayout, the_lists_of_the_sale_show_only_while_the_customer_list_is_away) {
  EXPECT_TRUE(Of(screen.CariGrid)->isVisible());
  EXPECT_FALSE(Of(screen.StokGrid)->isVisible());
  EXPECT_FALSE(Of(screen.HareketGrid)->isVisible());
  InSale();
  EXPECT_FALSE(Of(screen.CariGrid)->isVisible());
  EXPECT_TRUE(Of(screen.StokGrid)->isVisible());
  EXPECT_TRUE(Of(screen.Text1(1))->isVisible());
  screen.StokGrid.SetVisible(false);
  EXPECT_FALSE(Of(screen.StokGrid)->isVisible());
  screen.Frame2.SetVisible(false);
  EXPECT_FALSE(Of(screen.Text1(1))->isVisible());
}

TEST_F(PanelLayout, every_field_has_a_name_to_hear) {
  for (const Element* element : screen.elements.All()) {
    QWidget* const widget = Of(*element);
    if (!widget || !IsTarget(*element)) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << element->Name();
  }
}

}  // namespace
}  // namespace karvel
