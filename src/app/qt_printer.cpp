#include "app/qt_printer.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <utility>

#include "app/print_fonts.h"
#include "app/qt_text.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr double kMillimetresPerInch = 25.4, kTwipsPerInch = 1440;
}  // namespace

struct QtPrinter::Job {
  Job(Device printer, Paper sheet, int numbers, int dots, const QString& name)
      : device(std::move(printer)), paper(std::move(sheet)), copies(numbers), title(name), file(paper, dots, name) {}

  // The page in hand goes into the file.
  void ClosePage() { file.Add(pages.back()); }

  const Device device;
  const Paper paper;
  const int copies;
  const QString title;
  Status refusal;  // the printer did not take it; what is drawn goes nowhere
  std::vector<PageSteps> pages{1};
  PdfPages file;
};

bool QtPrinter::FontLess::operator()(const PrintFont& one, const PrintFont& other) const {
  const auto key = [](const PrintFont& font) { return std::tie(font.name, font.size, font.bold, font.underline, font.strikethru); };
  return key(one) < key(other);
}

QtPrinter::QtPrinter(Files& files, const Clock& clock, SystemPrinters& system, int dotsPerInch)
    : files_(files), clock_(clock), system_(system), dotsPerInch_(dotsPerInch), measure_(std::make_unique<QPdfWriter>(QString())) {
  measure_->setResolution(dotsPerInch_);
}

QtPrinter::~QtPrinter() = default;

QtPrinter::Device QtPrinter::DeviceOf(const std::string& name) const {
  Device device{{name, "", ""}, PapersOf(name), 0};
  if (!device.papers.empty()) device.paper = device.papers.front().number;
  return device;
}

QtPrinter::Device& QtPrinter::InUse() const {
  if (!device_) {
    device_ = std::make_unique<Device>(DeviceOf(system_.Default()));
    if (device_->papers.empty()) *device_ = DeviceOf(kPdf);
  }
  return *device_;
}

std::vector<Paper> QtPrinter::PapersOf(const std::string& deviceName) const {
  if (deviceName == kPdf) return PdfPapers();
  return deviceName.empty() ? std::vector<Paper>() : system_.Papers(deviceName);
}

std::vector<PrinterDevice> QtPrinter::Printers() const {
  std::vector<PrinterDevice> devices = system_.List();
  std::erase_if(devices, [](const PrinterDevice& device) { return device.deviceName == kPdf; });
  devices.push_back({kPdf, "", kPdfFolder});
  return devices;
}

PrinterDevice QtPrinter::Current() const {
  return InUse().names;
}

bool QtPrinter::MakeCurrent(const std::string& deviceName) {
  Device device = DeviceOf(deviceName);
  if (device.papers.empty()) return false;
  if (deviceName != InUse().names.deviceName) copies_ = 1;
  device_ = std::make_unique<Device>(std::move(device));
  orientation_ = karvel::Orientation::Portrait;
  font_ = {.name = "Arial", .size = 8};
  return true;
}

int QtPrinter::PaperSize() const {
  return InUse().paper;
}

void QtPrinter::SetPaperSize(int size) {
  InUse().paper = PaperOfNumber(InUse().papers, size).number;
}

void QtPrinter::SetCopies(int copies) {
  copies_ = std::clamp(copies, 1, 99);
}

Paper QtPrinter::PageInUse() const {
  const Paper& paper = PaperOfNumber(InUse().papers, InUse().paper);
  // A roll has no other side to lie on.
  return orientation_ == karvel::Orientation::Landscape && !paper.roll ? paper.Turned() : paper;
}

double QtPrinter::PixelsPerUnit() const {
  return scale_ == ScaleMode::Twips ? dotsPerInch_ / kTwipsPerInch : 1;
}

const QFontMetricsF& QtPrinter::Metrics() const {
  auto found = metrics_.find(font_);
  if (found == metrics_.end()) found = metrics_.emplace(font_, QFontMetricsF(FontOnPaper(font_), measure_.get())).first;
  return found->second;
}

double QtPrinter::TextWidth(const std::string& text) const {
  return Metrics().horizontalAdvance(ToQt(text)) / PixelsPerUnit();
}

