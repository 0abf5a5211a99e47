// The backup by hand, on any drive, from its panel (Frame1); and the one at closing, on C:. Meanwhile this desk does nothing else, and
// shows how far it is (Frame5); the other terminals sell on.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class Backup {
 public:
  // Before the purge, so that what is left of a backup that was killed goes first.
  Backup(const DeskParts& parts, Signal<>& upkeep, Signal<>& closing);

  // A backup on a drive ("C:"), with the desk closed to the clerk meanwhile. The quiet line tells how it ended.
  Status Run(const std::string& drive);
  // What the clerk reads about a backup that failed: why, what follows from it, and where it was.
  [[nodiscard]] std::string FailureText(const Status& status, const std::string& consequence) const;

 private:
  void Offer();
  void RunByHand();
  void RunAtClosing();
  [[nodiscard]] std::string Offered(const std::string& drive) const;
  void ShowProgress(int percent);
  void TellFailure(const Status& status);

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
