#include "documents/order_list.h"

#include <string>
#include <utility>

#include "text/format.h"

namespace karvel {
namespace {
constexpr int kColumns = 3, kZeros = 8;
constexpr int kQuantity = 1, kPrice = 2, kAmount = 3;
constexpr const char* kFigures = "#,##0.00";
}  // namespace

Drawing DrawOrderList(const Measures& measures, PrintFont body, const std::vector<DayLine>& lines, const DateTime& today, double ordered) {
  const Columns columns = CentredColumns(measures, body, kColumns, kZeros);
  Pen pen(measures, std::move(body));
  PrintCentred(pen, "Sipariş Listesi");
  PrintCentred(pen, Format(today, "Short Date"));
  PrintRule(pen, columns);
  int column = 0;
  for (const char* const heading : {"Ürün", "Miktar", "Fiyat", "Tutar"}) PrintHeading(pen, columns, column++, heading);
  pen.PrintLine();
  pen.Rule(columns.left, columns.Right());
  std::string customer;
  for (const DayLine& line : lines) {
    if (line.customerName != customer) {
      if (!customer.empty()) {
        pen.CurrentY += kStep;
        pen.Rule(columns.left, columns.Right());
        pen.CurrentY += kBlockStep - kStep;
      }
      pen.CurrentX = columns.left;
      pen.font.underline = true;
      pen.PrintLine(line.customerName);
      pen.font.underline = false;
      pen.CurrentY += kStep;
      customer = line.customerName;
    }
    pen.CurrentX = columns.left;
    pen.Print(line.itemName);
    PrintFigureEndingAt(pen, columns.Edge(kQuantity), Format(line.quantity, kFigures));
    PrintFigureBeside(pen, columns.Edge(kPrice), Format(line.price, kFigures));
    PrintFigureBeside(pen, columns.Edge(kAmount), Format(line.amount, kFigures));
    pen.PrintLine();
  }
  pen.Rule(columns.left, columns.Right());
  pen.CurrentY += kBlockStep;
  PrintLabelled(pen, columns, "Toplam Tutar", Format(ordered, kFigures));
  return pen.Finish();
}

}  // namespace karvel
