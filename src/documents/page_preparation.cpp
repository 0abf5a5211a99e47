#include "documents/page_preparation.h"

#include <algorithm>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr double kSlipMargin = 30;                  // X0 of slips, on either side of the table
constexpr double kCentredMargin = 120;              // of a centred table, both sides together
constexpr double kHeadingPoints = 2;                // by which the heading is larger than the body
constexpr double kShrinkStep = 0.5, kSmallest = 2;  // points
constexpr double kLeastOfFont = 0.8;                // of a figure that is printed smaller
constexpr double kGroundLine = 0.8;                 // of a line's height, from its top
constexpr double kMostFeedLines = 100;              // a metre of paper is no tear-off

double ZerosWide(const Measures& measures, const PrintFont& font, int zeros) {
  return measures.TextWidth(font, std::string(static_cast<std::size_t>(zeros), '0'));
}

// Columns whose names get what the figures leave of a table that is `margins` narrower than the page.
Columns FittedColumns(const Measures& measures, PrintFont& font, int count, int zeros, double margins) {
  const double table = measures.ScaleWidth() - margins;
  const auto names = [&] { return table - count * ZerosWide(measures, font, zeros); };
  while (names() < ZerosWide(measures, font, zeros) && font.size > kSmallest) font.size -= kShrinkStep;
  Columns columns;
  columns.number = ZerosWide(measures, font, zeros);
  columns.left = std::max(0.0, margins / 2);
  for (int i = 0; i <= count; ++i) columns.edges.push_back(columns.left + names() + i * columns.number);
  return columns;
}

}  // namespace

PrintStyle StyleOf(const DeskParts& parts) {
  PrintStyle style;
  style.companyLines = parts.form.CompanyLines;
  style.amountFormat = parts.form.PriceFormat;
  style.quantityFormat = parts.form.QuantityFormat;
  style.feedLines = static_cast<int>(std::clamp(parts.settings.GetNumber(Setting::FeedLines), 0.0, kMostFeedLines));
  style.smallPaper = parts.screen.A5.Checked();
  style.nameOnOwnLine = parts.screen.AraVer.Checked();
  return style;
}

Columns SlipColumns(const Measures& measures, PrintFont& font) {
  return FittedColumns(measures, font, 4, 8, 2 * kSlipMargin);
}

Columns CentredColumns(const Measures& measures, PrintFont& font, int count, int zeros) {
  return FittedColumns(measures, font, count, zeros, kCentredMargin);
}

void PrintCompanyHeader(Pen& pen, const PrintStyle& style) {
  pen.font.size += kHeadingPoints;
  pen.font.bold = true;
  const auto& lines = style.companyLines;
  if (!lines[0].empty()) PrintCentred(pen, lines[0]);
  if (std::string address = lines[1]; !address.empty()) {
    for (std::size_t bar = address.find('|'); bar != std::string::npos; bar = address.find('|')) {
      PrintCentred(pen, address.substr(0, bar));
      address.erase(0, bar + 1);
    }
    PrintCentred(pen, address);
  }
  if (!lines[2].empty()) PrintCentred(pen, lines[2]);
  pen.CurrentY += kBlockStep;
}

void EndHeading(Pen& pen) {
  pen.font.size -= kHeadingPoints;
  pen.font.bold = false;
  pen.CurrentY += kStep;
}

std::vector<std::string> BrokenText(const Pen& pen, const std::string& text, double width) {
  std::vector<std::string> pieces;
  std::string rest = text;
  while (pen.TextWidth(rest) > width) {
    std::string head = CutToWidth(pen, rest, width);
    if (head.empty()) head = LeftLetters(rest, 1);  // narrower than one letter is no page
    const std::size_t blank = rest[head.size()] == ' ' ? head.size() : head.rfind(' ');
    if (blank != std::string::npos && blank > 0) head.resize(blank);
    pieces.push_back(head);
    rest.erase(0, head.size());
    rest.erase(0, std::min(rest.find_first_not_of(' '), rest.size()));
  }
  if (!rest.empty() || pieces.empty()) pieces.push_back(rest);
  return pieces;
}

std::string CutToWidth(const Pen& pen, std::string text, double width) {
  while (!text.empty() && pen.TextWidth(text) > width) text = LeftLetters(text, LetterCount(text) - 1);
  return text;
}

void PrintCentred(Pen& pen, const std::string& text) {
  for (const std::string& piece : BrokenText(pen, text, pen.ScaleWidth())) pen.PrintLineCentred(piece);
}

void PrintRule(Pen& pen, const Columns& columns) {
  pen.Rule(columns.left, columns.Right());
  pen.CurrentY += kStep;
}

void PrintHeading(Pen& pen, const Columns& columns, int index, const std::string& text) {
  pen.PrintCentred(index == 0 ? columns.left : columns.Edge(index - 1), columns.Edge(index), text);
}

void PrintFigureEndingAt(Pen& pen, double right, const std::string& figure) {
  if (pen.CurrentX > right - pen.TextWidth(figure + " ")) pen.PrintLine();
  pen.PrintEndingAt(right, figure);
}

void PrintFigureBeside(Pen& pen, double right, const std::string& figure) {
  const PrintFont font = FontBeside(pen, pen.CurrentX, right, figure);
  if (font == pen.font) {
    PrintFigureEndingAt(pen, right, figure);
  } else {
    PrintEndingAtIn(pen, font, right, figure);
  }
}

PrintFont FontBeside(const Pen& pen, double left, double right, const std::string& figure) {
  for (PrintFont font = pen.font; font.size >= kLeastOfFont * pen.font.size; font.size -= kShrinkStep)
    if (left <= right - pen.TextWidthIn(font, figure + " ")) return font;
  return pen.font;
}

void PrintEndingAtIn(Pen& pen, const PrintFont& font, double right, const std::string& text) {
  const PrintFont body = pen.font;
  const double top = pen.CurrentY, height = pen.LineHeight();
  pen.font = font;
  pen.CurrentY += (height - pen.LineHeight()) * kGroundLine;
  pen.PrintEndingAt(right, text);
  pen.font = body;
  pen.CurrentY = top;
}

void PrintLabelled(Pen& pen, const Columns& columns, const std::string& label, const std::string& figure) {
  pen.CurrentX = columns.left;
  pen.Print(label);
  PrintFigureEndingAt(pen, columns.Right(), figure);
  pen.PrintLine();
}

void PrintFoot(Pen& pen, const PrintStyle& style) {
  if (const std::string& line = style.companyLines[5]; !line.empty()) {
    // An empty line less a step, but never into the line above.
    pen.CurrentY += std::max(0.0, pen.LineHeight() - kBlockStep);
    PrintCentred(pen, line);
  }
  PrintFeed(pen, style);
}

void PrintFeed(Pen& pen, const PrintStyle& style) {
  for (int i = 0; i < style.feedLines; ++i) pen.PrintLine(".");
}

}  // namespace karvel
