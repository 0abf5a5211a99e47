#include "documents/stock_status.h"

#include <algorithm>
#include <utility>

#include "text/format.h"

namespace karvel {
namespace {

constexpr int kIn = 1, kOut = 2, kLeft = 3;
constexpr double kLargerBy = 2;  // points, of the title
constexpr double kSmallest = 2, kShrinkStep = 0.5;

// Names have the room of 18 letters, whatever the page. Where it is narrower than the table, the font shrinks.
Columns StockColumns(const Measures& measures, PrintFont& font) {
  const auto names = [&] { return measures.TextWidth(font, std::string(18, 'M')); };
  const auto figures = [&] { return measures.TextWidth(font, std::string(9, '0')); };
  while (names() + kLeft * figures() > measures.ScaleWidth() && font.size > kSmallest) font.size -= kShrinkStep;
  Columns columns;
  columns.number = figures();
  columns.left = std::max(0.0, (measures.ScaleWidth() - names() - kLeft * figures()) / 2);
  for (int i = 0; i <= kLeft; ++i) columns.edges.push_back(columns.left + names() + i * figures());
  return columns;
}

}  // namespace

Drawing DrawStockStatus(const Measures& measures, PrintFont body, const PrintStyle& style, const std::vector<StockLine>& lines,
                        const DateTime& today) {
  const Columns columns = StockColumns(measures, body);
  Pen pen(measures, std::move(body));
  pen.font.size += kLargerBy;
  PrintCentred(pen, Format(today, "dd mmmm yyyy dddd"));
  PrintCentred(pen, "Stok Durum Raporu");
  PrintRule(pen, columns);
  pen.font.size -= kLargerBy;
  const auto quantity = [&style](double count) { return Format(count, style.quantityFormat); };
  for (const StockLine& line : lines) {
    pen.CurrentX = columns.left;
    pen.Print(CutToWidth(pen, line.name, pen.ScaleWidth() - 2 * columns.left));
    PrintFigureEndingAt(pen, columns.Edge(kIn), quantity(line.in));
    PrintFigureBeside(pen, columns.Edge(kOut), quantity(line.out));
    PrintFigureBeside(pen, columns.Edge(kLeft), line.onHand > 0 ? quantity(line.onHand) : "-" + quantity(line.oversold));
    pen.PrintLine();
  }
  pen.CurrentY += kStep;
  pen.Rule(columns.left, columns.Right());
  PrintFeed(pen, style);
  return pen.Finish();
}

}  // namespace karvel
