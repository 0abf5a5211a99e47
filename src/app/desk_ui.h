// What the widgets of one window share: the elements they show, the theme, and who shows what.
#pragma once

#include <QHash>
#include <QPoint>
#include <QWidget>
#include <functional>

#include "app/theme.h"
#include "desk/screen.h"

namespace karvel {

struct DeskUi {
  explicit DeskUi(Screen& owner) : screen(owner) {}
  Screen& screen;
  Theme theme;
  QHash<const Element*, QWidget*> widgets;
  // Where the finger last came down, on the screen.
  QPoint lastPress;
  // What a key that no element wanted does: the keyboard's way to what fingers reach by a double tap. True when it did something.
  std::function<bool(int code)> spareKey;

  // While the desk is busy or its form is off, no key or tap reaches an element.
  [[nodiscard]] bool TakesInput() const { return !screen.Busy() && screen.Form1.Enabled(); }
  [[nodiscard]] bool Reaches(const Element& element) const { return TakesInput() && element.IsShown() && element.IsOpen(); }
};

}  // namespace karvel
