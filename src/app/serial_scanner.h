#pragma once

#include <QByteArray>
#include <QSerialPort>
#include <QString>
#include <QTimer>

#include "app/code_scanner.h"

namespace karvel {

class Settings;

// A barcode scanner on a serial port, or one on USB that presents itself as such: 8N1, port and speed as the settings say at each start.
// A code ends with CR, LF or both; its bytes are read as code page 1254.
//
// From Start to Stop an unplugged scanner is waited for: the port is tried again about once a second. A code that had come
// only in part is then dropped; whole ones are kept.
class SerialScanner : public CodeScanner {
 public:
  enum class Device {
    Expected,  // without one Start fails
    IfNamed,   // none is looked for unless the settings name a port; codes also come another way
  };
  // The settings are borrowed.
  SerialScanner(const Settings& settings, Device device);
  bool Start() override;
  void Stop() override;

 private:
  void ReadSettings();
  [[nodiscard]] bool Open();
  [[nodiscard]] bool OpenFirst();
  void TakeBytes();
  void Lost();

  const Settings& settings_;
  const Device device_;
  QString name_;  // empty: the first port found
  int speed_ = 0;
  QSerialPort port_;
  QTimer again_;
  QByteArray line_;
};

}  // namespace karvel
