// The pen of the platform's printing object: a place on the page, a font, and texts and rules that move the place on. What would fall below
// the page goes on at the top of the next.
#pragma once

#include <string>

#include "documents/drawing.h"

namespace karvel {

class Pen {
 public:
  // The measures outlive the pen; they tell in the unit of `scale`.
  Pen(const Measures& measures, PrintFont font, ScaleMode scale = ScaleMode::Pixels);

  PrintFont font;                     // of what is printed from now on
  double CurrentX = 0, CurrentY = 0;  // where the next text begins, on the page in hand

  // At the place, which then stands behind the text.
  void Print(const std::string& text);
  // At the place, which then stands at the left end of the next line. PrintLine("") is an empty line.
  void PrintLine(const std::string& text = "");
  // Right-aligned: the text ends at `right`; the place as with Print.
  void PrintEndingAt(double right, const std::string& text);
  void PrintLineEndingAt(double right, const std::string& text);
  // Centred between two edges, the place as with Print; or on the page, the place as with PrintLine.
  void PrintCentred(double left, double right, const std::string& text);
  void PrintLineCentred(const std::string& text);
  // A rule at the height of the place, which stays.
  void Rule(double left, double right);
  // With its upper left corner at (x, CurrentY); the place moves down by its height.
  void Paint(Picture picture, double x, double width, double height);

  [[nodiscard]] double TextWidth(const std::string& text) const { return TextWidthIn(font, text); }
  [[nodiscard]] double TextWidthIn(const PrintFont& other, const std::string& text) const { return measures_.TextWidth(other, text); }
  [[nodiscard]] double LineHeight() const { return measures_.LineHeight(font); }
  [[nodiscard]] double ScaleWidth() const { return measures_.ScaleWidth(); }

  // What was drawn so far; the pen is then done.
  Drawing Finish();

 private:
  // Goes on to the next page where what is that high would not end on this one.
  void KeepOnPage(double height);

  const Measures& measures_;
  Drawing drawing_;
};

}  // namespace karvel
