#include "documents/print_job.h"

#include <fmt/format.h>

#include <utility>

#include "desk/quiet_line.h"
#include "documents/printer_selection.h"
#include "platform/event_loop.h"
#include "platform/log.h"
#include "platform/printer.h"
#include "platform/scanner.h"
#include "platform/window.h"
#include "settings/company_file.h"
#include "text/format.h"

namespace karvel {
namespace {

using namespace std::chrono_literals;
constexpr auto kUntold = 500ms, kBetweenPictures = 50ms;
constexpr const char* kSlipFont = "MS Sans Serif";
constexpr const char* kReportFont = "Courier New Tur";

std::string Reason(const Status& why) {
  switch (why.Kind()) {
    case ErrorKind::BadText:
      return "firma dosyasındaki yazı boyu sayı değil";
    case ErrorKind::DiskFull:
      return "disk dolu, yer açın";
    case ErrorKind::NoRights:
      return "yazıcıya izin yok";
    case ErrorKind::Missing:
      return "yazıcı bulunamadı, bağlantısına bakın";
    default:
      return "yazıcı yanıt vermiyor, açık olduğuna bakın";
  }
}

}  // namespace

PrintJob::PrintJob(const DeskParts& parts, std::string document)
    : parts_(parts), document_(std::move(document)), choiceWasOpen_(parts.screen.Frame3.Enabled()), due_(Clock::now() + kUntold) {
  parts_.screen.Frame3.SetEnabled(false);
  connections_ += parts_.screen.DurCmd.click.Connect([this] { stopped_ = true; });
}

PrintJob::~PrintJob() {
  parts_.screen.Frame3.SetEnabled(choiceWasOpen_);
  if (!shown_) return;
  Screen& screen = parts_.screen;
  parts_.world.window.HearOnly("");
  screen.SetBusy(wasBusy_);
  screen.DurCmd.SetVisible(false);
  screen.Label16.SetCaption(caption_);
  screen.Frame5.SetVisible(panelWasVisible_);
  // A code that was scanned meanwhile is reported when the writer's handler has returned.
  if (scannerWasOn_) parts_.world.loop.Later([&scanner = parts_.world.scanner] { scanner.SetEnabled(true); });
}

std::expected<PrintFont, Status> PrintJob::BodyFont(const std::string& name) {
  const std::string& points = parts_.form.CompanyLines[CompanyFile::FontSize];
  const std::optional<double> size = ReadNumber(points);
  if (!size || *size <= 0) {
    const Status why(ErrorKind::BadText, "no font size: " + points);
    TellRefusal(why);
    return std::unexpected(why);
  }
  const PrintFont font{.name = name, .size = *size};
  parts_.world.printer.SetFont(font);
  return font;
}

std::expected<PrintFont, Status> PrintJob::PrepareSlip() {
  auto font = BodyFont(kSlipFont);
  if (!font) return font;
  UseChosenPaper(parts_.world.printer, parts_.settings, Setting::StatementPaperSize, Setting::StatementOrientation);
  if (parts_.screen.A5.Checked()) parts_.world.printer.SetPaperSize(paper::kSmallSlip);
  return font;
}

std::expected<PrintFont, Status> PrintJob::PrepareOnPaperInUse() {
  return BodyFont(kSlipFont);
}

std::expected<PrintFont, Status> PrintJob::PrepareReport() {
  const std::string& name = parts_.world.printer.Font().name;
  return BodyFont(name == "Arial" ? kReportFont : name);
}

PrintFont PrintJob::PrepareInvoice() {
  UseChosenPaper(parts_.world.printer, parts_.settings, Setting::InvoicePaperSize, Setting::InvoiceOrientation);
  PrintFont font{.name = parts_.settings.Get(Setting::PrintFontName), .size = parts_.settings.GetNumber(Setting::PrintFontSize)};
  if (font.name.empty()) font = {.name = kSlipFont, .size = 10};
  if (font.size <= 0) font.size = 10;
  parts_.world.printer.SetFont(font);
  return font;
}

bool PrintJob::GoOn(std::size_t done, std::size_t total) {
  if (!stopped_ && Clock::now() >= due_) {
    ShowProgress(done, total);
    due_ = Clock::now() + kBetweenPictures;
    if (stopped_) Tell(parts_.screen, document_ + " durduruldu, yazdırılmadı");
  }
  return !stopped_;
}

void PrintJob::ShowProgress(std::size_t done, std::size_t total) {
  Screen& screen = parts_.screen;
  if (!shown_) {
    shown_ = true;
    caption_ = screen.Label16.Caption();
    panelWasVisible_ = screen.Frame5.Visible();
    screen.DurCmd.SetVisible(true);
    screen.Frame5.SetVisible(true);
    screen.Frame5.BringToFront();
    parts_.world.window.HearOnly(screen.DurCmd.Name());
    // Under a busy pointer no button could be tapped.
    wasBusy_ = screen.Busy();
    screen.SetBusy(false);
    scannerWasOn_ = parts_.world.scanner.Enabled();
    parts_.world.scanner.SetEnabled(false);
  }
  screen.Label16.SetCaption(total > 0 ? fmt::format("{} hazırlanıyor… %{}", document_, 100 * done / total) : document_ + " hazırlanıyor…");
  parts_.world.loop.RunPending();
}

Status PrintJob::Draw(const DrawingStep& step) {
  Printer& printer = parts_.world.printer;
  if (const auto* text = std::get_if<DrawnText>(&step)) {
    if (printer.Font() != text->font) printer.SetFont(text->font);
    return printer.PrintText(text->x, text->y, text->text);
  }
  if (const auto* line = std::get_if<DrawnLine>(&step)) return printer.Line(line->x1, line->y1, line->x2, line->y2);
  if (const auto* picture = std::get_if<DrawnPicture>(&step))
    return printer.PaintPicture(picture->picture, picture->x, picture->y, picture->width, picture->height);
  return printer.NewPage();
}

Status PrintJob::Play(const Drawing& drawing) {
  parts_.world.printer.SetScaleMode(drawing.scale);
  for (std::size_t i = 0; i < drawing.steps.size(); ++i) {
    if (!GoOn(i, drawing.steps.size())) return {ErrorKind::Other, "stopped by the clerk"};
    if (const Status drawn = Draw(drawing.steps[i]); !drawn.Ok()) return drawn;
  }
  return parts_.world.printer.EndDoc();
}

Status PrintJob::Print(const Drawing& drawing) {
  const Status outcome = stopped_ ? Status(ErrorKind::Other, "stopped by the clerk") : Play(drawing);
  if (outcome.Ok()) {
    Tell(parts_.screen, document_ + " yazdırıldı: " + parts_.world.printer.Current().deviceName);
    return outcome;
  }
  parts_.world.printer.KillDoc();
  if (!stopped_) TellRefusal(outcome);
  return outcome;
}

void PrintJob::TellRefusal(const Status& why) {
  Log("print: " + document_ + ": " + why.Message());
  Tell(parts_.screen, document_ + " yazdırılamadı: " + Reason(why));
}

}  // namespace karvel
