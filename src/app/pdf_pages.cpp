#include "app/pdf_pages.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <algorithm>
#include <utility>

#include "app/print_fonts.h"
#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr double kMillimetresPerInch = 25.4;

QPageLayout LayoutOf(const Paper& paper) {
  const QPageSize size(QSizeF(paper.width, paper.height), QPageSize::Millimeter, ToQt(paper.name), QPageSize::ExactMatch);
  return {size, QPageLayout::Portrait, QMarginsF(paper.left, paper.top, paper.right, paper.bottom), QPageLayout::Millimeter};
}

QImage ImageOf(const Picture& picture) {
  QImage image(picture.width, picture.height, QImage::Format_Mono);
  image.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  image.fill(0);
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x)
      if (picture.dots[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(x)])
        image.setPixel(x, y, 1);
  return image;
}

}  // namespace

PdfPages::PdfPages(Paper paper, int dotsPerInch, const QString& title) : paper_(std::move(paper)), dotsPerInch_(dotsPerInch) {
  file_.open(QIODevice::WriteOnly);
  writer_ = std::make_unique<QPdfWriter>(&file_);
  writer_->setResolution(dotsPerInch_);
  writer_->setTitle(title);
  writer_->setCreator(QStringLiteral("Velmora Karvel"));
}

PdfPages::~PdfPages() {
  if (painter_.isActive()) painter_.end();
}

// A roll is cut behind what stands on it.
Paper PdfPages::PaperFor(const PageSteps& steps) const {
  if (!paper_.roll) return paper_;
  double lowest = 0;
  for (const DrawingStep& step : steps) {
    if (const auto* text = std::get_if<DrawnText>(&step)) {
      lowest = std::max(lowest, text->y + QFontMetricsF(FontOnPaper(text->font), writer_.get()).height());
    } else if (const auto* line = std::get_if<DrawnLine>(&step)) {
      lowest = std::max({lowest, line->y1, line->y2});
    } else if (const auto* picture = std::get_if<DrawnPicture>(&step)) {
      lowest = std::max(lowest, picture->y + picture->height);
    }
  }
  Paper cut = paper_;
  cut.height = std::min(paper_.height, paper_.top + paper_.bottom + std::max(10.0, lowest / dotsPerInch_ * kMillimetresPerInch));
  return cut;
}

void PdfPages::Add(const PageSteps& steps) {
  writer_->setPageLayout(LayoutOf(PaperFor(steps)));
  if (painter_.isActive()) {
    writer_->newPage();
  } else {
    painter_.begin(writer_.get());
    painter_.setRenderHint(QPainter::LosslessImageRendering);
    painter_.setPen(QPen(Qt::black, 1));
  }
  for (const DrawingStep& step : steps) Draw(step);
}

void PdfPages::Draw(const DrawingStep& step) {
  if (const auto* text = std::get_if<DrawnText>(&step)) {
    const QFont font = FontOnPaper(text->font);
    painter_.setFont(font);
    painter_.drawText(QPointF(text->x, text->y + QFontMetricsF(font, writer_.get()).ascent()), ToQt(text->text));
  } else if (const auto* line = std::get_if<DrawnLine>(&step)) {
    painter_.drawLine(QPointF(line->x1, line->y1), QPointF(line->x2, line->y2));
  } else if (const auto* picture = std::get_if<DrawnPicture>(&step)) {
    painter_.drawImage(QRectF(picture->x, picture->y, picture->width, picture->height), ImageOf(picture->picture));
  }
}

QByteArray PdfPages::Finish() {
  if (painter_.isActive()) painter_.end();
  writer_.reset();
  return file_.data();
}

}  // namespace karvel
