#include "documents/turnover_report.h"

#include <utility>

#include "text/format.h"

namespace karvel {
namespace {
constexpr int kColumns = 2, kZeros = 8;
constexpr double kLargerBy = 2;  // points, than the other reports
constexpr const char* kLongDate = "dd mmmm yyyy";
}  // namespace

Drawing DrawTurnover(const Measures& measures, PrintFont body, const PrintStyle& style, const std::vector<SoldItem>& items,
                     const DayFigures& figures, const DateTime& from, const DateTime& until) {
  const Columns columns = CentredColumns(measures, body, kColumns, kZeros);
  body.size += kLargerBy;
  Pen pen(measures, std::move(body));
  PrintCentred(pen, Format(from, kLongDate) + " <> " + Format(until, kLongDate));
  PrintCentred(pen, "Ciro");
  PrintRule(pen, columns);
  for (const SoldItem& item : items) {
    pen.CurrentX = columns.left;
    pen.Print(CutToWidth(pen, item.name, pen.ScaleWidth() - 2 * columns.left));
    if (style.nameOnOwnLine) pen.PrintLine();
    PrintFigureEndingAt(pen, columns.Right(), Format(item.quantity, style.quantityFormat) + " Kg/Ad");
    pen.PrintLine();
  }
  pen.CurrentY += kStep;
  PrintRule(pen, columns);
  const auto print = [&](const char* label, const std::string& figure) {
    PrintLabelled(pen, columns, label, FigureOnPaper(figure, style));
  };
  print("Satışlar Toplamı", figures.sold);
  const std::pair<const char*, const std::string&> others[] = {{"Nakit Toplamı", figures.cash},
                                                               {"K.Kartı Toplamı", figures.card},
                                                               {"Çek Toplamı", figures.cheques},
                                                               {"Senet Toplamı", figures.notes},
                                                               {"İadeler Toplamı", figures.returned}};
  for (const auto& [label, figure] : others)
    if (NumberOrZero(figure) != 0) print(label, figure);
  PrintFeed(pen, style);
  return pen.Finish();
}

}  // namespace karvel
