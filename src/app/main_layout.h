// The desk's own surface: customer line on top, lists left, money column right. Panels lie over it as cards.
#pragma once

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include "app/desk_ui.h"

namespace karvel {

class MainLayout : public QWidget {
  Q_OBJECT

 public:
  MainLayout(DeskUi& ui, QWidget* parent);

  // Where the lists stand, and the whole body under the customer line; pixels of this widget.
  [[nodiscard]] QRect ListArea() const;
  [[nodiscard]] QRect BodyArea() const;
  // The window's own title, for a window without a frame.
  void ShowTitle(const QString& title, bool shown);
  [[nodiscard]] QToolButton& MenuButton() { return *menuButton_; }
  // Sizes and fonts of the theme as it is now, for a window of this width.
  void ApplyTheme(int width);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QWidget* Of(const Element& element) const { return ui_.widgets.value(&element); }
  void BuildTop();
  void BuildLists();
  void BuildMoney();
  void BuildQuietLine();
  QFrame* InlinePanel(Element& panel);
  void BuildStockStrip();
  void BuildDayFigures();

  DeskUi& ui_;
  QVBoxLayout* root_;
  QHBoxLayout *top_, *body_, *filter_, *product_;
  QVBoxLayout *lists_, *money_;
  QBoxLayout* balance_;  // the name of the figure and the figure
  QGridLayout* fields_;
  QHBoxLayout *commands_, *mainCommands_;
  QFrame* moneyColumn_;
  QLabel* title_;
  QToolButton* menuButton_;
  Connections connections_;
};

}  // namespace karvel
