// What the clerk sees of a start that waits for another terminal or program, before there is a window: the same words in a small one.
#pragma once

#include <QLabel>

#include "desk/screen.h"
#include "platform/signal.h"

namespace karvel {

class StartNotice {
 public:
  // Follows the panel of waits (Frame5) for as long as it lives.
  explicit StartNotice(Screen& screen);

 private:
  void Follow();

  Screen& screen_;
  QLabel words_;
  Connections connections_;
};

}  // namespace karvel
