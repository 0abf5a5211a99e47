#pragma once

#include <QTimer>
#include <deque>
#include <string>

#include "platform/scanner.h"

namespace karvel {

// The line in which scanned codes wait for the desk, whoever read them: a device, a scanner that types, a request to the robot.
//
// What stays true:
// - Codes are reported in the order in which they came, each once. The next is reported when the handlers of the one before have returned,
//   even if those let events run.
// - While it is switched off, or a box stands over the desk, codes wait: the Enter that follows a code must not answer the box.
class CodeScanner : public Scanner {
 public:
  CodeScanner();
  // There is no device that could be missing.
  bool Start() override { return true; }
  // Drops what waits.
  void Stop() override;
  void SetEnabled(bool enabled) override;
  [[nodiscard]] bool Enabled() const override { return enabled_; }

  // Takes a whole code into the line.
  void Take(std::string code);
  // Whether the handlers of a code are running.
  [[nodiscard]] bool Reporting() const { return reporting_; }

 protected:
  void Keep(std::string code) { kept_.push_back(std::move(code)); }
  void Report();

 private:
  std::deque<std::string> kept_;
  QTimer boxOver_;  // asks again while a box is open
  bool enabled_ = true, reporting_ = false;
};

}  // namespace karvel
