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

  // A backup on a drive ("C:"), with the desk closed to the clerk meanwhile. Tells nothing at its end.
  Status Run(const std::string& drive);
  // What the clerk reads about a backup that failed.
  [[nodiscard]] static std::string FailureText(const Status& status);

 private:
  void Offer();
  void RunByHand();
  void RunAtClosing();
  void ShowProgress(int percent);
  void TellFailure(const Status& status);

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
