// ZRaporu: the figures of the turnover panel as they stand there, on paper. It sums nothing and closes nothing.
#pragma once

#include <string>

#include "desk/parts.h"
#include "documents/drawing.h"
#include "documents/page_preparation.h"
#include "documents/printer_selection.h"
#include "platform/signal.h"

namespace karvel {

// Label9 as displayed, by its slots.
struct DayFigures {
  std::string sold, cash, card, cheques, notes, returned;
};
DayFigures FiguresOf(const Screen& screen);
// What stands in Label9 for a figure that could not be read. Paper that shows it as nothing would be false.
inline constexpr const char* kUnreadFigure = "?";
bool FiguresAreRead(const Screen& screen);
// A figure on paper: in the format of money, with " TL." behind it; one that is empty is that alone.
std::string FigureOnPaper(const std::string& figure, const PrintStyle& style);

Drawing DrawZReport(const Measures& measures, PrintFont body, const PrintStyle& style, const DayFigures& figures, const DateTime& date);

class ZReport {
 public:
  ZReport(const DeskParts& parts, PrinterSelection& printers);

 private:
  void Print();

  const DeskParts& parts_;
  PrinterSelection& printers_;
  Connections connections_;
};

}  // namespace karvel
