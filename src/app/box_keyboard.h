// The on-screen keyboard inside a box that asks for a text: a box stands over the whole desk, and the keyboard that floats there with it.
// It comes by a tap into the box's line, by the same choice of the clerk as on the desk, and writes into that line alone.
#pragma once

#include <QDialog>
#include <QLineEdit>

#include "app/desk_ui.h"
#include "app/key_card.h"
#include "desk/keyboard_keys.h"

namespace karvel {

class BoxKeyboard : public QObject {
  Q_OBJECT

 public:
  // Belongs to the box. The line lies on it.
  BoxKeyboard(QDialog& box, QLineEdit& line, Settings& settings);
  [[nodiscard]] KeyboardScreen& Keys() { return screen_.Form2; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Open();

  QDialog& box_;
  QLineEdit& line_;
  Settings& settings_;
  Screen screen_;
  DeskUi ui_{screen_};
  KeyboardKeys keys_;
  KeyCard* card_ = nullptr;
  bool typed_ = false;  // a real keyboard was used in the line
  Connections connections_;
};

}  // namespace karvel
