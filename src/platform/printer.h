// The printing object of the system: one printer is current, a job begins with the first thing that is drawn and ends with EndDoc or
// KillDoc. What is drawn with one pen and measures stands in documents/pen.h; this is what a machine has to bring.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/status.h"

namespace karvel {

// What positions and measures are told in, numbered as in the platform. A twip is the twentieth of a point, a pixel a dot of the device.
enum class ScaleMode { Twips = 1, Pixels = 3 };

// Numbered as in the platform.
enum class Orientation { Portrait = 1, Landscape = 2 };

// Sizes that the writers ask for by their number.
namespace paper {
inline constexpr int kA4 = 9, kA5 = 11, kSmallSlip = 78;
inline constexpr int kFirstRoll = 256;  // roll media of a printer have stable numbers from here
}  // namespace paper

struct PrinterDevice {
  std::string deviceName, driverName, port;
};

struct PrintFont {
  std::string name;  // a font that the machine lacks is replaced by a near one of its width class
  double size = 0;   // points
  bool bold = false, underline = false, strikethru = false;
  bool operator==(const PrintFont&) const = default;
};

// Black and white, row by row from the upper left; true is black.
struct Picture {
  int width = 0, height = 0;
  std::vector<bool> dots;
};

class Printer {
 public:
  virtual ~Printer() = default;

  // Those of the system, and always "Velmora PDF", which writes files into C:\KarvelData\Belgeler\.
  [[nodiscard]] virtual std::vector<PrinterDevice> Printers() const = 0;
  // The current one: at the start the system's own, "Velmora PDF" where it has none.
  [[nodiscard]] virtual PrinterDevice Current() const = 0;
  // The first of exactly this name becomes current, with its own paper and the font "Arial". false: there is none, and nothing changes.
  virtual bool MakeCurrent(const std::string& deviceName) = 0;

  [[nodiscard]] virtual int PaperSize() const = 0;
  [[nodiscard]] virtual karvel::Orientation Orientation() const = 0;
  [[nodiscard]] virtual int Copies() const = 0;
  // For the jobs from now on. A size that the printer doesn't know is its own paper.
  virtual void SetPaperSize(int size) = 0;
  virtual void SetOrientation(karvel::Orientation orientation) = 0;
  virtual void SetCopies(int copies) = 0;
  virtual void SetScaleMode(ScaleMode mode) = 0;

  [[nodiscard]] virtual const PrintFont& Font() const = 0;
  virtual void SetFont(const PrintFont& font) = 0;

  // In the unit of the scale mode, with the current font; the area is the printable one.
  [[nodiscard]] virtual double TextWidth(const std::string& text) const = 0;
  [[nodiscard]] virtual double LineHeight() const = 0;
  [[nodiscard]] virtual double ScaleWidth() const = 0;
  [[nodiscard]] virtual double ScaleHeight() const = 0;

  // Drawing, from the upper left of the printable area of the page in hand. The first begins the job: a printer that refuses it answers
  // here, and what is drawn then goes nowhere.
  virtual Status PrintText(double x, double y, const std::string& text) = 0;
  virtual Status Line(double x1, double y1, double x2, double y2) = 0;
  virtual Status PaintPicture(const Picture& picture, double x, double y, double width, double height) = 0;
  virtual Status NewPage() = 0;

  // Hands the job to the system. What went wrong since it began is told here at the latest; then nothing was handed over.
  virtual Status EndDoc() = 0;
  // Throws the job away. Without one nothing happens.
  virtual void KillDoc() = 0;
};

}  // namespace karvel
