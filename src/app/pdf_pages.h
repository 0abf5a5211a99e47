// A document as a PDF file in memory, page after page, with its fonts embedded.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QPainter>
#include <QPdfWriter>
#include <memory>
#include <vector>

#include "app/print_papers.h"
#include "documents/drawing.h"

namespace karvel {

// What stands on one page, in dots from the upper left of its printable area.
using PageSteps = std::vector<DrawingStep>;

class PdfPages {
 public:
  PdfPages(Paper paper, int dotsPerInch, const QString& title);
  ~PdfPages();
  PdfPages(const PdfPages&) = delete;
  PdfPages& operator=(const PdfPages&) = delete;

  void Add(const PageSteps& steps);
  // The file. Nothing may be added any more.
  QByteArray Finish();

 private:
  [[nodiscard]] Paper PaperFor(const PageSteps& steps) const;
  void Draw(const DrawingStep& step);

  const Paper paper_;
  const int dotsPerInch_;
  QBuffer file_;
  std::unique_ptr<QPdfWriter> writer_;
  QPainter painter_;
};

}  // namespace karvel
