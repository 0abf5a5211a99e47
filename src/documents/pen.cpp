#include "documents/pen.h"

#include <utility>

namespace karvel {

Pen::Pen(const Measures& measures, PrintFont begun, ScaleMode scale) : font(std::move(begun)), measures_(measures) {
  drawing_.scale = scale;
}

void Pen::KeepOnPage(double height) {
  if (CurrentY + height <= measures_.ScaleHeight() || CurrentY <= 0) return;
  drawing_.steps.emplace_back(NextPage{});
  CurrentY = 0;
}

void Pen::Print(const std::string& text) {
  if (text.empty()) return;
  KeepOnPage(LineHeight());
  const double width = TextWidth(text);
  drawing_.steps.emplace_back(DrawnText{text, CurrentX, CurrentY, width, font});
  CurrentX += width;
}

void Pen::PrintLine(const std::string& text) {
  Print(text);
  CurrentX = 0;
  CurrentY += LineHeight();
}

void Pen::PrintEndingAt(double right, const std::string& text) {
  CurrentX = right - TextWidth(text);
  Print(text);
}

void Pen::PrintLineEndingAt(double right, const std::string& text) {
  CurrentX = right - TextWidth(text);
  PrintLine(text);
}

void Pen::PrintCentred(double left, double right, const std::string& text) {
  CurrentX = left + (right - left - TextWidth(text)) / 2;
  Print(text);
}

void Pen::PrintLineCentred(const std::string& text) {
  CurrentX = (ScaleWidth() - TextWidth(text)) / 2;
  PrintLine(text);
}

void Pen::Rule(double left, double right) {
  KeepOnPage(1);
  drawing_.steps.emplace_back(DrawnLine{left, CurrentY, right, CurrentY});
}

void Pen::Paint(Picture picture, double x, double width, double height) {
  KeepOnPage(height);
  drawing_.steps.emplace_back(DrawnPicture{std::move(picture), x, CurrentY, width, height});
  CurrentY += height;
}

Drawing Pen::Finish() {
  return std::exchange(drawing_, {});
}

}  // namespace karvel
