// A card with keys: the ground of the on-screen keyboard and the number pad, wherever they are shown.
#pragma once

#include <QFrame>

#include "app/desk_ui.h"
#include "app/floating_key.h"

namespace karvel {

class KeyCard : public QFrame {
  Q_OBJECT

 public:
  KeyCard(DeskUi& ui, ElementTable& table, QWidget* parent);

  // The widgets of its elements. Keys act on press.
  QWidget* Key(Element& element, KeyLook look);
  QWidget* Field(Element& element);
  QWidget* Label(Element& element);
  // Keeps a connection for as long as the card lives.
  void Keep(ScopedConnection connection) { connections_ += std::move(connection); }
  // Shows all its elements as they are now.
  void Refresh();

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

  DeskUi& ui_;
  ElementTable& table_;
  Connections connections_;
};

}  // namespace karvel
