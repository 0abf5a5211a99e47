// A panel of the desk as a card that lies over the list it serves: its caption as title, its elements inside.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

#include "app/desk_ui.h"

namespace karvel {

enum class CardPlace {
  OverList,  // in the middle of the list area
  OverDesk,  // in the middle of the window's body
  FillList,  // as large as the list area
  Corner,    // small, at the list's lower edge
};

class PanelCard : public QFrame {
  Q_OBJECT

 public:
  PanelCard(DeskUi& ui, Element& element, CardPlace place, QWidget* parent);

  [[nodiscard]] QVBoxLayout& Content() { return *content_; }
  [[nodiscard]] CardPlace Place() const { return place_; }
  [[nodiscard]] const Element& Panel() const { return element_; }
  // A title for a card whose element has none.
  void SetTitle(const QString& title) { ownTitle_ = title; }
  void SetLeastWidth(int base) { leastWidth_ = base; }
  // The clerk may drag it by its background; once moved it keeps its place.
  void SetMovable();
  // Stands where the frame says, in its size.
  void SetFrame(FloatingFrame& frame);
  // Keeps a connection for as long as the card lives.
  void Keep(ScopedConnection connection) { connections_ += std::move(connection); }
  // Shows the element's caption and depth as they are now.
  void Sync();
  // Places the card inside the areas at hand, in pixels of its parent.
  void Lay(const QRect& list, const QRect& desk);

 Q_SIGNALS:
  void appeared();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;
  void ApplyTheme();

 private:
  DeskUi& ui_;
  Element& element_;
  const CardPlace place_;
  QVBoxLayout* content_;
  QLabel* title_;
  QString ownTitle_;
  int leastWidth_ = 0;
  std::int64_t depth_ = 0;
  QPoint pressedAt_;
  bool moved_ = false;
  FloatingFrame* frame_ = nullptr;
  Connections connections_;
};

}  // namespace karvel
