// The jobs that the desk printed, in the form of the protocol, until they are asked for. Every one of them lies as a PDF in the home: where
// "Velmora PDF" has put it, else in its folder "printed", also what was thrown away as far as it was drawn.
#pragma once

#include <string>

#include "app/qt_printer.h"
#include "robot/json.h"

namespace karvel {

class PrintedJobs {
 public:
  // Hears of the jobs of the printer, which outlives this.
  PrintedJobs(QtPrinter& printer, const std::string& home);
  [[nodiscard]] Json Take();

 private:
  void Add(const EndedJob& job);
  [[nodiscard]] std::string Keep(const QByteArray& pdf);

  const std::string folder_;
  int kept_ = 0;
  Json jobs_ = Json::array();
  Connections connections_;
};

}  // namespace karvel
