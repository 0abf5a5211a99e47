// The pop-up menus, made from the menu elements. An entry only tells its element that it was tapped; the features set the check marks.
#pragma once

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QObject>

#include "app/desk_ui.h"

namespace karvel {

class DeskMenus : public QObject {
  Q_OBJECT

 public:
  DeskMenus(DeskUi& ui, QWidget* window);
  [[nodiscard]] QAction* ActionOf(const Element& element) const { return actions_.value(&element); }
  [[nodiscard]] QMenu* MenuOf(const Element& element) const { return menus_.value(&element); }
  // Opens a menu at a place on the screen. Returns without waiting for the clerk's choice.
  void PopUp(const Element& element, const QPoint& at);

 private:
  void AddEntry(Element& element, const Elements& all);
  void Show(Element& element);

  DeskUi& ui_;
  QWidget* const window_;
  QHash<const Element*, QAction*> actions_;
  QHash<const Element*, QMenu*> menus_;
  Connections connections_;
};

}  // namespace karvel
