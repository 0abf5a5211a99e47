#include "robot/robot.h"

#include <QCoreApplication>
#include <QTimer>
#include <utility>

#include "app/app.h"
#include "app/code_scanner.h"
#include "app/desk_window.h"
#include "app/qt_event_loop.h"
#include "desk/desk.h"

namespace karvel {

Robot::Robot(App& app, RobotWorld& world, int input, std::FILE* output)
    : window_(app.TheWindow()),
      scanner_(app.TheScanner()),
      requests_(app, world),
      output_(output),
      input_(
          input,
          [this](std::string line) {
            waiting_.push_back({std::move(line), std::nullopt});
            HandleEarly();
            PumpSoon();
          },
          [this] {
            ended_ = true;
            PumpSoon();
          }) {
  codeOver_.setSingleShot(true);
  codeOver_.setInterval(1);
  connect(&codeOver_, &QTimer::timeout, this, &Robot::Pump);
  connect(&window_, &DeskWindow::activated, this, [this] {
    ready_ = true;
    PumpSoon();
  });
  connections_ += app.TheDesk().screen.BağlantıFrm.altered.Connect([this] { PumpSoon(); });
  connections_ += app.TheDesk().screen.DurCmd.altered.Connect([this] { PumpSoon(); });
  connect(&window_, &DeskWindow::closed, this, [this] { closed_ = true; });
}

void Robot::PumpSoon() {
  QTimer::singleShot(0, this, &Robot::Pump);
}

void Robot::Pump() {
  if (closed_) return;
  if (QtEventLoop::InputIsHeld()) {
    codeOver_.start();  // the desk waits for another terminal outside any request
    return;
  }
  const bool codeEntered = scanner_.Reporting();
  const bool opened = ready_ || requests_.DeskAwaitsConnection();
  if (!opened || busy_ || codeEntered) {
    HandleEarly();
    if (codeEntered && !busy_) codeOver_.start();
    if (!ready_ && ended_ && waiting_.empty()) Close();  // nobody is there to wait for
    return;
  }
  if (waiting_.empty()) {
    if (ended_) Close();
    return;
  }
  // One request a round, so that the main loop has its turn between two: only there do deferred deletions happen.
  busy_ = true;
  const Waiting next = std::move(waiting_.front());
  waiting_.pop_front();
  Answer(next.answer ? *next.answer : requests_.Handle(next.line));
  busy_ = false;
  PumpSoon();
}

void Robot::HandleEarly() {
  for (Waiting& next : waiting_) {
    if (!next.answer) next.answer = requests_.HandleEarly(next.line);
    if (!next.answer) break;
  }
  for (; !busy_ && !waiting_.empty() && waiting_.front().answer; waiting_.pop_front()) Answer(*waiting_.front().answer);
}

void Robot::Close() {
  busy_ = true;
  window_.close();
  // A desk that refuses to close has no one left to tell.
  QCoreApplication::exit(0);
}

void Robot::Answer(const Json& answer) {
  // Damaged letters in a text must not end the robot.
  const std::string line = answer.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
  std::fwrite(line.data(), 1, line.size(), output_);
  std::fflush(output_);
}

}  // namespace karvel
