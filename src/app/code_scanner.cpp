#include "app/code_scanner.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <utility>

namespace karvel {

CodeScanner::CodeScanner() {
  boxOver_.setSingleShot(true);
  boxOver_.setInterval(100);
  QObject::connect(&boxOver_, &QTimer::timeout, &boxOver_, [this] { Report(); });
}

void CodeScanner::Stop() {
  kept_.clear();
}

void CodeScanner::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Report();
}

void CodeScanner::Take(std::string code) {
  Keep(std::move(code));
  Report();
}

void CodeScanner::Report() {
  if (reporting_) return;
  const QScopedValueRollback<bool> reporting(reporting_, true);
  while (enabled_ && !kept_.empty()) {
    if (QApplication::activeModalWidget()) {
      boxOver_.start();
      return;
    }
    const std::string code = std::move(kept_.front());
    kept_.pop_front();
    codeRead(code);
  }
}

}  // namespace karvel
