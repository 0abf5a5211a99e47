#include "documents/drawing.h"

namespace karvel {

PrinterMeasures::PrinterMeasures(Printer& printer, ScaleMode scale) : printer_(printer) {
  printer_.SetScaleMode(scale);
}

void PrinterMeasures::Use(const PrintFont& font) const {
  if (printer_.Font() != font) printer_.SetFont(font);
}

double PrinterMeasures::TextWidth(const PrintFont& font, const std::string& text) const {
  Use(font);
  return printer_.TextWidth(text);
}

double PrinterMeasures::LineHeight(const PrintFont& font) const {
  Use(font);
  return printer_.LineHeight();
}

double PrinterMeasures::ScaleWidth() const {
  return printer_.ScaleWidth();
}

double PrinterMeasures::ScaleHeight() const {
  return printer_.ScaleHeight();
}

}  // namespace karvel
