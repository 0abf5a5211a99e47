// A key of a small window: painted here, pressed by its binding, and never the keyboard's.
#pragma once

#include <QWidget>

#include "app/desk_ui.h"

namespace karvel {

enum class KeyLook { Letter, Digit, Word, Main };  // Word: a key that does something; Main: what the window is for

class FloatingKey : public QWidget {
  Q_OBJECT

 public:
  FloatingKey(const DeskUi& ui, const Element& element, KeyLook look, QWidget* parent);
  // Shows the element's caption and state as they are now.
  void Sync();
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QFont TextFont() const;

  const DeskUi& ui_;
  const Element& element_;
  const KeyLook look_;
  QString text_;
  int state_ = -1;
};

}  // namespace karvel
