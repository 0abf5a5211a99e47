#pragma once

#include <string>

namespace karvel {

// The desktop around the window.
class Shell {
 public:
  virtual ~Shell() = default;
  // True when this is the only running copy under this title and home; holds the place until the program ends, however it ends.
  virtual bool ClaimOnlyCopy(const std::string& title) = 0;
  // A desktop shortcut to this program under the title. Failures are ignored.
  virtual void MakeShortcut(const std::string& title) = 0;
  // Plays a sound file of the program folder, without waiting.
  virtual void PlaySound(const std::string& path) = 0;
};

}  // namespace karvel
