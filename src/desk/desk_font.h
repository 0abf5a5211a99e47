// The fonts of the desk: chosen in a dialog, kept, and given to form and lists at the start. Lists may have one of their own (EkrFont),
// which the next choice takes back.
#pragma once

#include "desk/parts.h"
#include "platform/messages.h"
#include "platform/signal.h"

namespace karvel {

class DeskFont {
 public:
  explicit DeskFont(const DeskParts& parts);
  // Gives form and lists the fonts that were kept; the theme's own where none was.
  void Apply();

 private:
  [[nodiscard]] FontChoice Kept() const;
  void Choose();  // a double tap on the form, or the menu

  Screen& screen_;
  Settings& settings_;
  const World& world_;
  Connections connections_;
};

}  // namespace karvel
