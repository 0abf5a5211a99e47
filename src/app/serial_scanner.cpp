#include "app/serial_scanner.h"

#include <QSerialPortInfo>

#include "platform/log.h"
#include "settings/settings.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// Longer than any code; a device that sends no end mark must not fill the memory.
constexpr int kLongestCode = 1024;
constexpr int kUsualSpeed = 9600;
constexpr int kLeastSpeed = 50;
constexpr int kTopSpeed = 4'000'000;
constexpr int kTryAgainMilliseconds = 1000;

}  // namespace

SerialScanner::SerialScanner(const Settings& settings, Device device) : settings_(settings), device_(device) {
  again_.setInterval(kTryAgainMilliseconds);
  QObject::connect(&again_, &QTimer::timeout, &again_, [this] {
    if (Open()) again_.stop();
  });
  // Queued: a code's handlers let events run, and a port reports no further bytes while its last report is being handled.
  QObject::connect(
      &port_, &QSerialPort::readyRead, &port_,
      [this] {
        TakeBytes();
        Report();
      },
      Qt::QueuedConnection);
  // A port that vanished fails in more than one way, with some drivers only by failing reads.
  QObject::connect(
      &port_, &QSerialPort::errorOccurred, &port_,
      [this] {
        if (port_.isOpen() && port_.error() != QSerialPort::NoError) Lost();
      },
      Qt::QueuedConnection);
}

bool SerialScanner::Start() {
  if (port_.isOpen()) return true;
  again_.stop();
  ReadSettings();
  if (name_.isEmpty() && device_ == Device::IfNamed) return true;
  if (Open()) return true;
  if (!name_.isEmpty()) Log("scanner " + name_.toStdString() + ": " + port_.errorString().toStdString());
  return false;
}

void SerialScanner::Stop() {
  again_.stop();
  port_.close();
  line_.clear();
  CodeScanner::Stop();
}

void SerialScanner::ReadSettings() {
  name_ = QString::fromStdString(settings_.Get(Setting::ScannerPort)).trimmed();
  const std::string told = settings_.Get(Setting::ScannerSpeed);
  bool isNumber = false;
  speed_ = QString::fromStdString(told).trimmed().toInt(&isNumber);
  if (isNumber && speed_ >= kLeastSpeed && speed_ <= kTopSpeed) return;
  Log("scanner: \"" + told + "\" is no speed, " + std::to_string(kUsualSpeed) + " is taken");
  speed_ = kUsualSpeed;
}

bool SerialScanner::Open() {
  port_.setBaudRate(speed_);
  if (name_.isEmpty()) return OpenFirst();
  port_.setPortName(name_);
  return port_.open(QIODevice::ReadOnly);
}

bool SerialScanner::OpenFirst() {
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    // The board's own ports (ttyS…) are there on every machine, with or without a scanner; USB ones only while it is plugged in.
    if (!info.hasVendorIdentifier()) continue;
    port_.setPort(info);
    if (port_.open(QIODevice::ReadOnly)) return true;
    if (!again_.isActive()) Log("scanner " + info.systemLocation().toStdString() + ": " + port_.errorString().toStdString());
  }
  return false;
}

void SerialScanner::TakeBytes() {
  if (!port_.isOpen()) return;
  for (const char byte : port_.readAll()) {
    if (byte != '\r' && byte != '\n') {
      if (line_.size() < kLongestCode) line_.append(byte);
      continue;
    }
    if (!line_.isEmpty()) Keep(FromCp1254({line_.constData(), static_cast<std::size_t>(line_.size())}));
    line_.clear();
  }
}

void SerialScanner::Lost() {
  Log("scanner " + port_.portName().toStdString() + ": gone, and tried again until it is back");
  TakeBytes();
  line_.clear();
  port_.close();
  again_.start();
  Report();
}

}  // namespace karvel
