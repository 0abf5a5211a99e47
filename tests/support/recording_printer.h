// A printer that keeps what is printed, with letters of one width: twice the font's points in pixels, lines four times. So a test can tell
// where a text must stand.
#pragma once

#include <string>
#include <vector>

#include "platform/barcode.h"
#include "platform/printer.h"
#include "text/turkish.h"

namespace karvel {

class RecordingPrinter final : public Printer {
 public:
  static constexpr double kTwipsPerPixel = 1440.0 / 203;

  struct Text {
    std::string text;
    double x = 0, y = 0, width = 0;  // in the unit of the scale mode
    PrintFont font;
    int page = 1;
  };
  struct Rule {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    int page = 1;
  };
  struct Painted {
    Picture picture;
    double x = 0, y = 0, width = 0, height = 0;
    int page = 1;
  };
  struct Job {
    std::string printer;
    int paperSize = 0;
    int copies = 1;
    ScaleMode scale = ScaleMode::Pixels;
    std::vector<Text> texts;
    std::vector<Rule> rules;
    std::vector<Painted> pictures;
    int pages = 1;
    std::string end;  // "EndDoc" or "KillDoc"; "" while it is open

    [[nodiscard]] std::vector<std::string> Lines() const {
      std::vector<std::string> lines;
      for (const Text& drawn : texts) lines.push_back(drawn.text);
      return lines;
    }
  };

  std::vector<PrinterDevice> devices{{"Velmora PDF", "", ""}};
  std::vector<Job> jobs;
  double pageWidth = 1600, pageHeight = 2250;  // pixels
  Status fault;                                // answered by what is drawn from now on, and by EndDoc
  int drawsBeforeFault = 0;                    // so many drawings still work

  [[nodiscard]] std::vector<PrinterDevice> Printers() const override { return devices; }
  [[nodiscard]] PrinterDevice Current() const override { return devices[current_]; }
  bool MakeCurrent(const std::string& deviceName) override {
    for (std::size_t i = 0; i < devices.size(); ++i) {
      if (devices[i].deviceName != deviceName) continue;
      current_ = i;
      font_ = {"Arial", 8};
      paperSize_ = paper::kA4;
      return true;
    }
    return false;
  }
  [[nodiscard]] int PaperSize() const override { return paperSize_; }
  [[nodiscard]] karvel::Orientation Orientation() const override { return orientation_; }
  [[nodiscard]] int Copies() const override { return copies_; }
  void SetPaperSize(int size) override { paperSize_ = size > 0 ? size : paper::kA4; }
  void SetOrientation(karvel::Orientation orientation) override { orientation_ = orientation; }
  void SetCopies(int copies) override { copies_ = copies; }
  void SetScaleMode(ScaleMode mode) override { scale_ = mode; }
  [[nodiscard]] const PrintFont& Font() const override { return font_; }
  void SetFont(const PrintFont& font) override { font_ = font; }
  [[nodiscard]] double TextWidth(const std::string& text) const override {
    return static_cast<double>(LetterCount(text)) * font_.size * 2 * Unit();
  }
  [[nodiscard]] double LineHeight() const override { return font_.size * 4 * Unit(); }
  [[nodiscard]] double ScaleWidth() const override { return pageWidth * Unit(); }
  [[nodiscard]] double ScaleHeight() const override { return pageHeight * Unit(); }

  Status PrintText(double x, double y, const std::string& text) override {
    return Draw([&](Job& job) { job.texts.push_back({text, x, y, TextWidth(text), font_, job.pages}); });
  }
  Status Line(double x1, double y1, double x2, double y2) override {
    return Draw([&](Job& job) { job.rules.push_back({x1, y1, x2, y2, job.pages}); });
  }
  Status PaintPicture(const Picture& picture, double x, double y, double width, double height) override {
    return Draw([&](Job& job) { job.pictures.push_back({picture, x, y, width, height, job.pages}); });
  }
  Status NewPage() override {
    return Draw([](Job& job) { ++job.pages; });
  }
  Status EndDoc() override {
    if (!open_) return {};
    if (!fault.Ok()) {
      KillDoc();
      return fault;
    }
    jobs.back().end = "EndDoc";
    open_ = false;
    return {};
  }
  void KillDoc() override {
    if (!open_) return;
    jobs.back().end = "KillDoc";
    open_ = false;
  }

 private:
  [[nodiscard]] double Unit() const { return scale_ == ScaleMode::Twips ? kTwipsPerPixel : 1; }

  template <typename Work>
  Status Draw(const Work& work) {
    if (!open_) {
      jobs.emplace_back();
      jobs.back().printer = Current().deviceName;
      jobs.back().paperSize = paperSize_;
      jobs.back().copies = copies_;
      jobs.back().scale = scale_;
      open_ = true;
    }
    if (!fault.Ok() && drawsBeforeFault <= 0) return fault;
    if (!fault.Ok()) --drawsBeforeFault;
    work(jobs.back());
    return {};
  }

  std::size_t current_ = 0;
  int paperSize_ = paper::kA4, copies_ = 1;
  karvel::Orientation orientation_ = karvel::Orientation::Portrait;
  ScaleMode scale_ = ScaleMode::Twips;
  PrintFont font_{"Arial", 8};
  bool open_ = false;
};

// A black square that tells what it would hold.
class PlainBarcodes final : public Barcodes {
 public:
  [[nodiscard]] std::expected<Picture, Status> Code128(const std::string& text, int module, int height) const override {
    asked.push_back(text);
    const int width = static_cast<int>(11 * (text.size() + 4)) * module;
    return Picture{width, height, std::vector<bool>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), true)};
  }
  mutable std::vector<std::string> asked;
};

}  // namespace karvel
