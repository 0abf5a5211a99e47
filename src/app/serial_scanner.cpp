#include "app/serial_scanner.h"

#include <QSerialPortInfo>

#include "platform/log.h"
#include "text/turkish.h"

namespace karvel {
namespace {
// Longer than any code; a device that sends no end mark must not fill the memory.
constexpr int kLongestCode = 1024;
}  // namespace

SerialScanner::SerialScanner() {
  QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { ReadPort(); });
}

bool SerialScanner::Start() {
  if (port_.isOpen()) return true;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    // The board's own ports (ttyS…) are there on every machine, with or without a scanner; USB ones only while it is plugged in.
    if (!info.hasVendorIdentifier()) continue;
    port_.setPort(info);
    port_.setBaudRate(QSerialPort::Baud9600);
    if (port_.open(QIODevice::ReadOnly)) return true;
    Log("scanner " + info.systemLocation().toStdString() + ": " + port_.errorString().toStdString());
  }
  return false;
}

void SerialScanner::Stop() {
  port_.close();
  line_.clear();
  kept_.clear();
}

void SerialScanner::SetEnabled(bool enabled) {
  enabled_ = enabled;
  ReportKept();
}

void SerialScanner::ReadPort() {
  for (const char byte : port_.readAll()) {
    if (byte != '\r' && byte != '\n') {
      if (line_.size() < kLongestCode) line_.append(byte);
      continue;
    }
    if (!line_.isEmpty()) kept_.push_back(FromCp1254({line_.constData(), static_cast<std::size_t>(line_.size())}));
    line_.clear();
  }
  ReportKept();
}

void SerialScanner::ReportKept() {
  while (enabled_ && !kept_.empty()) {
    const std::string code = kept_.front();
    kept_.pop_front();
    codeRead(code);
  }
}

}  // namespace karvel
