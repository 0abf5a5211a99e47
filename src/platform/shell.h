#pragma once

#include <expected>
#include <string>

#include "platform/signal.h"
#include "platform/status.h"

namespace karvel {

// Whether a copy of the program has its terminal to itself.
enum class Claim { Ours, Taken };

// The desktop around the window.
class Shell {
 public:
  virtual ~Shell() = default;
  // Ours when this is the only running copy under this title and home; holds the place until the program ends, however it ends. Taken when
  // another copy has it: that one hears `startedAgain`. A failure, with the folder as its place, when nobody can tell.
  virtual std::expected<Claim, Status> ClaimOnlyCopy(const std::string& title) = 0;
  // Somebody started a further copy of this terminal, which has ended: he wants to see this one.
  Signal<> startedAgain;
  // A desktop shortcut to this program under the title. Failures are ignored.
  virtual void MakeShortcut(const std::string& title) = 0;
  // Plays a sound file of the program folder, without waiting.
  virtual void PlaySound(const std::string& path) = 0;
};

}  // namespace karvel
