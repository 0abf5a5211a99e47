// The desk's window: a widget for every element of the screen, bound both ways, and the window's own life.
//
// What stays true:
// - All of the desk is inside the window, whatever its size; below 960×640 it is drawn smaller.
// - The first activation runs once the window stands on the screen, from the event loop.
// - A close request asks the desk first; while it is being answered, further requests are ignored.
// - While the desk takes no input (busy pointer, form off), keys and taps on the window end here.
#pragma once

#include <QMainWindow>
#include <functional>
#include <vector>

#include "app/desk_menus.h"
#include "app/desk_ui.h"
#include "app/floating_panel.h"
#include "app/main_layout.h"
#include "app/panel_card.h"
#include "desk/desk.h"

namespace karvel {

// What the window asks of the desk behind it.
struct DeskLife {
  QString title;
  std::function<void()> activate;
  std::function<bool(bool byProgram)> mayClose;
};

class DeskWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit DeskWindow(Desk& desk)
      : DeskWindow(desk.screen, {QString::fromStdString(desk.Title()), [&desk] { desk.Activate(); },
                                 [&desk](bool byProgram) { return desk.CloseRequested(byProgram); }}) {}
  DeskWindow(Screen& screen, DeskLife life);

  // The widget of an element; null for menus.
  [[nodiscard]] QWidget* WidgetOf(const Element& element) const { return ui_.widgets.value(&element); }
  // The entry of a menu element; null for anything else.
  [[nodiscard]] QAction* ActionOf(const Element& element) const { return menus_->ActionOf(element); }
  [[nodiscard]] QMenu* MenuOf(const Element& element) const { return menus_->MenuOf(element); }
  [[nodiscard]] DeskUi& Ui() { return ui_; }

  // Closes on the program's own wish: the desk is asked, with byProgram set.
  void CloseByProgram();
  // Closes without asking the desk, also in the middle of a close request.
  void EndAtOnce();
  void ShowTitleInside(bool shown);
  // Taps on this element's widget alone are taken, and Escape as a tap on it; the window doesn't close. Null: all are taken again.
  void HearOnly(const Element* element);
  [[nodiscard]] const Element* Heard() const { return heard_; }

 Q_SIGNALS:
  void activated();
  void closed();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void MakeWidgets();
  void NameFields();
  void FollowPanels();
  void FollowFocus();
  void FollowPointer();
  // The list in front gets the keyboard where nobody has it once what runs now is done: else no key would be heard.
  void SpareNobody();
  void ApplyTheme();
  void LayCards();
  bool SpareKey(int code);
  [[nodiscard]] bool IsHeard(QObject* object, QEvent* event) const;
  [[nodiscard]] bool Belongs(const QObject* object) const;

  DeskUi ui_;
  const DeskLife life_;
  MainLayout* surface_ = nullptr;
  DeskMenus* menus_ = nullptr;
  std::vector<PanelCard*> cards_;
  std::vector<FloatingPanel*> floating_;
  const Element* heard_ = nullptr;
  bool activationAsked_ = false, closing_ = false, ended_ = false, byProgram_ = false, pointerBusy_ = false, laying_ = false;
  Connections connections_;
};

}  // namespace karvel
