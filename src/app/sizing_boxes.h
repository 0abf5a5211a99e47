// The handles around StkFrame as small squares that a finger can take, each with a good margin that takes the finger too.
#pragma once

#include <QObject>

#include "app/desk_ui.h"

namespace karvel {

class SizingBoxes : public QObject {
  Q_OBJECT

 public:
  SizingBoxes(DeskUi& ui, QWidget* parent);

 private:
  void Dress(int index, QWidget& box) const;
  void Place();

  DeskUi& ui_;
  Connections connections_;
};

}  // namespace karvel
