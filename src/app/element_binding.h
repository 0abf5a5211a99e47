// Ties one widget to its element, both ways: what the element holds is shown, and the clerk's keys and taps become the element's events.
//
// What stays true:
// - The steps of a key are key down, character, the edit, key up; one that is dropped ends the key.
// - A tap is a press and a release on the widget; the second press of a double tap counts as the double tap, not as a tap.
// - A key of a small window is tapped by its press, each press once, and a right press or a held finger types nothing more.
// - Holding a finger on a label, panel or list row for 0.7 seconds is a right press of the mouse.
// - Nothing reaches an element that is not shown, not open, or while the desk takes no input.
// - A widget that is hidden or turned off gives the focus back to the window, not to a neighbour; it returns with the widget.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

#include "app/desk_ui.h"

class QKeyEvent;
class QMouseEvent;

namespace karvel {

class ElementBinding : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    std::function<void()> sync{};          // shows text, colour, choice; visibility and focus are the binding's own
    std::function<void(char32_t)> type{};  // the default action of a character that was not dropped
    std::function<bool()> placed{};        // whether the layout has room for the widget now; empty: always
    QWidget* surface = nullptr;            // who gets the mouse, where it isn't the widget (the viewport of a list)
    bool tapClicks = true;                 // a tap fires `click`; widgets with a click of their own say no
    bool mouseEvents = true;               // press, move and release go to the element
    bool pressClicks = false;              // `click` comes with the press itself, also with the second one of two quick ones
  };

  ElementBinding(DeskUi& ui, Element& element, QWidget& widget, Parts parts);

  // Shows the element as it is now.
  void Refresh();
  // Only visibility, and whether it is open; after a panel above it changed.
  void RefreshShown();
  // Replaces the layout's answer to whether there is room.
  void SetPlaced(std::function<bool()> placed) { parts_.placed = std::move(placed); }

  static ElementBinding* Of(const QWidget* widget);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool OnKeyPress(const QKeyEvent& event);
  void OnKeyRelease(const QKeyEvent& event);
  void OnPress(const QMouseEvent& event);
  bool OnRelease(const QMouseEvent& event);
  void OnHeld();
  void MoveTab(bool forward);
  [[nodiscard]] bool Reached() const { return ui_.Reaches(element_); }
  [[nodiscard]] bool SwallowsMouse() const;

  DeskUi& ui_;
  Element& element_;
  QWidget& widget_;
  Parts parts_;
  QTimer hold_;
  MouseEvent pressedAt_;
  bool entering_ = false;  // the focus came with a press that is on its way
  bool pressed_ = false, doubled_ = false, held_ = false, wandered_ = false;
  Connections connections_;
};

// Whether the element and all its panels are enabled. The form is left out: its state keeps out all input, and changes no look.
[[nodiscard]] bool OpenBelowForm(const Element& element);

}  // namespace karvel
