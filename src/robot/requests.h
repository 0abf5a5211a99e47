// What the robot can be asked to do: one handler a request, found by the word in its "do".
#pragma once

#include <functional>
#include <map>
#include <string>

#include "robot/answers.h"
#include "robot/hand.h"
#include "robot/printed_jobs.h"
#include "robot/robot_world.h"
#include "robot/targets.h"

namespace karvel {

class App;
class CodeScanner;
class Desk;
class DeskWindow;
class ScannerKeys;

class Requests {
 public:
  // Both outlive the requests.
  Requests(App& app, RobotWorld& world);

  // Does what one line asks and returns its answer, {"ok":true,…} or {"ok":false,"error":"…"}, when the desk's handlers have returned.
  // No line makes it throw.
  [[nodiscard]] Json Handle(const std::string& line);
  // Does what a line asks that is about the world outside and needs no desk, also while the desk is in the middle of something that waits
  // for it. So does a tap on the
  // one element that the window hears. Nothing for any other line.
  [[nodiscard]] std::optional<Json> HandleEarly(const std::string& line);
  // The desk that opens waits for the network, and only a request can bring it.
  [[nodiscard]] bool DeskAwaitsConnection() const;

 private:
  using Handler = std::function<Json(const Json& request)>;
  Json Do(const Json& request);
  void AddHandHandlers();
  void AddWorldHandlers();
  Json DoTap(const Json& request, Tap tap);
  Json DoDrag(const Json& request);
  Json DoType(const Json& request);
  Json DoKey(const Json& request);
  Json DoRow(const Json& request);
  Json DoPick(const Json& request, const Target& target);
  Json DoHead(const Json& request);
  Json DoScan(const Json& request);
  Json DoClock(const Json& request);
  Json DoShot(const Json& request);
  // Gives the target the focus as Tab does; an element that doesn't take it is a RequestError.
  void Focus(const Target& target) const;

  Desk& desk_;
  DeskWindow& window_;
  CodeScanner& scanner_;
  ScannerKeys& scannerKeys_;
  RobotWorld& world_;
  PrintedJobs printed_;
  Targets targets_;
  std::map<std::string, Handler, std::less<>> handlers_;
};

}  // namespace karvel
