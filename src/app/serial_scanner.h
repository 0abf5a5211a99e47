#pragma once

#include <QByteArray>
#include <QSerialPort>
#include <QString>
#include <deque>
#include <string>

#include "platform/scanner.h"

namespace karvel {

// A barcode scanner on a serial port (also one that shows itself as such on USB): the first port found, 9600 8N1.
// A code ends with CR, LF or both; its bytes are read as code page 1254.
class SerialScanner : public Scanner {
 public:
  SerialScanner();
  bool Start() override;
  void Stop() override;
  void SetEnabled(bool enabled) override;

 private:
  void ReadPort();
  void ReportKept();

  QSerialPort port_;
  QByteArray line_;
  std::deque<std::string> kept_;
  bool enabled_ = true;
};

}  // namespace karvel
