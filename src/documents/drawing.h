// A document as it will stand on paper: what is drawn, where and on which page. Made by pure functions over rows and measures, played on a
// printer by documents/print_job.h.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/printer.h"

namespace karvel {

// Positions are in the unit of the drawing, from the upper left of the printable area of the page.
struct DrawnText {
  std::string text;
  double x = 0, y = 0, width = 0;
  PrintFont font;
};
struct DrawnLine {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};
struct DrawnPicture {
  Picture picture;
  double x = 0, y = 0, width = 0, height = 0;
};
struct NextPage {};

using DrawingStep = std::variant<DrawnText, DrawnLine, DrawnPicture, NextPage>;

struct Drawing {
  ScaleMode scale = ScaleMode::Pixels;
  std::vector<DrawingStep> steps;
};

// What a document needs to know of the printer that it is made for.
class Measures {
 public:
  virtual ~Measures() = default;
  [[nodiscard]] virtual double TextWidth(const PrintFont& font, const std::string& text) const = 0;
  [[nodiscard]] virtual double LineHeight(const PrintFont& font) const = 0;
  [[nodiscard]] virtual double ScaleWidth() const = 0;
  [[nodiscard]] virtual double ScaleHeight() const = 0;
};

// The measures of the current printer, in the unit of the scale mode.
class PrinterMeasures final : public Measures {
 public:
  PrinterMeasures(Printer& printer, ScaleMode scale);
  [[nodiscard]] double TextWidth(const PrintFont& font, const std::string& text) const override;
  [[nodiscard]] double LineHeight(const PrintFont& font) const override;
  [[nodiscard]] double ScaleWidth() const override;
  [[nodiscard]] double ScaleHeight() const override;

 private:
  Printer& printer_;
  void Use(const PrintFont& font) const;
};

}  // namespace karvel
