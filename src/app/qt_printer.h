// The printing object on this machine: "Velmora PDF", which is always there and writes into C:\KarvelData\Belgeler\, and the printers of
// the system. A job is made as a PDF with its fonts in it, and handed over whole when it ends: what is refused or thrown away leaves
// nothing.
//
// A pixel is a dot of a slip printer on all of them (203 an inch unless the settings say otherwise), so a document looks the same on each.
#pragma once

#include <QByteArray>
#include <QFont>
#include <QFontMetricsF>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/pdf_pages.h"
#include "app/system_printers.h"
#include "platform/printer.h"
#include "platform/signal.h"

namespace karvel {

class Clock;
class Files;

// A job that has ended, for whoever looks over the desk's shoulder.
struct EndedJob {
  std::string printer;
  int paperSize = 0;
  bool handedOver = false;
  std::vector<PageSteps> pages;  // in device pixels
  QByteArray pdf;
  std::string file;  // where "Velmora PDF" has put it, this machine's path; else ""
};

class QtPrinter : public Printer {
 public:
  static constexpr const char* kPdf = "Velmora PDF";
  static constexpr const char* kPdfFolder = "C:\\KarvelData\\Belgeler";
  static constexpr int kDotsPerInch = 203;

  // All are borrowed and outlive this.
  QtPrinter(Files& files, const Clock& clock, SystemPrinters& system, int dotsPerInch = kDotsPerInch);
  ~QtPrinter() override;

  Signal<const EndedJob&> jobEnded;

  // Of any printer, its own paper first; none where there is no such printer.
  [[nodiscard]] std::vector<Paper> PapersOf(const std::string& deviceName) const;

  [[nodiscard]] std::vector<PrinterDevice> Printers() const override;
  [[nodiscard]] PrinterDevice Current() const override;
  // The copies stay where it is current already.
  bool MakeCurrent(const std::string& deviceName) override;
  [[nodiscard]] int PaperSize() const override;
  [[nodiscard]] karvel::Orientation Orientation() const override { return orientation_; }
  [[nodiscard]] int Copies() const override { return copies_; }
  void SetPaperSize(int size) override;
  void SetOrientation(karvel::Orientation orientation) override { orientation_ = orientation; }
  void SetCopies(int copies) override;
  void SetScaleMode(ScaleMode mode) override { scale_ = mode; }
  [[nodiscard]] const PrintFont& Font() const override { return font_; }
  void SetFont(const PrintFont& font) override { font_ = font; }
  [[nodiscard]] double TextWidth(const std::string& text) const override;
  [[nodiscard]] double LineHeight() const override;
  [[nodiscard]] double ScaleWidth() const override;
  [[nodiscard]] double ScaleHeight() const override;
  Status PrintText(double x, double y, const std::string& text) override;
  Status Line(double x1, double y1, double x2, double y2) override;
  Status PaintPicture(const Picture& picture, double x, double y, double width, double height) override;
  Status NewPage() override;
  Status EndDoc() override;
  void KillDoc() override;

 private:
  struct Device {
    PrinterDevice names;
    std::vector<Paper> papers;  // its own first
    int paper = 0;
    [[nodiscard]] bool IsPdf() const { return names.deviceName == kPdf; }
  };
  struct Job;

  [[nodiscard]] Device DeviceOf(const std::string& name) const;
  [[nodiscard]] Device& InUse() const;
  [[nodiscard]] Paper PageInUse() const;
  [[nodiscard]] double PixelsPerUnit() const;
  [[nodiscard]] const QFontMetricsF& Metrics() const;
  [[nodiscard]] Status CanBegin() const;
  Status Begin();
  Status Draw(DrawingStep step);
  // `file`: where it lies, if it is a file.
  Status HandOver(const Job& job, const QByteArray& pdf, std::string& file);
  Status WriteFile(const std::string& title, const QByteArray& pdf, std::string& file);
  void Ended(std::unique_ptr<Job> job, bool handedOver, QByteArray pdf, std::string file);

  struct FontLess {
    bool operator()(const PrintFont& one, const PrintFont& other) const;
  };

  Files& files_;
  const Clock& clock_;
  SystemPrinters& system_;
  const int dotsPerInch_;
  mutable std::unique_ptr<Device> device_;  // looked for when it is first asked for
  karvel::Orientation orientation_ = karvel::Orientation::Portrait;
  int copies_ = 1;
  ScaleMode scale_ = ScaleMode::Twips;
  PrintFont font_{.name = "Arial", .size = 8};
  std::unique_ptr<QPdfWriter> measure_;
  mutable std::map<PrintFont, QFontMetricsF, FontLess> metrics_;
  std::unique_ptr<Job> job_;
};

}  // namespace karvel
