// Texts that are placed freely on a sheet without end, and cut into the pages of a printer: a line that would stand across the bottom of a
// page begins the next, and all below it moves down with it. So nothing is cut off, and what fits on one page stands where it was put.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "documents/drawing.h"

namespace karvel {

class EndlessSheet {
 public:
  // The measures outlive the sheet; they tell in the unit of `scale`. All texts bear the one font.
  EndlessSheet(const Measures& measures, PrintFont font, ScaleMode scale);

  void Put(double x, double y, const std::string& text);
  void PutEndingAt(double right, double y, const std::string& text) { Put(right - TextWidth(text), y, text); }
  [[nodiscard]] double TextWidth(const std::string& text) const { return measures_.TextWidth(font_, text); }
  [[nodiscard]] double LineHeight() const { return measures_.LineHeight(font_); }

  // Page after page; on each the texts in the order in which they were put.
  [[nodiscard]] Drawing Cut() const;

 private:
  // Where each line stands once the pages are cut, by where it was put.
  [[nodiscard]] std::map<double, double> Shifted() const;

  const Measures& measures_;
  const PrintFont font_;
  const ScaleMode scale_;
  std::vector<DrawnText> texts_;
};

}  // namespace karvel
