#pragma once

#include <QSize>
#include <QTemporaryFile>

namespace karvel {

// The screen that the robot works on. It has to be made before the application, and to live until that exists.
class RobotPlatform {
 public:
  // Without a display the robot works offscreen, on a screen of its own that the window fills.
  RobotPlatform();
  [[nodiscard]] bool IsOwnScreen() const { return ownScreen_; }
  // The size of its own screen, or of the window on a display, in pixels: KARVEL_SIZE ("1920x1080"), else 1024×768.
  [[nodiscard]] QSize WindowSize() const { return size_; }

 private:
  const QSize size_;
  bool ownScreen_ = false;
  QTemporaryFile screens_;
};

}  // namespace karvel