double QtPrinter::LineHeight() const {
  return Metrics().height() / PixelsPerUnit();
}

double QtPrinter::ScaleWidth() const {
  const Paper page = PageInUse();
  return (page.width - page.left - page.right) / kMillimetresPerInch * dotsPerInch_ / PixelsPerUnit();
}

double QtPrinter::ScaleHeight() const {
  const Paper page = PageInUse();
  return (page.height - page.top - page.bottom) / kMillimetresPerInch * dotsPerInch_ / PixelsPerUnit();
}

Status QtPrinter::CanBegin() const {
  return InUse().IsPdf() ? files_.MakeFolder(kPdfFolder) : system_.Accepts(InUse().names.deviceName);
}

Status QtPrinter::Begin() {
  if (!job_) {
    const DateTime now = clock_.Now();
    job_ = std::make_unique<Job>(InUse(), PageInUse(), copies_, dotsPerInch_, ToQt(Format(now, "yyyy-mm-dd hh.nn.ss")));
    job_->refusal = CanBegin();
  }
  return job_->refusal;
}

Status QtPrinter::Draw(DrawingStep step) {
  const Status begun = Begin();
  if (begun.Ok()) job_->pages.back().push_back(std::move(step));
  return begun;
}

Status QtPrinter::PrintText(double x, double y, const std::string& text) {
  const double pixels = PixelsPerUnit();
  return Draw(DrawnText{text, x * pixels, y * pixels, TextWidth(text) * pixels, font_});
}

Status QtPrinter::Line(double x1, double y1, double x2, double y2) {
  const double pixels = PixelsPerUnit();
  return Draw(DrawnLine{x1 * pixels, y1 * pixels, x2 * pixels, y2 * pixels});
}

Status QtPrinter::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
  const double pixels = PixelsPerUnit();
  return Draw(DrawnPicture{picture, x * pixels, y * pixels, width * pixels, height * pixels});
}

Status QtPrinter::NewPage() {
  const Status begun = Begin();
  if (!begun.Ok()) return begun;
  job_->ClosePage();
  job_->pages.emplace_back();
  return {};
}

Status QtPrinter::EndDoc() {
  if (!job_) return {};
  std::unique_ptr<Job> job = std::move(job_);
  if (const Status refusal = job->refusal; !refusal.Ok()) {
    Ended(std::move(job), false, {}, "");
    return refusal;
  }
  job->ClosePage();
  // A file holds its copies; a printer is told their number.
  for (int copy = 1; job->device.IsPdf() && copy < job->copies; ++copy)
    for (const PageSteps& page : job->pages) job->file.Add(page);
  const QByteArray pdf = job->file.Finish();
  std::string file;
  const Status done = HandOver(*job, pdf, file);
  Ended(std::move(job), done.Ok(), pdf, file);
  return done;
}

void QtPrinter::KillDoc() {
  if (!job_) return;
  std::unique_ptr<Job> job = std::move(job_);
  job->ClosePage();
  const QByteArray pdf = job->file.Finish();
  Ended(std::move(job), false, pdf, "");
}

Status QtPrinter::HandOver(const Job& job, const QByteArray& pdf, std::string& file) {
  if (job.device.IsPdf()) return WriteFile(ToUtf8(job.title), pdf, file);
  return system_.HandOver({job.device.names.deviceName, ToUtf8(job.title), job.paper.media, job.copies, pdf});
}

Status QtPrinter::WriteFile(const std::string& title, const QByteArray& pdf, std::string& file) {
  const std::string begun = PathIn(kPdfFolder, title);
  std::string path = begun + ".pdf";
  for (int number = 2; files_.Exists(path); ++number) path = fmt::format("{} ({}).pdf", begun, number);
  const Status written = files_.Write(path, pdf.toStdString());
  if (written.Ok()) file = files_.RealPath(path);
  return written;
}

void QtPrinter::Ended(std::unique_ptr<Job> job, bool handedOver, QByteArray pdf, std::string file) {
  jobEnded({job->device.names.deviceName, job->paper.number, handedOver, std::move(job->pages), std::move(pdf), std::move(file)});
}

}  // namespace karvel
