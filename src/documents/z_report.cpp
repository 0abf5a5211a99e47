#include "documents/z_report.h"

#include <utility>

#include "desk/quiet_line.h"
#include "documents/print_job.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr int kColumns = 3, kZeros = 9;
constexpr int kFigures = 2;  // the column before that of the figures
}  // namespace

DayFigures FiguresOf(const Screen& screen) {
  const auto figure = [&screen](int slot) { return screen.Label9(slot).Caption(); };
  return {figure(2), figure(3), figure(4), figure(6), figure(8), figure(10)};
}

bool FiguresAreRead(const Screen& screen) {
  for (int slot = 0; slot < screen.Label9.Count(); ++slot)
    if (screen.Label9(slot).Caption() == kUnreadFigure) return false;
  return true;
}

std::string FigureOnPaper(const std::string& figure, const PrintStyle& style) {
  return Format(figure, style.amountFormat) + " TL.";
}

Drawing DrawZReport(const Measures& measures, PrintFont body, const PrintStyle& style, const DayFigures& figures, const DateTime& date) {
  const Columns columns = CentredColumns(measures, body, kColumns, kZeros);
  Pen pen(measures, std::move(body));
  PrintCompanyHeader(pen, style);
  PrintCentred(pen, "Günlük Ciro");
  EndHeading(pen);
  PrintCentred(pen, "Tarih : " + Format(date, "Short Date"));
  pen.CurrentY += kStep;
  PrintRule(pen, columns);
  pen.PrintCentred(columns.left, columns.Edge(kFigures), "Hesap");
  pen.PrintCentred(columns.Edge(kFigures), columns.Right(), "Toplam");
  pen.PrintLine();
  pen.CurrentY += kStep;
  PrintRule(pen, columns);
  const auto print = [&](const char* label, const std::string& figure) {
    PrintLabelled(pen, columns, label, FigureOnPaper(figure, style));
  };
  print("Satışlar Toplamı", figures.sold);
  pen.CurrentY += kBlockStep;
  print("Nakit Tahsilat", figures.cash);
  pen.CurrentY += kStep;
  print("K.Kartı Tahsilat", figures.card);
  print("Çek Tahsilat", figures.cheques);
  print("Senet Tahsilat", figures.notes);
  print("İadeler", figures.returned);
  pen.CurrentY += kStep;
  PrintRule(pen, columns);
  PrintFeed(pen, style);
  return pen.Finish();
}

ZReport::ZReport(const DeskParts& parts, PrinterSelection& printers) : parts_(parts), printers_(printers) {
  connections_ += parts.screen.ZRaporu.click.Connect([this] { Print(); });
}

void ZReport::Print() {
  if (!printers_.SelectForReports()) {
    Tell(parts_.screen, "Z raporu yazdırılmadı: yazıcı bulunamadı");
    return;
  }
  if (!FiguresAreRead(parts_.screen)) {
    Tell(parts_.screen, "Z raporu yazdırılmadı: ciro toplamları okunamadı, tarihi yeniden seçin");
    return;
  }
  PrintJob job(parts_, "Z raporu");
  const auto font = job.PrepareOnPaperInUse();
  if (!font) return;
  const PrinterMeasures measures(parts_.world.printer, ScaleMode::Pixels);
  job.Print(DrawZReport(measures, *font, StyleOf(parts_), FiguresOf(parts_.screen), parts_.screen.DTPicker1.Date())).Ignore();  // told
}

}  // namespace karvel
