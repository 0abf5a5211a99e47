// A small window that floats over the desk's: a card on top of everything in it, with elements of its own.
//
// What stays true:
// - It is shown while its form element is visible and no box is up, and takes the keyboard from nobody by that.
// - Its frame (desk/floating_frame.h) says where it stands; a finger that drags its ground moves it, at the lower right corner sizes it.
// - When it goes, or the focus leaves its own box, the desk's field has the keyboard again.
#pragma once

#include "app/key_card.h"
#include "desk/floating_frame.h"

namespace karvel {

class FloatingPanel : public KeyCard {
  Q_OBJECT

 public:
  // `window` is the desk's; the panel lies on it.
  FloatingPanel(DeskUi& ui, ElementTable& table, Element& form, FloatingFrame& frame, QWidget* window);

  // While a box is up it is out of sight.
  void SetCovered(bool covered);
  // Tells the frame what lies around, and goes where that says.
  void Lay();

 private:
  void Sync();
  void Follow();
  // The clerk sees in each list what he would pick: it follows what is left of it.
  void ShowRowsInFront();
  void GiveBackKeyboard();
  void TakeHold(const MouseEvent& event);
  void Drag(const MouseEvent& event);
  // The panel in front that has keys of its own; null when none is open.
  [[nodiscard]] const Element* CardInFront() const;
  [[nodiscard]] WindowBox PlaceOf(const Element& element) const;

  Element& form_;
  FloatingFrame& frame_;
  bool covered_ = false, sizes_ = false;
  QPoint pressedAt_;
  WindowBox pressedBox_;
};

}  // namespace karvel
