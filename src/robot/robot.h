// Reads requests, one a line, and answers them in their order, one line each. A request begins when the desk's handlers for the one before
// have returned, even if they let events run meanwhile. It never begins while the desk enters a code of a device: the code's handlers let
// events run too, and the request would find the code half entered. A desk that waits for the network while it opens takes requests too.
#pragma once

#include <QObject>
#include <QTimer>
#include <cstdio>
#include <deque>
#include <optional>
#include <string>

#include "platform/signal.h"
#include "robot/line_input.h"
#include "robot/requests.h"

namespace karvel {

class CodeScanner;

class Robot : public QObject {
 public:
  // Begins when the window has been activated. The end of the input is a request to close.
  Robot(App& app, RobotWorld& world, int input, std::FILE* output);

 private:
  struct Waiting {
    std::string line;
    std::optional<Json> answer;  // of a line that was handled early
  };

  void Pump();
  void PumpSoon();
  void HandleEarly();
  void Close();
  void Answer(const Json& answer);

  DeskWindow& window_;
  const CodeScanner& scanner_;
  Requests requests_;
  std::FILE* const output_;
  LineInput input_;
  std::deque<Waiting> waiting_;
  Connections connections_;
  QTimer codeOver_;      // asks again while a device's code is entered
  bool ready_ = false;   // the window was activated
  bool busy_ = false;    // a request's handlers are running
  bool ended_ = false;   // no more input
  bool closed_ = false;  // the window is gone
};

}  // namespace karvel
