// Buttons and check boxes for fingers. Painted here: their state colours change with the clerk's choice.
#pragma once

#include <QAbstractButton>

#include "app/desk_ui.h"

namespace karvel {

enum class ButtonLook { Usual, Primary, Main };  // Primary: what a card is for; Main: the largest of the desk

class TouchButton : public QAbstractButton {
  Q_OBJECT

 public:
  TouchButton(const DeskUi& ui, const Element& element, QWidget* parent);
  void SetLook(ButtonLook look);
  // Under this caption a press deletes, and the button looks so.
  void SetDeletingCaption(const QString& caption) { deletingCaption_ = caption; }
  // Shows the element as it is now.
  void Sync();
  [[nodiscard]] QFont TextFont() const;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const DeskUi& ui_;
  const Element& element_;
  ButtonLook look_ = ButtonLook::Usual;
  QString deletingCaption_;
  int state_ = -1;
};

class TouchCheck : public QAbstractButton {
  Q_OBJECT

 public:
  TouchCheck(const DeskUi& ui, const Element& element, QWidget* parent);
  void Sync();
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  // The element decides whether the tick changes.
  void nextCheckState() override {}

 private:
  const DeskUi& ui_;
  const Element& element_;
};

}  // namespace karvel
