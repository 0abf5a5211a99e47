// How the desk looks: a calm dark palette, one type family, sizes that grow a little with the window, and shrink with one that is too small
// for them.
//
// What stays true:
// - The state colours of the elements (color::kYellow, …) are names of states; only this file turns them into colours.
// - Sizes are given in pixels of a 1024×768 window and grow with the window through Px.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

#include "platform/signal.h"

class QApplication;
class QPainter;

namespace karvel {

namespace palette {
inline const QColor kBackground(0x12, 0x16, 0x1b);
inline const QColor kSurface(0x1a, 0x20, 0x27);
inline const QColor kRaised(0x24, 0x2c, 0x35);
inline const QColor kField(0x10, 0x14, 0x18);
inline const QColor kLine(0x35, 0x3f, 0x4a);
inline const QColor kText(0xec, 0xf0, 0xf4);
inline const QColor kMuted(0xa3, 0xaf, 0xbc);
inline const QColor kFaint(0x6c, 0x78, 0x85);
inline const QColor kAccent(0x5a, 0xa9, 0xf5);
inline const QColor kChosen(0x22, 0x3a, 0x54);
inline const QColor kMain(0x1d, 0x7f, 0x55);
inline const QColor kGreen(0x5f, 0xd3, 0x98);
inline const QColor kAmber(0xf2, 0xc1, 0x66);
inline const QColor kRed(0xff, 0x86, 0x7c);
inline const QColor kCyan(0x6a, 0xd3, 0xe6);
}  // namespace palette

enum class FontRole { Body, Small, Title, Field, Button, MainButton, Amount, BigAmount, Grid, DayBook, GridHead };

class Theme {
 public:
  // Pixels of a 1024×768 window in the window at hand.
  [[nodiscard]] int Px(int base) const { return static_cast<int>(base * scale_ + 0.5); }
  [[nodiscard]] double Scale() const { return scale_; }
  // The same of a height, or of a width, which gives way where there is little room: targets to 48 pixels, the main ones to 64, gaps to
  // half.
  [[nodiscard]] int Tall(int base, int least) const { return Px(low_ ? least : base); }
  [[nodiscard]] int Wide(int base, int least) const { return Px(narrow_ ? least : base); }
  [[nodiscard]] bool IsLow() const { return low_; }
  // Follows the window's size, in pixels, in a few steps, so that dragging its border does not lay it out anew at every pixel. A window
  // smaller than 960×640 shows all of the desk, drawn smaller; from there to 1024×720 its rows stand closer.
  void FitTo(int width, int height);

  // The desk's fonts as the clerk chose them. Empty or unknown name: the theme's own family. Size in points, 0: the theme's own.
  void SetDeskFont(const QString& name, double size, bool bold);
  // A chosen size of the grids is 4 points smaller in the day-book list, which has many columns.
  void SetGridFont(const QString& name, double size, bool bold);
  // `family` is an element's own font; where the machine lacks it, the theme's family stands in.
  [[nodiscard]] QFont Font(FontRole role, const QString& family = {}) const;
  // The style sheet of the window's standard fields.
  [[nodiscard]] QString Sheet() const;

  Signal<> changed;

 private:
  struct Choice {
    QString name;
    double size = 0;
    bool bold = false;
  };
  double scale_ = 1;
  bool low_ = false, narrow_ = false;
  Choice desk_, grid_;
};

// The colour of a text in a state; the usual colour of texts where the state says nothing.
QColor StateInk(int state);
// A calm fill for a tile in a state.
QColor StateFill(int state);
[[nodiscard]] bool IsSpecialState(int state);

// A text with every digit in a cell of one width, so that amounts stand in columns whatever the family's own figures.
void DrawFigures(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QString& text);
[[nodiscard]] qreal FiguresWidth(const QFont& font, const QString& text);

// The ring around the widget that has the keyboard.
void DrawFocusRing(QPainter& painter, const QRectF& rect, qreal radius);

// The theme's own family: Inter where it is installed.
QString FontFamily();
// Pixels of a box's piece on the screen at hand: smaller where that is too small for the desk, as on a screen of large dots.
[[nodiscard]] int BoxPx(int base);
// Style, palette, fonts and the sheet of boxes and menus for the whole program. Once, before the first widget.
void ApplyTheme(QApplication& application);

}  // namespace karvel
