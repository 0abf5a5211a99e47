// One print, from the first row that is read to the end of the job on the printer. It lives as long as the writer does:
//
//   PrintJob job(parts, "Fiş");
//   const auto font = job.PrepareSlip();
//   if (!font) return;                                  // told
//   const PrinterMeasures measures(parts.world.printer, ScaleMode::Pixels);
//   Pen pen(measures, *font);
//   … rows are read, with job.GoOn(done, total) at each of them; false: set the cursors back and leave
//   if (job.Print(pen.Finish()).Ok()) …
//
// What stays true: Frame3 is disabled meanwhile. What lasts longer than half a second shows how far it is, with a button that stops it;
// until then taps and keys wait, and from then on the window hears that button alone, so no cursor moves under the writer. What is stopped
// or refused ends in KillDoc. Every end but the one at a row is told in the quiet line by Print; Prepare tells its refusals too.
#pragma once

#include <chrono>
#include <cstddef>
#include <expected>
#include <string>

#include "desk/parts.h"
#include "documents/drawing.h"
#include "platform/signal.h"

namespace karvel {

class PrintJob {
 public:
  // `document` is how the clerk calls it, with a capital: "Fiş", "Hesap dökümü". One print at a time.
  PrintJob(const DeskParts& parts, std::string document);
  ~PrintJob();
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;

  // The first steps of the page preparation: font, paper size and orientation of the current printer. Each answers the font of the body,
  // plain, for the pen; or why there can be no print, which the clerk was told. Slips and statements: "MS Sans Serif"; paper 78 with A5
  // checked, else Döks; orientation Döko.
  std::expected<PrintFont, Status> PrepareSlip();
  // Collection slip and Z report: the same font, and the paper that the printer has.
  std::expected<PrintFont, Status> PrepareOnPaperInUse();
  // Reports: the printer's own font, "Courier New Tur" where that is Arial, and the paper that it has.
  std::expected<PrintFont, Status> PrepareReport();
  // Invoices: YazFontName and YazFontSize, else "MS Sans Serif" 10; paper Prns, orientation Prno.
  PrintFont PrepareInvoice();

  // To be asked at each row of a long loop: `done` of `total` rows are dealt with (total 0: not known). Costs nothing between two pictures
  // of the progress. False: the clerk has stopped the print, which is told; nothing may be printed any more.
  [[nodiscard]] bool GoOn(std::size_t done, std::size_t total);
  [[nodiscard]] bool Stopped() const { return stopped_; }

  // Plays it on the current printer and hands the job over. Anything but Ok: it was stopped or refused, nothing was handed over, and the
  // quiet line says why.
  Status Print(const Drawing& drawing);

 private:
  using Clock = std::chrono::steady_clock;

  std::expected<PrintFont, Status> BodyFont(const std::string& name);
  Status Play(const Drawing& drawing);
  Status Draw(const DrawingStep& step);
  void ShowProgress(std::size_t done, std::size_t total);
  void TellRefusal(const Status& why);

  const DeskParts& parts_;
  const std::string document_;
  const bool choiceWasOpen_;
  Clock::time_point due_;  // when the progress is shown next
  bool shown_ = false, stopped_ = false, scannerWasOn_ = false, wasBusy_ = false;
  // What the panel of the progress showed before.
  bool panelWasVisible_ = false;
  std::string caption_;
  Connections connections_;
};

}  // namespace karvel
