#include "app/desk_menus.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/qt_text.h"

namespace karvel {
namespace {

// Entries that do something, in contrast to the options with a check mark.
constexpr std::array<std::string_view, 11> kCommands{"CarSil",    "Yuzde",     "Yedek",      "FontDialog", "MnPop(10)", "MnPop(11)",
                                                     "MnPop(12)", "MnPop(13)", "MikMenu(0)", "MikMenu(1)", "MikMenu(2)"};

bool IsCommand(const Element& element) {
  return std::ranges::find(kCommands, element.Name()) != kCommands.end();
}

}  // namespace

DeskMenus::DeskMenus(DeskUi& ui, QWidget* window) : QObject(window), ui_(ui), window_(window) {
  for (const Elements* const all : {&ui.screen.elements, &ui.screen.Form3.elements})
    for (Element* element : all->All())
      if (element->Kind() == ElementKind::Menu) AddEntry(*element, *all);
  connections_ += ui.screen.popUp.Connect([this](Element& element) { PopUp(element, ui_.lastPress); });
}

void DeskMenus::AddEntry(Element& element, const Elements& all) {
  const bool holdsOthers = std::ranges::any_of(all.All(), [&](const Element* other) { return other->Panel() == &element; });
  QMenu* const above = menus_.value(element.Panel());
  if (holdsOthers || !above) {
    QMenu* const menu = above ? above->addMenu(ToQt(element.Caption())) : new QMenu(window_);
    menu->setObjectName(ToQt(element.Name()));
    menus_.insert(&element, menu);
    if (above) actions_.insert(&element, menu->menuAction());
  } else {
    QAction* const action = above->addAction(QString());
    action->setObjectName(ToQt(element.Name()));
    action->setCheckable(!IsCommand(element));
    actions_.insert(&element, action);
    connect(action, &QAction::triggered, this, [this, &element] {
      Show(element);  // Qt turned the mark; the element did not
      if (ui_.TakesInput() && element.Enabled()) element.click();
      Show(element);
    });
  }
  Show(element);
  connections_ += element.altered.Connect([this, &element] { Show(element); });
}

void DeskMenus::Show(Element& element) {
  QAction* const action = actions_.value(&element);
  if (!action) return;
  action->setText(ToQt(element.Caption()).trimmed().replace('&', "&&"));
  action->setVisible(element.Visible());
  action->setEnabled(element.Enabled());
  if (action->isCheckable()) action->setChecked(element.Checked());
}

void DeskMenus::PopUp(const Element& element, const QPoint& at) {
  if (QMenu* const menu = menus_.value(&element)) menu->popup(at);
}

}  // namespace karvel
