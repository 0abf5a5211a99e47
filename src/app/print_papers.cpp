#include "app/print_papers.h"

#include <algorithm>

#include "platform/printer.h"

namespace karvel {
namespace {

constexpr double kSheetMargin = 5;
// A roll is given this long, far beyond any slip; the file ends where the document does.
constexpr double kRollLength = 3000;

Paper SheetOf(int number, const char* name, double width, double height) {
  return {number, name, name, width, height, kSheetMargin, kSheetMargin, kSheetMargin, kSheetMargin, false};
}

// The head of a slip printer is narrower than its paper.
Paper RollOf(int number, const char* name, double width, double printed) {
  const double side = (width - printed) / 2;
  return {number, name, name, width, kRollLength, side, 2, side, 2, true};
}

}  // namespace

Paper Paper::Turned() const {
  Paper turned = *this;
  turned.width = height;
  turned.height = width;
  turned.left = bottom;
  turned.top = left;
  turned.right = top;
  turned.bottom = right;
  return turned;
}

std::vector<Paper> PdfPapers() {
  return {SheetOf(paper::kA4, "A4", 210, 297),
          SheetOf(paper::kA5, "A5", 148, 210),
          SheetOf(paper::kSmallSlip, "A5 yatay", 210, 148),
          SheetOf(1, "Letter", 215.9, 279.4),
          SheetOf(8, "A3", 297, 420),
          SheetOf(70, "A6", 105, 148),
          RollOf(paper::kFirstRoll, "Rulo 58 mm", 58, 48),
          RollOf(paper::kFirstRoll + 1, "Rulo 80 mm", 80, 72)};
}

const Paper& PaperOfNumber(const std::vector<Paper>& papers, int number) {
  const auto found = std::ranges::find(papers, number, &Paper::number);
  return found == papers.end() ? papers.front() : *found;
}

}  // namespace karvel
