// A label as a touch target: field names that answer a double tap, mode tiles, amounts. Painted here, so that a change of state
// (all field names yellow, one green, at every move of the focus) costs a repaint and nothing else. One that answers taps can also have the
// keyboard: Tab leads to it, a tap leaves the focus where it is.
#pragma once

#include <QWidget>

#include "app/desk_ui.h"

namespace karvel {

enum class LabelLook {
  Plain,      // text alone
  FieldName,  // the name of a field: a bar at the left, a marker when its field has the focus
  Tile,       // filled by its state: the mode of the line, the form of payment
  Action,     // a tile that leads somewhere
  Amount,     // figures at the right
  Figure,     // the same on a ground of its own
  BigAmount,  // the balance
};

class TouchLabel : public QWidget {
  Q_OBJECT

 public:
  TouchLabel(const DeskUi& ui, Element& element, QWidget* parent);

  void SetLook(LabelLook look);
  [[nodiscard]] LabelLook Look() const { return look_; }
  // A word that stands beside the amount while it is red.
  void SetRedNote(const QString& note);
  // Whether a finger, and so a key, does anything here.
  [[nodiscard]] bool AnswersTaps() const;
  // The default action of a key: Space is a tap, Enter a double tap, which begins with a tap.
  void Type(char32_t letter);
  // Shows the element's caption and state as they are now.
  void Sync();
  [[nodiscard]] QFont TextFont() const;
  [[nodiscard]] int InnerWidth() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void PaintGround(QPainter& painter, const QRectF& box) const;
  [[nodiscard]] bool IsAmount() const { return look_ == LabelLook::Amount || look_ == LabelLook::Figure || look_ == LabelLook::BigAmount; }

  const DeskUi& ui_;
  Element& element_;
  LabelLook look_ = LabelLook::Plain;
  QString text_;
  QString redNote_;
  int state_ = -1;
};

}  // namespace karvel
